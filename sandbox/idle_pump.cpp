#include "idle_pump.h"

#include "core/session.h"

#include <QAbstractEventDispatcher>
#include <QTimer>

namespace sandbox {

idle_pump::idle_pump(QObject* parent) : QObject(parent) {
    connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
            &idle_pump::about_to_block);
}

void idle_pump::about_to_block() {
    // Never run inside the dispatcher itself: a queued entry may open a dialog.
    if (scheduled_ || host::session::get().idle.empty())
        return;
    scheduled_ = true;
    QTimer::singleShot(0, this, &idle_pump::run);
}

void idle_pump::run() {
    scheduled_ = false;
    if (host::session::get().run_idle() > 0)
        emit drained();
}

} // namespace sandbox
