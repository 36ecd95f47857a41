// The sandbox's window parts: the outliner follows and leads the host selection, the
// command line keeps a history, the demo scene opens, batch runs answer dialogs.
#include "command_line.h"
#include "core/session.h"
#include "demo_picker.h"
#include "demo_scene.h"
#include "dialog_answerer.h"
#include "idle_pump.h"
#include "main_window.h"
#include "outliner.h"
#include "output_pane.h"

#include <QAction>
#include <QDockWidget>
#include <QInputDialog>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>
#include <maya/MQtUtil.h>

namespace {

QStringList selected_rows(const QTreeWidget& tree) {
    QStringList names;
    for (const QTreeWidgetItem* item : tree.selectedItems())
        names << item->data(0, Qt::UserRole).toString();
    names.sort();
    return names;
}

} // namespace

class test_sandbox_window : public QObject {
    Q_OBJECT
    host::session& host = host::session::get();
    QStringList lines;

private slots:
    void init() {
        host.reset();
        lines.clear();
        host.out.set_sink([this](host::line_kind, const QString& l) { lines << l.trimmed(); });
    }

    void the_outliner_and_the_host_share_one_selection() {
        for (const bool deferred : {false, true}) {
            host.reset();
            host.defer_selection_changed = deferred;
            host.execute(
                "createNode transform -n \"hero:arm\"; createNode transform -n \"hero:leg\";"
                "createNode transform -n \"prop\";");
            sandbox::outliner tree;
            QCOMPARE(tree.topLevelItemCount(), 2); // "hero:" and "prop"
            QCOMPARE(tree.topLevelItem(0)->childCount(), 2);

            host.execute("select hero:leg prop;");
            host.run_idle();
            QCOMPARE(selected_rows(tree), QStringList({"hero:leg", "prop"}));

            tree.clearSelection();
            QVERIFY(host.active.empty());
            tree.topLevelItem(0)->child(0)->setSelected(true);
            QCOMPARE(host.active.names(), QStringList({"hero:arm"}));

            // New nodes appear at the next refresh, deleted ones go.
            host.execute("createNode -ss transform -n \"hero:head\"; delete prop;");
            tree.refresh();
            QCOMPARE(tree.topLevelItemCount(), 1);
            QCOMPARE(tree.topLevelItem(0)->childCount(), 3);
            QCOMPARE(selected_rows(tree), QStringList({"hero:arm"}));

            host.new_scene();
            tree.refresh();
            QCOMPARE(tree.topLevelItemCount(), 0);
            QVERIFY(tree.selectedItems().isEmpty());
        }
    }

    void the_command_line_walks_its_history() {
        sandbox::command_line line;
        QStringList ran;
        connect(&line, &sandbox::command_line::submitted, [&](const QString& m) { ran << m; });
        for (const char* mel : {"ls;", "ls;", "select -cl;"}) {
            line.setText(mel);
            QTest::keyClick(&line, Qt::Key_Return);
        }
        QCOMPARE(ran.size(), 3);
        QCOMPARE(line.history(), QStringList({"ls;", "select -cl;"}));
        line.setText("draft");
        QTest::keyClick(&line, Qt::Key_Up);
        QCOMPARE(line.text(), QString("select -cl;"));
        QTest::keyClick(&line, Qt::Key_Up);
        QTest::keyClick(&line, Qt::Key_Up);
        QCOMPARE(line.text(), QString("ls;"));
        QTest::keyClick(&line, Qt::Key_Down);
        QTest::keyClick(&line, Qt::Key_Down);
        QCOMPARE(line.text(), QString("draft"));
    }

    void the_command_line_switches_between_mel_and_python() {
        sandbox::main_window window;
        sandbox::command_line* line = window.mel_line();
        window.language_switch()->click();
        QCOMPARE(window.language_switch()->text(), QString("Python"));
        line->setText("1 + 2");
        QTest::keyClick(line, Qt::Key_Return);
        window.language_switch()->click();
        QCOMPARE(line->language(), host::language::mel);
        line->setText("python(\"3 * 3\");");
        QTest::keyClick(line, Qt::Key_Return);
        QCOMPARE(window.output()->toPlainText(),
                 QString("1 + 2\n# Result: 3 #\npython(\"3 * 3\");\n// Result: 9 //"));
    }

