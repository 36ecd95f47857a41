// Damaged Maya ASCII: truncated, mutated, random and hostile texts never crash or hang,
// and what can be read still gives a consistent scene.
#include "core/scene.h"
#include "ma/ma_file.h"

#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

using host::scene;
namespace ma = host::ma;

namespace {

const QByteArray header = "//Maya ASCII 2019 scene\n//Codeset: UTF-8\n";

QByteArray corpus_bytes(const QString& name) {
    QFile f(QStringLiteral(ZELVANI_CORPUS_DIR "/") + name);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

// Every node hangs under a live parent that lists it, in a namespace that exists.
bool consistent(const scene& s) {
    for (int id : s.live_nodes()) {
        const host::node& n = s.at(id);
        if (n.parent >= 0 && (!s.at(n.parent).alive || !s.at(n.parent).children.contains(id)))
            return false;
        if (!s.namespace_exists(host::namespace_of(n.name)))
            return false;
    }
    return true;
}

struct outcome {
    scene s;
    ma::read_report report;
    QString error;
    bool ok = false;
};

void read_into(outcome& out, const QByteArray& text) {
    out.ok = ma::read(text, out.s, out.report, &out.error);
    QVERIFY(out.ok || !out.error.isEmpty());
    QVERIFY(consistent(out.s));
}

QByteArray mutate(QByteArray text, QRandomGenerator& random) {
    static const char specials[] = "\";\\\n\r()+-/*:|\x83\x5c";
    const int edits = 1 + random.bounded(8);
    for (int e = 0; e < edits && !text.isEmpty(); ++e) {
        const int at = random.bounded(text.size());
        const int span = qMin(text.size() - at, random.bounded(200));
        switch (random.bounded(5)) {
        case 0:
            text[at] = char(random.bounded(256));
            break;
        case 1:
            text.insert(at, specials[random.bounded(int(sizeof specials) - 1)]);
            break;
        case 2:
            text.remove(at, span);
            break;
        case 3:
            text.insert(at, text.mid(random.bounded(text.size()), span));
            break;
        default:
            text.truncate(at);
        }
    }
    return text;
}

} // namespace

class test_ma_robust : public QObject {
    Q_OBJECT

private slots:
    void truncated_scenes_read_what_is_there() {
        const QByteArray full = corpus_bytes("mmsolver_rigHierarchy_2017.ma");
        QVERIFY(!full.isEmpty());
        int previous = 0;
        for (int cut = 200; cut < full.size(); cut += full.size() / 300) {
            outcome o;
            read_into(o, full.left(cut));
            QVERIFY(o.ok);
            // Only whole statements count, so a longer prefix never has fewer nodes.
            QVERIFY(o.s.node_count() >= previous);
            QVERIFY(o.s.node_count() <= 945);
            QVERIFY(o.report.warnings.last().contains("truncated"));
            previous = o.s.node_count();
        }
        QVERIFY(previous > 900);
    }

    void mutated_scenes_never_break_the_reader() {
        const QByteArray original = corpus_bytes("essentials_scene2_main_refs_2024.ma");
        const QByteArray shift_jis = corpus_bytes("asset_exporter_test_scene2_refs_2018.ma")
                                         .replace("Codeset: 936", "Codeset: 932");
        QRandomGenerator random(20240611);
        for (int i = 0; i < 400; ++i) {
            outcome o;
            read_into(o, mutate(i % 4 == 0 ? shift_jis : original, random));
            QVERIFY(o.report.warnings.size() <= 201);
        }
    }

    void random_bytes_are_no_scene() {
        QRandomGenerator random(7);
        for (int i = 0; i < 40; ++i) {
            QByteArray noise(1 + random.bounded(65536), Qt::Uninitialized);
            for (char& c : noise)
                c = char(random.bounded(256));
            outcome o;
            read_into(o, noise);
            QVERIFY(!o.ok);
            QVERIFY(o.error.contains("not a Maya ASCII scene"));
            // Behind a header the same bytes are read as far as they go.
            outcome behind;
            read_into(behind, "//Maya ASCII 2018 scene\n//Codeset: 932\n" + noise);
            QVERIFY(behind.ok);
        }
    }

