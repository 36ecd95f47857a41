// MEL's control flow and variables: switch, loops with break and continue, the conditional
// operator, blocks, implicit declaration and globals across executions.
#include "mel_runner.h"

#include <QtTest>

namespace {

// The colour switch of Maya's manual, with its fall-through from PINK into RED.
const char* const colours = "proc string pick(string $color) {"
                            "  string $done;"
                            "  switch ($color) {"
                            "    case \"GREEN\": $done += \"green \"; break;"
                            "    case \"PINK\": $done += \"pink \";"
                            "    case \"RED\": $done += \"red \"; break;"
                            "    default: $done += \"blue \"; break;"
                            "  }"
                            "  return $done;"
                            "}";

} // namespace

class test_mel_control : public QObject {
    Q_OBJECT

    mel_runner mel;

private slots:
    void init() { mel.reset(); }

    void switch_falls_through_until_a_break() {
        const QString script = QString::fromLatin1(colours);
        QCOMPARE(mel.run(script + "pick(\"GREEN\");"), QString("green "));
        QCOMPARE(mel.run(script + "pick(\"PINK\");"), QString("pink red "));
        QCOMPARE(mel.run(script + "pick(\"RED\");"), QString("red "));
        QCOMPARE(mel.run(script + "pick(\"gray\");"), QString("blue "));
        // Cases that share one body; a default in the middle falls into what follows it.
        const QString letters =
            "proc string fruit(string $l) { string $f = \"none\";"
            " switch ($l) { case \"a\": case \"A\": $f = \"Apple\"; break;"
            " default: $f = \"?\"; case \"b\": $f += \"Banana\"; } return $f; }";
        QCOMPARE(mel.run(letters + "fruit(\"A\");"), QString("Apple"));
        QCOMPARE(mel.run(letters + "fruit(\"b\");"), QString("noneBanana"));
        QCOMPARE(mel.run(letters + "fruit(\"z\");"), QString("?Banana"));
    }

    void switch_compares_every_type() {
        QCOMPARE(mel.run("int $r; switch (2) { case 1: $r = 1; break; case 2.0: $r = 2; } $r;"),
                 QString("2"));
        QCOMPARE(mel.run("int $r; switch (0.5) { case 0.5: $r = 5; } $r;"), QString("5"));
        QCOMPARE(
            mel.run("string $c1 = \"blue\"; int $r;"
                    "switch (\"blue\") { case \"red\": $r = 1; break; case $c1: $r = 2; } $r;"),
            QString("2"));
        QCOMPARE(mel.run("int $r; switch (<<1, 2, 3>>) { case <<1, 2, 3>>: $r = 7; } $r;"),
                 QString("7"));
        // No match and no default: nothing runs.
        QCOMPARE(mel.run("int $r = 9; switch (4) { case 1: $r = 1; } $r;"), QString("9"));
        QVERIFY(mel.error("case 1: print 1;").contains("Syntax error"));
    }

    void break_and_continue_in_every_loop() {
        QCOMPARE(mel.run("int $t = 0; for ($i = 0; $i < 10; $i++) { if ($i == 3) continue;"
                         " if ($i == 6) break; $t += $i; } $t;"),
                 QString("12")); // 0+1+2+4+5
        QCOMPARE(mel.run("int $t = 0; int $i = 0; while ($i < 10) { $i++; if ($i % 2) continue;"
                         " if ($i > 6) break; $t += $i; } $t;"),
                 QString("12")); // 2+4+6
        QCOMPARE(mel.run("int $i = 0; do { $i++; if ($i == 2) continue; if ($i > 4) break; }"
                         " while (1); $i;"),
                 QString("5"));
        QCOMPARE(mel.run("string $out; for ($s in {\"a\", \"skip\", \"b\", \"stop\", \"c\"}) {"
                         " if ($s == \"skip\") continue; if ($s == \"stop\") break; $out += $s; }"
                         " $out;"),
                 QString("ab"));
        // A do loop runs once before its test.
        QCOMPARE(mel.run("int $n = 0; do $n++; while (0); $n;"), QString("1"));
        // break leaves the switch, not the loop; continue goes on with the loop.
        QCOMPARE(mel.run("string $out; for ($i = 0; $i < 4; $i++) { switch ($i) {"
                         " case 1: continue; case 2: $out += \"two\"; break; default: $out += $i; }"
                         " $out += \".\"; } $out;"),
                 QString("0.two.3."));
        QCOMPARE(mel.run("proc int first(int $a[]) { for ($x in $a) { switch ($x) {"
                         " case 3: return $x; } } return -1; } first({1, 3, 5});"),
                 QString("3"));
    }

    void conditional_operator_and_parentheses() {
        QCOMPARE(mel.run("int $b = 12, $c = 30; int $a = ($b > 10) ? $c : ($c - 10); $a;"),
                 QString("30"));
        QCOMPARE(mel.run("int $b = 2; ($b > 1) ? ($b > 5 ? \"big\" : \"mid\") : \"small\";"),
                 QString("mid"));
        QCOMPARE(mel.run("(1 + 2) * (3 + 4);"), QString("21"));
    }

    void blocks_scope_their_variables() {
        QCOMPARE(mel.output("int $test = 10; { int $test = 15; print($test + \"\\n\"); }"
                            " print($test + \"\\n\");"),
                 QString("15\n10\n"));
        QVERIFY(mel.error("int $x; string $x;")
                    .endsWith("Invalid redeclaration of variable \"$x\" as a different type."));
        QCOMPARE(mel.run("int $x = 1; int $x = 2; $x;"), QString("2"));
    }

    void assignment_declares_an_undeclared_variable() {
        QCOMPARE(mel.run("$flag = 42; whatIs \"$flag\";"), QString("int variable"));
        QCOMPARE(mel.run("$name = \"arm\"; whatIs \"$name\";"), QString("string variable"));
        QCOMPARE(mel.run("$weights[2] = 0.5; whatIs \"$weights\";"), QString("float[] variable"));
        QCOMPARE(mel.run("$pos = <<1, 2, 3>>; whatIs \"$pos\";"), QString("vector variable"));
        QCOMPARE(mel.run("$parts = {\"a\", \"b\"}; size($parts);"), QString("2"));
        QCOMPARE(mel.run("for ($i = 0; $i < 3; $i++); $i;"), QString("3"));
        QVERIFY(mel.error("proc nothing() {} $v = nothing();").contains("type void"));
        QVERIFY(
            mel.error("print $undeclared;").endsWith("\"$undeclared\" is an undeclared variable."));
    }

    void globals_live_across_executions_and_procedures() {
        QVERIFY(mel.host.execute("global int $gCount = 5; global string $gNames[] = {\"a\"};").ok);
        // Every scope that uses a global declares it; its first value stays.
        QCOMPARE(mel.run("global proc bump() { global int $gCount; $gCount++; }"
                         "bump(); bump(); global int $gCount = 100; $gCount;"),
                 QString("7"));
        QCOMPARE(mel.run("global string $gNames[]; $gNames[size($gNames)] = \"b\"; size($gNames);"),
                 QString("2"));
        QCOMPARE(mel.run("proc string[] names() { global string $gNames[]; return $gNames; }"
                         "names();"),
                 QString("a b"));
        QVERIFY(mel.error("print $gCount;").endsWith("\"$gCount\" is an undeclared variable."));
        QVERIFY(mel.error("global float $gCount;")
                    .endsWith("Global variable \"$gCount\" is already declared as int."));
    }
};

QTEST_GUILESS_MAIN(test_mel_control)
#include "test_mel_control.moc"
