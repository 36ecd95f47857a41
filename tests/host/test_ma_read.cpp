// Reading Maya ASCII: the real scenes of the corpus, the lexer's corner cases, codesets,
// namespaces and file references.
#include "core/scene.h"
#include "ma/ma_file.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

using host::scene;
namespace ma = host::ma;

namespace {

const QByteArray header = "//Maya ASCII 2019 scene\n//Name: t.ma\n//Codeset: UTF-8\n";

QString corpus(const QString& name) {
    return QStringLiteral(ZELVANI_CORPUS_DIR "/") + name;
}

struct loaded {
    scene s;
    ma::read_report report;
    QString error;
    bool ok = false;
};

void read_text(loaded& out, const QByteArray& text) {
    out.ok = ma::read(text, out.s, out.report, &out.error);
}

void read_path(loaded& out, const QString& path) {
    out.ok = ma::read_file(path, out.s, out.report, &out.error);
}

QString parent_name(const scene& s, const QString& name) {
    const QVector<int> ids = s.find(name);
    if (ids.size() != 1)
        return QStringLiteral("<%1 matches>").arg(ids.size());
    const int parent = s.at(ids[0]).parent;
    return parent < 0 ? QString() : s.at(parent).name;
}

int nodes_in(const scene& s, const QString& name_space) {
    int count = 0;
    for (int id : s.live_nodes())
        count += host::namespace_of(s.at(id).name) == name_space ? 1 : 0;
    return count;
}

void write_bytes(const QString& path, const QByteArray& bytes) {
    QFile f(path);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write(bytes);
}

} // namespace

