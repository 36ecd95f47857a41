// The MEL language: procedures, variables, control flow, calls and errors.
#include "mel/interpreter.h"
#include "mel_runner.h"

#include <QtTest>

class test_mel_language : public QObject, private mel_runner {
    Q_OBJECT

private slots:
    void init() { reset(); }

    void procedures_recurse_and_return_typed_values() {
        QCOMPARE(run("proc int fact(int $n) { if ($n <= 1) return 1; return $n * fact($n - 1); }"
                     "fact(10);"),
                 QString("3628800"));
        QCOMPARE(run("global proc string[] twice(string $a[]) {"
                     "  string $out[];"
                     "  for ($x in $a) { $out[size($out)] = $x; $out[size($out)] = $x; }"
                     "  return $out; }"
                     "twice({\"a\", \"b\"});"),
                 QString("a a b b"));
        QCOMPARE(run("global proc float half(int $n) { return $n / 2.0; } half(3);"),
                 QString("1.5"));
        QCOMPARE(run("twice({\"z\"})"), QString("z z")); // globals outlive the execution
    }

    void local_procs_stay_with_their_text() {
        QCOMPARE(run("proc string helper() { return \"inner\"; }"
                     "global proc string api() { return helper(); }"),
                 QString(""));
        QCOMPARE(run("api();"), QString("inner"));
        QCOMPARE(run("helper();"), QString("ERROR"));
        QVERIFY(lines.last().contains("Cannot find procedure \"helper\""));
    }

    void variables_convert_as_mel_does() {
        QCOMPARE(run("int $i = 7 / 2; $i;"), QString("3"));
        QCOMPARE(run("float $f = 7 / 2.0; $f;"), QString("3.5"));
        QCOMPARE(run("string $s = \"n\" + 1 + 2; $s;"), QString("n12"));
        QCOMPARE(run("int $i = \"42abc\"; $i;"), QString("42"));
        QCOMPARE(run("string $a[] = {\"x\"}; string $s = $a;"), QString("ERROR"));
        QCOMPARE(run("$auto = 2.5; $auto += 1; $auto;"), QString("3.5"));
        QCOMPARE(run("int $n = 0; $n++; ++$n; $n--; $n;"), QString("1"));
        QCOMPARE(run("global int $g = 5; proc bump() { global int $g; $g++; } bump(); bump(); $g;"),
                 QString("7"));
        QCOMPARE(run("$undeclared + 1;"), QString("ERROR"));
    }

    void control_flow_and_strings() {
        QCOMPARE(run("int $t = 0; for ($i = 0; $i < 10; $i++) { if ($i == 3) continue;"
                     " if ($i == 6) break; $t += $i; } $t;"),
                 QString("12")); // 0+1+2+4+5
        QCOMPARE(run("int $n = 0; while ($n < 5) $n++; do { $n += 10; } while ($n < 30); $n;"),
                 QString("35"));
        QCOMPARE(run("string $s = \"a\\\"b\\\\c\\td\"; size($s);"), QString("7"));
        QCOMPARE(run("(1 < 2 && \"x\" == \"x\") ? \"yes\" : \"no\";"), QString("yes"));
        QCOMPARE(run("/* block */ int $x = 1; // line\n$x;"), QString("1"));
    }

    void both_call_forms_and_back_quotes() {
        host.execute("createNode transform -n \"rig:arm\"; createNode transform -n \"rig:leg\";");
        QCOMPARE(run("string $a[] = `ls \"rig:*\"`; size($a);"), QString("2"));
        QCOMPARE(run("size(ls(\"rig:*\"));"), QString("2"));
        QCOMPARE(run("string $m = `match \"[^:]+$\" \"rig:arm\"`; $m;"), QString("arm"));
        QCOMPARE(run("substitute(\"rig\", \"rig:rig\", \"new\");"), QString("new:rig"));
        QCOMPARE(run("string $b[]; int $n = tokenize(\"a|b||c\", \"|\", $b); $n + \":\" + $b[2];"),
                 QString("3:c"));
        QCOMPARE(run("stringArrayContains(\"b\", {\"a\", \"b\"});"), QString("1"));
        QCOMPARE(run("eval(\"1 + 2\");"), QString("3"));
        // A back-quoted command is an argument of a command in command syntax too.
        QCOMPARE(run("select `ls \"rig:*\"`; ls -sl;"), QString("rig:arm rig:leg"));
        QCOMPARE(run("size `ls \"rig:arm\"`;"), QString("1"));
    }