    void hostile_texts_data() {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<bool>("ok");
        QTest::addColumn<QStringList>("nodes");
        QTest::newRow("empty") << QByteArray() << false << QStringList();
        QTest::newRow("maya binary") << QByteArray("FOR4\0\0\0\x40", 8) << false << QStringList();
        QTest::newRow("no header but statements")
            << QByteArray("createNode transform -n \"a\";\n") << true << QStringList{"a"};
        QTest::newRow("unterminated string")
            << header + "fileInfo \"a\" \"open\ncreateNode transform -n \"b\";\n"
                        "createNode transform -n \"c\";\n"
            << true << QStringList{"c"};
        QTest::newRow("truncated createNode")
            << header + "createNode transform -n \"x" << true << QStringList();
        QTest::newRow("lone lead byte at the end")
            << QByteArray("//Maya ASCII 2019 scene\n//Codeset: 932\nfileInfo \"k\" \"\x83") << true
            << QStringList();
        QTest::newRow("lead byte before a quote")
            << QByteArray("//Maya ASCII 2019 scene\n//Codeset: 932\nfileInfo \"k\" \"\x83\";\n"
                          "createNode transform -n \"d\";\n")
            << true << QStringList{"d"};
        QTest::newRow("deep parentheses") << header + "fileInfo \"k\" " + QByteArray(100000, '(') +
                                                 "\"v\";\n"
                                                 "createNode transform -n \"e\";\n"
                                          << true << QStringList{"e"};
        QTest::newRow("unterminated block comment")
            << header + "createNode transform -n \"f\";\n/* createNode transform -n \"g\";" << true
            << QStringList{"f"};
        QTest::newRow("flags without values")
            << header + "createNode transform -n;\ncreateNode -p \"q\";\ncreateNode;\n"
                        "fileInfo \"k\";\nfileInfo;\nfile -r;\nfile -rdi;\nnamespace -add;\n"
                        "namespace -set \"nowhere\";\nrequires;\ncreateNode joint -n \"h\";\n"
            << true << QStringList{"h", "transform1"};
        QByteArray backslashes = header + "fileInfo \"k\" \"" + QByteArray(100000, '\\') + "\";\n";
        QTest::newRow("backslash run") << backslashes + "createNode transform -n \"i\";\n"
                                       << true << QStringList{"i"};
        QByteArray strings = header + "setAttr \".s\" -type \"stringArray\" 200000";
        for (int i = 0; i < 200000; ++i)
            strings += " \"s;\"";
        QTest::newRow("many strings in one statement")
            << strings + ";\ncreateNode transform -n \"j\";\n"
            << true << QStringList{"j"};
        QByteArray attributes = header + "createNode transform -n \"k\";\n";
        for (int i = 0; i < 30000; ++i)
            attributes += "\taddAttr -ln \"a" + QByteArray::number(i) + "\" -at \"double\";\n";
        QTest::newRow("thousands of user attributes") << attributes << true << QStringList{"k"};
        QTest::newRow("keys far past the last")
            << header +
                   "createNode animCurveTL -n \"c\";\n\tsetAttr \".ktv[2147483647]\" 1 2;\n"
                   "\tsetAttr \".ktv[0:1]\" 1 2 3;\n\tsetAttr -s 9 \".kit[1000000000:1000000001]\" "
                   "5 5;\n"
                   "\tsetAttr \".ktv[-5]\" 1 2;\n\tsetAttr \".tan\" 1e300;\n"
                   "connectAttr \"c.o\" \"c.o\";\nconnectAttr \"c.o\";\nconnectAttr \".o\" \"\";\n"
                   "select -ne :time1;\n\tsetAttr \".o\" nan;\nsetAttr -k;\naddAttr;\n"
            << true << QStringList{"c"};
        QTest::newRow("no semicolon at all")
            << header + QByteArray(1 << 20, 'a') << true << QStringList();
    }

    void hostile_texts() {
        QFETCH(QByteArray, text);
        QFETCH(bool, ok);
        QFETCH(QStringList, nodes);
        outcome o;
        read_into(o, text);
        QCOMPARE(o.ok, ok);
        QStringList names;
        for (int id : o.s.live_nodes())
            names << o.s.at(id).name;
        names.sort();
        QCOMPARE(names, nodes);
    }

    void broken_references_warn() {
        QTemporaryDir dir;
        QFile binary(dir.filePath("rig.mb"));
        QVERIFY(binary.open(QIODevice::WriteOnly));
        binary.write("FOR4 binary");
        binary.close();
        QFile noise(dir.filePath("noise.ma"));
        QVERIFY(noise.open(QIODevice::WriteOnly));
        noise.write("\x01\x02 nothing here");
        noise.close();
        qunsetenv("ZELVANI_UNSET_ROOT");
        outcome o;
        ma::read_options options;
        options.file_path = dir.filePath("shot.ma");
        o.ok = ma::read(header +
                            "file -r -ns \"a\" -rfn \"aRN\" -typ \"mayaBinary\" \"rig.mb\";\n"
                            "file -r -ns \"b\" -rfn \"bRN\" \"noise.ma\";\n"
                            "file -r -ns \"c\" -rfn \"cRN\" \"$ZELVANI_UNSET_ROOT/c.ma\";\n"
                            "file -r -rfn \"dRN\" \"" +
                            dir.path().toUtf8() + "\";\n// End of shot.ma\n",
                        o.s, o.report, &o.error, options);
        QVERIFY(o.ok);
        QCOMPARE(o.report.warnings.size(), 4);
        QVERIFY(o.report.warnings[0].contains("is a mayaBinary file"));
        QVERIFY(o.report.warnings[1].contains("not a Maya ASCII scene"));
        QVERIFY(o.report.warnings[2].startsWith("Could not find file: $ZELVANI_UNSET_ROOT/c.ma"));
        QVERIFY(o.report.warnings[3].startsWith("Could not find file: ")); // a folder
        QCOMPARE(o.s.node_count(), 0);
    }
};

QTEST_GUILESS_MAIN(test_ma_robust)
#include "test_ma_robust.moc"
