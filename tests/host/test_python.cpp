// Python in the host: maya.cmds over the host's commands, mel.eval, executeDeferred,
// python() and executePythonCommand, errors and output as the script editor shows them.
#include "core/session.h"
#include "mel/value.h"
#include "python/runtime.h"

#include <maya/MArgList.h>
#include <maya/MGlobal.h>
#include <maya/MPxCommand.h>

#include <QTemporaryDir>
#include <QtTest>

namespace {

// A plug-in command that gives back its arguments as text, arrays as "{a,b}"; told
// "fail", it shows an error and fails as a plug-in does.
struct echo_args : MPxCommand {
    MStatus doIt(const MArgList& args) override {
        MStringArray seen;
        for (unsigned int i = 0; i < args.length(); ++i) {
            MString text;
            if (args.get(i, text)) {
                seen.append(text);
                continue;
            }
            MStringArray array;
            unsigned int at = i;
            args.get(at, array);
            MString joined("{");
            for (unsigned int k = 0; k < array.length(); ++k)
                joined += (k ? "," : "") + array[k];
            seen.append(joined + "}");
        }
        if (seen.length() == 1 && seen[0] == "fail") {
            MGlobal::displayError("echoArgs: told to fail");
            return MStatus::kFailure;
        }
        appendToResult(seen);
        return MStatus::kSuccess;
    }
};
void* make_echo_args() {
    return new echo_args;
}

} // namespace

class test_python : public QObject {
    Q_OBJECT

    host::session& host = host::session::get();
    QStringList lines;

    // The value of a Python expression as MEL's python() gives it, or its error.
    QString evaluated(const QString& expression) {
        host::mel::value v;
        QString error;
        if (!host.python().evaluate(expression, v, error))
            return "ERROR " + error;
        return host::mel::to_string(v);
    }
    // The repr of an expression's value.
    QString py(const QString& expression) { return evaluated("repr(" + expression + ")"); }
    // "Type: message" of what a call raises, or "no error".
    QString raised(const QString& call) { return evaluated("_raised(lambda: " + call + ")"); }
    QStringList trimmed_lines() const {
        QStringList out;
        for (const QString& l : lines)
            out << l.trimmed();
        return out;
    }

private slots:
    void initTestCase() {
        host.run_python("import builtins\n"
                        "def _raised(f):\n"
                        "    try:\n"
                        "        f()\n"
                        "    except Exception as e:\n"
                        "        return f'{type(e).__name__}: {e}'\n"
                        "    return 'no error'\n"
                        "builtins._raised = _raised\n"
                        "import maya.cmds as cmds, maya.mel as mel, maya.utils");
    }

    void init() {
        host.deregister_command("echoArgs");
        host.reset();
        lines.clear();
        host.out.set_sink([this](host::line_kind, const QString& l) { lines << l; });
    }

    void flags_go_as_maya_wrappers_give_them() {
        QCOMPARE(py("cmds.createNode('transform', n='a')"), QString("'a'"));
        QCOMPARE(py("cmds.createNode('transform', name='b', skipSelect=True)"), QString("'b'"));
        QCOMPARE(py("cmds.ls(sl=True)"), QString("['a']"));
        QCOMPARE(py("cmds.select('b', add=True)"), QString("None"));
        QCOMPARE(py("cmds.ls(selection=True)"), QString("['a', 'b']"));
        QCOMPARE(py("cmds.select(['a', 'b'], d=True)"), QString("None"));
        QCOMPARE(py("cmds.ls(sl=True)"), QString("[]"));
        // False leaves a flag out; a flag that takes a value is given 1 or 0.
        QCOMPARE(py("cmds.ls(sl=False, type='transform')"), QString("['a', 'b']"));
        QCOMPARE(py("cmds.file(modified=True)"), QString("None"));
        QCOMPARE(py("cmds.file(q=True, mf=True)"), QString("1"));
        QCOMPARE(py("cmds.file(mf=False)"), QString("None"));
        QCOMPARE(py("cmds.file(query=True, modified=True)"), QString("0"));
        QCOMPARE(py("cmds.fileInfo('k', 'v', q=False)"), QString("None"));
        QCOMPARE(py("cmds.fileInfo('k', q=True)"), QString("['v']"));
    }

