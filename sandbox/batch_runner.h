#pragma once
// The headless runner: each -c text and each script file is one execution of the script
// editor, after which the idle queue is drained.
#include <QString>
#include <QStringList>

namespace sandbox {

struct batch_options {
    QString scene;       // a .ma to open first
    QStringList steps;   // "-c" texts and "@file" scripts, in order
    QStringList plugins; // plug-in libraries to load first
};

// Returns the process exit code: 1 if any error was printed, else 0.
int run_batch(const batch_options& options);

} // namespace sandbox
