// Attributes through MEL as Maya gives them: built-in and user attributes, values, locks,
// keyable states, listings and queries, their errors, and scenes that keep them through a
// save and a reopen. Also the DAG commands: listRelatives, nodeType, rename, parent.
#include "mel_runner.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

class test_mel_attributes : public QObject, private mel_runner {
    Q_OBJECT

    QStringList errors;

    // The error a text gives, without its position.
    QString error_of(const QString& mel) {
        errors.clear();
        run(mel);
        return errors.isEmpty() ? QString() : errors.last().section(QLatin1String(": "), 1);
    }

    // A file saved from the scene, the scene emptied and the file opened again.
    void save_and_reopen(const QString& path) {
        QVERIFY(host.save_scene(path));
        host.new_scene();
        QVERIFY(host.open_scene(path));
    }

private slots:
    void init() {
        reset();
        errors.clear();
        host.out.set_sink([this](host::line_kind kind, const QString& l) {
            if (kind == host::line_kind::error)
                errors << l.trimmed().mid(QStringLiteral("// Error: ").size()).chopped(3);
        });
        run("createNode transform -n pCube1; createNode joint -n joint1 -p pCube1;");
    }

    void transforms_have_their_channels_by_every_name() {
        QCOMPARE(run("getAttr pCube1.t;"), QString("0 0 0"));
        QCOMPARE(run("getAttr pCube1.s; getAttr pCube1.v;"), QString("1"));
        QCOMPARE(run("setAttr pCube1.translateX 1.5; setAttr \"pCube1.ty\" -2;"
                     "setAttr pCube1.translate.translateZ 3; getAttr pCube1.translate;"),
                 QString("1.5 -2 3"));
        QCOMPARE(run("setAttr -type \"double3\" pCube1.r 10 20 30; getAttr pCube1.rotateY;"),
                 QString("20"));
        QCOMPARE(run("setAttr |pCube1|joint1.s 2 2 2; getAttr joint1.sz;"), QString("2"));
        QCOMPARE(run("setAttr pCube1.v off; getAttr pCube1.visibility;"), QString("0"));
        const QStringList types{"double3", "doubleLinear", "doubleAngle", "double", "bool"};
        const QStringList plugs{"t", "tx", "rotateZ", "sy", "v"};
        for (int k = 0; k < types.size(); ++k)
            QCOMPARE(run("getAttr -type pCube1." + plugs[k] + ";"), types[k]);
        // getAttr gives floats for numbers and ints for switches, as MEL sees them.
        QCOMPARE(host.execute("getAttr pCube1.tx;").values, QStringList{"1.5"});
        QVERIFY(run("int $v = `getAttr pCube1.v`; float $t[] = `getAttr pCube1.t`;") != "ERROR");
    }

    void user_attributes_of_each_kind() {
        QCOMPARE(run("addAttr -ln blend -sn bl -at double -min 0 -max 10 -dv 2.5 -k true pCube1;"
                     "getAttr pCube1.bl;"),
                 QString("2.5"));
        QCOMPARE(run("addAttr -ln count -at long pCube1; setAttr pCube1.count 2.6;"
                     "getAttr pCube1.count;"),
                 QString("3"));
        QCOMPARE(run("addAttr -ln flag -at bool pCube1; setAttr pCube1.flag yes;"
                     "getAttr pCube1.flag;"),
                 QString("1"));
        QCOMPARE(run("addAttr -ln mode -at enum -en \"Off:On=5:Auto\" -k 1 pCube1;"
                     "setAttr pCube1.mode 6; getAttr -asString pCube1.mode;"),
                 QString("Auto"));
        QCOMPARE(run("attributeQuery -node pCube1 -listEnum mode;"), QString("Off:On=5:Auto"));
        QCOMPARE(
            run("addAttr -ln note -dt \"string\" pCube1;"
                "setAttr -type \"string\" pCube1.note \"a \\\"b\\\" c\"; getAttr pCube1.note;"),
            QString("a \"b\" c"));
        QCOMPARE(
            run("select -r joint1; addAttr -ln fromSelection; getAttr -type joint1.fromSelection;"),
            QString("double"));
        QCOMPARE(run("addAttr -e -max 20 pCube1.blend; setAttr pCube1.blend 15; "
                     "attributeQuery -node pCube1 -max blend;"),
                 QString("20"));
        QCOMPARE(run("deleteAttr pCube1.count; objExists pCube1.count;"), QString("0"));
        QCOMPARE(run("deleteAttr -at flag pCube1; listAttr -ud pCube1;"),
                 QString("blend mode note"));
    }

