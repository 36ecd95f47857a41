// The ZelvaniPicker command: window creation, argument forms, the directive table and the
// tab and data directives, driven through MEL.
#include "plugin_fixture.h"

#include <QDataStream>
#include <QtTest>

class test_command : public QObject {
    Q_OBJECT
    plugin_fixture f;

    // Opens the window and lets its start-up restore run.
    void open_window() { f.mel("ZelvaniPicker;"); }

private slots:
    void init() { f.start(); }
    void cleanup() { f.host.reset(); }

    void the_first_call_makes_one_floating_window() {
        QVERIFY(!plugin_fixture::dock());
        open_window();
        QDockWidget* dock = plugin_fixture::dock();
        QVERIFY(dock);
        QVERIFY(dock->isFloating());
        QVERIFY(dock->isVisible());
        QCOMPARE(dock->allowedAreas(), Qt::NoDockWidgetArea);
        QCOMPARE(dock->features(), QDockWidget::DockWidgetClosable |
                                       QDockWidget::DockWidgetMovable |
                                       QDockWidget::DockWidgetFloatable);
        QCOMPARE(dock->windowTitle(), QString("ZelvaniPicker"));
        QVERIFY(!dock->windowIcon().isNull());
        QVERIFY(dock->windowFlags() & Qt::WindowMinimizeButtonHint);
        QVERIFY(!(dock->windowFlags() & Qt::Tool & ~Qt::Window));

        // A second call makes no new window; a hidden one comes back.
        dock->hide();
        open_window();
        QCOMPARE(MQtUtil::mainWindow()->findChildren<QDockWidget*>().size(), 1);
        QVERIFY(dock->isVisible());
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Untitled"));
    }

    void a_directive_on_the_first_call_runs_before_the_restore() {
        // The restore queued at creation runs after the call and resets the tabs.
        QCOMPARE(f.mel("ZelvaniPicker rename_tab \"Body\"; ZelvaniPicker query_tabs;"),
                 QString("Body"));
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Untitled"));
    }

    void arguments_come_as_an_array_or_one_by_one() {
        open_window();
        f.mel("ZelvaniPicker new_tab; ZelvaniPicker rename_tab \"Arms\";");
        f.mel("ZelvaniPicker \"set_tab\" {\"Untitled\"}; ZelvaniPicker rename_tab \"Body\";");
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Body Arms"));
        f.mel("string $names[] = {\"Arms\"}; ZelvaniPicker set_tab $names;");
        QCOMPARE(plugin_fixture::tabs()->currentIndex(), 1);
        f.mel("ZelvaniPicker(\"set_tab\", \"Body\");");
        QCOMPARE(plugin_fixture::tabs()->currentIndex(), 0);
        QVERIFY(f.errors().isEmpty());
    }

    void unknown_directives_fail_by_exact_name_data() {
        QTest::addColumn<QString>("directive");
        QTest::newRow("case") << "Select";
        QTest::newRow("blank") << "query_tabs ";
        QTest::newRow("later") << "add_buttons";
        QTest::newRow("hostile") << "%1 \" ; quit";
    }
    void unknown_directives_fail_by_exact_name() {
        QFETCH(QString, directive);
        open_window();
        QCOMPARE(f.mel("ZelvaniPicker \"" + QString(directive).replace("\"", "\\\"") + "\";"),
                 QString("ERROR"));
        QCOMPARE(f.errors().size(), 1);
        QCOMPARE(f.errors()[0].trimmed(),
                 "// Error: ZelvaniPicker - unknown directive: " + directive + " //");
    }

