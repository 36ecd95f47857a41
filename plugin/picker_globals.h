#pragma once
// Process-wide state of the plug-in: alive from load to unload.
#include <QDockWidget>
#include <QMutex>
#include <QPointer>

// The dock that holds the picker window; null until the first command call. Every user
// tests it for life first: the host may destroy the dock behind our back.
extern QPointer<QDockWidget> picker_dock;

// Guards against re-entry while the picker changes the host selection itself; not a lock
// between threads (everything runs on the host's main thread).
extern QMutex picker_lock;

// Set by the batch-mode directives: the button directives then hold back changed() (so the
// scene write) and the toolbox refresh; they still repaint.
extern bool batch_mode;
