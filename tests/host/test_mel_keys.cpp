// Time and keys through MEL: curves named, typed and connected as Maya makes them, values
// between keys (linear here, stepped for switches), hand-set values on keyed plugs,
// keyframe queries and edits, cutKey, and keyed scenes through a save and a reopen.
#include "mel_runner.h"

#include <QTemporaryDir>
#include <QtTest>

class test_mel_keys : public QObject, private mel_runner {
    Q_OBJECT

    QStringList errors;

private slots:
    void init() {
        reset();
        errors.clear();
        host.out.set_sink([this](host::line_kind kind, const QString& l) {
            if (kind != host::line_kind::text)
                errors << l;
        });
        run("namespace -add hero; createNode transform -n hero:arm;"
            "addAttr -ln ikFk -at enum -en \"FK:IK\" -k true hero:arm;"
            "addAttr -ln note -dt string hero:arm; select -cl;");
    }

    void time_and_ranges() {
        QCOMPARE(run("currentTime -q;"), QString("1"));
        QCOMPARE(run("currentTime 12.5;"), QString("12.5"));
        QCOMPARE(run("currentTime -e 24; currentTime -q;"), QString("24"));
        QCOMPARE(run("playbackOptions -q -min; playbackOptions -q -max;"), QString("120"));
        QCOMPARE(run("playbackOptions -min 10 -max 5; playbackOptions -q -maxTime;"),
                 QString("10"));
        QCOMPARE(run("playbackOptions -q -ast;"), QString("1"));
        QCOMPARE(run("currentTime -q -u 1;"), QString("24")); // a value given in query mode waits
    }

    void selection_keys_name_and_connect_curves() {
        QCOMPARE(run("setKeyframe;"), QString("0"));
        QVERIFY(errors.last().contains("No objects to keyframe"));
        // Every keyable number of the selection; texts and locked plugs take no keys.
        QCOMPARE(run("setAttr -l on hero:arm.sz; select hero:arm; setKeyframe;"), QString("10"));
        QCOMPARE(run("ls -type animCurve;"),
                 QString("arm_visibility arm_translateX arm_translateY arm_translateZ arm_rotateX "
                         "arm_rotateY arm_rotateZ arm_scaleX arm_scaleY arm_ikFk"));
        QCOMPARE(run("nodeType arm_translateX; nodeType arm_rotateY; nodeType arm_ikFk;"),
                 QString("animCurveTU"));
        QCOMPARE(run("nodeType arm_rotateY;"), QString("animCurveTA"));
        QCOMPARE(run("nodeType arm_translateZ;"), QString("animCurveTL"));
        QCOMPARE(run("keyframe -q -n -at tx -at ikFk hero:arm;"),
                 QString("arm_translateX arm_ikFk"));
        // A plug names its own curve; in another namespace, curves take the current one.
        QCOMPARE(run("createNode transform -n arm; namespace -set hero; setKeyframe -at ty arm;"
                     "namespace -set \":\"; keyframe -q -n arm.ty;"),
                 QString("hero:arm_translateY"));
        QCOMPARE(run("setKeyframe -t 5 -v 2 arm.tx; setKeyframe -t 5 -v 3 arm.tx;"
                     "keyframe -q -vc arm.tx;"),
                 QString("3"));
        QCOMPARE(run("setKeyframe arm.foo;"), QString("ERROR"));
    }

    void keyed_plugs_follow_the_time() {
        run("setKeyframe -t 1 -v 0 hero:arm.tx; setKeyframe -t 11 -v 10 hero:arm.tx;"
            "setKeyframe -t 1 -v 0 hero:arm.ikFk; setKeyframe -t 11 -v 1 hero:arm.ikFk;");
        // Linear numbers, stepped switches, constant before the first key and after the last.
        const QList<QPair<double, QString>> expected{{-5, "0 0"},     {1, "0 0"},   {5, "4 0"},
                                                     {10.5, "9.5 0"}, {11, "10 1"}, {40, "10 1"}};
        for (const auto& e : expected) {
            const QString tx = run(QString("currentTime %1; getAttr hero:arm.tx;").arg(e.first));
            QCOMPARE(tx + ' ' + run("getAttr hero:arm.ikFk;"), e.second);
        }
        QCOMPARE(run("getAttr -t 6 hero:arm.tx;"), QString("5"));
        // A value set by hand holds until the time moves, and a key takes it.
        QCOMPARE(run("currentTime 6; setAttr hero:arm.tx 100; getAttr hero:arm.tx;"),
                 QString("100"));
        QCOMPARE(run("currentTime 6; getAttr hero:arm.tx;"), QString("5"));
        QCOMPARE(run("setAttr hero:arm.tx 100; setKeyframe hero:arm.tx; currentTime 1;"
                     "currentTime 6; getAttr hero:arm.tx;"),
                 QString("100"));
        QCOMPARE(run("keyframe -q -kc hero:arm.tx; keyframe -q -tc hero:arm.tx;"),
                 QString("1 6 11"));
    }

