// The channel box: what it shows of the last selected node, how it follows the host, and
// edits typed into it; and the demo picker's command buttons that reset, key and switch
// the arms, seen through it.
#include "channel_box.h"
#include "core/session.h"
#include "demo_picker.h"
#include "main_window.h"
#include "output_pane.h"

#include <QComboBox>
#include <QTabWidget>
#include <QTableWidget>
#include <QtTest>

namespace {

// Each row as "Name=value", an enum by the name its box shows.
QStringList rows(const sandbox::channel_box& box) {
    QStringList out;
    const QTableWidget* t = box.table();
    for (int row = 0; row < t->rowCount(); ++row) {
        const auto* combo = qobject_cast<const QComboBox*>(t->cellWidget(row, 1));
        out << t->item(row, 0)->text() + '=' +
                   (combo ? combo->currentText() : t->item(row, 1)->text());
    }
    return out;
}

int row_of(const sandbox::channel_box& box, const QString& name) {
    for (int row = 0; row < box.table()->rowCount(); ++row) {
        if (box.table()->item(row, 0)->text() == name)
            return row;
    }
    return -1;
}

QTableWidgetItem* value_item(const sandbox::channel_box& box, const QString& name) {
    const int row = row_of(box, name);
    return row < 0 ? nullptr : box.table()->item(row, 1);
}

} // namespace

class test_channel_box : public QObject {
    Q_OBJECT
    host::session& host = host::session::get();
    QStringList lines;

    QString run(const QString& mel) { return host.execute(mel).values.join(' '); }

private slots:
    void init() {
        host.reset();
        lines.clear();
        host.out.set_sink([this](host::line_kind, const QString& l) { lines << l.trimmed(); });
    }

    void it_shows_the_last_selected_node_and_follows_the_host() {
        run("createNode transform -n a; createNode joint -n b;"
            "addAttr -ln ikFk -nn \"IK FK\" -at enum -en \"FK:IK\" -k true b;"
            "addAttr -ln hidden -at double b; addAttr -ln note -dt string b; select -cl;");
        sandbox::channel_box box;
        QVERIFY(box.node_name().isEmpty());
        QCOMPARE(box.table()->rowCount(), 0);
        run("select a b;"); // the selection event refreshes it at once
        QCOMPARE(box.node_name(), QString("b"));
        QCOMPARE(rows(box), QStringList({"Translate X=0", "Translate Y=0", "Translate Z=0",
                                         "Rotate X=0", "Rotate Y=0", "Rotate Z=0", "Scale X=1",
                                         "Scale Y=1", "Scale Z=1", "Visibility=on", "IK FK=FK"}));

        // Values, keys, locks and channel-box flags as commands leave them.
        run("setAttr b.tx 2.5; setAttr b.ry 33.33333; setAttr b.ikFk 1; setKeyframe b.ty;"
            "setAttr -l on b.tz; setAttr -k off b.sx; setAttr -k off b.sy; setAttr -cb on b.sy;"
            "setAttr b.v off;");
        box.refresh();
        QCOMPARE(rows(box).mid(0, 2), QStringList({"Translate X=2.5", "Translate Y=0"}));
        QCOMPARE(value_item(box, "Rotate Y")->text(), QString("33.333"));
        QCOMPARE(row_of(box, "Scale X"), -1);
        QVERIFY(row_of(box, "Scale Y") >= 0);
        QCOMPARE(value_item(box, "Visibility")->text(), QString("off"));
        QCOMPARE(rows(box).last(), QString("IK FK=IK"));
        const QColor plain = value_item(box, "Translate X")->background().color();
        const QColor keyed = value_item(box, "Translate Y")->background().color();
        const QColor locked = value_item(box, "Translate Z")->background().color();
        QVERIFY(keyed != plain && locked != plain && keyed != locked);
        QVERIFY(!(value_item(box, "Translate Z")->flags() & Qt::ItemIsEditable));
        QVERIFY(value_item(box, "Translate X")->flags() & Qt::ItemIsEditable);
        // A keyed value follows the time; one set by hand shows until the time moves.
        run("setKeyframe -t 10 -v 5 b.ty; currentTime 5;");
        box.refresh();
        QCOMPARE(value_item(box, "Translate Y")->text(), QString("2.222"));
        run("setAttr b.ty 1;");
        box.refresh();
        QCOMPARE(value_item(box, "Translate Y")->text(), QString("1"));
        QVERIFY(value_item(box, "Translate Y")->background().color() != keyed);

        run("select -d a; select -add a;");
        QCOMPARE(box.node_name(), QString("a"));
        QCOMPARE(box.table()->rowCount(), 10);
        host.new_scene();
        box.refresh();
        QVERIFY(box.node_name().isEmpty());
        QCOMPARE(box.table()->rowCount(), 0);
    }