    void listings_and_queries() {
        run("addAttr -ln ikFk -at enum -en \"FK:IK\" -k true pCube1; addAttr -ln info -dt string "
            "pCube1; setAttr -l on pCube1.tx; setAttr -k off pCube1.v; setAttr -cb on pCube1.v;");
        QCOMPARE(run("listAttr -k pCube1;"), QString("translateX translateY translateZ rotateX "
                                                     "rotateY rotateZ scaleX scaleY scaleZ ikFk"));
        QCOMPARE(run("listAttr -l pCube1;"), QString("translateX"));
        QCOMPARE(run("listAttr -k -u -st \"translate*\" pCube1;"),
                 QString("translateY translateZ"));
        QCOMPARE(run("listAttr -cb pCube1;"), QString("visibility"));
        QCOMPARE(run("listAttr -ud -sn pCube1;"), QString("ikFk info"));
        QCOMPARE(run("listAttr pCube1.s;"), QString("scale scaleX scaleY scaleZ"));
        QCOMPARE(
            run("attributeQuery -node pCube1 -exists ikFk; attributeQuery -n pCube1 -ex nope;"),
            QString("0"));
        QCOMPARE(run("attributeQuery -node pCube1 -keyable ikFk;"), QString("1"));
        QCOMPARE(run("attributeQuery -node pCube1 -minimum ikFk;"), QString("0"));
        QCOMPARE(run("attributeQuery -node pCube1 -maximum tx;"), QString(""));
        QCOMPARE(run("attributeQuery -node pCube1 -listChildren t;"),
                 QString("translateX translateY translateZ"));
        QCOMPARE(run("attributeQuery -node pCube1 -listDefault s;"), QString("1 1 1"));
        QCOMPARE(run("attributeQuery -node pCube1 -niceName tx;"), QString("Translate X"));
        QCOMPARE(run("attributeQuery -node pCube1 -attributeType info;"), QString("typed"));
        QCOMPARE(run("getAttr -l pCube1.tx; getAttr -k pCube1.v;"), QString("0"));
        QCOMPARE(run("objExists pCube1.translateX; objExists pCube1.vtx[0];"), QString("1"));
        QCOMPARE(run("objExists pCube1.nope;"), QString("0"));
        // addAttr's query and edit modes, and keyable states passed down a compound.
        QCOMPARE(run("addAttr -q -ex pCube1.ikFk; addAttr -q -en pCube1.ikFk;"), QString("FK:IK"));
        QCOMPARE(run("addAttr -e -en \"FK:IK:Blend\" pCube1.ikFk; addAttr -q -max pCube1.ikFk;"),
                 QString("2"));
        QCOMPARE(run("addAttr -q -ex pCube1.none; addAttr -q -at pCube1.ikFk;"), QString("enum"));
        QCOMPARE(run("setAttr -k off pCube1.r; listAttr -k -st \"rotate*\" pCube1;"), QString(""));
        QCOMPARE(run("setAttr -k on pCube1.rotate; getAttr -k pCube1.rz;"), QString("1"));
        QCOMPARE(run("getAttr -k pCube1.r;"), QString("0")); // a compound itself is never keyable
    }

    void refusals_in_mayas_words() {
        run("addAttr -ln blend -min 0 -max 1 pCube1; addAttr -ln note -dt string pCube1;"
            "setAttr -lock true pCube1.tx;");
        QCOMPARE(error_of("setAttr pCube1.tx 1;"),
                 QString("setAttr: The attribute 'pCube1.translateX' is locked or connected and "
                         "cannot be modified."));
        // A locked compound locks its children.
        QCOMPARE(error_of("setAttr -l on pCube1.r; setAttr pCube1.rz 1;"),
                 QString("setAttr: The attribute 'pCube1.rotateZ' is locked or connected and "
                         "cannot be modified."));
        QCOMPARE(error_of("setAttr pCube1.nope 1;"),
                 QString("setAttr: No object matches name: pCube1.nope"));
        QCOMPARE(error_of("getAttr ghost.tx;"), QString("No object matches name: ghost.tx"));
        QCOMPARE(error_of("setAttr pCube1.blend 2;"),
                 QString("setAttr: Cannot set the attribute 'pCube1.blend' past its maximum value "
                         "of 1."));
        QCOMPARE(error_of("setAttr pCube1.blend -1;"),
                 QString("setAttr: Cannot set the attribute 'pCube1.blend' past its minimum value "
                         "of 0."));
        QCOMPARE(run("setAttr -clamp pCube1.blend 2; getAttr pCube1.blend;"), QString("1"));
        QCOMPARE(error_of("setAttr pCube1.s 1 2;"),
                 QString("setAttr: Error reading data element number 3"));
        QCOMPARE(error_of("setAttr pCube1.sx big;"),
                 QString("setAttr: Error reading data element number 1: big"));
        QCOMPARE(error_of("setAttr pCube1.note \"text\";"),
                 QString("setAttr: Error reading data element number 1: text"));
        QCOMPARE(error_of("addAttr -ln blend pCube1;"),
                 QString("addAttr: Found an attribute named 'blend' on node 'pCube1' already."));
        QCOMPARE(error_of("addAttr -ln \"bad name\" pCube1;"),
                 QString("addAttr: 'bad name' is not a valid attribute name."));
        QVERIFY(error_of("addAttr -ln vec -at double3 pCube1;").contains("not supported"));
        QCOMPARE(error_of("deleteAttr pCube1.tx;"),
                 QString("deleteAttr: The attribute 'pCube1.translateX' is not a dynamic "
                         "attribute and cannot be deleted."));
        // Unlocking and setting in one command works; values never changed on refusal.
        QCOMPARE(run("setAttr -l off pCube1.tx 4; getAttr pCube1.tx;"), QString("4"));
    }

