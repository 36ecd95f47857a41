// Real MEL files from public projects (tests/data/mel): they parse, they source with no
// error but the commands this host lacks, and their procedures compute what they should.
#include "mel/error.h"
#include "mel/parser.h"
#include "mel_runner.h"

#include <QDirIterator>
#include <QFile>
#include <QtTest>

namespace {

const QString corpus = QStringLiteral(ZELVANI_SOURCE_DIR "/tests/data/mel");

QStringList mel_files(const QString& dir) {
    QStringList out;
    QDirIterator it(dir, {"*.mel"}, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        out << it.next();
    out.sort();
    return out;
}

// Empty when the file parses; otherwise where and why not.
QString parse_problem(const QString& path) {
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        return QStringLiteral("cannot read");
    try {
        host::mel::parse(QString::fromUtf8(f.readAll()));
    } catch (const host::mel::mel_error& e) {
        return e.text();
    }
    return QString();
}

} // namespace

class test_mel_corpus : public QObject {
    Q_OBJECT

    mel_runner mel;
    QByteArray saved_path;

    void use_script_path(const QString& folder) {
        qputenv("MAYA_SCRIPT_PATH", QString(corpus + '/' + folder).toLocal8Bit());
    }

    // Errors of a source other than commands this host does not have.
    QStringList source_problems(const QString& file) {
        mel.lines.clear();
        mel.host.execute("source \"" + file + "\";");
        QStringList problems;
        for (const QString& l : mel.lines) {
            if (l.startsWith(QLatin1String("// Error: ")) &&
                !l.contains(QLatin1String("Cannot find procedure")))
                problems << l;
        }
        return problems;
    }

private slots:
    void initTestCase() { saved_path = qgetenv("MAYA_SCRIPT_PATH"); }
    void cleanupTestCase() { qputenv("MAYA_SCRIPT_PATH", saved_path); }
    void init() { mel.reset(); }

    void every_file_parses_and_sources() {
        const QStringList files = mel_files(corpus);
        QVERIFY(files.size() >= 7);
        for (const QString& path : files) {
            QVERIFY2(parse_problem(path).isEmpty(), qPrintable(path + ": " + parse_problem(path)));
            use_script_path(QFileInfo(path).dir().dirName());
            const QStringList problems = source_problems(QFileInfo(path).fileName());
            QVERIFY2(problems.isEmpty(), qPrintable(path + ": " + problems.join(' ')));
        }
    }

    void a_renderer_plugins_procedures_run() {
        use_script_path("radeon_prorender");
        // The template sources its helpers by name from the script path.
        QVERIFY(source_problems("AERPRSkyTemplate.mel").isEmpty());
        QCOMPARE(mel.run("whatIs hasSkyNodeRPR;"),
                 "Mel procedure found in: " + corpus +
                     "/radeon_prorender/fireRenderEnvironment.mel");
        QCOMPARE(mel.run("createNode transform -n \"sky\"; hasNodeRPR(\"transform\");"),
                 QString("1"));
        QCOMPARE(mel.run("getNodeRPR(\"transform\");"), QString("sky"));
        QCOMPARE(mel.run("hasNodeRPR(\"mesh\");"), QString("0"));
        // A reset host keeps no procedure of earlier tests: common.mel is sourced by name.
        QCOMPARE(mel.run("source common.mel; getRPRNodePrefix();"), QString("RPR"));
        QCOMPARE(mel.result("RPRPrepareArray(\"ramp|1, 2.5,3\");"), QString("1 2.5 3"));
    }

    void an_auto_rig_finds_its_joints() {
        use_script_path("auto_arm_leg");
        QVERIFY(source_problems("rigArm.mel").isEmpty());
        QCOMPARE(mel.run("search(\"L_Shoulder\", \"shoulder\");"), QString("L_Shoulder"));
        QCOMPARE(mel.run("search(\"pelvis\", \"\");"), QString("pelvis"));
    }

    void files_from_elsewhere_parse() {
        const QString dir = qEnvironmentVariable("ZELVANI_MEL_CORPUS");
        if (dir.isEmpty())
            QSKIP("Set ZELVANI_MEL_CORPUS to a folder of .mel files to try them.");
        QStringList failures;
        for (const QString& path : mel_files(dir)) {
            const QString problem = parse_problem(path);
            if (!problem.isEmpty())
                failures << path + ": " + problem;
        }
        QVERIFY2(failures.isEmpty(), qPrintable(failures.join('\n')));
    }
};

QTEST_GUILESS_MAIN(test_mel_corpus)
#include "test_mel_corpus.moc"
