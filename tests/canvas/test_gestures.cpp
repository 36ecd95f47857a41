// The live canvas, driven with real mouse events at widget positions.
#include "canvas/picker_view.h"
#include "core/session.h"
#include "document/selected_objects.h"
#include "shown_window.h"
#include "window/picker_window.h"

#include <QUndoStack>
#include <QtTest>

class test_gestures : public QObject, shown_window {
    Q_OBJECT

    picker_button* add(QPoint centre, QStringList targets, int kind = 0) {
        picker_button_data data;
        data.position = centre;
        data.width = 20;
        data.height = 20;
        data.kind = kind;
        data.targets = targets;
        return view->buttons[view->add_button_record(data, -1)];
    }
    QStringList queued() {
        QStringList texts;
        for (const auto& entry : host.idle.pending())
            texts << entry.text;
        host.idle.clear();
        return texts;
    }
    void click(QPoint at, Qt::KeyboardModifiers modifiers = {}) {
        QTest::mouseClick(view, Qt::LeftButton, modifiers, at);
    }
    void drag(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = {},
              Qt::MouseButton button = Qt::LeftButton) {
        QTest::mousePress(view, button, modifiers, from);
        QTest::mouseMove(view, to);
        QTest::mouseRelease(view, button, modifiers, to);
    }

private slots:
    void init() { open_window(); }
    void cleanup() { close_window(); }

    void a_click_replaces_the_selection_and_sends_it() {
        picker_button* arm = add(QPoint(50, 50), {"hero:arm"});
        picker_button* leg = add(QPoint(100, 50), {"hero:leg"});
        click(QPoint(50, 50));
        QCOMPARE(int(arm->selected), 1);
        QCOMPARE(selected_objects, QStringList{"hero:arm"});
        QCOMPARE(queued(), QStringList{"ZelvaniPicker select hero:arm"});
        click(QPoint(100, 50), Qt::ShiftModifier);
        QCOMPARE(selected_objects, QStringList({"hero:arm", "hero:leg"}));
        click(QPoint(50, 50), Qt::ShiftModifier); // a Shift click takes a selected one out
        QCOMPARE(int(arm->selected), 0);
        QCOMPARE(int(leg->selected), 1);
        click(QPoint(300, 200), Qt::ShiftModifier); // empty canvas with Shift: no change
        QCOMPARE(selected_objects, QStringList{"hero:leg"});
        queued();
        click(QPoint(300, 200));
        QVERIFY(selected_objects.isEmpty());
        QCOMPARE(queued(), QStringList{"ZelvaniPicker clear"});
    }

    void a_band_needs_four_pixels_and_lights_shared_objects() {
        picker_button* a = add(QPoint(50, 50), {"hero:arm"});
        picker_button* b = add(QPoint(200, 200), {"hero:arm"});
        drag(QPoint(10, 10), QPoint(12, 11)); // 3 pixels: a click on empty canvas
        QCOMPARE(int(a->selected), 0);
        drag(QPoint(10, 10), QPoint(80, 80));
        QCOMPARE(int(a->selected), 1);
        QCOMPARE(int(b->selected), 1); // through the shared object
        QCOMPARE(queued().last(), QString("ZelvaniPicker select hero:arm"));
    }

    void ctrl_drags_the_selection_as_one_undo_entry() {
        picker_button* a = add(QPoint(50, 50), {"hero:arm"});
        picker_button* b = add(QPoint(100, 50), {"hero:leg"});
        click(QPoint(50, 50), Qt::ControlModifier);
        click(QPoint(100, 50), Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(view->undo_stack.count(), 0); // no travel, no move
        QVERIFY(queued().isEmpty());           // editing leaves the host selection alone
        drag(QPoint(100, 50), QPoint(130, 70), Qt::ControlModifier);
        QCOMPARE(a->position, QPoint(80, 70));
        QCOMPARE(b->position, QPoint(130, 70));
        QCOMPARE(view->undo_stack.count(), 1);
        QCOMPARE(view->undo_stack.text(0), QString("Move Buttons"));
        view->undo_stack.undo();
        QCOMPARE(a->position, QPoint(50, 50));
        view->undo_stack.redo();
        QCOMPARE(b->position, QPoint(130, 70));
        // A script deletes the buttons; the stack must not reach for them.
        view->remove_button_record(1);
        view->remove_button_record(0);
        view->undo_stack.undo();
        view->undo_stack.redo();
    }

    void command_buttons_run_on_a_release_inside_only() {
        add(QPoint(50, 50), {"print \"hi\";"}, 1);
        click(QPoint(50, 50));
        QCOMPARE(queued(), QStringList{"print \"hi\";"});
        drag(QPoint(50, 50), QPoint(150, 150));
        QVERIFY(queued().isEmpty());
        QTest::mousePress(view, Qt::LeftButton, {}, QPoint(50, 50));
        QTest::mouseMove(view, QPoint(150, 150));
        QTest::mouseMove(view, QPoint(52, 52));
        QTest::mouseRelease(view, Qt::LeftButton, {}, QPoint(52, 52));
        QCOMPARE(queued().size(), 1);
        click(QPoint(50, 50), Qt::ControlModifier); // Ctrl alone selects it for editing
        QVERIFY(queued().isEmpty());
        QCOMPARE(int(view->buttons[0]->selected), 1);
    }

    void navigation_with_alt_and_the_middle_button() {
        add(QPoint(50, 50), {"hero:arm"});
        drag(QPoint(100, 100), QPoint(140, 120), Qt::NoModifier, Qt::MiddleButton);
        QCOMPARE(view->offset, QPoint(40, 20));
        drag(QPoint(100, 100), QPoint(140, 100), Qt::AltModifier, Qt::RightButton);
        QCOMPARE(view->zoom, 1.0625);
        click(QPoint(90, 70), Qt::AltModifier); // Alt and left: nothing
        QVERIFY(selected_objects.isEmpty());
    }

    void hovering_lists_targets() {
        add(QPoint(50, 50), {"a", "b", "c", "d"});
        add(QPoint(100, 50), {"a", "b", "c", "d", "e"});
        add(QPoint(150, 50), {"print 1;"}, 1);
        QTest::mouseMove(view, QPoint(50, 50));
        QCOMPARE(view->toolTip(), QString("a\nb\nc\nd"));
        QTest::mouseMove(view, QPoint(100, 50));
        QCOMPARE(view->toolTip(), QString("a\nb\nc\n...and 2 more"));
        QTest::mouseMove(view, QPoint(150, 50));
        QCOMPARE(view->toolTip(), QString());
    }
};

QTEST_MAIN(test_gestures)
#include "test_gestures.moc"
