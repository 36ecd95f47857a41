// Scripts that the host runs while one of the picker's menus or dialogs waits for the user,
// and that take away what it belongs to: the tab, all tabs, the scene, the plug-in. The host
// goes on, and what the dialog was for is dropped with its tab.
#include "plugin_fixture.h"

#include <QComboBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QtTest>
#include <functional>

namespace {

// Polls for what the user is shown next (`find` gives it, or null) and acts on it. After
// two seconds it closes whatever waits, so that a missing dialog fails instead of hanging.
template <typename T>
void when_up(std::function<T*()> find, std::function<void(T*)> act, int tries = 400) {
    QTimer::singleShot(5, [=] {
        if (T* up = find())
            return act(up);
        if (tries > 0)
            return when_up<T>(find, act, tries - 1);
        if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
            dialog->reject();
        if (QWidget* popup = QApplication::activePopupWidget())
            popup->close();
    });
}

void on_menu(std::function<void(QMenu*)> act) {
    when_up<QMenu>([] { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }, act);
}

template <typename T = QDialog, typename F> void on_dialog(const QString& title, F act) {
    when_up<T>(
        [title] {
            auto* dialog = qobject_cast<T*>(QApplication::activeModalWidget());
            return dialog && dialog->windowTitle() == title ? dialog : nullptr;
        },
        std::function<void(T*)>(act));
}

// Chooses an entry as a click would: the menu closes, then the entry fires.
void choose(QMenu* menu, const QString& text) {
    for (QAction* action : menu->actions()) {
        if (action->text() == text) {
            menu->close();
            action->trigger();
            return;
        }
    }
    QFAIL(qPrintable("no menu entry " + text));
}

void press(QWidget* dialog, const QString& text) {
    for (QPushButton* button : dialog->findChildren<QPushButton*>()) {
        if (button->text().remove('&') == text)
            return QTest::mouseClick(button, Qt::LeftButton);
    }
    QFAIL(qPrintable("no button " + text));
}

} // namespace

class test_dialog_loops : public QObject {
    Q_OBJECT
    plugin_fixture f;
    QTemporaryDir dir;

    QWidget* view() const { return f.tabs()->currentWidget(); }
    QStringList tab_names() { return f.mel("ZelvaniPicker query_tabs;").split(' '); }
    QAction* window_action(const QString& text) const {
        for (QAction* action : plugin_fixture::dock()->findChildren<QAction*>()) {
            if (action->text() == text)
                return action;
        }
        return nullptr;
    }
    QString mel_path(const QString& name) const { return '"' + dir.filePath(name) + '"'; }
    // The close button of a tab, on whichever side the style puts it.
    QWidget* close_button(int index) const {
        QTabBar* bar = f.tabs()->tabBar();
        QWidget* right = bar->tabButton(index, QTabBar::RightSide);
        return right ? right : bar->tabButton(index, QTabBar::LeftSide);
    }

    // A right click on the current view at `pos` that chooses `entry` from its menu.
    void from_canvas_menu(const QPoint& pos, const QString& entry) {
        on_menu([entry](QMenu* menu) { choose(menu, entry); });
        QTest::mousePress(view(), Qt::RightButton, {}, pos);
    }

    // A view that is gone stays until control is back in the outermost loop, then goes.
    void verify_gone(const QPointer<QWidget>& old) {
        QTRY_VERIFY(old.isNull());
        QVERIFY(f.errors().isEmpty());
        QVERIFY(f.unexpected_dialogs.isEmpty());
    }

private slots:
    void init() {
        f.start();
        f.mel("ZelvaniPicker;");
        f.mel("namespace -add hero; createNode transform -n \"hero:arm\";");
    }
    void cleanup() { f.host.reset(); }

    void a_tested_script_takes_the_tab_of_the_command_dialog_data() {
        QTest::addColumn<QString>("script");
        QTest::addColumn<bool>("in_place");
        QTest::addColumn<QStringList>("tabs");
        const QStringList fresh{"Untitled"}, none{""};
        for (bool in_place : {false, true}) {
            const char* how = in_place ? "edit" : "new";
            QTest::addRow("%s, new scene", how) << "file -f -new;" << in_place << fresh;
            QTest::addRow("%s, close_tab", how) << "ZelvaniPicker close_tab;" << in_place << none;
            QTest::addRow("%s, clear_tabs", how) << "ZelvaniPicker clear_tabs;" << in_place << none;
        }
    }
    void a_tested_script_takes_the_tab_of_the_command_dialog() {
        QFETCH(QString, script);
        QFETCH(bool, in_place);
        QFETCH(QStringList, tabs);
        if (in_place)
            f.mel("select hero:arm; ZelvaniPicker add_cmd_button 60 60 mel Cmd \"print 1;\";");
        const QPointer<QWidget> old = view();
        bool closed_with_its_tab = false;
        on_dialog("Edit Command", [&](QDialog* dialog) {
            dialog->findChild<QTextEdit*>()->setPlainText(script);
            press(dialog, "Test");
            f.host.run_idle(); // the host's idle, while the dialog waits
            closed_with_its_tab = !dialog->isVisible();
            if (!closed_with_its_tab)
                press(dialog, "OK");
        });
        from_canvas_menu(QPoint(60, 60),
                         in_place ? "Edit Command Button..." : "Add Command Button...");
        QVERIFY(closed_with_its_tab);
        QCOMPARE(tab_names(), tabs);
        QVERIFY(view() != old);
        verify_gone(old);
        if (view()) // the fresh tab took nothing from the dialog
            QCOMPARE(f.mel("ZelvaniPicker get_button_properties label Cmd;"), QString("ERROR"));
    }

