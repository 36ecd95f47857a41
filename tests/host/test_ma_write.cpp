// Writing Maya ASCII: the text's layout, and write -> read round trips of nodes,
// namespaces and fileInfo.
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
};

QTEST_GUILESS_MAIN(test_ma_write)
#include "test_ma_write.moc"
