// Tidying a layout: align, distribute, size steps and nudges by key, and a row of new
// buttons laid out with one drag.
#include "canvas/picker_view.h"
#include "document/selected_objects.h"
#include "shown_window.h"
#include "window/picker_window.h"

#include <QtTest>

class test_arrangement : public QObject, shown_window {
    Q_OBJECT

    picker_button* add(QPoint at, bool selected = true) {
        picker_button_data data;
        data.position = at;
        data.targets = QStringList{"n"};
        picker_button* b = view->buttons[view->add_button_record(data, -1)];
        if (selected)
            view->mark_selected(b, true);
        return b;
    }

private slots:
    void init() { open_window(); }
    void cleanup() { close_window(); }

    void align_takes_the_truncated_mean() {
        picker_button* a = add(QPoint(0, -10));
        picker_button* b = add(QPoint(50, -15));
        picker_button* partly = add(QPoint(90, 100));
        partly->selected = 2; // counts for the gate, not for the move
        view->align_horizontal();
        QCOMPARE(a->position, QPoint(0, -12));
        QCOMPARE(b->position, QPoint(50, -12));
        QCOMPARE(partly->position, QPoint(90, 100));
        view->undo_stack.undo();
        QCOMPARE(a->position, QPoint(0, -10));
    }

    void a_single_button_stays_put_but_leaves_an_entry() {
        picker_button* a = add(QPoint(5, 5));
        QSignalSpy changed(view, SIGNAL(changed()));
        view->align_vertical();
        QCOMPARE(view->undo_stack.count(), 1);
        QCOMPARE(a->position, QPoint(5, 5));
        QCOMPARE(changed.count(), 0);
    }

    void distribute_overshoots_the_far_edge() {
        picker_button* a = add(QPoint(100, 0));
        picker_button* b = add(QPoint(0, 0));
        picker_button* c = add(QPoint(10, 0));
        view->distribute_horizontal();
        QCOMPARE(b->position.x(), 0);
        QCOMPARE(c->position.x(), 51);
        QCOMPARE(a->position.x(), 102);
        // Two at the same place: the later in the list moves.
        view->undo_stack.clear();
        while (!view->buttons.isEmpty())
            view->remove_button_record(0);
        picker_button* first = add(QPoint(7, 0));
        picker_button* second = add(QPoint(7, 0));
        view->distribute_horizontal();
        QCOMPARE(first->position.x(), 7);
        QCOMPARE(second->position.x(), 9);
    }

    void keys_step_size_and_place() {
        picker_button* a = add(QPoint(20, 20));
        QApplication::setActiveWindow(window);
        view->setFocus();
        QTest::keyClick(view, Qt::Key_Plus);
        QCOMPARE(a->width, 11);
        QCOMPARE(view->undo_stack.count(), 2); // width and height, never merged
        QTest::keyClick(view, Qt::Key_Equal);
        QCOMPARE(a->height, 12);
        QTest::keyClick(view, Qt::Key_Left);
        QTest::keyClick(view, Qt::Key_Left);
        QTest::keyClick(window, Qt::Key_Up); // keys that reach the window go to the view
        QCOMPARE(a->position, QPoint(18, 19));
        QCOMPARE(view->undo_stack.count(), 5); // the nudges merged into one
        view->undo_stack.undo();
        QCOMPARE(a->position, QPoint(20, 20));
        view->deselect_all();
        QTest::keyClick(view, Qt::Key_Minus); // nothing selected: nothing pushed
        QCOMPARE(view->undo_stack.count(), 5);
    }

    void a_row_of_new_buttons_follows_one_drag() {
        selected_objects = QStringList{"e", "d", "c", "b", "a"};
        view->add_many_buttons();
        QTest::mouseMove(view, QPoint(30, 30)); // waiting: nothing happens
        QVERIFY(view->buttons.isEmpty());
        QTest::mousePress(view, Qt::LeftButton, {}, QPoint(20, 50));
        QCOMPARE(view->buttons.size(), 5);
        QCOMPARE(view->buttons[0]->targets, QStringList{"a"}); // reverse order of selection
        QCOMPARE(view->buttons[1]->position, QPoint(31, 50));
        QMouseEvent move(QEvent::MouseMove, QPointF(120, 50), view->mapToGlobal(QPoint(120, 50)),
                         Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(view, &move);
        QCOMPARE(view->buttons[1]->position, QPoint(40, 50)); // 100 / 5 = 20 apart
        QTest::mouseRelease(view, Qt::LeftButton, {}, QPoint(40, 50));
        QCOMPARE(view->buttons[1]->position, QPoint(30, 50)); // at least 10 apart
        QVERIFY(!view->gesture);
    }
};

QTEST_MAIN(test_arrangement)
#include "test_arrangement.moc"
