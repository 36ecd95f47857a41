// Matching a selection against buttons, and the namespaces buttons use.
#include "document/button_geometry.h"
#include "document/button_queries.h"

#include <QtTest>

namespace {

picker_button* button(const QStringList& targets, int kind = 0) {
    picker_button_data d;
    d.targets = targets;
    d.kind = kind;
    return make_button_record(d);
}

} // namespace

class test_button_queries : public QObject {
    Q_OBJECT

private slots:
    void states_follow_the_selected_targets() {
        QList<picker_button*> buttons{button({"rig:a", "rig:b"}), button({"rig:c"}), button({}),
                                      button({"print \"x\";"}, 1)};
        QVERIFY(match_buttons(buttons, {"rig:a"}));
        QCOMPARE(buttons[0]->selected, quint16(2));
        QCOMPARE(buttons[0]->target_selected, (QVector<bool>{true, false}));
        QCOMPARE(buttons[1]->selected, quint16(0));
        QCOMPARE(buttons[2]->selected, quint16(1)); // no targets: fully selected
        QCOMPARE(buttons[3]->selected, quint16(0));
        QVERIFY(!match_buttons(buttons, {"rig:a", "other"})); // nothing changed state
        QVERIFY(match_buttons(buttons, {"rig:a", "rig:b", "RIG:c"}));
        QCOMPARE(buttons[0]->selected, quint16(1));
        QCOMPARE(buttons[1]->selected, quint16(0)); // exact, case-sensitive text
        qDeleteAll(buttons);
    }

    void namespaces_come_sorted_and_bracket_aware() {
        QList<picker_button*> buttons{button({"b:x:arm", "A:leg", "plain"}),
                                      button({"x[a:b]:c", "b:y"}), button({"cmd:ns:z"}, 1)};
        QStringList list;
        collect_button_namespaces(buttons, list);
        QCOMPARE(list, (QStringList{"A", "b", "b:x", "x[a:b]"}));
        qDeleteAll(buttons);
    }

    void distinct_keeps_first_seen_order() {
        QCOMPARE(distinct_names({"b", "a", "b", "c", "a"}), (QStringList{"b", "a", "c"}));
    }
};

QTEST_MAIN(test_button_queries)
#include "test_button_queries.moc"
