// zelvani-sandbox: a Maya-like host for the picker, with a headless batch mode.
#include "batch_runner.h"
#include "dialog_answerer.h"
#include "host_fonts.h"
#include "window_runner.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QSettings>

namespace {

// Options that repeat and keep their order among each other (-c, --python, --script).
QVector<sandbox::script_step> ordered_steps(const QStringList& args) {
    QVector<sandbox::script_step> steps;
    for (int i = 1; i + 1 < args.size(); ++i) {
        if (args[i] == QLatin1String("-c"))
            steps.append({host::language::mel, args[++i], false});
        else if (args[i] == QLatin1String("--python"))
            steps.append({host::language::python, args[++i], false});
        else if (args[i] == QLatin1String("--script"))
            steps.append(sandbox::script_file_step(args[++i]));
    }
    return steps;
}

bool has_flag(int argc, char** argv, const char* flag) {
    for (int i = 1; i < argc; ++i) {
        if (qstrcmp(argv[i], flag) == 0)
            return true;
    }
    return false;
}

// Qt wants a private runtime directory; a fresh machine or a container has none.
void ensure_runtime_dir() {
    if (!qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR"))
        return;
    const QString dir = QDir::temp().filePath(
        QStringLiteral("zelvani-runtime-%1").arg(QString::fromLocal8Bit(qgetenv("USER"))));
    QDir().mkpath(dir);
    QFile::setPermissions(dir, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("XDG_RUNTIME_DIR", QFile::encodeName(dir));
}

// Offscreen platforms report what they cannot do; a headless run does not care.
void quiet_platform_messages(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (type == QtDebugMsg || type == QtInfoMsg ||
        text.startsWith(QLatin1String("This plugin does not support")))
        return;
    fprintf(stderr, "%s\n", qPrintable(text));
}

// Before anything reads a setting: the user's settings, the picker's and Qt's own, are read
// from and written to `dir` instead.
void use_settings_dir(const QString& dir) {
    const QString path = QDir(dir).absolutePath();
    QDir().mkpath(path);
    for (QSettings::Format format : {QSettings::NativeFormat, QSettings::IniFormat})
        QSettings::setPath(format, QSettings::UserScope, path);
}

} // namespace

int main(int argc, char** argv) {
    const bool batch = has_flag(argc, argv, "--batch");
    if (batch && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    ensure_runtime_dir();
    if (batch)
        qInstallMessageHandler(quiet_platform_messages);
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("zelvani-sandbox"));
    sandbox::register_host_fonts();

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("A Maya-like host for the picker."));
    parser.addHelpOption();
    parser.addOption({QStringLiteral("batch"), QStringLiteral("Run headless and exit.")});
    parser.addOption({QStringLiteral("scene"), QStringLiteral("Open a Maya ASCII scene."),
                      QStringLiteral("file.ma")});
    parser.addOption({QStringLiteral("c"), QStringLiteral("Run a MEL text (repeatable)."),
                      QStringLiteral("mel")});
    parser.addOption({QStringLiteral("python"), QStringLiteral("Run a Python text (repeatable)."),
                      QStringLiteral("code")});
    parser.addOption({QStringLiteral("script"),
                      QStringLiteral("Run a MEL file, or a Python file by its .py (repeatable)."),
                      QStringLiteral("file")});
    parser.addOption({QStringLiteral("no-plugin"), QStringLiteral("Do not load the picker.")});
    parser.addOption({QStringLiteral("load-plugin"),
                      QStringLiteral("Load this plug-in library instead of the picker."),
                      QStringLiteral("file.so")});
    parser.addOption({QStringLiteral("screenshot"),
                      QStringLiteral("Save a picture of the screen once started, then quit."),
                      QStringLiteral("file.png")});
    parser.addOption({QStringLiteral("settings-dir"),
                      QStringLiteral("Keep the picker's settings (window place, auto tab "
                                     "switching, ...) in this folder, not the user's."),
                      QStringLiteral("dir")});
    parser.process(app);
    if (parser.isSet(QStringLiteral("settings-dir")))
        use_settings_dir(parser.value(QStringLiteral("settings-dir")));

    sandbox::window_options options;
    options.scene = parser.value(QStringLiteral("scene"));
    options.steps = ordered_steps(QCoreApplication::arguments());
    if (!parser.isSet(QStringLiteral("no-plugin"))) {
        options.plugins.append(parser.isSet(QStringLiteral("load-plugin"))
                                   ? parser.value(QStringLiteral("load-plugin"))
                                   : QStringLiteral(ZELVANI_DEFAULT_PLUGIN));
    }
    options.screenshot = parser.value(QStringLiteral("screenshot"));
    if (!batch)
        return sandbox::run_window(options);
    sandbox::dialog_answerer answerer;
    return sandbox::run_batch(options);
}
