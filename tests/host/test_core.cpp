// The host's scene, selection, events, idle queue and API value classes.
#include "core/session.h"
#include "openmaya/access.h"

#include <maya/MArgList.h>
#include <maya/MEventMessage.h>
#include <maya/MGlobal.h>
#include <maya/MItSelectionList.h>
#include <maya/MPxCommand.h>
#include <maya/MSelectionList.h>

#include <QtTest>

namespace {

QStringList active_names() {
    MSelectionList list;
    MGlobal::getActiveSelectionList(list);
    QStringList out;
    for (MItSelectionList it(list); !it.isDone(); it.next()) {
        MStringArray strings;
        it.getStrings(strings);
        for (unsigned i = 0; i < strings.length(); ++i)
            out << QString::fromUtf8(strings[i].asChar());
    }
    return out;
}

int selection_events = 0;
void count_event(void*) {
    ++selection_events;
}

} // namespace

class test_core : public QObject {
    Q_OBJECT

    host::session& host = host::session::get();

private slots:
    void init() {
        host.reset();
        selection_events = 0;
    }

    void namespaces_nest_under_the_current_one() {
        host::scene& s = host.scene;
        QCOMPARE(s.child_namespaces(QString()), (QStringList{"UI", "shared"}));
        QVERIFY(s.ensure_namespace(s.absolute_namespace("rig")));
        QVERIFY(s.set_current_namespace("rig"));
        QVERIFY(s.ensure_namespace(s.absolute_namespace("face")));
        QCOMPARE(s.child_namespaces("rig"), QStringList{"rig:face"});
        QCOMPARE(s.absolute_namespace(":a:b"), QString("a:b"));
        QVERIFY(!s.ensure_namespace("bad name"));
        // Only empty namespaces go.
        QVERIFY(s.create_node("transform", "rig:face:jaw", -1, false) >= 0);
        QVERIFY(!s.remove_namespace("rig:face"));
        s.remove_node(s.find("rig:face:jaw").value(0));
        QVERIFY(s.remove_namespace("rig:face"));
        QCOMPARE(s.current_namespace(), QString("rig"));
        QVERIFY(!s.remove_namespace("UI"));
    }

    void nodes_are_found_by_name_and_path() {
        host::scene& s = host.scene;
        const int a = s.create_node("transform", "a", -1, false);
        const int b = s.create_node("transform", "b", -1, false);
        const int a_leaf = s.create_node("transform", "leaf", a, false);
        const int b_leaf = s.create_node("transform", "leaf", b, false);
        QCOMPARE(s.create_node("transform", "leaf", a, false), -1); // sibling clash
        QCOMPARE(s.find("leaf").size(), 2);
        QCOMPARE(s.find("|a|leaf"), QVector<int>{a_leaf});
        QCOMPARE(s.find("b|leaf"), QVector<int>{b_leaf});
        QCOMPARE(s.display_name(a_leaf), QString("|a|leaf"));
        QCOMPARE(s.display_name(a), QString("a"));
        QCOMPARE(s.create_node("transform", "a", -1, true), 2 + 2);
        QCOMPARE(s.at(4).name, QString("a1"));
        s.remove_node(a);
        QVERIFY(!s.at(a_leaf).alive);
        QCOMPARE(s.display_name(b_leaf), QString("leaf"));
    }

    // Thousands of nodes named alike counted up from 1 for each new one, and looked for a
    // clash among every node of the same short name: a scene file of 20,000 took minutes.
    void names_alike_stay_quick_and_take_the_lowest_free_number() {
        host::scene& s = host.scene;
        for (int i = 0; i < 20000; ++i)
            QVERIFY(s.create_node("transform", "a", -1, true) >= 0);
        QCOMPARE(s.at(19999).name, QString("a19999"));
        for (int i = 0; i < 20000; ++i) {
            const int group = s.create_node("transform", QString("g%1").arg(i), -1, false);
            QVERIFY(s.create_node("transform", "geo", group, false) >= 0);
            QCOMPARE(s.create_node("transform", "geo", group, false), -1);
        }
        // A freed number is the next one taken again; names with a leading zero are no
        // numbers of the stem.
        s.remove_node(s.find("a7").value(0));
        s.remove_node(s.find("a3").value(0));
        QVERIFY(s.rename_node(s.find("a5").value(0), "a05"));
        QCOMPARE(s.at(s.create_node("transform", "a12", -1, true)).name, QString("a3"));
        QCOMPARE(s.at(s.create_node("transform", "a", -1, true)).name, QString("a5"));
        QCOMPARE(s.at(s.create_node("transform", "a", -1, true)).name, QString("a7"));
        QCOMPARE(s.at(s.create_node("transform", "a", -1, true)).name, QString("a20000"));
        QCOMPARE(s.display_name(s.find("a05").value(0)), QString("a05"));

        // Thousands of namespaces were searched in a list for each new one.
        for (int i = 0; i < 20000; ++i)
            QVERIFY(s.ensure_namespace(QString("n%1:inner").arg(i)));
        QCOMPARE(s.child_namespaces("n19999"), QStringList{"n19999:inner"});
        QCOMPARE(s.child_namespaces(QString()).mid(0, 3), (QStringList{"UI", "shared", "n0"}));
        QVERIFY(s.remove_namespace("n7:inner"));
        QVERIFY(s.child_namespaces("n7").isEmpty());
        QVERIFY(!s.namespace_exists("n7:inner") && s.namespace_exists("n7"));
    }

