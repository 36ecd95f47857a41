// Writing Maya ASCII: the text's layout, and write -> read round trips of nodes,
// namespaces, fileInfo, attributes and curves.
#include "core/anim_curves.h"
#include "core/attributes.h"
#include "core/scene.h"
#include "ma/ma_file.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using host::scene;
namespace ma = host::ma;

namespace {

// Reads `text` into `out`, failing the test on an error or a warning.
void read_back(const QByteArray& text, scene& out) {
    QStringList warnings;
    QString error;
    QVERIFY2(ma::read(text, out, &warnings, &error), qPrintable(error));
    QVERIFY2(warnings.isEmpty(), qPrintable(warnings.join('\n')));
}

int add(scene& s, const QString& type, const QString& name, int parent = -1) {
    return s.create_node(type, name, parent, false);
}

QString name_of(const scene& s, int id) {
    return id < 0 ? QString("-") : s.at(id).name;
}

// Each node with its type, parent and grandparent: enough to tell repeated names apart.
QStringList describe(const scene& s) {
    QStringList out;
    for (int id : s.live_nodes()) {
        const int parent = s.at(id).parent;
        out << QStringList{s.at(id).name, s.at(id).type, name_of(s, parent),
                           name_of(s, parent < 0 ? -1 : s.at(parent).parent)}
                   .join(' ');
    }
    out.sort();
    return out;
}

} // namespace

class test_ma_write : public QObject {
    Q_OBJECT

private slots:
    void text_has_maya_layout() {
        scene s;
        add(s, "transform", "root");
        s.set_file_info("custom", "1");
        s.set_file_info("product", "Something Else");
        const QList<QByteArray> lines = ma::write(s, "/some/dir/shot.ma").split('\n');
        QCOMPARE(lines.value(0), QByteArray("//Maya ASCII 2019 scene"));
        QCOMPARE(lines.value(1), QByteArray("//Name: shot.ma"));
        QVERIFY(lines.value(2).startsWith("//Last modified: "));
        QCOMPARE(lines.value(3), QByteArray("//Codeset: UTF-8"));
        QCOMPARE(lines.value(4), QByteArray("requires maya \"2019\";"));
        QCOMPARE(lines.value(5), QByteArray("currentUnit -l centimeter -a degree -t film;"));
        QCOMPARE(lines.value(6), QByteArray("fileInfo \"application\" \"maya\";"));
        // Maya rewrites its own keys on save; other keys follow.
        QCOMPARE(lines.count("fileInfo \"product\" \"Maya 2019\";"), 1);
        QVERIFY(lines.contains("fileInfo \"custom\" \"1\";"));
        QVERIFY(lines.contains("createNode transform -n \"root\";"));
        QCOMPARE(lines.value(lines.size() - 2), QByteArray("// End of shot.ma"));
        QCOMPARE(lines.last(), QByteArray());
    }

    void nodes_round_trip() {
        scene s;
        const int l = add(s, "transform", "L");
        const int r = add(s, "transform", "rig:R");
        // The same short name under two parents needs a path for its children.
        const int lc = add(s, "transform", "ctrl", l);
        const int rc = add(s, "joint", "ctrl", r);
        add(s, "nurbsCurve", "ctrlShape", lc);
        add(s, "nurbsCurve", "ctrlShape", rc);
        add(s, "locator", "rig:face:eye", rc);
        add(s, "weird type", "oddType");
        // A long chain, and a parent created after the node that is later deleted.
        int chain = add(s, "transform", "chain0");
        for (int i = 1; i < 3000; ++i)
            chain = add(s, "joint", QString("chain%1").arg(i), chain);
        s.remove_node(add(s, "transform", "gone"));
        const QByteArray text = ma::write(s, "t.ma");
        QVERIFY(text.contains("-p \"|L|ctrl\""));
        QVERIFY(text.contains("createNode \"weird type\""));
        scene back;
        read_back(text, back);
        QCOMPARE(describe(back), describe(s));
    }

    void namespaces_round_trip() {
        scene s;
        add(s, "transform", "a:b:node");
        QVERIFY(s.ensure_namespace("empty"));
        QVERIFY(s.ensure_namespace("empty:inner:deep"));
        QVERIFY(s.ensure_namespace("a:sibling"));
        QVERIFY(s.ensure_namespace("a:b:under"));
        s.remove_node(add(s, "transform", "was:here"));
        scene back;
        read_back(ma::write(s, "t.ma"), back);
        QStringList expected = s.all_namespaces();
        QStringList got = back.all_namespaces();
        expected.sort();
        got.sort();
        QCOMPARE(got, expected);
        QCOMPARE(back.child_namespaces("a"), QStringList({"a:b", "a:sibling"}));
    }

