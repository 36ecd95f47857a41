#pragma once
// The sandbox's demo scene with the plug-in loaded and its window open on the scene's
// picker, as a user finds them after clicking the shelf button.
#include "core/session.h"
#include "demo_scene.h"

#include <QtTest>

inline void open_demo_picker() {
    host::session& host = host::session::get();
    QString error;
    QVERIFY2(sandbox::open_demo_scene(&error), qPrintable(error));
    QVERIFY(host.load_plugin(ZELVANI_PLUGIN_PATH));
    host.run_idle();
    host.execute("ZelvaniPicker;");
    host.run_idle();
}