    // "file -f -o" queues the restore of the scene's tabs, which runs while the dialog waits.
    void a_scene_opened_by_the_same_line_restores_inside_the_namespace_dialog_data() {
        QTest::addColumn<QString>("line");
        QTest::newRow("rebind") << "ZelvaniPicker rebind \"nsA\";";
        QTest::newRow("bind") << "select hero:arm; ZelvaniPicker add_button 30 30 Leg;"
                                 "ZelvaniPicker bind \"nsA\";";
    }
    void a_scene_opened_by_the_same_line_restores_inside_the_namespace_dialog() {
        QFETCH(QString, line);
        f.mel(
            "ZelvaniPicker rename_tab Hero; select hero:arm; ZelvaniPicker add_button 10 10 Arm;");
        f.mel("file -rename " + mel_path("hero.ma") + "; file -save;");
        bool closed_with_its_tab = false;
        on_dialog("Choose Namespace", [&](QDialog* dialog) {
            f.host.run_idle();
            closed_with_its_tab = !dialog->isVisible();
            if (!closed_with_its_tab) {
                for (QComboBox* row : dialog->findChildren<QComboBox*>())
                    row->setCurrentText("nsA");
                press(dialog, "OK");
            }
        });
        const QPointer<QWidget> old = view();
        QVERIFY(f.host.execute("file -f -o " + mel_path("hero.ma") + "; " + line).ok);
        f.host.run_idle();
        QVERIFY(closed_with_its_tab);
        QCOMPARE(tab_names(), QStringList{"Hero"});
        QCOMPARE(f.mel("ZelvaniPicker query_button label Arm;"), QString("hero:arm"));
        verify_gone(old);
    }

    // A dialog with no parent stays up; what it answers is dropped with the tab.
    void an_idle_job_resets_the_scene_while_the_size_dialog_waits() {
        const QPointer<QWidget> old = view();
        f.host.idle.push_mel("file -f -new;");
        on_dialog("Resize Background", [&](QDialog* dialog) {
            f.host.run_idle();
            for (QLineEdit* field : dialog->findChildren<QLineEdit*>())
                field->setText("100");
            press(dialog, "Resize");
        });
        window_action("Resize Background...")->trigger();
        QCOMPARE(tab_names(), QStringList{"Untitled"});
        verify_gone(old);
    }

    void an_idle_job_resets_the_scene_while_the_background_is_chosen() {
        QImage image(8, 8, QImage::Format_RGB32);
        image.fill(Qt::red);
        const QString png = dir.filePath("back.png");
        QVERIFY(image.save(png));
        f.mel("ZelvaniPicker set_background \"" + png + "\";");

        // The file dialog is the tab's: it closes with it.
        QPointer<QWidget> old = view();
        f.host.idle.push_mel("file -f -new;");
        bool closed_with_its_tab = false;
        on_dialog<QFileDialog>("Choose Background", [&](QFileDialog* dialog) {
            f.host.run_idle();
            closed_with_its_tab = !dialog->isVisible();
            if (!closed_with_its_tab) {
                dialog->selectFile(png);
                QMetaObject::invokeMethod(dialog, "accept");
            }
        });
        window_action("Change Background...")->trigger();
        QVERIFY(closed_with_its_tab);
        verify_gone(old);

        // Cancelling asks whether to remove the picture; the question goes with the tab too.
        f.mel("ZelvaniPicker set_background \"" + png + "\";");
        old = view();
        closed_with_its_tab = false;
        on_dialog<QFileDialog>("Choose Background", [](QFileDialog* dialog) { dialog->reject(); });
        on_dialog<QMessageBox>("Background", [&](QMessageBox* box) {
            f.mel("file -f -new;");
            closed_with_its_tab = !box->isVisible();
            if (!closed_with_its_tab)
                box->button(QMessageBox::Yes)->click();
        });
        window_action("Change Background...")->trigger();
        QVERIFY(closed_with_its_tab);
        QCOMPARE(tab_names(), QStringList{"Untitled"});
        verify_gone(old);
    }

