// Loading and unloading the plug-in, its callbacks, and what the host's events do to it.
#include "plugin_fixture.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QThread>
#include <QtTest>

class test_lifecycle : public QObject {
    Q_OBJECT
    plugin_fixture f;
    const QStringList events{"SelectionChanged", "quitApplication", "deleteAll", "NewSceneOpened",
                             "SceneOpened"};

    int callbacks() const {
        int n = 0;
        for (const QString& e : events)
            n += f.host.events.count(e);
        return n;
    }

private slots:
    void cleanup() { f.host.reset(); }

    void load_installs_and_unload_removes() {
        f.start();
        QCOMPARE(callbacks(), 5);
        for (const QString& e : events)
            QCOMPARE(f.host.events.count(e), 1);
        QVERIFY(f.host.command(QStringLiteral("ZelvaniPicker")));
        // The start-up script defined its procedure on the first idle.
        QCOMPARE(f.mel("exists picker_ListNamespaces;"), QString("1"));
        QCOMPARE(f.mel("ZelvaniPicker; ZelvaniPicker query_tabs;"), QString("Untitled"));

        QVERIFY(f.host.unload_plugin(QStringLiteral("ZelvaniPicker")));
        QCOMPARE(callbacks(), 0);
        QVERIFY(!f.host.command(QStringLiteral("ZelvaniPicker")));
        QVERIFY(!plugin_fixture::dock());
        QVERIFY(f.errors().isEmpty());
    }

    void failures_name_their_step_and_keep_what_was_installed_data() {
        QTest::addColumn<QString>("operation");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("installed");
        QTest::newRow("plugin") << "MFnPlugin"
                                << "could not initialize the plugin" << 0;
        QTest::newRow("command") << "registerCommand"
                                 << "could not initialize the plugin" << 0;
        QTest::newRow("selection") << "addEventCallback:SelectionChanged"
                                   << "could not install SelectionChanged callback" << 0;
        QTest::newRow("quit") << "addEventCallback:quitApplication"
                              << "could not install quitApplication callback" << 1;
        QTest::newRow("deleteAll") << "addEventCallback:deleteAll"
                                   << "could not install the deleteAll callback" << 2;
        QTest::newRow("new") << "addEventCallback:NewSceneOpened"
                             << "could not install the NewSceneOpened callback" << 3;
        QTest::newRow("opened") << "addEventCallback:SceneOpened"
                                << "could not install the SceneOpened callback" << 4;
    }
    void failures_name_their_step_and_keep_what_was_installed() {
        QFETCH(QString, operation);
        QFETCH(QString, text);
        QFETCH(int, installed);
        f.start(false);
        f.host.failing.insert(operation);
        QString error;
        QVERIFY(!f.host.load_plugin(QStringLiteral(ZELVANI_PLUGIN_PATH), &error));
        QCOMPARE(f.errors().size(), 1);
        QVERIFY2(f.errors()[0].startsWith("// Error: ZelvaniPicker - " + text + ": "),
                 qPrintable(f.errors()[0]));
        // The report keeps its own trailing blank before the line's end.
        QVERIFY2(f.errors()[0].trimmed().endsWith("  //"), qPrintable(f.errors()[0]));
        QCOMPARE(callbacks(), installed);
        f.host.failing.clear();
    }

    void failed_removals_are_each_reported() {
        f.start();
        f.host.failing.insert(QStringLiteral("removeCallback"));
        QVERIFY(!f.host.unload_plugin(QStringLiteral("ZelvaniPicker")));
        const QStringList e = f.errors();
        QCOMPARE(e.size(), 5);
        QVERIFY(e[0].contains("could not remove selectionChanged callback"));
        QVERIFY(e[1].contains("could not remove the quitApplicaiton callback"));
        QVERIFY(e[4].contains("could not remove the sceneOpened callback"));
        // The host takes back what the library left behind, so nothing calls into it.
        QCOMPARE(callbacks(), 0);
        QVERIFY(f.lines.filter("left 5 event callbacks installed").size() == 1);
        f.host.failing.clear();
        f.host.new_scene();
    }

    void quit_closes_the_window_and_unload_then_finds_nothing() {
        f.start();
        f.mel("ZelvaniPicker;");
        QPointer<QDockWidget> dock = plugin_fixture::dock();
        QVERIFY(dock);
        f.host.quit();
        QVERIFY(!dock);
        QVERIFY(f.host.unload_plugin(QStringLiteral("ZelvaniPicker")));
        QVERIFY(f.errors().isEmpty());
    }

    void unloading_while_pictures_encode_leaves_no_worker_behind() {
        // Pictures large enough that workers are still encoding them when the library
        // goes; a worker left running would run code that is no longer mapped.
        QTemporaryDir dir;
        QImage image(1600, 1200, QImage::Format_RGB32);
        QRandomGenerator grain(7);
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                image.setPixel(x, y, grain.generate());
        const QString path = dir.filePath("big.png");
        QVERIFY(image.save(path));
        f.start();
        f.mel("ZelvaniPicker;");
        for (int i = 0; i < 4; ++i)
            f.host.execute(
                QString("ZelvaniPicker new_tab; ZelvaniPicker set_background \"%1\";").arg(path));
        QVERIFY(f.host.unload_plugin(QStringLiteral("ZelvaniPicker")));
        QThread::msleep(200);
        QVERIFY(f.errors().isEmpty());
    }

    void a_new_scene_leaves_one_untitled_tab() {
        f.start();
        f.mel("ZelvaniPicker;");
        f.mel("ZelvaniPicker clear_tabs;");
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString());
        f.mel("file -f -new;");
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Untitled"));
        f.mel("ZelvaniPicker new_tab; ZelvaniPicker rename_tab \"Face\";");
        f.host.new_scene();
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Untitled"));
    }

    void an_opened_scene_brings_its_tabs_back() {
        f.start();
        QTemporaryDir dir;
        const QString path = dir.filePath("pickers.ma");
        f.mel("ZelvaniPicker;");
        f.mel("ZelvaniPicker rename_tab \"Body\"; ZelvaniPicker new_tab;"
              "ZelvaniPicker rename_tab \"Face\";");
        f.mel("string $d[] = `ZelvaniPicker get_picker_data`;"
              "fileInfo \"ZelvaniPickerData\" $d[0]; file -rename \"" +
              path + "\"; file -save;");
        f.mel("file -f -new;");
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Untitled"));
        f.mel("file -f -open \"" + path + "\";");
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Body Face"));
        QCOMPARE(plugin_fixture::tabs()->currentIndex(), 1);
        QVERIFY2(f.errors().isEmpty(), qPrintable(f.errors().join('\n')));
    }

    void a_scene_opened_before_the_window_exists_restores_nothing() {
        f.start();
        f.host.new_scene();
        f.host.run_idle();
        QVERIFY(!plugin_fixture::dock());
        QVERIFY(f.host.idle.empty());
    }
};

QTEST_MAIN(test_lifecycle)
#include "test_lifecycle.moc"