    void attributes_survive_a_save_and_a_reopen() {
        QTemporaryDir dir;
        run("createNode transform -n \"rig:ctrl\" -p pCube1;"
            "setAttr rig:ctrl.t 1 2 3.25; setAttr rig:ctrl.rx -90; setAttr rig:ctrl.v 0;"
            "setAttr -l on rig:ctrl.sx; setAttr -k off rig:ctrl.sy; setAttr -cb on rig:ctrl.sy;"
            "addAttr -ln ikFk -nn \"IK FK\" -at enum -en \"FK:IK\" -k true rig:ctrl;"
            "setAttr rig:ctrl.ikFk 1;"
            "addAttr -ln weight -at double -min -1 -max 1 -dv 0.5 rig:ctrl;"
            "addAttr -ln label -dt string rig:ctrl;"
            "setAttr -type \"string\" rig:ctrl.label \"line\\none; \\\"quoted\\\"\";"
            "addAttr -ln on -at bool rig:ctrl; setAttr -l on rig:ctrl.on;");
        const QString probe =
            "getAttr rig:ctrl.t; getAttr rig:ctrl.rx; getAttr rig:ctrl.v; getAttr -l rig:ctrl.sx;"
            "getAttr -k rig:ctrl.sy; getAttr -cb rig:ctrl.sy; getAttr -as rig:ctrl.ikFk;"
            "getAttr rig:ctrl.weight; attributeQuery -n rig:ctrl -min weight; getAttr "
            "rig:ctrl.label;"
            "getAttr -l rig:ctrl.on; attributeQuery -n rig:ctrl -nn ikFk; listAttr -k rig:ctrl;";
        QStringList before;
        for (const QString& line : probe.split(';', Qt::SkipEmptyParts))
            before << run(line + ';');
        const QString first = dir.filePath("first.ma");
        save_and_reopen(first);
        QStringList after;
        for (const QString& line : probe.split(';', Qt::SkipEmptyParts))
            after << run(line + ';');
        QCOMPARE(after, before);
        QCOMPARE(after.value(0), QString("1 2 3.25"));
        QCOMPARE(after.value(6), QString("IK"));
        // Written again, the scene is the same text.
        const QString second = dir.filePath("second.ma");
        QVERIFY(host.save_scene(second));
        auto body = [](const QString& path) {
            QFile f(path);
            f.open(QIODevice::ReadOnly);
            QStringList lines = QString::fromUtf8(f.readAll()).split('\n');
            return lines.filter(QRegularExpression("^(\t|createNode|connectAttr|select)"));
        };
        QCOMPARE(body(second), body(first));
        QVERIFY(body(first).contains("\tsetAttr \".t\" -type \"double3\" 1 2 3.25 ;"));
        QVERIFY(body(first).contains("\taddAttr -ci true -k true -sn \"ikFk\" -ln \"ikFk\" -nn "
                                     "\"IK FK\" -min 0 -max 1 -en \"FK:IK\" -at \"enum\";"));
    }

