// Python command buttons clicked on the canvas, run by the host's Python with the plug-in
// loaded: their scripts see the scene and the picker through maya.cmds.
#include "plugin_fixture.h"

#include <QtTest>

class test_python_buttons : public QObject {
    Q_OBJECT
    plugin_fixture f;

    // A Python command button at a widget point of the current tab.
    void add_python_button(int x, int y, const QString& label, const QString& script) {
        QString quoted = script;
        quoted.replace("\\", "\\\\").replace("\"", "\\\"").replace("\n", "\\n");
        f.mel(QString("ZelvaniPicker add_cmd_button %1 %2 \"python\" \"%3\" \"%4\";")
                  .arg(x)
                  .arg(y)
                  .arg(label, quoted));
    }
    void click(int x, int y) {
        QWidget* view = plugin_fixture::tabs()->currentWidget();
        QTest::mouseClick(view, Qt::LeftButton, {}, QPoint(x, y));
        f.host.run_idle();
    }

private slots:
    void init() {
        f.start();
        f.mel("ZelvaniPicker;");
        plugin_fixture::tabs()->window()->show();
        f.mel("createNode transform -n \"hero:arm\"; createNode transform -n \"hero:leg\";"
              "select hero:arm;");
    }
    void cleanup() { f.host.reset(); }

    void a_click_runs_the_script_on_the_scene_selection() {
        add_python_button(60, 40, "Both",
                          "import maya.cmds as cmds\n"
                          "seen = cmds.ls(sl=True)\n"
                          "cmds.select(seen + ['hero:leg'])\n"
                          "cmds.ZelvaniPicker('rename_tab', 'saw ' + ' '.join(seen))");
        QVERIFY(f.host.idle.empty());
        click(60, 40);
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("saw hero:arm"));
        QCOMPARE(f.host.active.names(), QStringList({"hero:arm", "hero:leg"}));
        QVERIFY(f.lines.filter("Error").isEmpty());
    }

    void the_interpreter_survives_a_failing_or_exiting_script() {
        add_python_button(40, 40, "Fails", "import maya.cmds as cmds\ncmds.select('nobody')");
        add_python_button(80, 40, "Exits", "import sys\nsys.exit()");
        add_python_button(120, 40, "Works", "import maya.cmds\nmaya.cmds.select(clear=True)");
        add_python_button(40, 80, "Bad", "import maya.cmds\nmaya.cmds.ZelvaniPicker('Select')");
        click(40, 40);
        QCOMPARE(f.lines.filter("# Error:").size(), 1);
        QVERIFY(f.lines.filter("# Error:")[0].startsWith(
            "# Error: RuntimeError: file <maya console> line 2: No object matches name: nobody"));
        click(80, 40);
        click(120, 40);
        QVERIFY(f.host.active.empty());
        QCOMPARE(f.lines.filter("Error").size(), 1);
        // The plug-in's own error, raised from a button, is printed in Python's form too.
        click(40, 80);
        QVERIFY(!f.lines.filter("# Error: ZelvaniPicker - unknown directive: Select #").isEmpty());
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Untitled"));
    }
};

QTEST_MAIN(test_python_buttons)
#include "test_python_buttons.moc"
