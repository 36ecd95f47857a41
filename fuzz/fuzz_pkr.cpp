// A .pkr file as File > Open and the `open` directive read it: the window's open_files,
// then what follows an open: the scene write and the namespace binding on idle, a paint,
// and a selection made with the mouse and sent to the host.
#include "picker_host.h"

#include <QByteArray>

FUZZ_START_WITH_PICKER_WINDOW()

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), int(size));
    fuzz::picker(
        {QStringLiteral("open"), fuzz::write_work_file(QStringLiteral("input.pkr"), bytes)});
    fuzz::paint_current_view();
    fuzz::select_with_mouse();
    fuzz::run_idle_and_check();
    fuzz::reset(fuzz::what_changed::added_tabs);
    return 0;
}
