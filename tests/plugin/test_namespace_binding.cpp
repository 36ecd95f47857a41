// Binding a picker to the namespaces of the scene, with the host's own namespaces and the
// dialog answered as a user would.
#include "plugin_fixture.h"

#include <QComboBox>
#include <QDialog>
#include <QtTest>
#include <functional>

class test_namespace_binding : public QObject {
    Q_OBJECT
    plugin_fixture f;

    // Answers the namespace dialog once it is up: `choose` sets the rows, then OK.
    void answer(const std::function<void(QList<QComboBox*>)>& choose, bool accept = true) {
        QTimer::singleShot(0, [=] {
            auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            QVERIFY(dialog);
            QCOMPARE(dialog->windowTitle(), QString("Choose Namespace"));
            choose(dialog->findChildren<QComboBox*>());
            accept ? dialog->accept() : dialog->reject();
        });
    }
    QString targets(const char* label) {
        return f.mel(QString("ZelvaniPicker query_button label %1;").arg(label));
    }

private slots:
    void init() {
        f.start();
        f.mel("ZelvaniPicker;");
        f.mel("namespace -add \"rig\"; namespace -add \"char\"; namespace -set \"char\";"
              "namespace -add \"rig\"; namespace -set \":\";"
              "createNode transform -n \"arm\"; createNode transform -n \"rig:arm\";"
              "createNode transform -n \"char:rig:arm\";");
    }
    void cleanup() { f.host.reset(); }

    void a_root_picker_binds_silently_and_rebinds_through_the_dialog() {
        f.mel("select arm; ZelvaniPicker add_button 10 10 \"Arm\";");
        f.mel("ZelvaniPicker \"bind\" `picker_ListNamespaces`;");
        QVERIFY(f.unexpected_dialogs.isEmpty()); // ":" is in both lists
        QCOMPARE(targets("Arm"), QString("arm"));

        answer([](QList<QComboBox*> rows) {
            QCOMPARE(rows.size(), 1);
            QCOMPARE(rows[0]->currentText(), QString(":"));
            rows[0]->setCurrentText("rig");
        });
        f.mel("ZelvaniPicker \"rebind\" `picker_ListNamespaces`;");
        QCOMPARE(targets("Arm"), QString("rig:arm"));

        // The suffix rule offers char:rig for a namespace rig that the scene lacks.
        f.mel("ZelvaniPicker update_namespace \"mia:rig\";");
        answer([](QList<QComboBox*> rows) {
            QCOMPARE(rows.size(), 2); // "mia" and "mia:rig"
            QCOMPARE(rows[1]->currentText(), QString("mia:rig"));
            rows[1]->setCurrentText(":");
        });
        f.mel("ZelvaniPicker \"bind\" `picker_ListNamespaces`;");
        QCOMPARE(targets("Arm"), QString("arm"));

        answer([](QList<QComboBox*> rows) { rows[0]->setCurrentText("char:rig"); }, false);
        f.mel("ZelvaniPicker \"rebind\" `picker_ListNamespaces`;");
        QCOMPARE(targets("Arm"), QString("arm")); // cancelled
    }

    void the_suffix_rule_picks_a_nested_namespace() {
        f.mel("select arm; ZelvaniPicker add_button 10 10 \"Arm\";");
        f.mel("ZelvaniPicker update_button label Arm \"x[a:b]:c\";");
        QCOMPARE(f.mel("ZelvaniPicker get_namespaces;"), QString("x[a:b]"));
        f.mel("ZelvaniPicker update_button label Arm \"rig:arm\";");
        answer([](QList<QComboBox*> rows) {
            QCOMPARE(rows[0]->currentText(), QString("rig"));
            rows[0]->setCurrentText("char:rig");
        });
        f.mel("ZelvaniPicker \"rebind\" `picker_ListNamespaces`;");
        QCOMPARE(targets("Arm"), QString("char:rig:arm"));
    }

    void command_text_and_update_namespace() {
        f.mel("ZelvaniPicker add_cmd_button 10 10 \"mel\" \"Sel\" "
              "\"select -r rig:arm rig:leg arm; print \\\"rig:x\\\";\";");
        f.mel("select rig:arm; ZelvaniPicker add_button 40 10 \"Arm\";");
        f.mel("ZelvaniPicker update_namespace \"char\";");
        QCOMPARE(targets("Sel"), QString("select -r char:arm char:leg arm; print \"char:x\";"));
        QCOMPARE(targets("Arm"), QString("char:arm"));
        f.mel("ZelvaniPicker update_namespace \"\";"); // strips every namespace
        QCOMPARE(targets("Sel"), QString("select -r arm leg arm; print \"x\";"));
        QCOMPARE(targets("Arm"), QString("arm"));
        QVERIFY(f.errors().isEmpty());
    }
};

QTEST_MAIN(test_namespace_binding)
#include "test_namespace_binding.moc"
