#pragma once
// The plug-in loaded as the host loads it, for benchmarks that drive it through MEL.
#include "core/session.h"

#include <cstdio>

// Before the application is made: no display needed unless one is asked for.
inline void headless_unless_asked() {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

// Loads the plug-in, then runs `startup` and the idle queue.
inline bool load_picker_plugin(const QString& startup) {
    host::session& host = host::session::get();
    QString error;
    if (!host.load_plugin(QStringLiteral(ZELVANI_PLUGIN_PATH), &error)) {
        std::fprintf(stderr, "%s\n", qPrintable(error));
        return false;
    }
    host.execute(startup);
    host.run_idle();
    return true;
}