class test_ma_read : public QObject {
    Q_OBJECT

private slots:
    void corpus_scene_opens_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("nodes");
        QTest::addColumn<QStringList>("namespaces");
        QTest::addColumn<int>("missing_references");
        QTest::addColumn<QString>("codeset");
        QTest::newRow("bruce") << "avalon_bruce_rigDefault_namespaced_2016.ma" << 17
                               << QStringList{"Bruce_01_"} << 0 << "1252";
        QTest::newRow("batman") << "avalon_batman_anim_v034_refs_2016.ma" << 23
                                << QStringList{"Bruce_01_"} << 1 << "1252";
        QTest::newRow("hugo") << "capstone_hugo_animation_nestedrefs_2016.ma" << 61 << QStringList()
                              << 1 << "1252";
        QTest::newRow("mmsolver") << "mmsolver_rigHierarchy_2017.ma" << 945 << QStringList{"rig"}
                                  << 0 << "UTF-8";
        QTest::newRow("exporter") << "asset_exporter_test_scene2_refs_2018.ma" << 7 << QStringList()
                                  << 2 << "936";
        QTest::newRow("grunt") << "infinity_grunt_controlCurves_2023.ma" << 24 << QStringList() << 0
                               << "UTF-8";
        QTest::newRow("essentials") << "essentials_scene2_main_refs_2024.ma" << 64
                                    << QStringList{"Asset3", "Asset2"} << 4 << "1252";
    }

    void corpus_scene_opens() {
        QFETCH(QString, file);
        QFETCH(int, nodes);
        QFETCH(QStringList, namespaces);
        QFETCH(int, missing_references);
        QFETCH(QString, codeset);
        loaded l;
        read_path(l, corpus(file));
        QVERIFY2(l.ok, qPrintable(l.error));
        QCOMPARE(l.s.node_count(), nodes);
        QCOMPARE(l.s.all_namespaces(), QStringList({"UI", "shared"}) + namespaces);
        QCOMPARE(l.report.codeset, codeset);
        QCOMPARE(l.s.file_info("application"), QString("maya"));
        QCOMPARE(l.s.name(), QFileInfo(corpus(file)).absoluteFilePath());
        // Missing referenced files warn, naming the file and the namespace; nothing else does.
        QCOMPARE(l.report.warnings.size(), missing_references);
        for (const QString& w : l.report.warnings)
            QVERIFY2(w.startsWith("Could not find file: ") && w.contains("namespace "),
                     qPrintable(w));
    }

    void corpus_names_parents_and_headers() {
        loaded rig;
        read_path(rig, corpus("mmsolver_rigHierarchy_2017.ma"));
        QCOMPARE(nodes_in(rig.s, "rig"), 911);
        QCOMPARE(parent_name(rig.s, "rig:Hip_R"), QString("rig:Root_M"));
        QCOMPARE(rig.s.full_path(rig.s.find("rig:Main").value(0)), QString("|rig:Group|rig:Main"));
        // "-p" ends one line and its value starts the next.
        QCOMPARE(parent_name(rig.s, "rig:UnTwistIKNeck1_M_poleVectorConstraint1"),
                 QString("rig:UnTwistIKNeck1_M"));
        // "-p" starts a continuation line.
        QCOMPARE(parent_name(rig.s, "rig:FKParentConstraintToRoot_M_parentConstraint1"),
                 QString("rig:FKParentConstraintToRoot_M"));
        QCOMPARE(rig.s.at(rig.s.find("rig:Hip_R").value(0)).type, QString("joint"));
        QCOMPARE(rig.report.plugins, QStringList({"mmSolver", "stereoCamera"}));
        QCOMPARE(rig.report.maya_version, QString("2017ff05"));

        loaded bruce;
        read_path(bruce, corpus("avalon_bruce_rigDefault_namespaced_2016.ma"));
        QCOMPARE(parent_name(bruce.s, "Bruce_01_:modelDefault"), QString("input_GRP"));
        QCOMPARE(bruce.s.file_info("osv"),
                 QString("Microsoft Windows 8 Enterprise Edition, 64-bit  (Build 9200)\n"));

        loaded assets;
        read_path(assets, corpus("essentials_scene2_main_refs_2024.ma"));
        QCOMPARE(nodes_in(assets.s, "Asset3"), 18);
        QCOMPARE(parent_name(assets.s, "Asset2:polySurfaceShape1"),
                 QString("Asset2RNfosterParent1"));
        QCOMPARE(assets.s.file_info("license"), QString("education"));
        QVERIFY(!assets.s.namespace_exists("Asset1")); // its file is missing
    }

    void corpus_references_are_recorded() {
        loaded hugo;
        read_path(hugo, corpus("capstone_hugo_animation_nestedrefs_2016.ma"));
        // Wrapped `file` and `requires` statements.
        QCOMPARE(hugo.report.plugins, QStringList({"Mayatomr", "Turtle"}));
        QCOMPARE(hugo.report.references.size(), 1);
        const ma::reference_record& ref = hugo.report.references[0];
        QCOMPARE(ref.name_space, QString("Hugo_Rig_Final"));
        QCOMPARE(ref.node, QString("Hugo_Rig_FinalRN"));
        QVERIFY(ref.path.endsWith("Models/Hugo_Rig_Final.ma"));
        QVERIFY(!ref.loaded);

        loaded twice;
        read_path(twice, corpus("asset_exporter_test_scene2_refs_2018.ma"));
        QCOMPARE(twice.report.references.size(), 2);
        QCOMPARE(twice.report.references[1].name_space, QString("rig1"));
        QVERIFY(twice.report.warnings.value(1).contains("rig1"));
    }

    void referenced_files_load_under_their_namespace() {
        QTemporaryDir dir;
        // The batman scene names its rig through an environment variable.
        const QString rig_dir = dir.filePath("batman/assets/Bruce/publish/rigDefault/v001");
        QVERIFY(QDir().mkpath(rig_dir));
        QVERIFY(QFile::copy(corpus("avalon_bruce_rigDefault_namespaced_2016.ma"),
                            rig_dir + "/rigDefault.ma"));
        qputenv("AVALON_PROJECTS", dir.path().toLocal8Bit());
        loaded l;
        read_path(l, corpus("avalon_batman_anim_v034_refs_2016.ma"));
        qunsetenv("AVALON_PROJECTS");
        QVERIFY2(l.report.warnings.isEmpty(), qPrintable(l.report.warnings.join('\n')));
        QVERIFY(l.report.references.value(0).loaded);
        QCOMPARE(parent_name(l.s, "Bruce_01_:Bruce_01_:modelDefault"),
                 QString("Bruce_01_:input_GRP"));
        QCOMPARE(l.s.node_count(), 23 + 17);
        QCOMPARE(l.s.child_namespaces("Bruce_01_"), QStringList{"Bruce_01_:Bruce_01_"});
        QCOMPARE(l.s.file_infos().size(), 5); // fileInfo stays the scene's own
    }

    void nested_deferred_and_cyclic_references() {
        QTemporaryDir dir;
        write_bytes(dir.filePath("prop.ma"), header + "createNode transform -n \"box\";\n"
                                                      "// End of prop.ma\n");
        write_bytes(dir.filePath("hero.ma"),
                    header + "file -r -ns \"prop\" -dr 1 -rfn \"propRN\" \"prop.ma\";\n"
                             "file -r -ns \"again\" -dr 1 -rfn \"againRN\" \"hero.ma\";\n"
                             "createNode transform -s -n \"persp\";\n"
                             "createNode camera -s -n \"perspShape\" -p \"persp\";\n"
                             "createNode transform -n \"root\";\n"
                             "createNode transform -n \"arm\" -p \":root\";\n"
                             "// End of hero.ma\n");
        write_bytes(dir.filePath("shot.ma"),
                    header + "file -rdi 1 -ns \"hero\" -rfn \"heroRN\" \"hero.ma\";\n"
                             "file -rdi 2 -ns \"prop\" -rfn \"hero:propRN\" \"prop.ma\";\n"
                             "file -rdi 1 -ns \"off\" -dr 1 -rfn \"offRN\" \"gone.ma\";\n"
                             "file -r -ns \"hero\" -dr 1 -rfn \"heroRN\" \"hero.ma\";\n"
                             "file -r -ns \"off\" -dr 1 -rfn \"offRN\" \"gone.ma\";\n"
                             "createNode transform -s -n \"persp\";\n"
                             "// End of shot.ma\n");
        loaded l;
        read_path(l, dir.filePath("shot.ma"));
        QVERIFY(l.ok);
        QCOMPARE(parent_name(l.s, "hero:arm"), QString("hero:root"));
        QVERIFY(l.s.exists("hero:prop:box"));
        // A referenced file's default nodes are the scene's own.
        QVERIFY(!l.s.exists("hero:persp") && !l.s.exists("hero:perspShape"));
        QCOMPARE(l.s.node_count(), 4);
        // hero.ma referencing itself is stopped; the deferred reference is not looked for.
        QCOMPARE(l.report.warnings.size(), 1);
        QVERIFY(l.report.warnings[0].contains("references itself"));
        QCOMPARE(l.report.references.size(), 4);
        QCOMPARE(l.report.references[1].name_space, QString("hero:prop"));
        QCOMPARE(l.report.references[1].depth, 2);
        QVERIFY(!l.report.references[3].loaded);
        QVERIFY(!l.s.namespace_exists("off"));

        loaded off;
        ma::read_options options;
        options.load_references = false;
        QVERIFY(ma::read_file(dir.filePath("shot.ma"), off.s, off.report, &off.error, options));
        QCOMPARE(off.s.node_count(), 1);
        QVERIFY(off.report.references[0].resolved.endsWith("hero.ma"));
    }

    void statements_split_only_outside_strings() {
        loaded l;
        read_text(l, header + "fileInfo \"note\" \"a; b // c: \\\"d\\\" \\\\\";\n"
                              "createNode transform\n\t\t-n\n\t\t\"top\"\n\t\t;\n"
                              "createNode transform -n \"mid\" \n\t\t-p \"top\";\n"
                              "createNode transform -n \"low\" -p\n\n\t\t \"mid\"\n;\r\n"
                              "setAttr \".t\" -type \"string\" \"createNode transform -n x;\";\n"
                              "createNode script -n \"s\";\n"
                              "\tsetAttr \".b\" -type \"string\" (\n"
                              "\t\t\"createNode joint -n \\\"evil\\\";\\n\"\n"
                              "\t\t+ \"file -f -new;\");\n"
                              "file -import \"other.ma\";\n"
                              "rename -uid \"A-B\";\nselect -ne :time1;\nlockNode -l 1 ;\n"
                              "// End of t.ma\n");
        QVERIFY(l.ok);
        QCOMPARE(l.s.file_info("note"), QString("a; b // c: \"d\" \\"));
        QCOMPARE(l.s.full_path(l.s.find("low").value(0)), QString("|top|mid|low"));
        QCOMPARE(l.s.node_count(), 4); // top, mid, low and the script node
        QVERIFY(l.report.warnings.isEmpty());
    }

    void line_endings_do_not_matter() {
        QFile f(corpus("essentials_scene2_main_refs_2024.ma"));
        QVERIFY(f.open(QIODevice::ReadOnly));
        QByteArray crlf = f.readAll();
        crlf.replace("\n", "\r\n");
        loaded lf, dos;
        read_path(lf, corpus("essentials_scene2_main_refs_2024.ma"));
        read_text(dos, crlf);
        QVERIFY(dos.ok);
        QCOMPARE(dos.s.node_count(), lf.s.node_count());
        for (int id : lf.s.live_nodes())
            QCOMPARE(dos.s.full_path(id), lf.s.full_path(id));
        QCOMPARE(dos.s.file_infos(), lf.s.file_infos());
        QCOMPARE(dos.report.warnings.size(), lf.report.warnings.size());
    }

    void codesets_decide_bytes_and_characters_data() {
        QTest::addColumn<QByteArray>("codeset");
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("text");
        // Second bytes 0x5C: no escape, so the closing quote stays a quote.
        QTest::newRow("shift-jis")
            << QByteArray("932") << QByteArray("\x83\x5c\x95\x5c") << QString::fromUtf8("ソ表");
        QTest::newRow("gbk") << QByteArray("936") << QByteArray("\x81\x5c")
                             << QString::fromUtf8("乗");
        QTest::newRow("shift-jis escape")
            << QByteArray("932") << QByteArray("\x83\x5c\\\\n") << QString::fromUtf8("ソ\\n");
        QTest::newRow("1252") << QByteArray("1252") << QByteArray("caf\xe9 \x80")
                              << QString::fromUtf8("café €");
        QTest::newRow("utf-8") << QByteArray("UTF-8") << QByteArray("caf\xc3\xa9")
                               << QString::fromUtf8("café");
        QTest::newRow("unknown") << QByteArray("nonsense") << QByteArray("caf\xe9")
                                 << QString::fromUtf8("café");
    }

    void codesets_decide_bytes_and_characters() {
        QFETCH(QByteArray, codeset);
        QFETCH(QByteArray, bytes);
        QFETCH(QString, text);
        loaded l;
        read_text(l, "//Maya ASCII 2018 scene\n//Codeset: " + codeset + "\nfileInfo \"k\" \"" +
                         bytes + "\";\ncreateNode transform -n \"after\";\n// End of t.ma\n");
        QVERIFY(l.ok);
        QCOMPARE(l.s.file_info("k"), text);
        QVERIFY(l.s.exists("after"));
    }

    void names_and_namespaces() {
        loaded l;
        read_text(l, header + "createNode transform -n \":top\";\n"
                              "createNode transform;\ncreateNode transform;\n"
                              "namespace -add \"chars\";\n"
                              "namespace -add \"hero\" -p \":chars\";\n"
                              "namespace -set \"chars:hero\";\n"
                              "createNode joint -n \"hip\";\n"
                              "createNode joint -n \":rootJoint\";\n"
                              "namespace -set \":\";\n"
                              "namespace -add \"empty:inner\";\n"
                              "createNode transform -n \"a\";\ncreateNode transform -n \"a\";\n"
                              "createNode transform -s -n \"persp\";\n"
                              "createNode transform -s -n \"persp\";\n"
                              "createNode transform -n \"x\" -p \"nowhere\";\n"
                              "createNode transform -n \"bad name\";\n"
                              "// End of t.ma\n");
        QVERIFY(l.ok);
        QVERIFY(l.s.exists("top"));
        QVERIFY(l.s.exists("transform1") && l.s.exists("transform2"));
        QVERIFY(l.s.exists("chars:hero:hip"));
        QVERIFY(l.s.exists("rootJoint"));
        QVERIFY(l.s.namespace_exists("empty:inner"));
        QCOMPARE(l.s.current_namespace(), QString());
        QCOMPARE(l.s.find("persp").size(), 1);
        // A clash is renamed, a missing parent or a bad name leaves the node out, with warnings.
        QVERIFY(l.s.exists("a1"));
        QVERIFY(!l.s.exists("x"));
        QCOMPARE(l.report.warnings.size(), 3);
        QVERIFY(l.report.warnings[0].contains("a1"));
        QVERIFY(l.report.warnings[1].contains("nowhere") &&
                l.report.warnings[1].contains("line 18"));
    }

    void repeated_short_names_resolve_by_path() {
        loaded l;
        read_text(l, header + "createNode transform -n \"L\";\ncreateNode transform -n \"R\";\n"
                              "createNode transform -n \"ctrl\" -p \"L\";\n"
                              "createNode transform -n \"ctrl\" -p \"R\";\n"
                              "createNode nurbsCurve -n \"ctrlShape\" -p \"|R|ctrl\";\n"
                              "createNode nurbsCurve -n \"ctrlShape\" -p \"L|ctrl\";\n"
                              "createNode transform -n \"x\" -p \"ctrl\";\n// End of t.ma\n");
        QCOMPARE(l.s.find("ctrlShape").size(), 2);
        QVERIFY(l.s.exists("|R|ctrl|ctrlShape") && l.s.exists("|L|ctrl|ctrlShape"));
        QVERIFY(!l.s.exists("x")); // "ctrl" alone is ambiguous
        QCOMPARE(l.report.warnings.size(), 1);
    }
};

QTEST_GUILESS_MAIN(test_ma_read)
#include "test_ma_read.moc"
