// Matching a selection against buttons, and the namespaces buttons use.
#include "document/button_geometry.h"
#include "document/button_queries.h"
#include "document/namespace_rewrite.h"

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

    // A name of 100,000 colons gave a namespace at each: some ten gigabytes of text.
    void a_name_gives_the_namespaces_of_its_first_32_levels() {
        QString deep = QStringLiteral("n0");
        for (int level = 1; level < 40; ++level)
            deep += QStringLiteral(":n%1").arg(level);
        const QString colons(100000, QLatin1Char(':'));
        QList<picker_button*> buttons{button({deep, colons})};
        QStringList list;
        collect_button_namespaces(buttons, list);
        QCOMPARE(list.size(), 32 + 32);
        QVERIFY(list.contains(QStringLiteral("n0")));
        QVERIFY(list.contains(deep.section(QLatin1Char(':'), 0, 31)));
        QVERIFY(!list.contains(deep.section(QLatin1Char(':'), 0, 32)));
        QVERIFY(list.contains(QString()) && list.contains(QString(31, QLatin1Char(':'))));
        qDeleteAll(buttons);
    }

    // The last pair that applies wins, as the pairs are tried from the end; every rule on
    // every name, by an index built once for all the buttons.
    void a_rewrite_takes_the_last_pair_that_applies() {
        const namespace_rewrite pairs({":", "rig:", "rig:face:", "rig:", "x[a:b]:"},
                                      {"root:", "one:", "face:", "two:", ":"});
        picker_button_data selection;
        selection.targets = QStringList{"arm",  "rig:arm",  "rig:face:jaw", "rig:faces",
                                        ":top", "x[a:b]:c", "other:rig:x"};
        rename_namespaces(selection, pairs);
        QCOMPARE(selection.targets, (QStringList{"root:arm", "two:arm", "two:face:jaw", "two:faces",
                                                 "root:top", "c", "other:rig:x"}));
        picker_button_data command;
        command.kind = 1;
        command.targets = QStringList{"select rig:face:jaw rig:arm arm;\n:top"};
        rename_namespaces(command, pairs);
        QCOMPARE(command.targets[0], QString("select two:face:jaw two:arm arm;\nroot:top"));

        // Many pairs and long names stay quick: each name looks up its own prefixes.
        QStringList from, to;
        for (int i = 0; i < 20000; ++i) {
            from << QStringLiteral("ns%1:").arg(i);
            to << QStringLiteral("moved%1:").arg(i);
        }
        picker_button_data many;
        for (int i = 0; i < 20000; ++i)
            many.targets << QStringLiteral("ns%1:ctrl").arg(i);
        rename_namespaces(many, namespace_rewrite(from, to));
        QCOMPARE(many.targets.last(), QString("moved19999:ctrl"));
    }

    void distinct_keeps_first_seen_order() {
        QCOMPARE(distinct_names({"b", "a", "b", "c", "a"}), (QStringList{"b", "a", "c"}));
    }
};

QTEST_MAIN(test_button_queries)
#include "test_button_queries.moc"