    void keyframe_queries_edits_and_cuts() {
        run("select hero:arm; setKeyframe -t 1 -at tx -v 1; setKeyframe -t 10 -at tx -v 2;"
            "setKeyframe -t 20 -at tx -v 3; setKeyframe -t 10 -at ry -v 45; select -cl;");
        QCOMPARE(run("keyframe -q -kc hero:arm;"), QString("4"));
        QCOMPARE(run("keyframe -q -kc -t \"5:15\" hero:arm;"), QString("2"));
        QCOMPARE(run("keyframe -q -tc -t \":10\" -at tx hero:arm;"), QString("1 10"));
        QCOMPARE(run("keyframe -q -vc -t \"10:\" hero:arm;"), QString("2 3 45"));
        QCOMPARE(run("keyframe -q -iv -index \"1:2\" hero:arm.tx;"), QString("1 2"));
        QCOMPARE(run("keyframe -q -kc arm_translateX;"), QString("3")); // a curve by its name
        QCOMPARE(run("keyframe -e -t 20 -vc 1 -r hero:arm.tx; keyframe -q -vc -t 20 hero:arm.tx;"),
                 QString("4"));
        QCOMPARE(run("keyframe -e -t 20 -tc 30 -a hero:arm.tx; keyframe -q -tc hero:arm.tx;"),
                 QString("1 10 30"));
        QCOMPARE(run("cutKey -t 10 hero:arm; keyframe -q -kc hero:arm;"), QString("2"));
        // The rotate curve lost its last key: it goes, and the plug keeps its value.
        QCOMPARE(run("objExists arm_rotateY; getAttr hero:arm.ry;"), QString("45"));
        QCOMPARE(run("currentTime 30; cutKey -cl hero:arm.tx; getAttr hero:arm.tx;"), QString("4"));
        QCOMPARE(run("ls -type animCurve;"), QString(""));
        QCOMPARE(run("keyframe -q -tc -t \"a:b\" hero:arm;"), QString("ERROR"));
        // Deleting a node deletes its curves; deleting a curve frees its plug.
        run("setKeyframe hero:arm.tx hero:arm.ty; delete arm_translateY; setAttr hero:arm.ty 7;");
        QCOMPARE(run("getAttr hero:arm.ty; delete hero:arm; ls -type animCurve;"), QString(""));
    }

    void keys_survive_a_save_and_a_reopen() {
        QTemporaryDir dir;
        const QString path = dir.filePath("keys.ma");
        run("playbackOptions -min 1 -max 48 -aet 60;"
            "setKeyframe -t 1 -v 0 hero:arm.tx; setKeyframe -t 24 -v 12.5 hero:arm.tx;"
            "setKeyframe -t 24 -v 1 hero:arm.ikFk; setKeyframe -t 5 -v 0 -ott step hero:arm.rz;"
            "setKeyframe -t 9 -v 90 hero:arm.rz; currentTime 7;");
        const QString probe =
            "getAttr hero:arm.tx; getAttr hero:arm.rz; getAttr hero:arm.ikFk;"
            "keyframe -q -tc hero:arm; keyframe -q -vc hero:arm; keyframe -q -n hero:arm;"
            "playbackOptions -q -max; playbackOptions -q -aet; currentTime -q;";
        QStringList before;
        for (const QString& line : probe.split(';', Qt::SkipEmptyParts))
            before << run(line + ';');
        QCOMPARE(before.value(1), QString("0")); // stepped until the next key
        QVERIFY(host.save_scene(path));
        host.new_scene();
        QCOMPARE(run("currentTime -q; playbackOptions -q -max;"), QString("120"));
        QVERIFY(host.open_scene(path));
        QStringList after;
        for (const QString& line : probe.split(';', Qt::SkipEmptyParts))
            after << run(line + ';');
        QCOMPARE(after, before);
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(file.readAll());
        QVERIFY(
            text.contains("createNode animCurveTL -n \"arm_translateX\";\n\tsetAttr \".tan\" 2;\n"
                          "\tsetAttr \".wgt\" no;\n\tsetAttr -s 2 \".ktv[0:1]\"  1 0 24 12.5;"));
        QVERIFY(text.contains("connectAttr \"arm_translateX.o\" \"hero:arm.tx\";"));
        QVERIFY(text.contains("select -ne :time1;\n\tsetAttr \".o\" 7;"));
        QVERIFY(text.contains("\"playbackOptions -min 1 -max 48 -ast 1 -aet 60 \""));
    }

    void corpus_curves_drive_their_plugs() {
        QVERIFY(host.open_scene(ZELVANI_CORPUS_DIR "/mmsolver_rigHierarchy_2017.ma"));
        QCOMPARE(run("keyframe -q -tc persp1.tx;"), QString("1 66 120"));
        QCOMPARE(run("currentTime 66; getAttr persp1.tx;"), QString("93.28935752"));
        // Curves tied to reference placeholders stay, unconnected.
        QVERIFY(host.open_scene(ZELVANI_CORPUS_DIR "/avalon_batman_anim_v034_refs_2016.ma"));
        QCOMPARE(run("keyframe -q -kc control_CTL_translateX;"), QString("3"));
        QCOMPARE(run("playbackOptions -q -min; playbackOptions -q -max;"), QString("1143"));
        QVERIFY(host.open_scene(ZELVANI_CORPUS_DIR "/essentials_scene2_main_refs_2024.ma"));
        QCOMPARE(run("keyframe -q -n Walls;"), QString("pCube1_visibility"));
    }
};

QTEST_GUILESS_MAIN(test_mel_keys)
#include "test_mel_keys.moc"
