// Writes the pickers of tests/data/pickers with this build's plug-in, once per Qt:
//   cmake --build build --target make_picker_files
//   build/tests/make_picker_files tests/data/pickers/written_by_qt5
// (the same with a Qt 6 build into written_by_qt6). The tests read both with either build.
#include "pickers_across_qt.h"

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>
#include <cstdio>

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_picker_files DIR\n");
        return 2;
    }
    // The window stores its geometry on unload: not into the user's settings.
    const QTemporaryDir settings;
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    const QString dir = QDir(QString::fromLocal8Bit(argv[1])).absolutePath();
    QDir().mkpath(dir);
    plugin_fixture f;
    const bool ok = write_picker_files(f, dir);
    for (const QString& line : f.lines)
        std::fprintf(stderr, "%s\n", qPrintable(line));
    f.host.reset();
    return ok ? 0 : 1;
}
