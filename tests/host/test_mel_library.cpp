// The library scripts lean on, against the examples of Maya's own command reference.
#include "mel_runner.h"

#include <QtTest>

class test_mel_library : public QObject {
    Q_OBJECT

    mel_runner mel;

private slots:
    void init() { mel.reset(); }

    void substrings_and_case() {
        QCOMPARE(mel.run("substring \"Hello There\" 1 5;"), QString("Hello"));
        QCOMPARE(mel.run("substring(\"Hello\", 2, 99);"), QString("ello"));
        QCOMPARE(mel.run("substring(\"Hello\", 4, 2);"), QString(""));
        QCOMPARE(mel.run("toupper \"left_Arm\";"), QString("LEFT_ARM"));
        QCOMPARE(mel.run("tolower(\"L_Shoulder\");"), QString("l_shoulder"));
        QCOMPARE(mel.run("strip(\" \\t ctrl_01 \\n\");"), QString("ctrl_01"));
        QCOMPARE(mel.run("startsWith(\"L_arm\", \"L_\") + endsWith(\"L_arm\", \"_arm\");"),
                 QString("2"));
        QCOMPARE(mel.run("startsWith(\"arm\", \"L_\");"), QString("0"));
        QVERIFY(mel.error("substring \"abc\" 1;")
                    .endsWith("Wrong number of arguments on call to substring."));
        QVERIFY(mel.error("toupper({\"a\"});")
                    .endsWith("Cannot convert data of type string[] to type string."));
    }

    void glob_matching() {
        QCOMPARE(mel.run("gmatch \"matches\" \"m*s\";"), QString("1"));
        QCOMPARE(mel.run("gmatch \"matches\" \"mat*\";"), QString("1"));
        QCOMPARE(mel.run("gmatch \"matches\" \"ma[a-z]ches\";"), QString("1"));
        QCOMPARE(mel.run("gmatch \"matches\" \"ma[!a-m]ches\";"), QString("1"));
        QCOMPARE(mel.run("gmatch \"matches\" \"ma?ches\";"), QString("1"));
        QCOMPARE(mel.run("gmatch \"no match\" \"?atch\";"), QString("0"));
        QCOMPARE(mel.run("gmatch \"what?\" \"what\\\\?\";"), QString("1"));
        QCOMPARE(mel.run("gmatch \"whats\" \"what\\\\?\";"), QString("0"));
        QCOMPARE(mel.run("gmatch \"a-b\" \"a[-x]b\";"), QString("1"));
        QCOMPARE(mel.run("gmatch \"[x\" \"[x\";"), QString("1")); // an open class is itself
        // Long names against many stars stay quick.
        QCOMPARE(mel.run("gmatch \"" + QString(2000, 'a') + "\" \"" + QString(200, '*') + "b\";"),
                 QString("0"));
    }

    void string_arrays() {
        QCOMPARE(mel.run("substituteAllString(\"one + two + three + four\", \"+\", \"plus\");"),
                 QString("one plus two plus three plus four"));
        QCOMPARE(mel.run("substituteAllString(\"a__b\", \"_\", \"\");"), QString("ab"));
        QCOMPARE(mel.run("substituteAllString(\"abc\", \"\", \"x\");"), QString("abc"));
        QCOMPARE(mel.run("stringToStringArray(\"rig|arm||hand\", \"|\");"),
                 QString("rig arm hand"));
        QCOMPARE(mel.run("stringToStringArray(\"1, 2.5,3\", \", \");"), QString("1 2.5 3"));
        QCOMPARE(mel.run("stringArrayToString({\"a\", \"b\", \"c\"}, \", \");"),
                 QString("a, b, c"));
        QCOMPARE(mel.run("string $t[]; tokenize \"a b\\tc\\nd\" $t;"), QString("4"));
        QCOMPARE(mel.run("stringArrayRemove({\"b\", \"d\"}, {\"a\", \"b\", \"c\", \"b\"});"),
                 QString("a c"));
        QCOMPARE(mel.run("stringArrayRemoveDuplicates({\"a\", \"b\", \"a\", \"c\", \"b\"});"),
                 QString("a b c"));
        QVERIFY(mel.error("stringArrayToString(\"a\", \",\");")
                    .endsWith("Cannot convert data of type string to type string[]."));
    }

    void insert_at_index_changes_the_callers_array() {
        QCOMPARE(mel.run("string $list[] = {\"item1\", \"item3\"};"
                         "int $r = stringArrayInsertAtIndex(1, $list, \"item2\");"
                         "$r + \" \" + stringArrayToString($list, \" \");"),
                 QString("1 item1 item2 item3"));
        QCOMPARE(
            mel.run("string $list[] = {\"item1\"};"
                    "int $r = stringArrayInsertAtIndex(-1, $list, \"item4\"); $r + size($list);"),
            QString("1")); // 0 and nothing inserted
        QCOMPARE(
            mel.run("string $list[] = {\"a\", \"b\"}; stringArrayInsertAtIndex(10, $list, \"z\");"
                    "stringArrayInsertAtIndex(0, $list, \"0\"); $list;"),
            QString("0 a b z"));
    }

