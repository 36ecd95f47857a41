// The right button's menu and the actions behind it. The same actions carry the view's
// keys, which work while the view has focus or come through the window.
#include "canvas/action_keys.h"
#include "canvas/event_position.h"
#include "canvas/picker_view.h"
#include "document/selected_objects.h"
#include "window/event_loops.h"
#include "window/picker_window.h"

#include <QAction>
#include <QHash>
#include <QIcon>
#include <QMenu>
#include <QMouseEvent>

namespace {

using view_slot = void (picker_view::*)();

// Connected by member pointer: a new tab makes twenty of these, and a connection by name
// is looked up in the meta-objects each time.
QAction* make_action(picker_view* view, const QString& text, const QList<QKeySequence>& keys,
                     view_slot slot) {
    auto* action = new QAction(text, view);
    action->setShortcuts(keys);
    action->setShortcutContext(Qt::WidgetShortcut);
    view->addAction(action);
    QObject::connect(action, &QAction::triggered, view, slot);
    return action;
}

// Decoding the pictures is most of the cost of a new tab, and every tab shows the same
// four: they are decoded once. The cache outlives an unloading of the plug-in unused.
const QIcon& shared_icon(const char* path) {
    static auto* icons = new QHash<QString, QIcon>;
    const QString key = QString::fromLatin1(path);
    auto it = icons->find(key);
    if (it == icons->end())
        it = icons->insert(key, QIcon(key));
    return *it;
}

QAction* icon_action(picker_view* view, const QString& text, const char* icon, view_slot slot) {
    QAction* action = make_action(view, text, {}, slot);
    action->setIcon(shared_icon(icon));
    return action;
}

} // namespace

void picker_view::make_actions() {
    context_menu = new QMenu(tr("Picker"), this);
    add_one_action = make_action(this, tr("Add One Button"), {}, &picker_view::add_one_button);
    add_many_action = make_action(this, tr("Add Many Buttons"), {}, &picker_view::add_many_buttons);
    update_action = make_action(this, tr("Update Button"), {}, &picker_view::update_button);
    // Backspace, not Delete: the host keeps Delete for the scene.
    delete_action = make_action(this, tr("Delete Button"), {QKeySequence(Qt::Key_Backspace)},
                                &picker_view::delete_button);
    add_command_action =
        make_action(this, tr("Add Command Button..."), {}, &picker_view::add_command_button);
    reset_action =
        make_action(this, tr("Reset View"), {QKeySequence(Qt::Key_H)}, &picker_view::reset_view);
    frame_action =
        make_action(this, tr("Frame View"), {QKeySequence(Qt::Key_F)}, &picker_view::frame_view);
    align_h_action = icon_action(this, tr("Align Horizontally"), ":/resources/align-horizontal.png",
                                 &picker_view::align_horizontal);
    align_v_action = icon_action(this, tr("Align Vertically"), ":/resources/align-vertical.png",
                                 &picker_view::align_vertical);
    distribute_h_action =
        icon_action(this, tr("Distribute Horizontally"), ":/resources/distribute-horizontal.png",
                    &picker_view::distribute_horizontal);
    distribute_v_action =
        icon_action(this, tr("Distribute Vertically"), ":/resources/distribute-vertical.png",
                    &picker_view::distribute_vertical);
    increase_action = make_action(this, tr("Increase Size"),
                                  {QKeySequence(Qt::Key_Plus), QKeySequence(Qt::Key_Equal),
                                   QKeySequence(QStringLiteral("Shift++"))},
                                  &picker_view::adjust_size_up);
    decrease_action = make_action(this, tr("Decrease Size"), {QKeySequence(Qt::Key_Minus)},
                                  &picker_view::adjust_size_down);
    nudge_left_action =
        make_action(this, tr("Nudge Left"), {QKeySequence(Qt::Key_Left)}, &picker_view::nudge_left);
    nudge_right_action = make_action(this, tr("Nudge Right"), {QKeySequence(Qt::Key_Right)},
                                     &picker_view::nudge_right);
    nudge_up_action =
        make_action(this, tr("Nudge Up"), {QKeySequence(Qt::Key_Up)}, &picker_view::nudge_up);
    nudge_down_action =
        make_action(this, tr("Nudge Down"), {QKeySequence(Qt::Key_Down)}, &picker_view::nudge_down);

    context_menu->addAction(add_one_action);
    context_menu->addAction(add_many_action);
    context_menu->addAction(update_action);
    context_menu->addAction(delete_action);
    context_menu->addSeparator();
    context_menu->addAction(add_command_action);
    context_menu->addSeparator();
    context_menu->addAction(reset_action);
    context_menu->addAction(frame_action);
    context_menu->addSeparator();
    QMenu* arrange = context_menu->addMenu(tr("Buttons"));
    arrange->addAction(align_h_action);
    arrange->addAction(align_v_action);
    arrange->addAction(distribute_h_action);
    arrange->addAction(distribute_v_action);
    arrange->addSeparator();
    arrange->addAction(increase_action);
    arrange->addAction(decrease_action);
}

// The menu acts on what the user clicked: an unselected button under the pointer becomes
// selected in its state word only, and the rest of the selection stays.
void picker_view::context_press(QMouseEvent* event) {
    pressed_button = button_at(event->pos());
    bool can_update = false;
    bool can_delete = any_selected();
    bool command = false;
    if (pressed_button) {
        command = pressed_button->kind == 1;
        can_delete = true;
        if (pressed_button->selected != 1) {
            can_update = !command;
            pressed_button->selected = 1;
            update();
        } else {
            can_update = !command && !selected_objects.isEmpty();
        }
    }
    update_action->setEnabled(can_update);
    delete_action->setEnabled(can_delete);
    add_command_action->setText(command ? tr("Edit Command Button...")
                                        : tr("Add Command Button..."));
    add_one_action->setEnabled(!selected_objects.isEmpty());
    add_many_action->setEnabled(true);
    {
        // The menu spins an event loop, in which the host may run a new scene and take the tab.
        const loop_scope scope;
        context_menu->exec(screen_position(event), add_one_action);
    }
    if (!in_window())
        return;
    // Backspace deletes whatever the menu left.
    delete_action->setEnabled(true);
    event->accept();
    setFocus(Qt::MouseFocusReason);
    update_cursor(false);
}

// Keys the window's own actions left; only the current view answers.
bool picker_view::handle_shortcut(QKeyEvent* event) {
    if (actions().isEmpty() || window->current_view() != this)
        return false;
    return fire_actions_for_key(actions(), event);
}
