// Command syntax as scripts write it: parenthesised expressions, back-quoted commands,
// vectors and arrays as arguments and flag values, and its border with function syntax.
#include "mel_runner.h"

#include <maya/MArgList.h>
#include <maya/MPxCommand.h>

#include <QtTest>

namespace {

// The arguments of the last `argsOf` call, arrays as "[a,b]".
QStringList recorded;

class args_of : public MPxCommand {
public:
    MStatus doIt(const MArgList& args) override {
        recorded.clear();
        for (unsigned i = 0; i < args.length(); ++i) {
            MString text;
            if (args.get(i, text)) {
                recorded << QString::fromUtf8(text.asChar());
                continue;
            }
            MStringArray array;
            unsigned index = i;
            args.get(index, array);
            QStringList items;
            for (unsigned k = 0; k < array.length(); ++k)
                items << QString::fromUtf8(array[k].asChar());
            recorded << QLatin1Char('[') + items.join(QLatin1Char(',')) + QLatin1Char(']');
        }
        for (const QString& r : recorded)
            appendToResult(MString(r.toUtf8().constData()));
        return MS::kSuccess;
    }
};

void* make_args_of() {
    return new args_of;
}

} // namespace

class test_mel_commands : public QObject {
    Q_OBJECT

    mel_runner mel;

    QStringList args_of_call(const QString& script) {
        recorded = QStringList{"not called"};
        if (!mel.host.execute(script).ok)
            return {"ERROR"};
        return recorded;
    }

private slots:
    void init() {
        mel.reset();
        QVERIFY(mel.host.register_command("argsOf", make_args_of, nullptr));
    }
    void cleanup() { mel.host.deregister_command("argsOf"); }

    void parenthesised_expressions_are_arguments_and_flag_values() {
        QCOMPARE(
            args_of_call("int $a = 1; string $b = \"x\"; argsOf -flag ($a + 1) ($b) \"text\";"),
            (QStringList{"-flag", "2", "x", "text"}));
        // What setAttr and disconnectAttr lines in real scripts look like.
        QCOMPARE(args_of_call("string $node = \"pCube1\"; argsOf ($node + \".tx\") 0;"),
                 (QStringList{"pCube1.tx", "0"}));
        QCOMPARE(args_of_call("string $n[] = {\"ibl\"}; argsOf ($n[0] + \".message\") \"g.ibl\";"),
                 (QStringList{"ibl.message", "g.ibl"}));
        QCOMPARE(args_of_call("vector $p = <<1, 2, 3>>; argsOf -a -ws ($p.x) ($p.y) 0 obj;"),
                 (QStringList{"-a", "-ws", "1", "2", "0", "obj"}));
        QCOMPARE(args_of_call("string $s = \"a.b.c\"; string $parts[];"
                              "argsOf (size($s)) (tokenize($s, \".\", $parts)) $parts;"),
                 (QStringList{"5", "3", "[a,b,c]"}));
    }

    void back_quotes_vectors_and_arrays_are_arguments() {
        QCOMPARE(args_of_call("argsOf -n `strip \" a \"` `toupper \"b\"`;"),
                 (QStringList{"-n", "a", "B"}));
        QCOMPARE(args_of_call("argsOf {\"a\", \"b\"} <<1, 2.5, 3>>;"),
                 (QStringList{"[a,b]", "1 2.5 3"}));
        QCOMPARE(args_of_call("argsOf -1 -2.5 pCube1.vtx[0:3] \"*:*\" rig:arm|hand;"),
                 (QStringList{"-1", "-2.5", "pCube1.vtx[0:3]", "*:*", "rig:arm|hand"}));
        // A flag's value spelt on/off/yes/no/true/false is a number.
        QCOMPARE(args_of_call("argsOf -state off -visible on;"),
                 (QStringList{"-state", "0", "-visible", "1"}));
        // Flags glued to the command name, as in `ls-sl`.
        QCOMPARE(args_of_call("argsOf-q;"), QStringList{"-q"});
    }

    void function_syntax_stays_function_syntax() {
        QCOMPARE(args_of_call("argsOf(\"a\", \"b\");"), (QStringList{"a", "b"}));
        QCOMPARE(args_of_call("argsOf (\"a\");"), QStringList{"a"});
        QCOMPARE(mel.run("string $a[] = {\"x\", \"y\"}; size($a) - 1;"), QString("1"));
        QCOMPARE(mel.run("size(\"abc\") * 2;"), QString("6"));
        QCOMPARE(mel.output("print (\"a\" + \"b\");"), QString("ab"));
        // Inside back-quotes and catch, the same rule: more arguments make it a command.
        QCOMPARE(mel.run("string $r[] = `argsOf (\"a\") \"b\"`; size($r);"), QString("2"));
        QCOMPARE(mel.run("`argsOf(\"a\")`;"), QString("a"));
        QCOMPARE(mel.run("catch(argsOf (\"a\") \"b\");"), QString("0"));
        QCOMPARE(recorded, (QStringList{"a", "b"}));
        QCOMPARE(mel.run("catchQuiet(`argsOf -q`);"), QString("0"));
        QCOMPARE(mel.run("int $i = 3; if (`match (\"gpu\" + string($i)) \"gpu3 gpu4\"` == \"\") 0;"
                         " else 1;"),
                 QString(""));
    }

    void syntax_errors_point_at_their_place() {
        QCOMPARE(mel.error("argsOf ($a + ) 1;"), QString("Line 1.14: Syntax error"));
        QCOMPARE(mel.error("int $x = 1;\nargsOf -f (`strip \"a\"`;"),
                 QString("Line 2.23: Syntax error"));
        // Lines end in \n, \r\n or a lone \r.
        QCOMPARE(mel.error("int $a = 1;\r// note\rint $b = ;"), QString("Line 3.10: Syntax error"));
        QCOMPARE(mel.run("int $a = 1;\r\n// note\r\nint $b = 2;\r$a + $b;"), QString("3"));
    }
};

QTEST_GUILESS_MAIN(test_mel_commands)
#include "test_mel_commands.moc"
