// MEL's types: vectors, matrices, casts, conversions, and how values print and show.
#include "mel_runner.h"

#include <QtTest>

class test_mel_types : public QObject {
    Q_OBJECT

    mel_runner mel;

private slots:
    void init() { mel.reset(); }

    void vectors_read_their_components_and_compute() {
        QCOMPARE(mel.result("vector $test = <<3.0, 7.7, 9.1>>; ($test.y);"), QString("7.7"));
        // A component is read only: a new vector sets it.
        QCOMPARE(mel.result("vector $test = <<3.0, 7.7, 9.1>>;"
                            "$test = <<$test.x, 5.5, $test.z>>; $test;"),
                 QString("<<3, 5.5, 9.1>>"));
        QVERIFY(mel.error("vector $test; ($test.y) = 5.5;").contains("Syntax error"));
        QCOMPARE(mel.result("2 + <<4, 5, 6>>;"), QString("<<6, 7, 8>>"));
        QCOMPARE(mel.result("<<1, 2, 3>> * 2;"), QString("<<2, 4, 6>>"));
        QCOMPARE(mel.result("<<2, 4, 6>> / 2 - <<1, 1, 1>>;"), QString("<<0, 1, 2>>"));
        QCOMPARE(mel.result("-<<1, -2, 3>>;"), QString("<<-1, 2, -3>>"));
        // * between vectors is the dot product, ^ the cross product.
        QCOMPARE(mel.result("vector $u = <<1, 2, -2>>, $v = <<3, 0, 1>>; $u * $v;"), QString("1"));
        QCOMPARE(mel.result("vector $u = <<1, 2, -2>>, $v = <<3, 0, 1>>; $u ^ $v;"),
                 QString("<<2, -7, -6>>"));
        QCOMPARE(mel.result("dot(<<1, 2, -2>>, <<3, 0, 1>>);"), QString("1"));
        QCOMPARE(mel.result("cross(<<1, 2, -2>>, <<3, 0, 1>>);"), QString("<<2, -7, -6>>"));
        QCOMPARE(mel.result("mag <<7, 8, 9>>;"), QString("13.9284"));
        QCOMPARE(mel.run("<<1, 2, 3>> == <<1, 2, 3>>;"), QString("1"));
        QVERIFY(mel.error("<<1, 2, 3>> ^ 2;").endsWith("The cross product ^ needs two vectors."));
        QVERIFY(mel.error("float $f = 2; ($f.x);")
                    .endsWith("Only a vector has the component .x, not a value of type float."));
    }

    void vector_arrays_hold_vectors() {
        QCOMPARE(mel.result("vector $a[] = {<<1, 2, 3>>, <<4, 5, 6>>}; $a[1];"),
                 QString("<<4, 5, 6>>"));
        QCOMPARE(mel.run("vector $a[]; $a[2] = <<1, 1, 1>>; size($a);"), QString("3"));
        QCOMPARE(mel.run("vector $a[] = {<<1, 2, 3>>}; ($a[0].z);"), QString("3"));
        QCOMPARE(mel.run("$p = {<<0, 0, 1>>, 2}; whatIs \"$p\";"), QString("vector[] variable"));
    }

    void matrices_keep_their_size() {
        QCOMPARE(mel.run("matrix $a3[3][4] = <<2.5, 4.5, 3.25, 8.05;"
                         " 1.12, 1.3, 9.5, 5.2; 7.23, 6.006, 2.34, 4.67>>; $a3[2][1];"),
                 QString("6.006"));
        // What the literal leaves out is zero.
        QCOMPARE(mel.result("matrix $m[2][2] = <<1; 4>>; $m;"), QString("<<1, 0; 4, 0>>"));
        QCOMPARE(mel.run("matrix $m[4][2]; $m[1][0] = 9; $m[1][0] + $m[3][1];"), QString("9"));
        QVERIFY(mel.error("matrix $m[4][2]; $m[0][2] = 7;")
                    .endsWith("Element [0][2] of matrix \"$m\" doesn't exist."));
        QVERIFY(mel.error("matrix $a2[][];").contains("Syntax error"));
        QVERIFY(mel.error("matrix $a1[][] = <<1; 4>>;").contains("Syntax error"));
        QVERIFY(mel.error("matrix $m[1][2] = <<1, 2, 3>>;")
                    .endsWith("Cannot convert data of type vector to type matrix."));
        QCOMPARE(mel.run("matrix $a[2][2] = <<1, 2; 3, 4>>; matrix $b[2][2] = <<5, 6; 7, 8>>;"
                         "matrix $c[2][2] = $a * $b; $c[1][1];"),
                 QString("50"));
        QCOMPARE(mel.result("matrix $t[4][4] = <<1, 0, 0, 0; 0, 1, 0, 0; 0, 0, 1, 0; 5, 6, 7, 1>>;"
                            "<<1, 1, 1>> * $t;"),
                 QString("<<6, 7, 8>>"));
        QVERIFY(mel.error("matrix $big[100000][100000];").contains("Invalid matrix size"));
    }

