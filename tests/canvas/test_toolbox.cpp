// The toolbox of a real window: picks from its colour popup, its size menus and label field
// edit the selected buttons in one undo step each, it follows the selection, and hiding it
// destroys the controls that showing builds anew.
#include "canvas/picker_view.h"
#include "shown_window.h"
#include "window/FlowLayout.h"
#include "window/picker_colorMenu.h"
#include "window/picker_window.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>
#include <QtTest>

class test_toolbox : public QObject, shown_window {
    Q_OBJECT

    picker_button* add(int width, QRgb color, const QString& label) {
        picker_button_data data;
        data.position = QPoint(view->buttons.size() * 40, 10);
        data.width = data.size = width;
        data.color = color;
        data.label = label;
        data.targets = QStringList{label};
        return view->buttons[view->add_button_record(data, -1)];
    }
    void select(std::initializer_list<int> indices) {
        view->deselect_all();
        for (int i : indices)
            view->mark_selected(view->buttons[i], true);
    }
    static QRgb swatch_of(const QPushButton* button) {
        return button->icon().pixmap(12, 12).toImage().pixel(6, 6);
    }
    static picker_colorMenu* open_popup() {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (auto* menu = qobject_cast<picker_colorMenu*>(w); menu && menu->isVisible())
                return menu;
        return nullptr;
    }
    // Press on a swatch button, move to a swatch, let go, then click it: as a user does.
    void pick_from(QPushButton* button, int index) {
        QTest::mouseMove(button);
        QTest::mousePress(button, Qt::LeftButton);
        picker_colorMenu* menu = open_popup();
        QVERIFY(menu);
        QVERIFY(menu->geometry().contains(QCursor::pos()));
        const int step = menu->cell_size + menu->gap;
        const QPoint at(2 + (index % menu->columns) * step + 8,
                        2 + (index / menu->columns) * step + 8);
        QTest::mouseMove(menu, at);
        QTest::mouseRelease(menu, Qt::LeftButton, {}, at);
        QVERIFY(menu->isVisible());
        QCOMPARE(menu->hover, index);
        QTest::mousePress(menu, Qt::LeftButton, {}, at);
        QTest::mouseRelease(menu, Qt::LeftButton, {}, at);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!open_popup());
    }
    QAction* size_action(QPushButton* button, const QString& text) {
        for (QAction* action : button->menu()->actions())
            if (action->text() == text)
                return action;
        return nullptr;
    }