    void several_values_repeated_flags_and_arrays_reach_a_plugin_command() {
        QVERIFY(host.register_command("echoArgs", make_echo_args, nullptr));
        // Registered after maya.cmds was imported, and there at once.
        QCOMPARE(py("'echoArgs' in dir(cmds)"), QString("True"));
        QCOMPARE(py("cmds.echoArgs('x', ['a', 'b'], (1, 2.5), 3, True, on=True, off=False, "
                    "pair=(1, 'b'), many=['p', 'q'], twice=[(1, 2), (3, 4)])"),
                 QString("['x', '{a,b}', '{1,2.5}', '3', '1', '-on', '-pair', '1', 'b', '-many', "
                         "'p', '-many', 'q', '-twice', '1', '2', '-twice', '3', '4']"));
        QCOMPARE(py("cmds.echoArgs()"), QString("[]"));
        QVERIFY(host.deregister_command("echoArgs"));
        QCOMPARE(py("hasattr(cmds, 'echoArgs')"), QString("False"));
    }

    void results_convert_as_maya_converts_them() {
        host.execute("createNode transform -n a;");
        QCOMPARE(py("cmds.objExists('a')"), QString("1"));
        QCOMPARE(py("cmds.getApplicationVersionAsFloat()"), QString("2019.0"));
        QCOMPARE(py("cmds.ls('a')"), QString("['a']"));
        QCOMPARE(py("mel.eval('int $i[] = {1, 2}; $i')"), QString("[1, 2]"));
        QCOMPARE(py("mel.eval('float $f[] = {1.5, 2}; $f')"), QString("[1.5, 2.0]"));
        QCOMPARE(py("mel.eval('\"text\"')"), QString("'text'"));
        QCOMPARE(py("mel.eval('string $s[]; $s')"), QString("[]"));
        QCOMPARE(py("mel.eval('<<1, 2, 3>>')"), QString("[1.0, 2.0, 3.0]"));
        QCOMPARE(py("mel.eval('vector $v[] = {<<1, 2, 3>>, <<4, 5, 6>>}; $v')"),
                 QString("[1.0, 2.0, 3.0, 4.0, 5.0, 6.0]"));
        QCOMPARE(py("mel.eval('select -cl')"), QString("None"));
        // from-imports and the star import find commands too.
        QCOMPARE(py("__import__('maya.cmds', fromlist=['ls']).ls('a')"), QString("['a']"));
        QCOMPARE(py("'ls' in cmds.__all__"), QString("True"));
    }

    void failures_raise_with_the_message_and_leave_the_host_as_it_was() {
        QVERIFY(host.register_command("echoArgs", make_echo_args, nullptr));
        QCOMPARE(raised("cmds.select('nothing')"),
                 QString("RuntimeError: No object matches name: nothing"));
        QCOMPARE(raised("cmds.ls(bogus=True)"), QString("RuntimeError: Invalid flag '-bogus'"));
        QCOMPARE(raised("cmds.echoArgs('fail')"), QString("RuntimeError: echoArgs: told to fail"));
        QCOMPARE(raised("cmds.select({'a'})"),
                 QString("TypeError: invalid command argument of type 'set'"));
        QCOMPARE(raised("cmds.select(['a', ['b']])"),
                 QString("TypeError: invalid command argument of type 'list'"));
        QCOMPARE(raised("cmds.select(2 ** 40)"),
                 QString("OverflowError: int too large for a command argument"));
        QCOMPARE(raised("cmds.noSuchCommand"),
                 QString("AttributeError: module 'maya.cmds' has no attribute 'noSuchCommand'"));
        QCOMPARE(raised("mel.eval('noSuchProc')"),
                 QString("RuntimeError: Error occurred during execution of MEL script\n"
                         "Line 1.1: Cannot find procedure \"noSuchProc\"."));
        QCOMPARE(py("cmds.createNode('transform', n='after')"), QString("'after'"));
        host.deregister_command("echoArgs");
    }