    void wildcards_match_whole_names() {
        host::scene& s = host.scene;
        for (const char* n : {"rig:arm_ctrl", "rig:leg_ctrl", "arm_ctrl", "rig:face:jaw"})
            s.create_node("transform", n, -1, false);
        QCOMPARE(s.match("*_ctrl").size(), 1);
        QCOMPARE(s.match("rig:*").size(), 3);
        QCOMPARE(s.match("*:*").size(), 3);
        QCOMPARE(s.match("rig:???_ctrl").size(), 2);
        QVERIFY(host::wildcard_match("a*b*c", "aXbYbZc"));
        QVERIFY(!host::wildcard_match("a*b", "aXbY"));
    }

    void selection_is_ordered_and_takes_components() {
        host::scene& s = host.scene;
        s.create_node("transform", "pCube1", -1, false);
        s.create_node("transform", "rig:arm_ctrl", -1, false);
        QVERIFY(MGlobal::selectByName("rig:arm_ctrl", MGlobal::kReplaceList));
        QVERIFY(MGlobal::selectByName("pCube1.vtx[0:3]"));
        QVERIFY(MGlobal::selectByName("rig:arm_ctrl")); // already there: kept once
        QCOMPARE(active_names(), (QStringList{"rig:arm_ctrl", "pCube1.vtx[0:3]"}));
        QVERIFY(!MGlobal::selectByName("nothing", MGlobal::kReplaceList));
        QCOMPARE(active_names().size(), 2); // a failed call changes nothing
        QVERIFY(MGlobal::selectByName("rig:arm_ctrl", MGlobal::kXORWithList));
        QCOMPARE(active_names(), QStringList{"pCube1.vtx[0:3]"});
        // Deleting a node drops it from the selection.
        s.remove_node(s.find("pCube1").value(0));
        host.nodes_removed();
        QVERIFY(active_names().isEmpty());
    }

    void selection_changed_fires_now_or_on_idle() {
        host.scene.create_node("transform", "a", -1, false);
        MStatus status;
        const MCallbackId id =
            MEventMessage::addEventCallback("SelectionChanged", count_event, nullptr, &status);
        QVERIFY(status);
        MGlobal::selectByName("a", MGlobal::kReplaceList);
        QCOMPARE(selection_events, 1);

        host.defer_selection_changed = true;
        MGlobal::clearSelectionList();
        QCOMPARE(selection_events, 1);
        host.run_idle();
        QCOMPARE(selection_events, 2);

        QVERIFY(MMessage::removeCallback(id));
        QVERIFY(!MMessage::removeCallback(id));
        MGlobal::clearSelectionList();
        host.run_idle();
        QCOMPARE(selection_events, 2);
    }

    void unknown_events_and_injected_failures_fail() {
        MStatus status;
        QCOMPARE(MEventMessage::addEventCallback("timeChanged", count_event, nullptr, &status),
                 MCallbackId(0));
        QVERIFY(!status);
        host.failing.insert("addEventCallback:SceneOpened");
        MEventMessage::addEventCallback("SceneOpened", count_event, nullptr, &status);
        QVERIFY(!status);
    }

    void idle_runs_in_order_with_entries_queued_meanwhile() {
        QStringList order;
        host.idle.push_task([&] {
            order << "first";
            host.idle.push_task([&] { order << "queued while running"; });
        });
        MGlobal::executePythonCommandOnIdle("print('hi')");
        host.idle.push_task([&] { order << "third"; });
        QStringList lines;
        host.out.set_sink([&](host::line_kind, const QString& l) { lines << l; });
        QCOMPARE(host.run_idle(), 4);
        QCOMPARE(order, (QStringList{"first", "third", "queued while running"}));
        QCOMPARE(host.python_log, QStringList{"print('hi')"});
        QCOMPARE(lines, QStringList{"hi\n"});
        QVERIFY(host.idle.empty());
    }