private slots:
    void init() {
        open_window(QSize(600, 400));
        QVERIFY(QTest::qWaitForWindowExposed(window));
        add(10, 0xffb22222, "b0");
        add(20, 0xff123456, "b1");
        add(10, 0xffb22222, "b2");
    }
    void cleanup() { close_window(); }

    void colour_popup_from_the_swatch_button_recolours_the_selection() {
        select({0, 2});
        pick_from(window->color_button, 28);
        QCOMPARE(view->buttons[0]->color, QRgb(0xff00ff00));
        QCOMPARE(view->buttons[2]->color, QRgb(0xff00ff00));
        QCOMPARE(view->buttons[1]->color, QRgb(0xff123456));
        QCOMPARE(view->undo_stack.count(), 1);
        QCOMPARE(window->button_color, QRgb(0xff00ff00)); // the command's refresh stores it

        // With nothing selected the swatch changes but new buttons keep the old colour.
        view->deselect_all();
        pick_from(window->label_color_button, 1);
        QCOMPARE(swatch_of(window->label_color_button), QRgb(0xffffffff));
        QCOMPARE(window->label_color, QRgb(0));
        QCOMPARE(view->undo_stack.count(), 1);
    }

    void size_menus_set_new_buttons_and_resize_the_selection() {
        size_action(window->width_button, "30")->trigger();
        QCOMPARE(window->button_width, 30);
        QCOMPARE(window->width_button->text(), QString("30"));
        QCOMPARE(view->undo_stack.count(), 0);

        select({1});
        size_action(window->height_button, "75")->trigger();
        QCOMPARE(view->buttons[1]->height, 75);
        QCOMPARE(view->buttons[0]->height, 10);
        QCOMPARE(window->button_height, 75);
        QCOMPARE(view->undo_stack.count(), 1);
        QCOMPARE(view->undo_stack.text(0), QString("Change Height"));
    }

    void label_field_relabels_a_mixed_selection_on_leaving() {
        window->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(window));
        QLineEdit* edit = window->label_edit;

        // Typed with nothing selected: the text stays put and reaches no new button.
        edit->setFocus();
        QTest::keyClicks(edit, "neck");
        QTest::keyClick(edit, Qt::Key_Return);
        QCOMPARE(edit->text(), QString("neck"));
        QVERIFY(edit->hasFocus());
        QCOMPARE(window->button_label, QString());
        QCOMPARE(view->undo_stack.count(), 0);

        select({0, 1});
        window->refresh_toolbox();
        QCOMPARE(edit->text(), QString()); // two labels: none shown
        QVERIFY(edit->hasFocus());
        view->setFocus(); // leaving the untouched field still finishes the edit
        QCOMPARE(view->buttons[0]->label, QString());
        QCOMPARE(view->buttons[1]->label, QString());
        QCOMPARE(view->buttons[2]->label, QString("b2"));
        QCOMPARE(view->undo_stack.count(), 1);
    }

    void refresh_follows_the_fully_selected_buttons() {
        view->buttons[1]->label_color = 0xffffffff;
        select({1});
        window->refresh_toolbox();
        QCOMPARE(window->width_button->text(), QString("20"));
        QCOMPARE(window->label_edit->text(), QString("b1"));
        QCOMPARE(swatch_of(window->color_button), QRgb(0xff123456));
        QCOMPARE(swatch_of(window->label_color_button), QRgb(0xffffffff));
        QCOMPARE(window->button_color, QRgb(0xff123456));
        QCOMPARE(window->label_color, QRgb(0xffffffff));
        QCOMPARE(window->button_label, QString("b1"));
        QCOMPARE(window->button_width, 20);

        select({0, 1}); // widths 10 and 20: either is shown, neither button changes
        window->refresh_toolbox();
        QVERIFY(QStringList({"10", "20"}).contains(window->width_button->text()));
        QCOMPARE(view->buttons[0]->width, 10);
        QCOMPARE(view->buttons[1]->width, 20);
        QCOMPARE(view->undo_stack.count(), 0);

        select({});
        view->buttons[0]->selected = 2; // partly selected counts for nothing
        window->refresh_toolbox();
        QCOMPARE(window->label_edit->text(), QString());
        QVERIFY(window->button_width == 10 || window->button_width == 20);
    }

    void hiding_destroys_and_showing_rebuilds_with_start_values() {
        select({1});
        window->refresh_toolbox();
        window->toggle_toolbox();
        QCOMPARE(window->main_layout->count(), 1);
        QVERIFY(!window->color_button && !window->label_edit && !window->toolbox_layout);
        QCOMPARE(window->toolbox_action->text(), QString("Show Toolbox"));
        window->refresh_toolbox(); // nothing to fill, nothing to crash on

        window->toggle_toolbox();
        QCOMPARE(window->main_layout->count(), 4);
        QCOMPARE(window->toolbox_action->text(), QString("Hide Toolbox"));
        QCOMPARE(swatch_of(window->color_button), QRgb(0xffb22222));
        QCOMPARE(window->button_color, QRgb(0xff123456)); // kept while the swatch shows red
        // Rebuilding picks 10 by 10 through the slots, which resizes the selection.
        QCOMPARE(window->width_button->text(), QString("10"));
        QCOMPARE(view->buttons[1]->width, 10);
        QCOMPARE(view->undo_stack.count(), 2);
        QCOMPARE(view->undo_stack.text(0), QString("Change Width"));
    }

    void label_row_fills_its_line_and_rows_wrap_when_narrow() {
        QLayoutItem* colour_row = window->toolbox_layout->itemAt(1);
        QLayoutItem* label_row = window->toolbox_layout->itemAt(7);
        QVERIFY(label_row->widget()->isAncestorOf(window->label_edit));
        window->main_layout->activate();
        const QRect strip = window->toolbox_layout->geometry();
        QCOMPARE(label_row->geometry().y(), colour_row->geometry().y());
        QCOMPARE(label_row->geometry().right(), strip.right() - 1 - 5 - 1 - 1);

        window->resize(120, 400);
        window->main_layout->activate();
        QVERIFY(label_row->geometry().y() > colour_row->geometry().y());
    }
};

QTEST_MAIN(test_toolbox)
#include "test_toolbox.moc"