    void file_info_round_trips_awkward_values_data() {
        QTest::addColumn<QString>("value");
        QTest::newRow("quotes") << "say \"hi\" \"";
        QTest::newRow("backslashes") << "C:\\temp\\new\\ \\\\ end\\";
        QTest::newRow("line breaks") << "one\ntwo\r\nthree\n";
        QTest::newRow("tab") << "a\tb";
        QTest::newRow("statement text") << "x; createNode joint -n \"evil\"; // not a comment";
        QTest::newRow("empty") << "";
        QTest::newRow("unicode") << QString::fromUtf8("café 日本語 ソ表");
        QString base64;
        for (int i = 0; base64.size() < 2000000; ++i)
            base64 += QString::number(i * 2654435761u, 36) + "+/=";
        QTest::newRow("long base64") << base64;
    }

    void file_info_round_trips_awkward_values() {
        QFETCH(QString, value);
        scene s;
        s.set_file_info("ZelvaniPickerData", value);
        s.set_file_info("key \"with\" ;\\", "v");
        scene back;
        read_back(ma::write(s, "t.ma"), back);
        QCOMPARE(back.file_info("ZelvaniPickerData"), value);
        QCOMPARE(back.file_info("key \"with\" ;\\"), QString("v"));
        QCOMPARE(back.node_count(), 0);
    }

    void files_round_trip_and_report_errors() {
        QTemporaryDir dir;
        scene s;
        add(s, "transform", "hero:root");
        s.set_file_info("note", "x");
        const QString path = dir.filePath("scene.ma");
        QString error;
        QVERIFY2(ma::write_file(path, s, &error), qPrintable(error));
        scene back;
        QStringList warnings;
        QVERIFY(ma::read_file(path, back, &warnings, &error));
        QVERIFY(warnings.isEmpty());
        QCOMPARE(describe(back), describe(s));
        QCOMPARE(back.file_info("note"), QString("x"));

        QVERIFY(!ma::write_file(dir.filePath("no/such/dir/x.ma"), s, &error));
        QVERIFY(error.contains("no/such/dir/x.ma"));
        QVERIFY(!ma::read_file(dir.filePath("missing.ma"), back, &warnings, &error));
        QVERIFY(error.contains("missing.ma"));
    }

    // A curve as Maya wrote it keeps its tangent types, runs and all; keys out of a damaged
    // file's order come back sorted; a curve's plug follows it whatever the node is called.
    void curves_keep_what_the_file_gave() {
        const QByteArray text =
            "//Maya ASCII 2016 scene\n"
            "createNode transform -n \"Control\";\n"
            "createNode animCurveTL -n \"Control_translateX\";\n"
            "\tsetAttr \".tan\" 1;\n\tsetAttr \".wgt\" no;\n"
            "\tsetAttr -s 4 \".ktv[0:3]\"  1 -0.2 31 0.5 61 -0.20790149113363499 91 4;\n"
            "\tsetAttr -s 4 \".kit[0:3]\"  18 18 1 18;\n"
            "\tsetAttr -s 4 \".kot[2:3]\"  5 1;\n"
            "\tsetAttr -s 4 \".kix[2:3]\"  1 1;\n"
            "createNode animCurveTU -n \"unordered\";\n"
            "\tsetAttr -s 3 \".ktv[0:2]\"  30 3 10 1 20 2;\n"
            "connectAttr \"Control_translateX.o\" \"Control.translateX\" -l on;\n"
            "connectAttr \"unordered.output\" \"Control.sy\";\n// End of t.ma\n";
        scene s;
        read_back(text, s);
        const host::anim_curve& curve = *s.at(s.find("Control_translateX").front()).curve;
        QCOMPARE(curve.keys.size(), 4);
        QCOMPARE(curve.keys[2].value, -0.20790149113363499);
        QCOMPARE(curve.keys[1].out_tangent, quint8(0xff));
        QCOMPARE(curve.keys[2].out_tangent, quint8(host::tangent_step));
        const int control = s.find("Control").front();
        const host::plug tx{control, host::find_attribute(s, control, "tx")};
        s.time.current = 70; // stepped after the third key
        QCOMPARE(host::plug_number(s, tx), -0.20790149113363499);
        s.time.current = 46;
        QCOMPARE(host::plug_number(s, tx), 0.5 + (-0.20790149113363499 - 0.5) / 2);
        const host::plug sy{control, host::find_attribute(s, control, "sy")};
        s.time.current = 26;
        QCOMPARE(host::plug_number(s, sy), 2.6);

        const QByteArray written = ma::write(s, "t.ma");
        QVERIFY(written.contains("\tsetAttr \".tan\" 1;\n\tsetAttr \".wgt\" no;\n\tsetAttr -s 4 "
                                 "\".ktv[0:3]\"  1 -0.2 31 0.5 61 -0.20790149113363499 91 4;\n"
                                 "\tsetAttr -s 4 \".kit[0:3]\"  18 18 1 18;\n"
                                 "\tsetAttr -s 4 \".kot[2:3]\"  5 1;\n"));
        QVERIFY(written.contains("\tsetAttr -s 3 \".ktv[0:2]\"  10 1 20 2 30 3;\n"));
        QVERIFY(written.contains("connectAttr \"Control_translateX.o\" \"Control.tx\";\n"));
        QVERIFY(written.contains("connectAttr \"unordered.o\" \"Control.sy\";\n"));
        scene back;
        read_back(written, back);
        QCOMPARE(ma::write(back, "t.ma").mid(written.indexOf("requires")),
                 written.mid(written.indexOf("requires")));
    }

