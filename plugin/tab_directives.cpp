// Directives on the window's tabs.
#include "canvas/picker_view.h"
#include "plugin/directive_args.h"
#include "plugin/picker_main.h"
#include "window/picker_window.h"

#include <QTabWidget>

MStatus picker_main::save(const MStringArray&) {
    if (current_picker_view())
        picker_window_instance()->save_current();
    return MS::kSuccess;
}

MStatus picker_main::saveas(const MStringArray&) {
    if (current_picker_view())
        picker_window_instance()->saveas_current();
    return MS::kSuccess;
}

MStatus picker_main::new_tab(const MStringArray&) {
    if (picker_window* window = picker_window_instance())
        window->new_tab();
    return MS::kSuccess;
}

MStatus picker_main::close_tab(const MStringArray&) {
    // The tab bar's operation, without its question.
    picker_window* window = picker_window_instance();
    if (current_picker_view() && window->tabs->currentIndex() >= 0)
        window->close_tab(window->tabs->currentIndex());
    return MS::kSuccess;
}

MStatus picker_main::clear_tabs(const MStringArray&) {
    if (picker_window* window = picker_window_instance())
        window->clear_tabs();
    return MS::kSuccess;
}

MStatus picker_main::rename_tab(const MStringArray& args) {
    picker_window* window = picker_window_instance();
    if (!current_picker_view() || window->tabs->currentIndex() < 0 || args.length() < 1)
        return MS::kSuccess;
    const QString name = arg_text(args, 0);
    if (!name.isEmpty())
        window->tabs->setTabText(window->tabs->currentIndex(), name);
    return MS::kSuccess;
}

MStatus picker_main::query_tabs(const MStringArray&) {
    clearResult();
    if (picker_window* window = picker_window_instance()) {
        for (int i = 0; i < window->tabs->count(); ++i)
            appendToResult(MQtUtil::toMString(window->tabs->tabText(i)));
    }
    return MS::kSuccess;
}

MStatus picker_main::set_tab(const MStringArray& args) {
    picker_window* window = picker_window_instance();
    if (!window || args.length() < 1)
        return MS::kSuccess;
    // No early exit: of two tabs with the title, the later one ends up current.
    const QString title = arg_text(args, 0);
    for (int i = 0; i < window->tabs->count(); ++i) {
        if (window->tabs->tabText(i) == title)
            window->tabs->setCurrentIndex(i);
    }
    return MS::kSuccess;
}

MStatus picker_main::open(const MStringArray& args) {
    if (picker_window* window = picker_window_instance())
        window->open_files(arg_list(args));
    return MS::kSuccess;
}
