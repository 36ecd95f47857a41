// Built-in commands on the application and its environment: about, getenv, putenv.
#include "evaluator.h"

#include <QDate>
#include <QSysInfo>
#include <QTime>

namespace host::mel {

namespace {

// The host answers as the Maya release the plug-in is built for (MApiVersion 20190000).
constexpr int major_version = 2019;

QString operating_system() {
#if defined(Q_OS_WIN)
    return QStringLiteral("win64");
#elif defined(Q_OS_MACOS)
    return QStringLiteral("mac");
#else
    return QStringLiteral("linux64");
#endif
}

value about(builtin_call& c) {
    const parsed_flags f = parse_flags(c, {{"api", "apiVersion", 0},
                                           {"a", "application", 0},
                                           {"b", "batch", 0},
                                           {"cd", "currentDate", 0},
                                           {"ct", "currentTime", 0},
                                           {"ev", "evalVersion", 0},
                                           {"x64", "is64", 0},
                                           {"li", "linux", 0},
                                           {"l64", "linux64", 0},
                                           {"lt", "ltVersion", 0},
                                           {"mac", "macOS", 0},
                                           {"mjv", "majorVersion", 0},
                                           {"mnv", "minorVersion", 0},
                                           {"nt", "ntOS", 0},
                                           {"os", "operatingSystem", 0},
                                           {"osv", "operatingSystemVersion", 0},
                                           {"pv", "patchVersion", 0},
                                           {"p", "product", 0},
                                           {"qt", "qtVersion", 0},
                                           {"uil", "uiLanguage", 0},
                                           {"v", "version", 0},
                                           {"w64", "win64", 0},
                                           {"win", "windows", 0}});
    const QString os = operating_system();
    const auto flag = [](bool on) { return value::of_int(on ? 1 : 0); };
    if (f.has("apiVersion"))
        return value::of_int(major_version * 10000);
    if (f.has("application"))
        return value::of_string(QStringLiteral("maya"));
    if (f.has("batch"))
        return flag(c.host.batch);
    if (f.has("currentDate"))
        return value::of_string(QDate::currentDate().toString(QStringLiteral("yyyy/MM/dd")));
    if (f.has("currentTime"))
        return value::of_string(QTime::currentTime().toString(QStringLiteral("hh:mm:ss")));
    if (f.has("evalVersion") || f.has("ltVersion"))
        return flag(false);
    if (f.has("is64"))
        return flag(true);
    if (f.has("linux") || f.has("linux64"))
        return flag(os == QLatin1String("linux64"));
    if (f.has("macOS"))
        return flag(os == QLatin1String("mac"));
    if (f.has("ntOS") || f.has("windows") || f.has("win64"))
        return flag(os == QLatin1String("win64"));
    if (f.has("majorVersion") || f.has("version"))
        return value::of_string(QString::number(major_version));
    if (f.has("minorVersion") || f.has("patchVersion"))
        return value::of_string(QStringLiteral("0"));
    if (f.has("operatingSystem"))
        return value::of_string(os);
    if (f.has("operatingSystemVersion"))
        return value::of_string(QSysInfo::prettyProductName());
    if (f.has("qtVersion"))
        return value::of_string(QString::fromLatin1(qVersion()));
    if (f.has("uiLanguage"))
        return value::of_string(QStringLiteral("en_US"));
    return value::of_string(QStringLiteral("Maya %1").arg(major_version));
}

value get_env(builtin_call& c) {
    c.arity(1);
    return value::of_string(qEnvironmentVariable(c.string_arg(0).toLocal8Bit().constData()));
}

// Gives 0 when set; 1 when the name cannot be an environment variable.
value put_env(builtin_call& c) {
    c.arity(2);
    const QString name = c.string_arg(0);
    if (name.isEmpty() || name.contains(QLatin1Char('=')))
        return value::of_int(1);
    const bool ok = qputenv(name.toLocal8Bit().constData(), c.string_arg(1).toLocal8Bit());
    return value::of_int(ok ? 0 : 1);
}

} // namespace

void register_system_builtins(builtin_table& t) {
    t.insert(QStringLiteral("about"), about);
    t.insert(QStringLiteral("getenv"), get_env);
    t.insert(QStringLiteral("putenv"), put_env);
}

} // namespace host::mel
