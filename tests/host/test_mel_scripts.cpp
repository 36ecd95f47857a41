// Scripts and how they run: source and auto-sourcing from MAYA_SCRIPT_PATH, eval and
// evalDeferred, catch, error, warning, exists and whatIs.
#include "mel_runner.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

class test_mel_scripts : public QObject {
    Q_OBJECT

    mel_runner mel;
    QTemporaryDir scripts, others;
    QByteArray saved_path;

    QString write(const QTemporaryDir& dir, const QString& name, const QString& text) {
        QFile f(dir.filePath(name));
        if (!f.open(QIODevice::WriteOnly))
            return QString();
        f.write(text.toUtf8());
        return QFileInfo(f).absoluteFilePath();
    }

private slots:
    void initTestCase() { saved_path = qgetenv("MAYA_SCRIPT_PATH"); }
    void cleanupTestCase() { qputenv("MAYA_SCRIPT_PATH", saved_path); }

    void init() {
        mel.reset();
        QVERIFY(scripts.isValid() && others.isValid());
        qputenv("MAYA_SCRIPT_PATH",
                (others.path() + QDir::listSeparator() + scripts.path()).toLocal8Bit());
    }

    void source_by_name_and_by_path() {
        const QString hello = write(scripts, "hello.mel",
                                    "global proc string hello() { return \"hi\"; }\n"
                                    "proc string hidden() { return \"local\"; }\n"
                                    "global proc string viaHidden() { return hidden(); }\n");
        QCOMPARE(mel.run("source hello; hello();"), QString("hi"));
        QCOMPARE(mel.run("source \"hello.mel\"; viaHidden();"), QString("local"));
        QCOMPARE(mel.run("source \"" + hello + "\"; hello();"), QString("hi"));
        // A file's own procedures stay with it.
        QCOMPARE(mel.error("hidden();"), QString("Line 1.1: Cannot find procedure \"hidden\"."));
        QCOMPARE(mel.run("whatIs hello;"), "Mel procedure found in: " + hello);
        QCOMPARE(mel.error("source \"nowhere.mel\";"),
                 QString("Line 1.1: Cannot find file \"nowhere.mel\" for source statement."));
        // The first directory of the path that has the file wins; a file sources another.
        write(others, "hello.mel", "global proc string hello() { return \"first\"; }");
        write(scripts, "outer.mel",
              "source \"hello.mel\";\nglobal proc string outer() { return hello(); }");
        QCOMPARE(mel.run("source outer; outer();"), QString("first"));
    }

    void an_unknown_procedure_is_looked_for_on_the_script_path() {
        const QString path =
            write(scripts, "autoRig.mel",
                  "global int $gAutoRigSourced;\n$gAutoRigSourced++;\n"
                  "global proc string autoRig(string $side) { return $side + \"_arm\"; }\n");
        QCOMPARE(mel.run("exists autoRig;"), QString("1"));
        QCOMPARE(mel.run("whatIs autoRig;"), "Script found in: " + path);
        QCOMPARE(mel.run("autoRig(\"L\");"), QString("L_arm"));
        QCOMPARE(mel.run("autoRig \"R\";"), QString("R_arm"));
        // Sourced once: the procedure exists from then on.
        QCOMPARE(mel.run("global int $gAutoRigSourced; $gAutoRigSourced;"), QString("1"));
        QCOMPARE(mel.run("whatIs autoRig;"), "Mel procedure found in: " + path);
        // A file that does not define its procedure, and calls it, fails once, cleanly.
        write(scripts, "broken.mel", "broken();\n");
        QCOMPARE(mel.error("broken();"),
                 QString("file: %1 line 1: Cannot find procedure \"broken\".")
                     .arg(QFileInfo(scripts.filePath("broken.mel")).absoluteFilePath()));
        // The path is read at each look-up, so putenv changes it.
        QTemporaryDir later;
        write(later, "lateComer.mel", "global proc int lateComer() { return 7; }");
        QCOMPARE(mel.error("lateComer();"),
                 QString("Line 1.1: Cannot find procedure \"lateComer\"."));
        QCOMPARE(mel.run("putenv \"MAYA_SCRIPT_PATH\" \"" + later.path() + "\"; lateComer();"),
                 QString("7"));
    }