    void the_demo_scene_is_a_character_in_a_namespace() {
        QString error;
        QVERIFY2(sandbox::open_demo_scene(&error), qPrintable(error));
        QVERIFY(host.scene.name().isEmpty());
        QVERIFY(!host.scene.modified());
        const host::execution r = host.execute("ls \"hero:*\";");
        QVERIFY(r.values.size() >= 30);
        QVERIFY(r.values.contains("hero:L_index_ctrl"));
        QVERIFY(r.values.contains("hero:jaw_ctrl"));
    }

    void the_window_title_and_output_follow_the_host() {
        sandbox::main_window window;
        QCOMPARE(window.windowTitle(), QString("Zelvani Sandbox - untitled"));
        window.run_mel("file -modified 1; select nosuch;");
        QCOMPARE(window.windowTitle(), QString("Zelvani Sandbox - untitled*"));
        const QString shown = window.output()->toPlainText();
        QVERIFY(shown.startsWith("file -modified 1; select nosuch;\n// Error: "));

        QTemporaryDir dir;
        QVERIFY(host.save_scene(dir.filePath("shot.ma")));
        window.refresh_views();
        QCOMPARE(window.windowTitle(), QString("Zelvani Sandbox - shot.ma"));
    }

    void the_idle_queue_runs_when_the_event_loop_idles() {
        sandbox::main_window window;
        sandbox::idle_pump pump;
        connect(&pump, &sandbox::idle_pump::drained, &window, &sandbox::main_window::refresh_views);
        int nested = 0;
        host.idle.push_task([&] {
            // A dialog's loop inside an idle entry must not drain the queue again.
            host.idle.push_mel("createNode transform -n \"late\";");
            QCoreApplication::processEvents();
            nested = host.scene.exists("late") ? 1 : 0;
        });
        // An event loop that blocks, as the application's does; qWait never blocks.
        QSignalSpy drained(&pump, &sandbox::idle_pump::drained);
        QVERIFY(drained.wait());
        QVERIFY(host.idle.empty() && host.scene.exists("late"));
        QCOMPARE(nested, 0);
        QCOMPARE(window.scene_outliner()->topLevelItemCount(), 1);
    }

    void the_shelf_button_opens_the_picker() {
        sandbox::main_window window;
        host.set_main_window(&window);
        QVERIFY(host.load_plugin(ZELVANI_PLUGIN_PATH));
        host.run_idle();
        window.findChild<QAction*>("open_picker")->trigger();
        host.run_idle();
        auto* dock = window.findChild<QDockWidget*>("ZelvaniPicker");
        QVERIFY(dock);
        QVERIFY(dock->isFloating());
        QVERIFY(window.output()->toPlainText().contains("ZelvaniPicker"));
        host.reset();
        host.set_main_window(nullptr);
    }

    void the_demo_scene_carries_its_picker() {
        open_demo_picker();
        QCOMPARE(host.execute("ZelvaniPicker query_tabs;").values, QStringList{"Hero"});
        QCOMPARE(host.execute("ZelvaniPicker get_namespaces;").values, QStringList{"hero"});
        // A scene selection reaches the picker without a word.
        host.execute("select -cl; select hero:L_wrist_ctrl;");
        QVERIFY(lines.filter("Error").isEmpty());
        // A click on the Head button selects the head in the scene, once idle has run.
        auto* tabs = MQtUtil::mainWindow()->findChild<QTabWidget*>();
        QVERIFY(tabs);
        tabs->window()->show();
        QTest::mouseClick(tabs->currentWidget(), Qt::LeftButton, {}, QPoint(200, 14));
        host.run_idle();
        QCOMPARE(host.active.names(), QStringList{"hero:head_ctrl"});
        host.reset();
    }

    // The demo's Python button moves the selection to the other side of the character.
    void the_demo_mirror_button_runs_python() {
        open_demo_picker();
        host.execute("select hero:L_wrist_ctrl hero:R_knee_ctrl hero:head_ctrl;");
        auto* tabs = MQtUtil::mainWindow()->findChild<QTabWidget*>();
        tabs->window()->show();
        QTest::mouseClick(tabs->currentWidget(), Qt::LeftButton, {}, QPoint(36, 76));
        host.run_idle();
        QCOMPARE(host.active.names(),
                 QStringList({"hero:R_wrist_ctrl", "hero:L_knee_ctrl", "hero:head_ctrl"}));
        QVERIFY(lines.filter("Error").isEmpty());
        host.reset();
    }