    void idle_log_keeps_what_was_queued_while_on() {
        MGlobal::executeCommandOnIdle("print 1;");
        QVERIFY(host.idle.log().empty()); // off by default
        host.idle.set_logging(true);
        MGlobal::executeCommandOnIdle("print 2;");
        MGlobal::executePythonCommandOnIdle("x = 3");
        host.idle.push_task([] {});
        host.run_idle();
        QCOMPARE(int(host.idle.log().size()), 3); // ran or not, they stay logged
        QCOMPARE(host.idle.log()[0].text, QString("print 2;"));
        QVERIFY(host.idle.log()[1].what == host::idle_queue::kind::python);
        QVERIFY(host.idle.log()[2].what == host::idle_queue::kind::task);
        host.reset();
        QVERIFY(host.idle.log().empty());
        MGlobal::executeCommandOnIdle("print 4;");
        QVERIFY(host.idle.log().empty());
    }

    void names_must_match_whole() {
        // A line break at the end passed a pattern anchored with ^ and $: two such nodes
        // were "arm\n" and "arm\n1", and a save and reopen lost one.
        host::scene& s = host.scene;
        for (const char* bad : {"arm\n", "rig:arm\n", "\narm", "arm\r\n"})
            QCOMPARE(s.create_node("transform", bad, -1, true), -1);
        QVERIFY(!s.ensure_namespace("rig\n"));
        QVERIFY(!s.ensure_namespace("rig:\nface"));
        const int arm = s.create_node("transform", "arm", -1, true);
        QVERIFY(arm >= 0);
        QVERIFY(!s.rename_node(arm, "leg\n"));
        QStringList lines;
        host.out.set_sink([&](host::line_kind, const QString& l) { lines << l; });
        QVERIFY(!host.execute("createNode transform -n \"arm\\n\";").ok);
        QCOMPARE(s.node_count(), 1);
    }

    void arg_list_keeps_arrays_whole() {
        MArgList args;
        MArgListAccess::add(args, "restore");
        MStringArray data;
        data.append("abc");
        data.append("def");
        MArgListAccess::add_array(args, data);
        QCOMPARE(args.length(), 2u);
        MStatus status;
        QCOMPARE(QString(args.asString(0, &status).asChar()), QString("restore"));
        QVERIFY(status);
        args.asString(1, &status);
        QVERIFY(!status);
        unsigned index = 1;
        MStringArray got;
        QVERIFY(args.get(index, got));
        QCOMPARE(index, 2u);
        QCOMPARE(got.length(), 2u);
        index = 0;
        QVERIFY(!args.get(index, got));
        QCOMPARE(index, 0u);
        MString out;
        QVERIFY(!args.get(7, out));
    }

    void results_accumulate_as_arrays() {
        host.push_result();
        MPxCommand::appendToResult("a");
        MPxCommand::appendToResult(MString("b"));
        host::command_result r = host.pop_result();
        QVERIFY(r.array);
        QCOMPARE(r.values, (QStringList{"a", "b"}));
        host.push_result();
        MPxCommand::appendToResult(3);
        MPxCommand::clearResult();
        QCOMPARE(host.pop_result().kind, host::command_result::type::none);
    }

    void strings_behave_like_maya_strings() {
        MString s("Rig:Arm");
        QCOMPARE(QString(s.toLowerCase().asChar()), QString("rig:arm"));
        QVERIFY(s == "rig:arm" && s != MString("x"));
        QCOMPARE(QString(("a" + MString("b") + "c").asChar()), QString("abc"));
        QCOMPARE(MString("42").asInt(), 42);
        QCOMPARE(MString("2.5").asFloat(), 2.5f);
        QCOMPARE(MStatus(MStatus::kFailure).statusCode(), MStatus::kFailure);
        QVERIFY(MStatus() == MS::kSuccess);
    }

    void file_info_keeps_order_and_text() {
        host::scene& s = host.scene;
        s.set_file_info("b", "1");
        s.set_file_info("a", "x\"y\\z\n");
        s.set_file_info("b", "2");
        QCOMPARE(s.file_infos().size(), 2);
        QCOMPARE(s.file_infos()[0].second, QString("2"));
        s.remove_file_info("b");
        QCOMPARE(s.file_info("a"), QString("x\"y\\z\n"));
        QVERIFY(!s.has_file_info("b"));
    }
};

QTEST_GUILESS_MAIN(test_core)
#include "test_core.moc"