    void typed_values_set_every_selected_node() {
        sandbox::main_window window;
        run("createNode transform -n a; createNode transform -n b; addAttr -ln mode -at enum "
            "-en \"Off:On\" -k true b; select a b;");
        window.refresh_views();
        sandbox::channel_box& box = *window.channels();
        value_item(box, "Translate X")->setText("4");
        QCOMPARE(run("getAttr a.tx; getAttr b.tx;"), QString("4"));
        QVERIFY(window.output()->toPlainText().contains(
            "setAttr \"a.translateX\" 4; setAttr \"b.translateX\" 4;"));
        // The table shows the scene again after a refused value.
        value_item(box, "Translate X")->setText("abc");
        QVERIFY(window.output()->toPlainText().contains(
            "// Error: Line 1.1: setAttr: Error reading data element number 1: abc //"));
        QCOMPARE(value_item(box, "Translate X")->text(), QString("4"));
        // Typed text is a value, never a command.
        value_item(box, "Translate Y")->setText("1; delete a");
        QVERIFY(host.scene.exists("a"));
        value_item(box, "Visibility")->setText("off");
        QCOMPARE(run("getAttr a.v;"), QString("0"));
        // The enum's box sets the node that has it.
        auto* combo = qobject_cast<QComboBox*>(box.table()->cellWidget(row_of(box, "Mode"), 1));
        QVERIFY(combo);
        combo->activated(1);
        QCOMPARE(run("getAttr b.mode;"), QString("1"));
        QCOMPARE(rows(box).last(), QString("Mode=On"));
    }

    void the_demo_buttons_reset_key_and_switch_the_arms() {
        sandbox::main_window window;
        host.set_main_window(&window);
        open_demo_picker();
        auto* tabs = window.findChild<QTabWidget*>();
        QVERIFY(tabs);
        tabs->window()->show();
        QWidget* view = tabs->currentWidget();
        const auto click = [&](QPoint at) {
            QTest::mouseClick(view, Qt::LeftButton, {}, at);
            host.run_idle();
            window.refresh_views();
        };
        const QPoint reset(36, 96), key(36, 116), ik_fk(36, 136);
        sandbox::channel_box& box = *window.channels();

        // IK/FK on an elbow: the left arm goes IK, its IK control is shown and selected.
        run("select -r hero:L_elbow_ctrl;");
        click(ik_fk);
        QCOMPARE(run("getAttr -as hero:L_arm_settings_ctrl.ikFk;"), QString("IK"));
        QCOMPARE(run("getAttr hero:L_shoulder_ctrl.v; getAttr hero:L_arm_ik_ctrl.v;"),
                 QString("1"));
        QCOMPARE(run("getAttr hero:L_elbow_ctrl.v;"), QString("0"));
        QCOMPARE(box.node_name(), QString("hero:L_arm_ik_ctrl"));
        QCOMPARE(value_item(box, "Visibility")->text(), QString("on"));

        // Key: every keyable channel of the selection, shown keyed.
        run("setAttr hero:L_arm_ik_ctrl.t 1 2 3; setAttr hero:L_arm_ik_ctrl.rz 45;");
        click(key);
        QCOMPARE(run("keyframe -q -kc hero:L_arm_ik_ctrl;"), QString("10"));
        QCOMPARE(value_item(box, "Translate Y")->text(), QString("2"));
        const QColor keyed = value_item(box, "Translate Y")->background().color();

        // Reset: translate, rotate and scale back to their defaults.
        click(reset);
        QCOMPARE(run("getAttr hero:L_arm_ik_ctrl.t;"), QString("0 0 0"));
        QCOMPARE(run("getAttr hero:L_arm_ik_ctrl.rz;"), QString("0"));
        QCOMPARE(value_item(box, "Rotate Z")->text(), QString("0"));
        QVERIFY(value_item(box, "Rotate Z")->background().color() != keyed);
        click(key);
        QCOMPARE(run("currentTime 2; getAttr hero:L_arm_ik_ctrl.tx;"), QString("0"));

        // The settings control's switch, shown in the channel box as an enum.
        run("select -r hero:L_arm_settings_ctrl;");
        window.refresh_views();
        QCOMPARE(rows(box), QStringList({"IK FK=IK"}));
        click(ik_fk);
        QCOMPARE(run("getAttr hero:L_arm_settings_ctrl.ikFk;"), QString("0"));
        QCOMPARE(run("ls -sl;"), QString("hero:L_wrist_ctrl"));
        QVERIFY(!window.output()->toPlainText().contains("Error"));
        host.reset();
        host.set_main_window(nullptr);
    }
};

QTEST_MAIN(test_channel_box)
#include "test_channel_box.moc"