    void tab_directives() {
        open_window();
        f.mel("ZelvaniPicker rename_tab \"\";");
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Untitled"));
        // Two tabs may share a title; set_tab ends on the later one.
        f.mel("ZelvaniPicker new_tab; ZelvaniPicker new_tab; ZelvaniPicker set_tab \"Untitled\";");
        QCOMPARE(plugin_fixture::tabs()->currentIndex(), 2);
        f.mel("ZelvaniPicker set_tab \"nothing\";");
        QCOMPARE(plugin_fixture::tabs()->currentIndex(), 2);
        // close_tab asks nothing and writes nothing to the scene.
        f.mel("ZelvaniPicker close_tab;");
        QCOMPARE(plugin_fixture::tabs()->count(), 2);
        QCOMPARE(f.mel("fileInfo -q \"ZelvaniPickerData\";"), QString());
        f.mel("ZelvaniPicker clear_tabs;");
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString());
        // Every directive copes with no tab at all.
        f.mel("ZelvaniPicker close_tab; ZelvaniPicker rename_tab \"x\"; ZelvaniPicker save;"
              "ZelvaniPicker set_background \"none.png\"; ZelvaniPicker resize_background 3 4;"
              "ZelvaniPicker clear_background; ZelvaniPicker set_tab \"x\";");
        QVERIFY(f.errors().isEmpty());
    }

    void the_close_button_asks_first() {
        open_window();
        f.mel("ZelvaniPicker new_tab;");
        QTabWidget* tabs = plugin_fixture::tabs();
        {
            dialog_answerer cancel(QMessageBox::Cancel);
            emit tabs->tabCloseRequested(0);
            QCOMPARE(cancel.title, QString("Close Tab"));
            QVERIFY(cancel.text.startsWith("Are you sure you want to close the tab \"Untitled\"?"));
        }
        QCOMPARE(tabs->count(), 2);
        {
            dialog_answerer ok(QMessageBox::Ok);
            emit tabs->tabCloseRequested(0);
        }
        QCOMPARE(tabs->count(), 1);
        // A confirmed close stores the tabs in the scene.
        f.host.run_idle();
        QVERIFY(f.host.scene.has_file_info("ZelvaniPickerData"));
    }

    void picker_data_round_trips() {
        open_window();
        f.mel("ZelvaniPicker rename_tab \"Body\"; ZelvaniPicker new_tab;"
              "ZelvaniPicker rename_tab \"Face\";");
        const QString all = f.mel("ZelvaniPicker get_picker_data;");
        const QString one = f.mel("ZelvaniPicker get_picker_data \"1\";");
        QCOMPARE(f.mel("ZelvaniPicker get_picker_data \"2\";"), QString("ERROR"));
        QVERIFY(f.errors().last().contains("Provided tab index is out of range!"));
        QCOMPARE(f.mel("ZelvaniPicker get_picker_data \"\";"), all);

        f.mel("ZelvaniPicker open_picker_data \"" + one + "\";");
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Body Face Face"));
        QCOMPARE(plugin_fixture::tabs()->currentIndex(), 1);
        f.mel("ZelvaniPicker open_picker_data;");
        QCOMPARE(plugin_fixture::tabs()->count(), 3);

        f.mel("ZelvaniPicker restore \"" + all + "\";");
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Body Face"));
        QCOMPARE(plugin_fixture::tabs()->currentIndex(), 1);
        f.mel("ZelvaniPicker restore;");
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Untitled"));
    }

    void bad_data_costs_the_tabs_but_nothing_else() {
        open_window();
        f.mel("ZelvaniPicker new_tab;");
        QCOMPARE(f.mel("ZelvaniPicker open_picker_data \"not base64 at all\";"), QString("ERROR"));
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Untitled"));
        QCOMPARE(f.mel("ZelvaniPicker restore \"AAAA\";"), QString("ERROR"));
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Untitled"));
        QCOMPARE(f.mel("ZelvaniPicker fetch_image \"12\" \"\";"), QString("ERROR"));

        // A tab count far beyond the data ends with the data.
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out << qint32(5) << qint32(0x7fffffff) << qint32(0) << qint32(0) << QString("Only")
            << QString() << qint32(0);
        const QString huge = QString::fromLatin1(qCompress(bytes, 9).toBase64());
        f.mel("ZelvaniPicker restore \"" + huge + "\";");
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Only"));
    }

    void newer_data_is_refused_with_a_warning() {
        open_window();
        f.mel("ZelvaniPicker rename_tab \"Mine\";");
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out << qint32(6) << qint32(1) << qint32(0);
        const QString data = QString::fromLatin1(qCompress(bytes, 9).toBase64());
        dialog_answerer ok(QMessageBox::Ok);
        QCOMPARE(f.mel("ZelvaniPicker restore \"" + data + "\";"), QString());
        QVERIFY(ok.answered);
        QCOMPARE(ok.title, QString("Warning"));
        QVERIFY(ok.text.contains("in a format (6) more recent"));
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Mine"));
    }

    void saved_data_comes_back_as_it_stands() {
        open_window();
        QCOMPARE(f.mel("ZelvaniPicker get_saved_picker_data;"), QString());
        f.mel("fileInfo \"ZelvaniPickerData\" \"abc\";");
        QCOMPARE(f.mel("ZelvaniPicker get_saved_picker_data;"), QString("abc"));
    }
};

QTEST_MAIN(test_command)
#include "test_command.moc"