    void casts_convert_explicitly() {
        QCOMPARE(mel.result("(float) 7 / 2;"), QString("3.5"));
        QCOMPARE(mel.run("(int) 7.5;"), QString("7"));
        QCOMPARE(mel.run("(int) -7.9;"), QString("-7"));
        QCOMPARE(mel.run("(string) 500 + 1;"), QString("5001"));
        QCOMPARE(mel.run("(string) 56.56;"), QString("56.56"));
        QCOMPARE(mel.result("(vector) \"<<1, 2, 3>>\";"), QString("<<1, 2, 3>>"));
        QCOMPARE(mel.run("int $ctr = 4; string $name = \"node\" + (string)$ctr; $name;"),
                 QString("node4"));
        // The type name also casts in function form.
        QCOMPARE(mel.run("int $i = 3; (\"gpu\" + string($i));"), QString("gpu3"));
        QCOMPARE(mel.run("int(\"42abc\") + float(\"0.5\");"), QString("42.5"));
        QVERIFY(mel.error("string $a[] = {\"1\"}; (int)$a;")
                    .endsWith("Cannot convert data of type string[] to type int."));
    }

    void values_convert_as_maya_converts_them() {
        QCOMPARE(mel.result("$var1 = 7 + 1.3; $var1;"), QString("8.3"));
        QCOMPARE(mel.result("$var2 = 7.9 + 2; $var2;"), QString("9.9"));
        QCOMPARE(mel.run("$var4 = 0007 + \" Lives!\"; $var4;"), QString("7 Lives!"));
        QCOMPARE(mel.output("print(\"500\" + 5);"), QString("5005"));
        QCOMPARE(mel.run("float $f = <<3, 4, 0>>; $f;"), QString("5")); // a vector's length
        QCOMPARE(mel.result("vector $v = 2; $v;"), QString("<<2, 2, 2>>"));
        QCOMPARE(mel.run("string $s = <<1, 2.5, 3>>; $s;"), QString("1 2.5 3"));
        QCOMPARE(mel.result("vector $p = {1.0, 2.0, 3.0}; $p;"), QString("<<1, 2, 3>>"));
        QCOMPARE(mel.run("float $a[] = <<1, 2, 3>>; size($a);"), QString("3"));
        QCOMPARE(mel.run("int $i[] = {1, 2}; float $f[] = $i; string $s[] = $f; $s[1] + \"!\";"),
                 QString("2!"));
        QCOMPARE(mel.run("int $n = \"3.9 apples\"; $n;"), QString("3"));
        QCOMPARE(mel.run("float $x = \"1e3x\"; $x;"), QString("1000"));
        QCOMPARE(mel.run("0x7FFFFFFF + 0;"), QString("2147483647"));
        QCOMPARE(mel.run("0xff;"), QString("255"));
        QVERIFY(mel.error("string $a[] = {\"x\"}; string $s = $a;")
                    .endsWith("Cannot convert data of type string[] to type string."));
        QVERIFY(
            mel.error("int $a[] = 5;").endsWith("Cannot convert data of type int to type int[]."));
    }

    void floats_print_with_ten_digits_and_show_with_six() {
        QCOMPARE(mel.output("print (1.0 / 3);"), QString("0.3333333333"));
        QCOMPARE(mel.result("1.0 / 3;"), QString("0.333333"));
        QCOMPARE(mel.output("print 2.0;"), QString("2"));
        QCOMPARE(mel.output("print 0.1;"), QString("0.1"));
        QCOMPARE(mel.output("print 1e20;"), QString("1e+20"));
        QCOMPARE(mel.run("string $s = 123456789.0; $s;"), QString("123456789"));
        QCOMPARE(mel.result("sqrt(2);"), QString("1.41421"));
        QCOMPARE(mel.result("-0.0;"), QString("0"));
    }

    void arrays_print_a_line_each_and_show_on_one_line() {
        QCOMPARE(mel.result("float $listOfFloats[] = {42.42, 1.2, 8.4, -3.4, -100};"
                            "$listOfFloats = `sort $listOfFloats`; $listOfFloats;"),
                 QString("-100 -3.4 1.2 8.4 42.42"));
        QCOMPARE(mel.output("float $f[] = {1.5, 2.0}; print $f;"), QString("1.5\n2\n"));
        QCOMPARE(mel.output("string $s[] = {\"a\", \"b\"}; print $s;"), QString("a\nb\n"));
        QCOMPARE(mel.output("print <<1, 2.5, 3>>;"), QString("1 2.5 3"));
        QCOMPARE(mel.result("vector $v[] = {<<1, 2, 3>>, <<0, 0, 1>>}; $v;"),
                 QString("<<1, 2, 3>> <<0, 0, 1>>"));
        // An empty array shows no Result line at all.
        QCOMPARE(mel.result("string $none[]; $none;"), QString());
    }
};

QTEST_GUILESS_MAIN(test_mel_types)
#include "test_mel_types.moc"