    void sort_and_clear() {
        QCOMPARE(mel.run("sort({\"top\", \"topShape\", \"front\", \"frontShape\", \"side\", "
                         "\"sideShape\"});"),
                 QString("front frontShape side sideShape top topShape"));
        QCOMPARE(mel.run("sort({\"b\", \"B\", \"a\"});"), QString("B a b"));
        QCOMPARE(mel.run("sort({3, -1, 2});"), QString("-1 2 3"));
        QCOMPARE(mel.run("string $list[] = {\"a\", \"b\"}; clear $list;"), QString("0"));
        QCOMPARE(mel.run("string $list[] = {\"a\", \"b\"}; clear($list); size($list);"),
                 QString("0"));
        QVERIFY(mel.error("int $i; clear $i;").endsWith("clear needs an array variable, not int."));
        QVERIFY(mel.error("sort(<<1, 2, 3>>);").contains("sort needs an array"));
    }

    void arithmetic() {
        QCOMPARE(mel.result("abs(-3);"), QString("3"));
        QCOMPARE(mel.result("abs(-2.5);"), QString("2.5"));
        QCOMPARE(mel.result("abs(<<-1, 2, -3>>);"), QString("<<1, 2, 3>>"));
        QCOMPARE(mel.result("floor(2.7) + ceil(2.1);"), QString("5"));
        QCOMPARE(mel.result("floor(-2.5);"), QString("-3"));
        QCOMPARE(mel.run("min(1, 2) + max(4, 3);"), QString("5"));
        QCOMPARE(mel.run("whatIs \"$m\"; $m = min(1, 2.5); whatIs \"$m\";"),
                 QString("float variable"));
        QCOMPARE(mel.result("max(<<1, 5, 3>>, <<2, 2, 2>>);"), QString("<<2, 5, 3>>"));
        QCOMPARE(mel.result("clamp(0, 10, 12);"), QString("10"));
        QCOMPARE(mel.result("clamp(0, 10, -1) + clamp(0, 10, 4.5);"), QString("4.5"));
        QCOMPARE(mel.result("sqrt(16) + pow(2, 10);"), QString("1028"));
        QCOMPARE(mel.result("sin(deg_to_rad(90)) + cos(0);"), QString("2"));
        QCOMPARE(mel.result("deg_to_rad 225;"), QString("3.92699"));
        QCOMPARE(mel.result("rad_to_deg .42;"), QString("24.0642"));
        QVERIFY(mel.error("pow(2);").endsWith("Wrong number of arguments on call to pow."));
    }

    void random_numbers_repeat_from_a_seed() {
        QCOMPARE(mel.run("seed 7718;"), QString("7718"));
        const QString first = mel.run("seed 7718; string $s = rand(1) + \" \" + rand(1); $s;");
        QCOMPARE(mel.run("seed 7718; string $s = rand(1) + \" \" + rand(1); $s;"), first);
        QVERIFY(first.split(' ')[0] != first.split(' ')[1]);
        // Every named stream starts alike, apart from the default one's history.
        QCOMPARE(mel.run("rand \"s1\" 1;"), mel.run("rand \"s2\" 1;"));
        QCOMPARE(mel.run("int $ok = 1; for ($i = 0; $i < 200; $i++) { float $r = rand(-1, 1);"
                         " if ($r < -1 || $r >= 1) $ok = 0; } $ok;"),
                 QString("1"));
        QCOMPARE(mel.run("vector $v = rand(<<1, 1, 1>>, <<100, 200, 300>>);"
                         "($v.x >= 1 && $v.x < 100 && $v.z >= 1 && $v.z < 300);"),
                 QString("1"));
    }

    void about_and_the_environment() {
        QCOMPARE(mel.run("about -v;"), QString("2019"));
        QCOMPARE(mel.run("about -apiVersion;"), QString("20190000"));
        QCOMPARE(mel.run("about -batch;"), QString("0"));
        QCOMPARE(mel.run("about -application;"), QString("maya"));
        QCOMPARE(mel.run("about -is64;"), QString("1"));
#ifdef Q_OS_LINUX
        QCOMPARE(mel.run("about -os;"), QString("linux64"));
        QCOMPARE(mel.run("`about -linux` + `about -windows` + `about -macOS`;"), QString("1"));
#endif
        QCOMPARE(mel.run("float $v = getApplicationVersionAsFloat(); $v == (float)`about -v`;"),
                 QString("1"));
        QVERIFY(mel.error("about -nonsense;").endsWith("Invalid flag '-nonsense'"));
        QCOMPARE(mel.run("putenv \"ZELVANI_TEST_HOME\" `getenv \"HOME\"`;"), QString("0"));
        QCOMPARE(mel.run("getenv \"ZELVANI_TEST_HOME\";"), qEnvironmentVariable("HOME"));
        QCOMPARE(mel.run("getenv \"ZELVANI_SURELY_UNSET\";"), QString(""));
        QCOMPARE(mel.run("putenv \"\" \"x\";"), QString("1"));
        qunsetenv("ZELVANI_TEST_HOME");
    }
};

QTEST_GUILESS_MAIN(test_mel_library)
#include "test_mel_library.moc"
