// The right button's menu and the view's keys, on a real window.
#include "canvas/picker_view.h"
#include "core/session.h"
#include "document/selected_objects.h"
#include "shown_window.h"
#include "window/picker_window.h"

#include <QMenu>
#include <QTabWidget>
#include <QtTest>
#include <functional>

class test_context_menu : public QObject, shown_window {
    Q_OBJECT

    picker_button* add(QPoint centre, const QString& target, int kind = 0) {
        picker_button_data data;
        data.position = centre;
        data.width = 20;
        data.height = 20;
        data.kind = kind;
        data.targets = QStringList{target};
        return view->buttons[view->add_button_record(data, -1)];
    }
    QPoint at(const picker_button* b) const { return view->to_widget(b->rect).center(); }

    // Right-clicks at `pos`; `while_open` sees the menu before it is closed, or chosen from.
    void right_click(QPoint pos, const std::function<void(QMenu*)>& while_open) {
        bool seen = false;
        QTimer::singleShot(0, [&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            QVERIFY(menu);
            seen = true;
            while_open(menu);
            if (QApplication::activePopupWidget())
                menu->close();
        });
        QTest::mousePress(view, Qt::RightButton, {}, pos);
        QTest::mouseRelease(view, Qt::RightButton, {}, pos);
        QVERIFY(seen);
    }
    void key(int code, Qt::KeyboardModifiers modifiers = {}) {
        QKeyEvent press(QEvent::KeyPress, code, modifiers);
        QApplication::sendEvent(window, &press);
    }

private slots:
    void init() {
        open_window();
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window));
    }
    void cleanup() { close_window(); }

    void the_menu_acts_on_the_button_under_the_pointer() {
        picker_button* a = add(QPoint(50, 50), "a");
        picker_button* b = add(QPoint(100, 50), "b");
        picker_button* cmd = add(QPoint(150, 50), "print 1", 1);
        view->mark_selected(a, false);
        right_click(at(b), [&](QMenu*) {
            QCOMPARE(b->selected, quint16(1));
            QVERIFY(view->update_action->isEnabled());
            QVERIFY(view->delete_action->isEnabled());
            QVERIFY(view->add_one_action->isEnabled()); // "a" is selected in the scene
            QCOMPARE(view->add_command_action->text(), QString("Add Command Button..."));
        });
        QCOMPARE(b->selected, quint16(1)); // stays light after the menu
        QCOMPARE(a->selected, quint16(1));
        QCOMPARE(selected_objects, QStringList{"a"}); // only the state word changed
        QCOMPARE(view->pressed_button, b);

        right_click(at(cmd), [&](QMenu*) {
            QVERIFY(!view->update_action->isEnabled());
            QCOMPARE(view->add_command_action->text(), QString("Edit Command Button..."));
        });
        view->deselect_all();
        right_click(QPoint(300, 300), [&](QMenu*) {
            QVERIFY(!view->delete_action->isEnabled());
            QVERIFY(!view->update_action->isEnabled());
            QVERIFY(!view->add_one_action->isEnabled());
            QCOMPARE(view->add_command_action->text(), QString("Add Command Button..."));
        });
        QVERIFY(view->delete_action->isEnabled()); // for Backspace, whatever the menu left
    }

    void arranging_from_the_buttons_submenu_is_one_undo_entry() {
        picker_button* a = add(QPoint(50, 10), "a");
        picker_button* b = add(QPoint(100, 15), "b");
        view->mark_selected(a, true);
        view->mark_selected(b, true);
        right_click(at(a), [&](QMenu* menu) {
            QMenu* buttons = nullptr;
            for (QAction* action : menu->actions())
                if (action->menu() && action->text() == "Buttons")
                    buttons = action->menu();
            QVERIFY(buttons);
            QCOMPARE(buttons->actions().first(), view->align_h_action);
            QVERIFY(!view->align_h_action->icon().isNull());
            menu->close();
            view->align_h_action->trigger();
        });
        QCOMPARE(a->position.y(), 12);
        QCOMPARE(b->position.y(), 12);
        QCOMPARE(view->undo_stack.undoText(), QString("Arrange Buttons"));
    }

    void keys_reach_the_current_view_only() {
        picker_button* a = add(QPoint(50, 50), "a");
        view->mark_selected(a, true);
        key(Qt::Key_Plus);
        key(Qt::Key_Equal);
        key(Qt::Key_Plus, Qt::ShiftModifier);
        QCOMPARE(a->width, 23);
        QCOMPARE(a->height, 23);
        key(Qt::Key_Right);
        key(Qt::Key_Right);
        key(Qt::Key_Left);
        QCOMPARE(a->position, QPoint(51, 50));

        view->set_offset(QPoint(70, 30));
        window->new_tab();
        key(Qt::Key_H); // the other tab is current
        QCOMPARE(view->offset, QPoint(70, 30));
        window->tabs->setCurrentWidget(view);
        key(Qt::Key_H);
        QTRY_VERIFY(view->offset != QPoint(70, 30));

        key(Qt::Key_Backspace);
        QVERIFY(view->buttons.isEmpty());
        window->clearFocus();
        key(Qt::Key_Z, Qt::ControlModifier); // the window's own Undo needs its focus
        QVERIFY(view->buttons.isEmpty());
        window->setFocus();
        QTRY_VERIFY(window->hasFocus());
        key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(view->buttons.size(), 1);
    }
};

QTEST_MAIN(test_context_menu)
#include "test_context_menu.moc"