    void corpus_scenes_keep_their_attributes() {
        QVERIFY(host.open_scene(ZELVANI_CORPUS_DIR "/avalon_bruce_rigDefault_namespaced_2016.ma"));
        QCOMPARE(run("getAttr bruce_PLY.mbID;"), QString("0001ed4a89b2"));
        QVERIFY(host.open_scene(ZELVANI_CORPUS_DIR "/mmsolver_rigHierarchy_2017.ma"));
        QCOMPARE(run("getAttr -l persp1.sx; getAttr -l persp1.tx;"), QString("0"));
        QCOMPARE(run("getAttr -k perspShape2.v;"), QString("ERROR")); // shapes keep none here
        // Every file of the corpus opens, saves and opens again with the same attributes.
        QTemporaryDir dir;
        const QStringList files = QDir(ZELVANI_CORPUS_DIR).entryList({"*.ma"});
        QVERIFY(files.size() >= 7);
        for (const QString& file : files) {
            QVERIFY(host.open_scene(QString(ZELVANI_CORPUS_DIR "/") + file));
            const QString probe = "string $all[]; for ($n in `ls -type transform`)"
                                  "  for ($a in `listAttr $n`) $all[size($all)] = $n + \".\" + $a"
                                  "   + \"=\" + `getAttr -l ($n + \".\" + $a)`;"
                                  "for ($n in `ls`) for ($a in `listAttr -ud -s $n`)"
                                  "  $all[size($all)] = $n + \".\" + $a;"
                                  "stringArrayToString($all, \" \");";
            const QString before = run(probe);
            const int nodes = host.scene.node_count();
            save_and_reopen(dir.filePath(file));
            QCOMPARE(host.scene.node_count(), nodes);
            QCOMPARE(run(probe), before);
        }
    }

    void the_dag_as_scripts_walk_it() {
        // Two nodes named "a" under different parents, as files make them.
        QVERIFY(host.scene.create_node("transform", "grp", -1, false) >= 0);
        const int grp = host.scene.find("grp").front();
        const int a = host.scene.create_node("transform", "a", grp, false);
        host.scene.create_node("mesh", "aShape", a, false);
        const int b = host.scene.create_node("transform", "b", grp, false);
        host.scene.create_node("transform", "a", b, false);
        QCOMPARE(run("listRelatives grp;"), QString("|grp|a b"));
        QCOMPARE(run("listRelatives -ad grp;"), QString("|grp|b|a b aShape |grp|a"));
        QCOMPARE(run("listRelatives -s |grp|a;"), QString("aShape"));
        QCOMPARE(run("listRelatives -p aShape;"), QString("|grp|a"));
        QCOMPARE(run("listRelatives -ad -type transform -f grp;"),
                 QString("|grp|b|a |grp|b |grp|a"));
        QCOMPARE(run("select -r grp; listRelatives -c -s; listRelatives aShape;"), QString(""));
        QCOMPARE(run("nodeType -i joint1;"),
                 QString("containerBase entity dagNode transform joint"));
        QCOMPARE(run("nodeType aShape;"), QString("mesh"));
        QCOMPARE(run("objectType -isAType transform joint1;"), QString("1"));
        QCOMPARE(run("objectType -isType transform joint1;"), QString("0"));
        QCOMPARE(run("ls -type transform \"joint*\";"), QString("joint1"));
        QCOMPARE(error_of("nodeType ghost;"), QString("No object matches name: ghost"));
        // rename keeps names unique among siblings and takes the current namespace.
        QCOMPARE(run("rename b c;"), QString("c"));
        QCOMPARE(run("rename |grp|a c;"), QString("c1"));
        QCOMPARE(run("namespace -add ns; namespace -set ns; rename c d;"), QString("ns:d"));
        run("namespace -set \":\";");
        QCOMPARE(run("select -r pCube1; rename \"cube\"; ls -sl;"), QString("cube"));
        QCOMPARE(error_of("rename cube \"no way\";"),
                 QString("rename: 'no way' is not a valid name."));
        // parent moves nodes, renames a clash among the new siblings, and refuses cycles.
        QCOMPARE(run("parent c1 ns:d;"), QString("c1"));
        QCOMPARE(run("parent \"ns:d|a\" grp; listRelatives grp;"), QString("ns:d a"));
        QVERIFY(host.scene.create_node("transform", "a", -1, false) >= 0);
        QCOMPARE(run("parent |a grp;"), QString("a1"));
        QCOMPARE(run("parent -w joint1; listRelatives -p joint1;"), QString(""));
        QCOMPARE(error_of("parent grp ns:d;"),
                 QString("parent: Cannot parent 'grp' under its own descendant 'ns:d'."));
        QCOMPARE(run("parent ns:d grp;"), QString("ns:d")); // already there: a warning
    }
};

QTEST_GUILESS_MAIN(test_mel_attributes)
#include "test_mel_attributes.moc"
