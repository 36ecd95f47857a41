#include "plugin/picker_main.h"

#include "canvas/picker_view.h"
#include "plugin/lifecycle.h"
#include "plugin/picker_globals.h"
#include "plugin/report_status.h"
#include "plugin/window_geometry.h"
#include "window/picker_window.h"

#include <QDockWidget>
#include <QIcon>
#include <QMainWindow>
#include <QTabWidget>
#include <maya/MGlobal.h>
#include <maya/MQtUtil.h>

picker_window* picker_window_instance() {
    return picker_dock ? qobject_cast<picker_window*>(picker_dock->widget()) : nullptr;
}

picker_view* current_picker_view() {
    picker_window* window = picker_window_instance();
    if (!window || window->tabs->count() < 1)
        return nullptr;
    return qobject_cast<picker_view*>(window->tabs->currentWidget());
}

namespace {

void create_picker_window() {
    auto* main_window = qobject_cast<QMainWindow*>(MQtUtil::mainWindow());
    picker_dock = new QDockWidget(nullptr, Qt::WindowFlags());
    // The main window remembers a dock by its name after the dock is gone, and may
    // outlive this library: the name must not point into it.
    picker_dock->setObjectName(QString::fromLatin1("ZelvaniPicker"));
    picker_dock->setWidget(new picker_window(picker_dock));
    if (main_window)
        main_window->addDockWidget(Qt::RightDockWidgetArea, picker_dock);
    // A free window that cannot dock.
    picker_dock->setFloating(true);
    picker_dock->setAllowedAreas(Qt::NoDockWidgetArea);
    Qt::WindowFlags flags = picker_dock->windowFlags();
    flags &= ~Qt::WindowFlags(0x2 | 0x8);
    flags |= Qt::Window | Qt::WindowMinimizeButtonHint | Qt::WindowMaximizeButtonHint |
             Qt::WindowCloseButtonHint | Qt::CustomizeWindowHint;
    picker_dock->setWindowFlags(flags);
    picker_dock->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable |
                             QDockWidget::DockWidgetFloatable);
    picker_dock->setWindowTitle(QStringLiteral("ZelvaniPicker"));
    picker_dock->setWindowIcon(QIcon(QStringLiteral(":/resources/ZelvaniLogo.png")));
    read_window_geometry();
    picker_dock->show();
    restore_scene_pickers();
}

// A call without arguments brings the window back to where the settings say.
void show_picker_window() {
    if (picker_window* window = picker_window_instance()) {
        if (!window->isVisible())
            window->show();
    }
    read_window_geometry();
    if (!picker_dock->isVisible())
        picker_dock->showNormal();
    else if (picker_dock->isActiveWindow())
        picker_dock->raise();
    on_selection_changed();
}

// The directive's arguments: one string array at index 1, or one string each.
MStatus read_arguments(const MArgList& args, unsigned int count, MStringArray& out) {
    if (count == 2) {
        unsigned int index = 1;
        MStringArray array;
        if (args.get(index, array)) {
            out = array;
            return MS::kSuccess;
        }
    }
    for (unsigned int i = 1; i < count; ++i) {
        MString value;
        const MStatus status = args.get(i, value);
        if (!status)
            return status;
        out.append(value);
    }
    return MS::kSuccess;
}

} // namespace

picker_main::~picker_main() = default;

void* picker_main::creator() {
    return new picker_main;
}

MStatus picker_main::doIt(const MArgList& args) {
    MStatus status;
    const unsigned int count = args.length(&status);
    if (!status)
        return report_status(status,
                             QStringLiteral("could not determine the number of parameters"));
    if (!picker_dock)
        create_picker_window();
    if (count == 0) {
        show_picker_window();
        return MS::kSuccess;
    }
    const MString name = args.asString(0, &status);
    if (!status)
        return report_status(status, QStringLiteral("could not parse the command"));
    MStringArray arguments;
    status = read_arguments(args, count, arguments);
    if (!status)
        return report_status(status, QStringLiteral("could not parse the command"));
    return dispatch(name, arguments);
}
