// The directives that change the host selection. They hold the lock while the host
// raises its events, then read the selection back once themselves.
#include "plugin/directive_args.h"
#include "plugin/lifecycle.h"
#include "plugin/picker_globals.h"
#include "plugin/picker_main.h"

#include <maya/MGlobal.h>

MStatus picker_main::clear(const MStringArray&) {
    picker_lock.lock();
    const MStatus status = MGlobal::clearSelectionList();
    picker_lock.unlock();
    on_selection_changed();
    return status;
}

MStatus picker_main::select(const MStringArray& args) {
    if (args.length() == 0)
        return clear(args);
    picker_lock.lock();
    // Replace with the first name that exists, then add it and every later one.
    MStatus status;
    unsigned int first = 0;
    for (; first < args.length(); ++first) {
        status = MGlobal::selectByName(args[first], MGlobal::kReplaceList);
        if (status)
            break;
    }
    for (unsigned int i = first; i < args.length(); ++i)
        status = MGlobal::selectByName(args[i], MGlobal::kAddToList);
    picker_lock.unlock();
    on_selection_changed();
    return status;
}