    void mel_and_python_call_each_other() {
        QCOMPARE(host.execute("python(\"__import__('maya.mel').mel.eval('1+2')\");").values,
                 QStringList{"3"});
        QCOMPARE(py("mel.eval('python(\"40 + 2\")')"), QString("42"));
        QCOMPARE(host.execute("python(\"['a', 'b']\");").values, QStringList({"a", "b"}));
        QCOMPARE(host.execute("python(\"x = 1\");").has_value, false);
        // MEL's python() prints the value of an expression like any other.
        lines.clear();
        host.execute("python(\"1+2\");", /*echo*/ true);
        QCOMPARE(lines, QStringList{"// Result: 3 //\n"});
        // Scripts that call each other for ever end in an error, not a crash.
        lines.clear();
        host.execute("global proc ping() { python(\"maya.mel.eval('ping')\"); } ping;");
        QVERIFY(!lines.filter("call each other too deeply").isEmpty());
        QCOMPARE(py("1 + 1"), QString("2"));
    }

    void errors_print_in_the_script_editor_form_and_count() {
        QVERIFY(!host.run_python("nope"));
        QVERIFY(!host.run_python("def f():\n    raise ValueError('bad')\nf()", false, "/s/x.py"));
        QVERIFY(!host.run_python("def ("));
        QVERIFY(!host.run_python(QString("print(1)") + QChar(0) + "print(2)"));
        QVERIFY(!host.execute("python(\"nope\");").ok);
        QCOMPARE(trimmed_lines(),
                 QStringList({"# Error: NameError: file <maya console> line 1: name 'nope' is not "
                              "defined #",
                              "# Error: ValueError: file /s/x.py line 2: bad #",
                              "# Error: SyntaxError: file <maya console> line 1: invalid syntax #",
                              "# Error: ValueError: source code string cannot contain null bytes #",
                              "// Error: Line 1.1: NameError: file <maya console> line 1: name "
                              "'nope' is not defined //"}));
        QCOMPARE(host.out.error_count(), 5);
        // Names stay from one execution to the next; an expression's value is printed.
        lines.clear();
        QVERIFY(host.run_python("x = 5"));
        QVERIFY(host.run_python("x * 2", /*echo*/ true));
        QVERIFY(host.run_python("None", /*echo*/ true));
        QCOMPARE(trimmed_lines(), QStringList{"# Result: 10 #"});
    }

    void sys_exit_ends_the_script_not_the_host() {
        QVERIFY(host.run_python("import sys\nprint('before')\nsys.exit()\nprint('after')"));
        QVERIFY(host.run_python("sys.exit(0)"));
        QVERIFY(host.run_python("exit()"));
        QVERIFY(host.execute("python(\"sys.exit()\");").ok);
        QVERIFY(!host.run_python("sys.exit(2)"));
        QCOMPARE(trimmed_lines(),
                 QStringList({"before", "# Error: SystemExit: file <maya console> line 1: 2 #"}));
        QCOMPARE(py("1 + 1"), QString("2"));
    }

    void prints_reach_the_host_as_whole_lines() {
        QVERIFY(host.run_python("import sys\nprint('a', end='')\nprint('b')\nprint()\n"
                                "sys.stderr.write('warn\\n')\nsys.stdout.write('tail')"));
        QCOMPARE(lines, QStringList({"ab\n", "\n", "warn\n", "tail\n"}));
        QCOMPARE(raised("input()"), QString("EOFError: EOF when reading a line"));
    }

