// The menu bar, the commands behind it, the window's keys and the About box.
#include "canvas/action_keys.h"
#include "canvas/picker_view.h"
#include "document/picker_clipboard.h"
#include "document/selected_objects.h"
#include "window/held_dialog.h"
#include "window/picker_settings.h"
#include "window/picker_window.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QTabWidget>
#include <maya/MGlobal.h>

// An entry of `menu`. Window keys are matched by keyPressEvent among the window's own
// actions, so entries whose key must not fire from there stay off the window.
QAction* picker_window::menu_action(QMenu* menu, const QString& text, const QString& keys,
                                    const char* slot, bool window_key) {
    QAction* action = menu->addAction(text);
    if (!keys.isEmpty())
        action->setShortcut(QKeySequence(keys));
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, SIGNAL(triggered()), this, slot);
    if (window_key)
        addAction(action);
    return action;
}

void picker_window::make_menus() {
    file_menu = menu_bar->addMenu(tr("&File"));
    edit_menu = menu_bar->addMenu(tr("&Edit"));
    picker_menu = menu_bar->addMenu(tr("&Picker"));
    help_menu = menu_bar->addMenu(tr("&Help"));
    help_menu->setToolTipsVisible(true);

    new_action = menu_action(file_menu, tr("New..."), QStringLiteral("Ctrl+N"), SLOT(new_tab()));
    open_action = menu_action(file_menu, tr("Open..."), QStringLiteral("Ctrl+O"), SLOT(open_tab()));
    file_menu->addSeparator();
    save_action =
        menu_action(file_menu, tr("Save"), QStringLiteral("Ctrl+S"), SLOT(request_save()));
    saveas_action = menu_action(file_menu, tr("Save As..."), {}, SLOT(request_saveas()));
    file_menu->addSeparator();
    rename_action = menu_action(file_menu, tr("Rename Tab..."), {}, SLOT(rename_tab()));
    close_action =
        menu_action(file_menu, tr("Close Tab..."), QStringLiteral("Ctrl+W"), SLOT(close_current()));
    file_menu->addSeparator();
    exit_action = file_menu->addAction(tr("Exit Picker"));
    exit_action->setShortcut(QKeySequence(QStringLiteral("Ctrl+Shift+W")));
    exit_action->setShortcutContext(Qt::WidgetShortcut);
    addAction(exit_action);
    if (parentWidget())
        connect(exit_action, SIGNAL(triggered()), parentWidget(), SLOT(close()));

    undo_action = menu_action(edit_menu, tr("Undo"), QStringLiteral("Ctrl+Z"), SLOT(do_undo()));
    redo_action =
        menu_action(edit_menu, tr("Redo"), QStringLiteral("Shift+Ctrl+Z"), SLOT(do_redo()));
    edit_menu->addSeparator();
    cut_action = menu_action(edit_menu, tr("Cut"), QStringLiteral("Ctrl+X"), SLOT(cut_buttons()));
    copy_action =
        menu_action(edit_menu, tr("Copy"), QStringLiteral("Ctrl+C"), SLOT(copy_buttons()));
    paste_action =
        menu_action(edit_menu, tr("Paste"), QStringLiteral("Ctrl+V"), SLOT(paste_buttons()));
    // Shown with its key, but the window's key handling never fires it.
    paste_inplace_action =
        menu_action(edit_menu, tr("Paste in Place"), QStringLiteral("Shift+Ctrl+V"),
                    SLOT(paste_inplace_buttons()), false);
    edit_menu->addSeparator();
    toolbox_action = menu_action(edit_menu, tr("Hide Toolbox"), {}, SLOT(toggle_toolbox()));

    add_one_action = menu_action(picker_menu, tr("Add One Button"), {}, SLOT(add_one_button()));
    add_many_action =
        menu_action(picker_menu, tr("Add Many Buttons"), {}, SLOT(add_many_buttons()));
    update_button_action = menu_action(picker_menu, tr("Update Button"), {}, SLOT(update_button()));
    picker_menu->addSeparator();
    change_background_action =
        menu_action(picker_menu, tr("Change Background..."), {}, SLOT(change_background()));
    resize_background_action =
        menu_action(picker_menu, tr("Resize Background..."), {}, SLOT(resize_background()));
    change_namespace_action =
        menu_action(picker_menu, tr("Change Namespace..."), {}, SLOT(change_namespace()), false);

    about_action = menu_action(help_menu, tr("About ZelvaniPicker..."), {}, SLOT(about_dialog()));
    auto_switch_action = menu_action(help_menu, tr("Toggle Auto Tab Switching"), {},
                                     SLOT(toggle_auto_tab_switching()));
    auto_switch_action->setCheckable(true);
    auto_switch_action->setToolTip(tr("Prevents switching picker tabs when selection changes"));

    connect(file_menu, SIGNAL(aboutToShow()), this, SLOT(updateFileMenu()));
    connect(edit_menu, SIGNAL(aboutToShow()), this, SLOT(updateEditMenu()));
    connect(picker_menu, SIGNAL(aboutToShow()), this, SLOT(updatePickerMenu()));
}

void picker_window::updateFileMenu() {
    const bool any = tabs->count() > 0;
    for (QAction* action : {save_action, saveas_action, rename_action, close_action})
        action->setEnabled(any);
}

