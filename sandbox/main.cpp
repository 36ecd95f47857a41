// zelvani-sandbox: a Maya-like host for the picker, with a headless batch mode.
#include "batch_runner.h"

#include <QApplication>
#include <QCommandLineParser>
#include <cstdio>

namespace {

// Options that repeat and keep their order among each other (-c and --script).
QStringList ordered_steps(const QStringList& args) {
    QStringList steps;
    for (int i = 1; i + 1 < args.size(); ++i) {
        if (args[i] == QLatin1String("-c"))
            steps.append(args[++i]);
        else if (args[i] == QLatin1String("--script"))
            steps.append(QLatin1Char('@') + args[++i]);
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

} // namespace

int main(int argc, char** argv) {
    const bool batch = has_flag(argc, argv, "--batch");
    if (batch && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("zelvani-sandbox"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("A Maya-like host for the picker."));
    parser.addHelpOption();
    parser.addOption({QStringLiteral("batch"), QStringLiteral("Run headless and exit.")});
    parser.addOption({QStringLiteral("scene"), QStringLiteral("Open a Maya ASCII scene."),
                      QStringLiteral("file.ma")});
    parser.addOption({QStringLiteral("c"), QStringLiteral("Run a MEL text (repeatable)."),
                      QStringLiteral("mel")});
    parser.addOption({QStringLiteral("script"), QStringLiteral("Run a MEL file (repeatable)."),
                      QStringLiteral("file.mel")});
    parser.addOption({QStringLiteral("no-plugin"), QStringLiteral("Do not load the picker.")});
    parser.process(app);

    sandbox::batch_options options;
    options.scene = parser.value(QStringLiteral("scene"));
    options.steps = ordered_steps(QCoreApplication::arguments());
    if (!batch) {
        std::fprintf(stderr, "The interactive window is not built yet; use --batch.\n");
        return 2;
    }
    return sandbox::run_batch(options);
}