    void errors_in_files_name_the_file_and_line() {
        const QString bad = write(scripts, "bad.mel", "global proc ok() {}\n\nint $x = ;\n");
        QCOMPARE(mel.error("source bad;"), QString("file: %1 line 3: Syntax error").arg(bad));
        const QString faulty =
            write(scripts, "faulty.mel",
                  "global proc faulty() {\n    int $a[];\n    string $s = $a;\n}\n");
        QCOMPARE(mel.error("source faulty; faulty();"),
                 QString("file: %1 line 3: Cannot convert data of type int[] to type string.")
                     .arg(faulty));
        // A file that sources itself ends, it does not hang.
        write(scripts, "loop.mel", "source loop;\n");
        QVERIFY(mel.error("source loop;").contains("Stack overflow"));
        QCOMPARE(mel.run("1 + 1;"), QString("2"));
    }

    void eval_runs_text_and_catch_holds_its_errors() {
        QCOMPARE(mel.run("eval \"int $x = 3; $x * 2\";"), QString("6"));
        QCOMPARE(
            mel.run(
                "string $r[] = eval(\"stringToStringArray(\\\"a b\\\", \\\" \\\")\"); size($r);"),
            QString("2"));
        QCOMPARE(mel.run("catch(eval(\"1 +\"));"), QString("1"));
        QCOMPARE(mel.lines.size(), 1); // catch shows the error
        mel.lines.clear();
        QCOMPARE(mel.run("catchQuiet(eval(\"1 +\"));"), QString("1"));
        QVERIFY(mel.lines.isEmpty());
        QCOMPARE(mel.run("catch(`size \"ok\"`);"), QString("0"));
        // In command syntax too.
        QCOMPARE(
            mel.run("int $r = 7; $r = `catchQuiet \"no such\"` + 0; catchQuiet `error \"x\"`;"),
            QString("1"));
    }

    void eval_deferred_waits_for_the_idle_queue() {
        QCOMPARE(mel.output("evalDeferred \"print \\\"later \\\"\"; print \"now \";"),
                 QString("now "));
        QCOMPARE(
            mel.run("evalDeferred -evaluateNext \"print \\\"first \\\"\"; evalDeferred -list;"),
            QString("print \"first \" print \"later \""));
        mel.lines.clear();
        QCOMPARE(mel.host.run_idle(), 2);
        QCOMPARE(mel.lines.join(QString()), QString("first later "));
        // A script that queues itself again ends the drain and leaves the host responsive.
        mel.run("global proc again() { evalDeferred \"again\"; } again();");
        QCOMPARE(mel.host.run_idle(), host::idle_queue::max_per_drain);
        QCOMPARE(mel.host.idle.size(), 1);
        mel.host.idle.clear();
        QVERIFY(mel.error("evalDeferred;").endsWith("evalDeferred: no command to evaluate."));
    }

    void error_and_warning_speak_as_maya_does() {
        QCOMPARE(mel.output("proc lightError() { error \"No Lights\"; print \"never\"; }"
                            " lightError(); print \"nor this\";"),
                 QString("// Error: No Lights //\n"));
        QCOMPARE(mel.run("catch(error(\"boom\"));"), QString("1"));
        QCOMPARE(mel.lines.last(), QString("// Error: boom //\n"));
        QCOMPARE(mel.error("error -showLineNumber true \"where\";"), QString("Line 1.1: where"));
        QCOMPARE(mel.output("warning \"No lights in scene\"; print \"goes on\";"),
                 QString("// Warning: No lights in scene //\ngoes on"));
        const QString warn = write(scripts, "warn.mel",
                                   "global proc warnMe() {\n"
                                   "    warning -sl true \"No lights\";\n}\n");
        QCOMPARE(mel.output("source warn; warnMe();"),
                 QString("// Warning: file: %1 line 2: No lights //\n").arg(warn));
        QCOMPARE(mel.output("warning -sl 1 \"typed\";"), QString("// Warning: line 1: typed //\n"));
        QVERIFY(mel.error("error -bogus \"x\";").endsWith("Invalid flag '-bogus'"));
    }

    void exists_and_what_is_know_every_kind_of_name() {
        QCOMPARE(mel.run("exists print;"), QString("1"));
        QCOMPARE(mel.run("exists noSuchThing;"), QString("0"));
        QCOMPARE(mel.run("whatIs \"sphere\";"), QString("Unknown"));
        QCOMPARE(mel.run("whatIs \"print\";"), QString("Command"));
        QCOMPARE(mel.run("global proc typedHere() {} whatIs typedHere;"),
                 QString("Mel procedure entered interactively."));
        QCOMPARE(mel.run("int $abc[42]; whatIs \"$abc\";"), QString("int[] variable"));
        QCOMPARE(mel.run("matrix $m[2][2]; whatIs \"$m\";"), QString("matrix variable"));
        QCOMPARE(mel.run("whatIs \"$notHere\";"), QString("Unknown"));
    }
};

QTEST_GUILESS_MAIN(test_mel_scripts)
#include "test_mel_scripts.moc"
