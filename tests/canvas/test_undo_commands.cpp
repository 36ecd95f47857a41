// The undo commands on a tab's stack: what they change, what they take back, how they merge,
// and that a list shortened by a script behind their back does not bring them down.
#include "canvas/picker_view.h"
#include "editing/list_cmds.h"
#include "editing/property_cmds.h"
#include "window/picker_window.h"

#include <QtTest>

class test_undo_commands : public QObject {
    Q_OBJECT
    picker_window* window = nullptr;
    picker_view* view = nullptr;
    QUndoStack* stack = nullptr;

    picker_button* add(int x, const QString& target) {
        picker_button_data data;
        data.position = QPoint(x, 10);
        data.targets = QStringList{target};
        data.label = target;
        return view->buttons[view->add_button_record(data, -1)];
    }
    void select(std::initializer_list<int> indices) {
        view->deselect_all();
        for (int i : indices)
            view->mark_selected(view->buttons[i], true);
    }
    QStringList labels() const {
        QStringList out;
        for (const picker_button* b : view->buttons)
            out << b->label;
        return out;
    }

private slots:
    void init() {
        window = new picker_window(nullptr);
        view = window->current_view();
        stack = &view->undo_stack;
        for (int i = 0; i < 4; ++i)
            add(i * 30, QString("b%1").arg(i));
    }
    void cleanup() { delete window; }

    void colour_picks_on_one_selection_merge() {
        const QRgb before = view->buttons[0]->color;
        select({0, 2});
        stack->push(new change_color_cmd(view, 0x112233));
        stack->push(new change_color_cmd(view, 0x445566));
        QCOMPARE(stack->count(), 1);
        QCOMPARE(view->buttons[2]->color, QRgb(0x445566));
        stack->undo();
        QCOMPARE(view->buttons[0]->color, before);
        stack->redo();
        select({0, 1, 2}); // another selection: another step
        stack->push(new change_color_cmd(view, 0x778899));
        QCOMPARE(stack->count(), 2);
    }

    void size_steps_stand_as_pairs_and_never_merge() {
        select({1});
        const int width = view->buttons[1]->width, height = view->buttons[1]->height;
        stack->push(new adjust_width_cmd(view, 1));
        stack->push(new adjust_height_cmd(view, 1));
        QCOMPARE(stack->count(), 2);
        stack->undo(); // one undo takes back the height only
        QCOMPARE(view->buttons[1]->width, width + 1);
        QCOMPARE(view->buttons[1]->height, height);
        view->set_button_size(view->buttons[1], 5, 1);
        stack->push(new adjust_height_cmd(view, -1));
        QCOMPARE(view->buttons[1]->height, 1);
        stack->undo();
        QCOMPARE(view->buttons[1]->height, 1);
    }

    void opposite_nudges_merge_to_nothing() {
        select({0, 3});
        stack->push(new nudge_buttons_cmd(view, QPoint(-1, 0)));
        stack->push(new nudge_buttons_cmd(view, QPoint(1, 0)));
        QCOMPARE(stack->count(), 1);
        QCOMPARE(static_cast<const nudge_buttons_cmd*>(stack->command(0))->delta, QPoint(0, 0));
        QCOMPARE(view->buttons[3]->position, QPoint(90, 10));
        QCOMPARE(stack->text(0), QString("Button Move"));
    }

    void delete_and_cut_come_back_in_place_unselected_and_selected() {
        select({0, 2});
        stack->push(new delete_buttons_cmd(view));
        QCOMPARE(stack->text(0), QString("Delete Buttons"));
        QCOMPARE(labels(), QStringList({"b1", "b3"}));
        stack->undo();
        QCOMPARE(labels(), QStringList({"b0", "b1", "b2", "b3"}));
        QCOMPARE(int(view->buttons[0]->selected), 0);

        select({1});
        stack->push(new cut_buttons_cmd(view));
        QCOMPARE(stack->text(0), QString("Cut Button")); // the undone delete made way
        stack->undo();
        QCOMPARE(labels(), QStringList({"b0", "b1", "b2", "b3"}));
        QCOMPARE(int(view->buttons[1]->selected), 1);
    }

    void paste_adds_at_the_end_again_after_undo() {
        QList<picker_button_data> records{view->buttons[0]->data(), view->buttons[1]->data()};
        stack->push(new paste_buttons_cmd(view, records, true));
        QCOMPARE(labels(), QStringList({"b0", "b1", "b2", "b3", "b0", "b1"}));
        QCOMPARE(int(view->buttons[4]->selected), 1);
        stack->undo();
        QCOMPARE(view->buttons.size(), 4);
        stack->redo();
        QCOMPARE(static_cast<const paste_buttons_cmd*>(stack->command(0))->indices,
                 QVector<int>({4, 5}));
    }

    void updates_swap_targets_both_ways() {
        stack->push(new update_buttons_cmd(view, view->buttons[2], {"x", "y"}));
        QCOMPARE(view->buttons[2]->targets, QStringList({"x", "y"}));
        stack->undo();
        QCOMPARE(view->buttons[2]->targets, QStringList{"b2"});
    }

    void commands_survive_a_script_that_emptied_the_list() {
        select({0, 1, 2, 3});
        stack->push(new change_color_cmd(view, 0x010203));
        stack->push(new change_label_cmd(view, "new"));
        stack->push(new nudge_buttons_cmd(view, QPoint(0, 5)));
        stack->push(new update_buttons_cmd(view, view->buttons[3], {"z"}));
        stack->push(new delete_buttons_cmd(view));
        stack->undo();
        while (!view->buttons.isEmpty()) // a script deletes everything
            view->remove_button_record(0);
        while (stack->canUndo())
            stack->undo();
        while (stack->canRedo())
            stack->redo();
        QCOMPARE(view->buttons.size(), 0);
    }
};

QTEST_MAIN(test_undo_commands)
#include "test_undo_commands.moc"