    void errors_name_their_line_and_column_once() {
        QCOMPARE(run("int $a = 1;\nint $b = 2;\nint $c = 3 +;\n"), QString("ERROR"));
        QCOMPARE(lines.size(), 1);
        QCOMPARE(lines[0], QString("// Error: Line 3.13: Syntax error //\n"));

        lines.clear();
        QCOMPARE(run("proc f() {\n    noSuchCommand 1;\n}\nf();"), QString("ERROR"));
        QCOMPARE(lines,
                 QStringList{"// Error: Line 2.5: Cannot find procedure \"noSuchCommand\". //\n"});

        lines.clear();
        QCOMPARE(run("print \"before\\n\"; select -r nothing; print \"after\";"), QString("ERROR"));
        QCOMPARE(lines.size(), 2); // "before", then the one error line: "after" never ran
        QVERIFY(lines[1].contains("No object matches name: nothing"));
    }

    void catch_contains_an_error() {
        QCOMPARE(run("int $r = catchQuiet(`select nothing`); $r;"), QString("1"));
        QVERIFY(lines.isEmpty());
        QCOMPARE(run("catch(error(\"boom\"));"), QString("1"));
        QCOMPARE(lines.size(), 1);
        QCOMPARE(run("catch(size(\"ok\"));"), QString("0"));
    }

    void runaway_recursion_and_deep_nesting_fail_cleanly() {
        QCOMPARE(run("proc loop(int $n) { loop($n + 1); } loop(0);"), QString("ERROR"));
        QVERIFY(lines.last().contains("Stack overflow"));
        QCOMPARE(run(QString(5000, '(') + "1" + QString(5000, ')') + ";"), QString("ERROR"));
        QCOMPARE(run("1 + 1;"), QString("2")); // the interpreter is still sound
    }

    void strings_read_their_leading_number_in_one_pass() {
        QCOMPARE(run("float $f = \"1.5e3xyz\"; $f;"), QString("1500"));
        QCOMPARE(run("float $f = \"  -.5.5\"; $f;"), QString("-0.5"));
        QCOMPARE(run("float $f = \"2e+2e\"; $f;"), QString("200"));
        QCOMPARE(run("int $i = \"12e\"; $i;"), QString("12"));
        QCOMPARE(run("int $i = \"e12\"; $i;"), QString("0"));
        // Numbers beyond int are held at its ends wherever they become ints.
        QCOMPARE(run("max(2147483647, \"3e9\");"), QString("2147483647"));
        QCOMPARE(run("min(-5, \"-1e300\");"), QString("-2147483648"));
        QCOMPARE(run("abs(-2147483647 - 1);"), QString("2147483647"));
        // Huge floats print with an exponent: in fixed notation 1e308 took 309 digits, and a
        // loop printing it ran for seconds within its step budget.
        QCOMPARE(run("1e308 * 1.0;"), QString("1e+308"));
        QCOMPARE(run("-2.5e20 * 1.0;"), QString("-2.5e+20"));
        QCOMPARE(run("123456.0 * 1.0;"), QString("123456"));
        // int arithmetic wraps as MEL's does, also by ++ and --.
        QCOMPARE(run("int $i = 2147483647; $i++; $i;"), QString("-2147483648"));
        // Every shorter prefix of a long run of points was tried once: quadratic.
        const QString points = QStringLiteral("1.").repeated(200000);
        QCOMPARE(run("float $f = \"" + points + "\"; $f;"), QString("1.1"));
    }

    void a_step_budget_ends_what_would_run_for_ever() {
        host.mel().set_step_limit(10000);
        QCOMPARE(run("int $i = 0; while (1) $i++;"), QString("ERROR"));
        QCOMPARE(lines.size(), 1);
        QVERIFY(lines[0].contains("Execution stopped after 10000 steps."));
        // catch does not stop it, nor does an eval inside.
        QCOMPARE(run("while (1) catch(eval(\"while (1);\"));"), QString("ERROR"));
        // Every execution starts with the whole budget, and what fits runs as before.
        QCOMPARE(run("int $n = 0; for ($k = 0; $k < 100; $k++) $n += $k; $n;"), QString("4950"));
        // Growing values spend the budget by their length: memory stays bounded too.
        QCOMPARE(run("string $s = \"x\"; while (1) $s += $s;"), QString("ERROR"));
        QCOMPARE(run("string $s = \"x\"; while (1) $s = $s + $s;"), QString("ERROR"));
        QCOMPARE(run("int $a[]; $a[16000000] = 1;"), QString("ERROR"));
        QCOMPARE(run("int $a[]; $a[2147483647] = 1;"), QString("ERROR"));
        init(); // no budget: the default, as in Maya
        QCOMPARE(run("int $a[]; $a[20000] = 1; size($a);"), QString("20001"));
        QCOMPARE(run("int $a[]; $a[2147483647] = 1;"), QString("ERROR"));
        QVERIFY(lines.last().contains("Array index out of range: 2147483647"));
    }
};

QTEST_GUILESS_MAIN(test_mel_language)
#include "test_mel_language.moc"
