// Linked into every test and benchmark program: before main() runs, all settings (the picker's,
// Qt's own file dialog state) go to a private folder that lives as long as the program, so that a
// test neither reads nor writes the user's settings. Tests set what they rely on.
#include <QDir>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QtGlobal>

namespace {

struct private_settings {
    QTemporaryDir dir{QDir::tempPath() + QStringLiteral("/zelvani-test-settings-XXXXXX")};

    private_settings() {
        if (!dir.isValid())
            qFatal("no private settings folder: %s", qPrintable(dir.errorString()));
        // Qt's own paths first, so that nothing computes the user's before the override.
        for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME"})
            qputenv(name, QFile::encodeName(dir.filePath(QString::fromLatin1(name))));
        qputenv("XDG_CONFIG_DIRS", QFile::encodeName(dir.filePath(QStringLiteral("system"))));
        for (QSettings::Format format : {QSettings::NativeFormat, QSettings::IniFormat}) {
            QSettings::setPath(format, QSettings::UserScope, dir.filePath(QStringLiteral("user")));
            QSettings::setPath(format, QSettings::SystemScope,
                               dir.filePath(QStringLiteral("system")));
        }
        if (!QSettings(QStringLiteral("Zelvani"), QStringLiteral("picker"))
                 .fileName()
                 .startsWith(dir.path()))
            qFatal("the picker's settings are not private");
    }
};

const private_settings settings;

} // namespace
