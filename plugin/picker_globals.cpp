#include "plugin/picker_globals.h"

QPointer<QDockWidget> picker_dock;
QMutex picker_lock;
bool batch_mode = false;