void picker_window::updateEditMenu() {
    picker_view* view = current_view();
    if (!view) {
        undo_action->setText(tr("Can't Undo"));
        redo_action->setText(tr("Can't Redo"));
        // Paste in Place keeps whatever state it had.
        for (QAction* action : {undo_action, redo_action, copy_action, cut_action, paste_action})
            action->setEnabled(false);
        return;
    }
    const QUndoStack& stack = view->undo_stack;
    undo_action->setEnabled(stack.canUndo());
    redo_action->setEnabled(stack.canRedo());
    undo_action->setText(stack.canUndo() ? tr("Undo %1").arg(stack.undoText()) : tr("Can't Undo"));
    redo_action->setText(stack.canRedo() ? tr("Redo %1").arg(stack.redoText()) : tr("Can't Redo"));
    const bool selection = view->any_selected();
    cut_action->setEnabled(selection);
    copy_action->setEnabled(selection);
    const QMimeData* data = QApplication::clipboard()->mimeData();
    const bool pastable = data && data->hasFormat(QString::fromLatin1(picker_clipboard_mime_type));
    paste_action->setEnabled(pastable);
    paste_inplace_action->setEnabled(pastable);
}

void picker_window::updatePickerMenu() {
    const bool any = tabs->count() > 0;
    for (QAction* action : {add_one_action, add_many_action, update_button_action,
                            change_background_action, resize_background_action})
        action->setEnabled(any);
}

void picker_window::open_tab() {
    const QPointer<picker_window> alive(this);
    const QStringList files =
        choose_files(this, tr("Select Picker"), QString(), tr("Zelvani Picker (*.pkr)"),
                     QFileDialog::ExistingFiles);
    if (alive)
        open_files(files);
}

// Nothing fills the recent files yet, so no menu reaches this.
void picker_window::open_recent_file() {
    auto* action = qobject_cast<QAction*>(sender());
    if (action && recent_files.contains(action->text()))
        open_files(QStringList{recent_files.value(action->text())});
}

// Saving goes through the command, as a script would save.
void picker_window::request_save() {
    MGlobal::executeCommandOnIdle("ZelvaniPicker(\"save\");");
}

void picker_window::request_saveas() {
    MGlobal::executeCommandOnIdle("ZelvaniPicker(\"saveas\");");
}

void picker_window::do_undo() {
    if (picker_view* view = current_view())
        view->undo_stack.undo();
}

void picker_window::do_redo() {
    if (picker_view* view = current_view())
        view->undo_stack.redo();
}

namespace {

// The current view, when the scene has a selection to make buttons of.
picker_view* view_for_selection(const picker_window* window) {
    picker_view* view = window->current_view();
    return view && !selected_objects.isEmpty() ? view : nullptr;
}

} // namespace

// Unlike the canvas menu's entries, these frame the view after adding.
void picker_window::add_one_button() {
    if (picker_view* view = view_for_selection(this)) {
        view->add_one_button();
        view->frame_view();
    }
}

void picker_window::add_many_buttons() {
    if (picker_view* view = view_for_selection(this)) {
        view->add_many_buttons();
        view->frame_view();
    }
}

void picker_window::update_button() {
    if (picker_view* view = view_for_selection(this))
        view->update_button();
}

void picker_window::change_background() {
    if (picker_view* view = current_view())
        view->change_background();
}

void picker_window::resize_background() {
    if (picker_view* view = current_view())
        view->resize_background();
}

void picker_window::toggle_auto_tab_switching() {
    auto_tab_switching = !auto_tab_switching;
    picker_settings settings;
    settings.setValue(settings_key("auto_tab_switching"), auto_tab_switching);
    auto_switch_action->setChecked(!auto_tab_switching);
}

void picker_window::about_dialog() {
    // __TIME__ is "hh:mm:ss" and __DATE__ "Mmm dd yyyy".
    const QString build = QString::fromLatin1(__TIME__).left(2);
    const QString year = QString::fromLatin1(__DATE__).right(4);
    const QString years = year == QLatin1String("2012") ? year : QStringLiteral("2012-") + year;
    const loop_scope scope; // Qt's own box is held on the heap
    QMessageBox::about(this, tr("About"),
                       tr("ZelvaniPicker\nVersion %1 (build %2)\nCopyright %3 the Zelvani "
                          "developers. All rights reserved.")
                           .arg(QStringLiteral("2.1.0"), build, years));
}

void picker_window::keyPressEvent(QKeyEvent* event) {
    if (event->key() == 0 || event->key() == Qt::Key_unknown) {
        QWidget::keyPressEvent(event);
        return;
    }
    if (hasFocus() && fire_actions_for_key(actions(), event)) {
        event->setAccepted(true);
        return;
    }
    picker_view* view = current_view();
    if (view && view->handle_shortcut(event)) {
        event->setAccepted(true);
        return;
    }
    QWidget::keyPressEvent(event);
}

// Focus follows the mouse, so the window's keys act only while the pointer is over it.
void picker_window::enterEvent(pointer_enter_event* event) {
    QWidget::enterEvent(event);
    setFocus();
}

void picker_window::leaveEvent(QEvent* event) {
    QWidget::leaveEvent(event);
    clearFocus();
}