    // Each kind of user attribute, with defaults, ranges and states, as addAttr and setAttr
    // lines that read back to the same attributes.
    void user_attributes_are_written_as_maya_writes_them() {
        scene s;
        const int node = add(s, "transform", "ctrl");
        const auto flags = [](const char* type, const char* extra = "") {
            host::attribute_flags f;
            f.insert("attributeType", type);
            for (const QString& pair : QString(extra).split(' ', Qt::SkipEmptyParts))
                f.insert(pair.section('=', 0, 0), pair.section('=', 1));
            return f;
        };
        const QList<QPair<QString, host::attribute_flags>> wanted{
            {"blend", flags("double", "defaultValue=0.5 minValue=0 maxValue=1 keyable=1")},
            {"count", flags("long", "minValue=-3")},
            {"flag", flags("bool", "keyable=true")},
            {"mode", flags("enum", "enumName=Off:On=4 keyable=1")},
            {"hidden", flags("short", "niceName=Secret")}};
        for (const auto& w : wanted) {
            host::attribute_flags f = w.second;
            f.insert("longName", w.first);
            host::attribute_def definition;
            QString error;
            QVERIFY2(host::def_from_flags(f, &definition, &error), qPrintable(error));
            QVERIFY2(host::add_attribute(s, node, definition, &error), qPrintable(error));
        }
        host::attribute_flags text;
        text.insert("longName", "note");
        text.insert("shortName", "nt");
        text.insert("dataType", "string");
        host::attribute_def definition;
        QString error;
        QVERIFY(host::def_from_flags(text, &definition, &error));
        QVERIFY(host::add_attribute(s, node, definition, &error));
        QVERIFY(
            host::set_text(s, {node, host::find_attribute(s, node, "nt")}, "a;\"b\"").isEmpty());
        QVERIFY(host::set_number(s, {node, host::find_attribute(s, node, "mode")}, 4).isEmpty());
        host::set_locked(s, {node, host::find_attribute(s, node, "count")}, true);
        host::set_keyable(s, {node, host::find_attribute(s, node, "flag")}, false);

        const QByteArray written = ma::write(s, "t.ma");
        QVERIFY(written.contains("\taddAttr -ci true -k true -sn \"blend\" -ln \"blend\" -dv 0.5 "
                                 "-min 0 -max 1 -at \"double\";\n"));
        QVERIFY(written.contains("\taddAttr -ci true -k true -sn \"mode\" -ln \"mode\" -min 0 "
                                 "-max 4 -en \"Off:On=4\" -at \"enum\";\n"));
        QVERIFY(written.contains("\taddAttr -ci true -sn \"nt\" -ln \"note\" -dt \"string\";\n"));
        QVERIFY(written.contains("\tsetAttr -l on \".count\";\n"));
        QVERIFY(written.contains("\tsetAttr -k off \".flag\";\n"));
        QVERIFY(written.contains("\tsetAttr \".mode\" 4;\n"));
        QVERIFY(written.contains("\tsetAttr \".nt\" -type \"string\" \"a;\\\"b\\\"\";\n"));
        scene back;
        read_back(written, back);
        QCOMPARE(ma::write(back, "t.ma").mid(written.indexOf("requires")),
                 written.mid(written.indexOf("requires")));
        const int again = back.find("ctrl").front();
        QCOMPARE(host::nice_name(
                     host::attribute_at(back, again, host::find_attribute(back, again, "hidden"))),
                 QString("Secret"));
        QCOMPARE(host::plug_text(back, {again, host::find_attribute(back, again, "note")}),
                 QString("a;\"b\""));
    }
};

QTEST_GUILESS_MAIN(test_ma_write)
#include "test_ma_write.moc"
