// The MEL procedure the plug-in ships: every namespace of the scene, the root last.
#include "plugin_fixture.h"

#include <QtTest>

class test_namespace_script : public QObject {
    Q_OBJECT
    plugin_fixture f;

private slots:
    void init() { f.start(); }
    void cleanup() { f.host.reset(); }

    void lists_a_nested_tree_depth_first_with_the_root_last() {
        f.mel("namespace -add \"hero\"; namespace -add \"face\" -p \"hero\";"
              "namespace -add \"eyes\" -p \"hero:face\"; namespace -add \"prop\";"
              "namespace -set \"prop\"; namespace -add \"sword\"; namespace -set \":\";");
        QCOMPARE(f.mel("picker_ListNamespaces();"),
                 QString("hero hero:face hero:face:eyes prop prop:sword :"));
        QVERIFY(f.errors().isEmpty());
    }

    void an_empty_scene_has_only_the_root() {
        QCOMPARE(f.mel("picker_ListNamespaces;"), QString(":"));
    }

    void feeds_the_command_as_one_array() {
        f.mel("namespace -add \"hero\"; ZelvaniPicker;");
        QCOMPARE(f.mel("ZelvaniPicker \"rename_tab\" `picker_ListNamespaces`;"
                       "ZelvaniPicker query_tabs;"),
                 QString("hero"));
        QCOMPARE(f.mel("string $n[] = `picker_ListNamespaces`; size $n;"), QString("2"));
    }
};

QTEST_MAIN(test_namespace_script)
#include "test_namespace_script.moc"
