// Where the dock opens: the stored size and place, clamped, kept on a screen.
#include "plugin_fixture.h"

#include <QGuiApplication>
#include <QScreen>
#include <QSettings>
#include <QtTest>

class test_window_geometry : public QObject {
    Q_OBJECT
    plugin_fixture f;

    static void store(QSize size, QPoint pos) {
        QSettings s("Zelvani", "picker");
        s.setValue("pickerSize", size);
        s.setValue("pickerPosition", pos);
    }

private slots:
    void init() {
        QSettings("Zelvani", "picker").clear();
        f.start();
    }
    void cleanup() { f.host.reset(); }

    void defaults_without_settings() {
        f.mel("ZelvaniPicker;");
        QCOMPARE(plugin_fixture::dock()->size(), QSize(400, 400));
        QCOMPARE(plugin_fixture::dock()->pos(), QPoint(120, 100));
    }

    // A narrow or low window gets a width of 150; no height is raised by the rule, but none
    // goes below what the tabs and the toolbox need.
    void small_sizes_widen_and_stop_at_the_content() {
        store(QSize(100, 100), QPoint(10, 10));
        f.mel("ZelvaniPicker;");
        QDockWidget* dock = plugin_fixture::dock();
        QCOMPARE(dock->size(), QSize(150, dock->minimumSizeHint().height()));
        store(QSize(300, 90), QPoint(10, 10));
        f.mel("ZelvaniPicker;"); // each call without arguments reads the settings again
        QCOMPARE(dock->size(),
                 QSize(150, dock->minimumSizeHint().height())); // a low height sets the width
        store(QSize(300, 500), QPoint(10, 10));
        f.mel("ZelvaniPicker;");
        QCOMPARE(dock->size(), QSize(300, 500));
    }

    void a_window_off_the_screen_is_centred_on_the_primary_screen() {
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        store(QSize(200, 180), screen.bottomRight() - QPoint(50, 50));
        f.mel("ZelvaniPicker;");
        QCOMPARE(plugin_fixture::dock()->size(), QSize(200, 180));
        QCOMPARE(QRect(plugin_fixture::dock()->pos(), QSize(200, 180)).center(), screen.center());
    }

    void closing_stores_the_geometry() {
        f.mel("ZelvaniPicker;");
        plugin_fixture::dock()->resize(321, 234);
        plugin_fixture::dock()->move(40, 30);
        // Hiding through the close button keeps nothing; unloading does.
        plugin_fixture::dock()->close();
        QVERIFY(!QSettings("Zelvani", "picker").contains("pickerSize"));
        QVERIFY(f.host.unload_plugin("ZelvaniPicker"));
        QSettings s("Zelvani", "picker");
        QCOMPARE(s.value("pickerSize").toSize(), QSize(321, 234));
        QCOMPARE(s.value("pickerPosition").toPoint(), QPoint(40, 30));
    }
};

QTEST_MAIN(test_window_geometry)
#include "test_window_geometry.moc"
