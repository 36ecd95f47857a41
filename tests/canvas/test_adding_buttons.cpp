// Making buttons by hand: from the scene's selection, command buttons through their dialog,
// and the tab's background picture.
#include "canvas/picker_view.h"
#include "core/session.h"
#include "document/selected_objects.h"
#include "shown_window.h"
#include "window/picker_editCmdDialog.h"
#include "window/picker_resizebackground.h"
#include "window/picker_window.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QtTest>
#include <functional>

class test_adding_buttons : public QObject, shown_window {
    Q_OBJECT

    // Runs `answer` on the next modal dialog, once it is up.
    template <typename Dialog> void answer_next(std::function<void(Dialog*)> answer) {
        QTimer::singleShot(0, [answer] {
            auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            answer(dialog);
        });
    }
    void press_at(QPoint pos) {
        QTest::mousePress(view, Qt::LeftButton, {}, pos);
        QTest::mouseRelease(view, Qt::LeftButton, {}, pos);
    }

private slots:
    void init() { open_window(); }
    void cleanup() { close_window(); }

    void one_button_takes_the_whole_selection_at_the_last_press() {
        press_at(QPoint(120, 80));
        selected_objects = QStringList{"hero:arm", "hero:leg"};
        window->button_color = 0x123456;
        window->button_width = 30;
        view->add_one_button();
        QCOMPARE(view->buttons.size(), 1);
        const picker_button* b = view->buttons[0];
        QCOMPARE(b->position, view->to_picker(QPoint(120, 80)));
        QCOMPARE(b->targets, selected_objects);
        QCOMPARE(b->color, QRgb(0x123456));
        QCOMPARE(b->width, 30);
        QCOMPARE(b->selected, quint16(1)); // its targets are the selection
        view->undo_stack.undo();
        QVERIFY(view->buttons.isEmpty());

        // The pressed button takes the new targets, whatever is selected.
        view->undo_stack.redo();
        press_at(view->to_widget(view->buttons[0]->rect).center());
        selected_objects = QStringList{"hero:head"};
        view->update_button();
        QCOMPARE(view->buttons[0]->targets, QStringList{"hero:head"});
        view->undo_stack.undo();
        QCOMPARE(view->buttons[0]->targets, (QStringList{"hero:arm", "hero:leg"}));
    }

    void command_buttons_are_written_in_their_dialog() {
        press_at(QPoint(60, 60));
        answer_next<picker_editCmdDialog>([](picker_editCmdDialog* d) { d->reject(); });
        view->add_command_button();
        QVERIFY(view->buttons.isEmpty());
        QCOMPARE(view->undo_stack.count(), 0); // a cancelled dialog leaves no entry

        answer_next<picker_editCmdDialog>([](picker_editCmdDialog* d) {
            d->name_edit->setText("Key");
            d->command_edit->setPlainText("setKeyframe");
            d->python_radio->setChecked(true);
            QTest::mouseClick(d->ok_button, Qt::LeftButton);
        });
        view->add_command_button();
        QCOMPARE(view->buttons.size(), 1);
        const picker_button* b = view->buttons[0];
        QCOMPARE(b->kind, 1);
        QCOMPARE(b->language, 1);
        QCOMPARE(b->label, QString("Key"));
        QCOMPARE(b->targets, QStringList{"setKeyframe"});
        QCOMPARE(view->undo_stack.undoText(), QString("Add Command Button"));

        // Over a command button the same entry edits it in place, off the stack.
        press_at(view->to_widget(b->rect).center());
        const int entries = view->undo_stack.count();
        answer_next<picker_editCmdDialog>([](picker_editCmdDialog* d) {
            QCOMPARE(d->name_edit->text(), QString("Key"));
            d->command_edit->setPlainText("setKeyframe -at tx");
            d->accept();
        });
        view->add_command_button();
        QCOMPARE(view->buttons.size(), 1);
        QCOMPARE(view->buttons[0]->targets, QStringList{"setKeyframe -at tx"});
        QCOMPARE(view->undo_stack.count(), entries);
    }

    void a_background_is_set_removed_by_cancelling_and_resized() {
        QTemporaryDir dir;
        const QString file = dir.filePath("back.png");
        QImage image(40, 20, QImage::Format_RGB32);
        image.fill(Qt::darkCyan);
        QVERIFY(image.save(file));

        answer_next<QFileDialog>([file](QFileDialog* d) {
            d->selectFile(file);
            QMetaObject::invokeMethod(d, "accept");
        });
        view->change_background();
        QCOMPARE(view->background.size(), QSize(40, 20));
        QCOMPARE(view->background_id, QString::number(view->background.cacheKey()));

        answer_next<picker_resizebackground>([](picker_resizebackground* d) {
            d->width_edit->setText("100");
            d->accept(); // the height left empty reads as 0: nothing happens
        });
        view->resize_background();
        QCOMPARE(view->background.size(), QSize(40, 20));
        answer_next<picker_resizebackground>([](picker_resizebackground* d) {
            d->width_edit->setText("100");
            d->height_edit->setText("300");
            d->accept();
        });
        view->resize_background();
        QCOMPARE(view->background.size(), QSize(100, 300));

        // Cancelling the file dialog asks to remove the picture; Cancel keeps it.
        answer_next<QFileDialog>([this](QFileDialog* d) {
            d->reject();
            answer_next<QMessageBox>([](QMessageBox* box) {
                QCOMPARE(box->text(), QString("Remove current background image?"));
                box->button(QMessageBox::Cancel)->click();
            });
        });
        view->change_background();
        QVERIFY(!view->background.isNull());
        answer_next<QFileDialog>([this](QFileDialog* d) {
            d->reject();
            answer_next<QMessageBox>(
                [](QMessageBox* box) { box->button(QMessageBox::Yes)->click(); });
        });
        view->change_background();
        QVERIFY(view->background.isNull());
    }
};

QTEST_MAIN(test_adding_buttons)
#include "test_adding_buttons.moc"