    void execute_deferred_keeps_its_place_among_idle_jobs() {
        MGlobal::executeCommandOnIdle("print \"mel 1\\n\";");
        host.run_python("maya.utils.executeDeferred(print, 'py callable')\n"
                        "maya.utils.executeDeferred(\"print('py text')\")");
        MGlobal::executePythonCommandOnIdle("print('py on idle')");
        MGlobal::executeCommandOnIdle("print \"mel 2\\n\";");
        host.run_python("maya.utils.executeDeferred(lambda: 1 / 0)\n"
                        "maya.utils.executeDeferred(print, 'after the error')");
        QCOMPARE(raised("maya.utils.executeDeferred(3)"),
                 QString("TypeError: executeDeferred takes a callable or a text"));
        QVERIFY(lines.isEmpty());
        host.run_idle();
        QCOMPARE(trimmed_lines(),
                 QStringList({"mel 1", "py callable", "py text", "py on idle", "mel 2",
                              "# Error: ZeroDivisionError: file <maya console> line 1: division by "
                              "zero #",
                              "after the error"}));
    }

    void execute_python_command_runs_now() {
        QVERIFY(MGlobal::executePythonCommand("y = 7"));
        MString result;
        QVERIFY(MGlobal::executePythonCommand("y * 6", result));
        QCOMPARE(QString(result.asChar()), QString("42"));
        QVERIFY(!MGlobal::executePythonCommand("y / 0", result));
        QVERIFY(!lines.filter("# Error: ZeroDivisionError").isEmpty());
    }

    void other_threads_print_and_defer_but_never_call_the_host() {
        QVERIFY(host.run_python("import threading\n"
                                "caught = []\n"
                                "def work():\n"
                                "    print('from a thread')\n"
                                "    try:\n"
                                "        cmds.ls()\n"
                                "    except RuntimeError as e:\n"
                                "        caught.append(str(e))\n"
                                "    maya.utils.executeDeferred(print, 'deferred by a thread')\n"
                                "t = threading.Thread(target=work)\n"
                                "t.start()\n"
                                "t.join()"));
        QVERIFY(py("caught").contains("only be called from the main thread"));
        host.run_idle();
        QCOMPARE(trimmed_lines(), QStringList({"from a thread", "deferred by a thread"}));
    }

    void the_host_package_wins_over_another_maya_on_the_path() {
        QTemporaryDir dir;
        QVERIFY(QDir(dir.path()).mkpath("maya"));
        QFile impostor(dir.filePath("maya/__init__.py"));
        QVERIFY(impostor.open(QIODevice::WriteOnly));
        impostor.write("raise ImportError('the wrong maya')\n");
        impostor.close();
        QVERIFY(host.run_python("import sys, importlib\nsys.path.insert(0, r'" + dir.path() +
                                "')\nfor m in [m for m in sys.modules if m.startswith('maya')]:\n"
                                "    del sys.modules[m]\n"
                                "import maya.cmds, maya.standalone\n"
                                "maya.standalone.initialize(name='python')\n"
                                "sys.path.pop(0)\ncmds = maya.cmds"));
        QCOMPARE(py("maya.cmds.__file__"), QString("'<host>/maya/cmds.py'"));
        QVERIFY(lines.isEmpty());
    }

    // Last: the interpreter ends with the session's quit; the next use starts a new one, and
    // callables queued by the old one are dropped untouched.
    void quit_ends_the_interpreter() {
        QVERIFY(host.run_python("import maya.utils\nkept = 1\n"
                                "maya.utils.executeDeferred(print, 'old')"));
        host.quit();
        QVERIFY(!host.python().running());
        QCOMPARE(py("'kept' in globals()"), QString("False"));
        host.run_idle();
        QVERIFY(lines.isEmpty());
        QCOMPARE(py("__import__('maya.cmds').cmds.ls('nothing*')"), QString("[]"));
    }
};

QTEST_MAIN(test_python)
#include "test_python.moc"
