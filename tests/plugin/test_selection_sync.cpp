// The picker follows the scene selection, and its select and clear directives lead it, in
// both orders of the host's "SelectionChanged" event.
#include "picker_data.h"
#include "plugin_fixture.h"

#include <QAction>
#include <QDataStream>
#include <QSettings>
#include <QtTest>
#include <algorithm>

namespace {

test_tab tab_of(const QString& name, const QList<QStringList>& buttons) {
    test_tab tab{name, {}, {}, {}};
    for (const QStringList& targets : buttons) {
        test_button button;
        button.targets = targets;
        tab.buttons.append(button);
    }
    return tab;
}

} // namespace

class test_selection_sync : public QObject {
    Q_OBJECT
    plugin_fixture f;

    int current_tab() const { return plugin_fixture::tabs()->currentIndex(); }

private slots:
    void initTestCase_data() {
        QTest::addColumn<bool>("deferred");
        QTest::newRow("synchronous") << false;
        QTest::newRow("deferred") << true;
    }
    void init() {
        QFETCH_GLOBAL(bool, deferred);
        f.start();
        f.host.defer_selection_changed = deferred;
        f.mel("createNode transform -n \"hero:arm\"; createNode transform -n \"hero:leg\";"
              "createNode transform -n \"hero:head\"; select -cl;");
        // A selection switches tabs unless the user turned that off: these cases want it on.
        QSettings("Zelvani", "picker").setValue("auto_tab_switching", true);
        f.mel("ZelvaniPicker;");
        const auto toggles = plugin_fixture::dock()->findChildren<QAction*>();
        QVERIFY(std::any_of(toggles.begin(), toggles.end(), [](const QAction* a) {
            return a->text() == "Toggle Auto Tab Switching" && !a->isChecked();
        }));
        const QString data = scene_data({tab_of("Body", {{"hero:arm"}, {"hero:leg", "hero:head"}}),
                                         tab_of("Face", {{"hero:head"}}),
                                         tab_of("Legs", {{"hero:leg"}, {"hero:arm"}})});
        f.mel("ZelvaniPicker restore \"" + data + "\";");
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Body Face Legs"));
        QCOMPARE(current_tab(), 0);
    }
    void cleanup() { f.host.reset(); }

    void a_single_object_switches_to_the_last_tab_that_changed() {
        f.mel("select hero:arm;");
        QCOMPARE(current_tab(), 2);
        // Highlights as they were: no switch back.
        plugin_fixture::tabs()->setCurrentIndex(0);
        f.mel("select hero:arm;");
        QCOMPARE(current_tab(), 0);
        // A partly selected button still switches.
        f.mel("select hero:head;");
        QCOMPARE(current_tab(), 1);
    }

    void several_objects_never_switch() {
        plugin_fixture::tabs()->setCurrentIndex(1);
        f.mel("select hero:leg hero:head;");
        QCOMPARE(current_tab(), 1);
    }

    void select_directive_replaces_then_adds() {
        QCOMPARE(f.mel("ZelvaniPicker select nothing hero:leg hero:arm; ls -sl;"),
                 QString("hero:leg hero:arm"));
        QCOMPARE(f.mel("ZelvaniPicker select hero:head nothing;"), QString("ERROR"));
        QCOMPARE(f.mel("ls -sl;"), QString("hero:head"));
        QCOMPARE(f.mel("ZelvaniPicker select nothing;"), QString("ERROR"));
        QCOMPARE(f.mel("ls -sl;"), QString("hero:head"));
        QCOMPARE(f.mel("ZelvaniPicker select; ls -sl;"), QString());
        f.mel("select hero:arm;");
        QCOMPARE(f.mel("ZelvaniPicker clear; ls -sl;"), QString());
        // A directive that selects one object lights its buttons as the scene would.
        plugin_fixture::tabs()->setCurrentIndex(0);
        f.mel("ZelvaniPicker select hero:head;");
        QCOMPARE(current_tab(), 1);
    }

    void without_tabs_the_selection_is_still_followed() {
        f.mel("ZelvaniPicker clear_tabs;");
        f.mel("select hero:arm;");
        QVERIFY(f.errors().isEmpty());
        f.mel("ZelvaniPicker new_tab;");
        QCOMPARE(current_tab(), 0);
    }

    void a_failing_host_selection_is_reported() {
        f.host.failing.insert("getActiveSelectionList");
        f.mel("select hero:arm;");
        QVERIFY(!f.errors().isEmpty());
        QVERIFY(f.errors()[0].contains("ZelvaniPicker- could not get the current selection: "));
        QCOMPARE(current_tab(), 0);
    }
};

QTEST_MAIN(test_selection_sync)
#include "test_selection_sync.moc"
