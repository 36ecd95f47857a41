#pragma once
// The interactive sandbox: the main window on the demo scene (or a given one), the
// plug-in loaded, the idle queue pumped by the event loop.
#include "batch_runner.h"

namespace sandbox {

struct window_options : batch_options {
    QString screenshot; // grab the screen into this file once started, then quit
};

int run_window(const window_options& options);

} // namespace sandbox