    // Select, band-select, Ctrl-drag, nudge, align from the menu, resize: each gesture one
    // undo entry, and undoing them all gives back the picker the scene carried.
    void an_editing_session_undoes_to_where_it_began() {
        open_demo_picker();
        const QString before = host.execute("ZelvaniPicker get_picker_data;").values.join("");
        auto* tabs = MQtUtil::mainWindow()->findChild<QTabWidget*>();
        QWidget* picker = tabs->window();
        picker->show();
        picker->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(picker));
        QWidget* view = tabs->currentWidget();
        QWidget* window = tabs->parentWidget();
        const auto key = [&](int code, Qt::KeyboardModifiers modifiers = {}) {
            window->setFocus();
            QKeyEvent press(QEvent::KeyPress, code, modifiers);
            QApplication::sendEvent(window, &press);
        };
        const auto position = [&](const char* label) {
            return host.execute(QString("ZelvaniPicker get_button_properties label %1;").arg(label))
                .values.join(" ")
                .section(' ', 1, 2);
        };

        QTest::mousePress(view, Qt::LeftButton, {}, QPoint(150, 135));
        QTest::mouseMove(view, QPoint(250, 210));
        QTest::mouseRelease(view, Qt::LeftButton, {}, QPoint(250, 210));
        host.run_idle();
        QCOMPARE(host.active.names(), QStringList({"hero:chest_ctrl", "hero:spine_ctrl"}));
        QTest::mousePress(view, Qt::LeftButton, Qt::ControlModifier, QPoint(200, 150));
        QTest::mouseMove(view, QPoint(230, 150));
        QTest::mouseRelease(view, Qt::LeftButton, Qt::ControlModifier, QPoint(230, 150));
        key(Qt::Key_Right);
        key(Qt::Key_Right);
        key(Qt::Key_Down);
        QCOMPARE(position("Chest"), QString("232 151"));
        QTimer::singleShot(0, [] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            QVERIFY(menu);
            for (QAction* action : menu->actions())
                if (action->menu())
                    for (QAction* entry : action->menu()->actions())
                        if (entry->text() == "Distribute Vertically") {
                            menu->close();
                            entry->trigger();
                        }
        });
        QTest::mousePress(view, Qt::RightButton, {}, QPoint(232, 197));
        QApplication::setActiveWindow(picker);           // offscreen leaves the closed menu active
        QCOMPARE(position("Spine"), QString("232 199")); // 151 + a height of 47 widened to 48
        key(Qt::Key_Plus);
        QCOMPARE(host.execute("ZelvaniPicker get_button_properties label Spine;")
                     .values.join(" ")
                     .section(' ', 5, 5),
                 QString("67"));
        for (int i = 0; i < 6; ++i) // move, nudges, distribute, size width and height
            key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(host.execute("ZelvaniPicker get_picker_data;").values.join(""), before);
        host.reset();
    }

    void batch_dialogs_are_printed_and_answered() {
        sandbox::dialog_answerer answerer;
        QCOMPARE(QMessageBox::warning(nullptr, "Close Tab", "Really?",
                                      QMessageBox::Ok | QMessageBox::Cancel),
                 QMessageBox::Cancel);
        QCOMPARE(QMessageBox::critical(nullptr, "Open Failed", "No file.", QMessageBox::Ok),
                 QMessageBox::Ok);
        bool ok = true;
        QCOMPARE(QInputDialog::getText(nullptr, "Rename Tab", "New name:", QLineEdit::Normal,
                                       "Untitled", &ok),
                 QString());
        QVERIFY(!ok);
        QCOMPARE(lines, QStringList({"// Warning: Close Tab: Really? //",
                                     "// Warning: Open Failed: No file. //",
                                     "// Warning: Rename Tab: New name: //"}));
    }
};

QTEST_MAIN(test_sandbox_window)
#include "test_sandbox_window.moc"
