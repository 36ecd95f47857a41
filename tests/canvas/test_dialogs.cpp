// The command and background dialogs, answered through their own widgets while exec() runs.
#include "canvas/picker_view.h"
#include "core/session.h"
#include "window/picker_editCmdDialog.h"
#include "window/picker_resizebackground.h"
#include "window/picker_window.h"

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QTextEdit>
#include <QTimer>
#include <QtTest>
#include <functional>

// Runs `act` on the modal dialog of type T once exec() shows it; after a while it rejects
// whatever is modal, so that a missing dialog fails the test instead of hanging it.
template <typename T> static void when_shown(std::function<void(T*)> act, int tries = 200) {
    QTimer::singleShot(5, [act, tries] {
        QWidget* modal = QApplication::activeModalWidget();
        if (T* dialog = qobject_cast<T*>(modal))
            act(dialog);
        else if (tries > 0)
            when_shown<T>(act, tries - 1);
        else if (auto* other = qobject_cast<QDialog*>(modal))
            other->reject();
    });
}

static void click(QAbstractButton* button) {
    QTest::mouseClick(button, Qt::LeftButton);
}

static void retype(QWidget* edit, const QString& text) {
    QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(edit, Qt::Key_Delete);
    QTest::keyClicks(edit, text);
}

class test_dialogs : public QObject {
    Q_OBJECT
    host::session& host = host::session::get();
    picker_window* window = nullptr;
    picker_view* view = nullptr;
    picker_button_data record;

private slots:
    void init() {
        QSettings("Zelvani", "picker").clear();
        host.idle.clear();
        window = new picker_window(nullptr);
        view = window->current_view();
        record = picker_button_data();
        record.kind = 1;
    }
    void cleanup() {
        delete window;
        host.idle.clear();
    }

    void ok_stores_a_capped_name_the_language_and_the_first_command() {
        record.label = QString(200, 'x');
        record.targets = QStringList{"print 1;", "kept"};
        record.language = 1;
        QString shown;
        int typed = 0;
        when_shown<picker_editCmdDialog>([&](picker_editCmdDialog* d) {
            shown =
                QString("%1 %2 %3")
                    .arg(d->name_edit->text().size())
                    .arg(d->command_edit->toPlainText(), d->python_radio->isChecked() ? "py" : "-");
            retype(d->name_edit, QString(200, 'y'));
            typed = d->name_edit->text().size();
            click(d->mel_radio);
            retype(d->command_edit, "print 2;");
            click(d->ok_button);
        });
        QVERIFY(edit_command(view, &record));
        QCOMPARE(shown, QString("128 print 1; py"));
        QCOMPARE(typed, 128);
        QCOMPARE(record.label, QString(128, 'y'));
        QCOMPARE(record.targets, QStringList({"print 2;", "kept"}));
        QCOMPARE(record.language, 0);
    }

    // Test stores the fields, then runs them through the host's idle queue; what it stored
    // stays when the dialog is cancelled. An unknown language checks neither radio and stays.
    void test_runs_the_script_in_the_host_and_its_store_survives_a_cancel() {
        record.language = 5;
        QString after_empty;
        when_shown<picker_editCmdDialog>([&](picker_editCmdDialog* d) {
            click(d->test_button); // an empty command runs nothing
            after_empty = QString("%1 %2 %3")
                              .arg(host.idle.pending().size())
                              .arg(record.targets.size())
                              .arg(record.language);
            click(d->mel_radio);
            retype(d->command_edit, "createNode transform -n \"tested\";");
            click(d->test_button);
            host.run_idle();
            click(d->python_radio);
            retype(d->command_edit, "print('hi')");
            click(d->test_button);
            host.run_idle();
            click(d->cancel_button);
        });
        QVERIFY(!edit_command(view, &record));
        QCOMPARE(after_empty, QString("0 1 5"));
        QCOMPARE(host.execute("objExists tested;").values, QStringList{"1"});
        QVERIFY(host.python_log.contains("print('hi')"));
        QCOMPARE(record.targets, QStringList{"print('hi')"});
        QCOMPARE(record.language, 1);
    }

    void size_and_place_come_back_after_a_cancel_but_not_from_one_key() {
        QSize natural, size;
        QPoint place;
        when_shown<picker_editCmdDialog>([&](picker_editCmdDialog* d) {
            natural = d->size();
            d->resize(530, 390);
            d->move(60, 70);
            click(d->cancel_button);
        });
        QVERIFY(!edit_command(view, &record));
        when_shown<picker_editCmdDialog>([&](picker_editCmdDialog* d) {
            size = d->size();
            place = d->pos();
            click(d->ok_button);
        });
        QVERIFY(edit_command(view, &record));
        QCOMPARE(size, QSize(530, 390));
        QCOMPARE(place, QPoint(60, 70));

        QSettings("Zelvani", "picker").remove("editCommandWindowPos");
        when_shown<picker_editCmdDialog>([&](picker_editCmdDialog* d) {
            size = d->size();
            click(d->cancel_button);
        });
        edit_command(view, &record);
        QCOMPARE(size, natural);
    }

    void background_fields_take_digits_up_to_20000_only() {
        picker_resizebackground dialog;
        QTest::keyClicks(dialog.width_edit, "12ab3");
        QCOMPARE(dialog.width_edit->text(), QString("123"));
        QTest::keyClicks(dialog.height_edit, "20000");
        QVERIFY(dialog.height_edit->hasAcceptableInput());
        retype(dialog.height_edit, "20001");
        QCOMPARE(dialog.height_edit->text(), QString("2000")); // nothing above 20000
        retype(dialog.height_edit, "99999");
        QCOMPARE(dialog.height_edit->text(), QString("9999"));
    }

    void background_size_is_what_was_typed_or_nothing() {
        when_shown<picker_resizebackground>([](picker_resizebackground* d) {
            QTest::keyClicks(d->width_edit, "640");
            QTest::keyClick(d->width_edit, Qt::Key_Return); // Resize is the default
        });
        QCOMPARE(ask_background_size(), QSize(640, 0)); // an empty field counts as 0

        bool started_empty = false;
        when_shown<picker_resizebackground>([&](picker_resizebackground* d) {
            started_empty = d->width_edit->text().isEmpty();
            QTest::keyClicks(d->width_edit, "300");
            QTest::keyClicks(d->height_edit, "200");
            click(d->cancel_button);
        });
        QCOMPARE(ask_background_size(), QSize(0, 0));
        QVERIFY(started_empty);
    }
};

QTEST_MAIN(test_dialogs)
#include "test_dialogs.moc"
