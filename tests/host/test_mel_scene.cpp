// MEL built-ins against the scene: namespaces, nodes, selection, fileInfo and files.
#include "mel_runner.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {
int selection_events = 0;
void count(void*) {
    ++selection_events;
}
} // namespace

class test_mel_scene : public QObject, private mel_runner {
    Q_OBJECT

private slots:
    void init() { reset(); }

    void namespaces_nest_and_list_as_maya_lists_them() {
        QCOMPARE(run("namespace -add \"rig\"; namespace -set \"rig\"; namespace -add \"face\";"
                     "namespace -set \":\"; createNode transform -n \"rig:face:jaw\";"
                     "namespaceInfo -listOnlyNamespaces;"),
                 QString("UI shared rig"));
        QCOMPARE(run("namespaceInfo -lon \"rig\";"), QString("rig:face"));
        QCOMPARE(run("namespace -set \"missing\";"), QString("ERROR"));
        QCOMPARE(run("namespace -rm \"rig:face\";"), QString("ERROR")); // holds the jaw
        QCOMPARE(
            run("delete \"rig:face:jaw\"; namespace -rm \"rig:face\"; namespaceInfo -lon rig;"),
            QString(""));
    }

    void a_recursive_procedure_walks_the_namespace_tree() {
        QFile script(ZELVANI_SOURCE_DIR "/resources/scripts/picker_ListNamespaces.mel");
        QVERIFY(script.open(QIODevice::ReadOnly));
        QVERIFY(host.execute(QString::fromUtf8(script.readAll())).ok);
        run("namespace -add a; namespace -add b -p a; namespace -add c -p \"a:b\";"
            "namespace -add z;");
        QCOMPARE(run("picker_ListNamespaces();"), QString("a a:b a:b:c z :"));
    }

    void selection_fires_and_takes_components() {
        host.events.add("SelectionChanged", count, nullptr);
        selection_events = 0;
        run("createNode transform -n pCube1 -ss; createNode transform -n pCube2 -ss;");
        QCOMPARE(selection_events, 0);
        QCOMPARE(run("select -r pCube1.vtx[0:3] pCube2; ls -sl;"),
                 QString("pCube1.vtx[0:3] pCube2"));
        QCOMPARE(run("select -d pCube2; select -add pCube2; ls -sl;"),
                 QString("pCube1.vtx[0:3] pCube2"));
        QCOMPARE(selection_events, 3);
        QCOMPARE(run("select -r pCube1 ghost;"), QString("ERROR"));
        QCOMPARE(run("ls -sl;"), QString("pCube1.vtx[0:3] pCube2"));
        QCOMPARE(run("select -cl; size(`ls -sl`);"), QString("0"));
    }

    void nodes_get_unique_names_in_the_current_namespace() {
        QCOMPARE(run("createNode transform -n \"ctrl\";"), QString("ctrl"));
        QCOMPARE(run("createNode transform -n \"ctrl\";"), QString("ctrl1"));
        QCOMPARE(run("namespace -add hero; namespace -set hero; createNode joint -n \"hip\";"),
                 QString("hero:hip"));
        QCOMPARE(run("createNode transform -n knee -p \"hero:hip\"; objExists \"hero:knee\";"),
                 QString("1"));
        QCOMPARE(run("createNode transform -p nowhere;"), QString("ERROR"));
        QCOMPARE(run("namespace -set \":\"; ls -type joint \"*:*\";"), QString("hero:hip"));
    }

    void file_info_and_files_round_trip() {
        QTemporaryDir dir;
        const QString path = dir.filePath("shot.ma");
        QCOMPARE(run("fileInfo \"k\" \"a \\\"quoted\\\" value\\n\"; fileInfo -q \"k\";"),
                 QString("a \"quoted\" value\n"));
        QCOMPARE(host.scene.file_info("k"), QString("a \"quoted\" value\n"));
        QVERIFY(!host.scene.modified()); // fileInfo alone does not mark the scene
        run("createNode transform -n \"rig:root\"; file -modified 1;");
        QCOMPARE(run("file -q -modified;"), QString("1"));
        QCOMPARE(run("file -f -new;"), QString(""));
        QCOMPARE(run(QString("createNode transform -n \"rig:root\"; fileInfo \"k\" \"v\";"
                             "file -rename \"%1\"; file -save; file -f -new; ls \"*:*\";")
                         .arg(path)),
                 QString(""));
        QCOMPARE(run(QString("file -f -o \"%1\"; ls \"*:*\";").arg(path)), QString("rig:root"));
        QCOMPARE(run("fileInfo -q \"k\";"), QString("v"));
        QCOMPARE(run("fileInfo -rm \"k\"; size(`fileInfo -q \"k\"`);"), QString("0"));
        QCOMPARE(run("file -o -f \"/no/such/file.ma\";"), QString("ERROR"));
    }
};

QTEST_GUILESS_MAIN(test_mel_scene)
#include "test_mel_scene.moc"