    // Save As asks for the file of the current tab; when a script closes that tab meanwhile,
    // nothing is written.
    void the_tab_closes_while_save_as_waits() {
        const QString path = dir.filePath("gone.pkr");
        on_dialog<QFileDialog>("Save Tab:", [&](QFileDialog* dialog) {
            f.mel("ZelvaniPicker close_tab;");
            dialog->selectFile(path);
            QMetaObject::invokeMethod(dialog, "accept");
        });
        const QPointer<QWidget> old = view();
        f.mel("ZelvaniPicker saveas;");
        QVERIFY(!QFile::exists(path));
        QCOMPARE(f.tabs()->count(), 0);
        verify_gone(old);
    }

    // The question is about one tab: gone, the answer is dropped; moved, it follows it.
    void the_close_question_follows_its_tab() {
        f.mel("ZelvaniPicker rename_tab A; ZelvaniPicker new_tab; ZelvaniPicker rename_tab B;"
              "ZelvaniPicker new_tab; ZelvaniPicker rename_tab C;");
        on_dialog<QMessageBox>("Close Tab", [&](QMessageBox* box) {
            f.mel("ZelvaniPicker set_tab A; ZelvaniPicker close_tab;");
            box->button(QMessageBox::Ok)->click();
        });
        QTest::mouseClick(close_button(2), Qt::LeftButton);
        QCOMPARE(tab_names(), QStringList{"B"});

        const QPointer<QWidget> old = view();
        on_dialog<QMessageBox>("Close Tab", [&](QMessageBox* box) {
            f.mel("ZelvaniPicker close_tab; ZelvaniPicker new_tab;");
            box->button(QMessageBox::Ok)->click();
        });
        QTest::mouseClick(close_button(0), Qt::LeftButton);
        QCOMPARE(tab_names(), QStringList{"Untitled"});
        verify_gone(old);

        on_dialog<QInputDialog>("Tab Name", [&](QInputDialog* dialog) {
            f.mel("ZelvaniPicker close_tab; ZelvaniPicker new_tab;");
            dialog->setTextValue("Renamed");
            dialog->accept();
        });
        window_action("Rename Tab...")->trigger();
        QCOMPARE(tab_names(), QStringList{"Untitled"});
    }

    void a_new_scene_while_the_canvas_menu_is_open() {
        const QPointer<QWidget> old = view();
        bool closed_with_its_tab = false;
        on_menu([&](QMenu* shown) {
            const QPointer<QMenu> menu = shown;
            f.mel("file -f -new;");
            closed_with_its_tab = menu && !menu->isVisible();
            if (menu)
                menu->close();
        });
        QTest::mousePress(old, Qt::RightButton, {}, QPoint(40, 40));
        QVERIFY(closed_with_its_tab);
        QCOMPARE(tab_names(), QStringList{"Untitled"});
        verify_gone(old);
    }

    // The handlers below the loop return through the plug-in's code after it was unloaded.
    void the_plugin_is_unloaded_from_inside_a_loop_data() {
        QTest::addColumn<QString>("where");
        QTest::newRow("command dialog") << "Edit Command";
        QTest::newRow("close question") << "Close Tab";
        QTest::newRow("open dialog") << "Select Picker";
    }
    void the_plugin_is_unloaded_from_inside_a_loop() {
        QFETCH(QString, where);
        const QPointer<QWidget> old = view();
        const QPointer<QDockWidget> dock = plugin_fixture::dock();
        bool unloaded = false;
        on_dialog(where, [&](QDialog* dialog) {
            if (auto* edit = dialog->findChild<QTextEdit*>()) {
                edit->setPlainText("unloadPlugin ZelvaniPicker;");
                press(dialog, "Test");
                f.host.run_idle();
            } else {
                f.mel("unloadPlugin ZelvaniPicker;");
            }
            unloaded = !f.host.command("ZelvaniPicker");
        });
        if (where == "Edit Command")
            from_canvas_menu(QPoint(60, 60), "Add Command Button...");
        else if (where == "Close Tab")
            QTest::mouseClick(close_button(0), Qt::LeftButton);
        else
            window_action("Open...")->trigger();
        QVERIFY(unloaded);
        QVERIFY(dock.isNull());
        verify_gone(old);
        QVERIFY(f.host.load_plugin(ZELVANI_PLUGIN_PATH));
        f.host.run_idle();
        QCOMPARE(tab_names(), QStringList{"Untitled"}); // the first call makes the window
    }
};

QTEST_MAIN(test_dialog_loops)
#include "test_dialog_loops.moc"
