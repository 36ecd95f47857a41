#include "batch_runner.h"

#include "core/session.h"

#include <QFile>

namespace sandbox {

script_step script_file_step(const QString& path) {
    const bool python = path.endsWith(QLatin1String(".py"), Qt::CaseInsensitive);
    return {python ? host::language::python : host::language::mel, path, true};
}

bool step_code(host::session& host, const script_step& step, QString* code) {
    if (!step.file) {
        *code = step.text;
        return true;
    }
    QFile file(step.text);
    if (!file.open(QIODevice::ReadOnly)) {
        host.out.error(QStringLiteral("Cannot open script file: %1").arg(step.text));
        return false;
    }
    *code = QString::fromUtf8(file.readAll());
    return true;
}

namespace {

void run_step(host::session& host, const script_step& step) {
    QString code;
    if (!step_code(host, step, &code))
        return;
    if (step.language == host::language::python)
        host.run_python(code, /*echo*/ true, step.file ? step.text : QString());
    else
        host.execute(code, /*echo*/ true);
    host.run_idle();
}

} // namespace

int run_batch(const batch_options& options) {
    host::session& host = host::session::get();
    host.batch = true;
    for (const QString& plugin : options.plugins) {
        QString error;
        if (!host.load_plugin(plugin, &error))
            host.out.error(error);
        host.run_idle();
    }
    if (!options.scene.isEmpty()) {
        QString error;
        if (!host.open_scene(options.scene, &error))
            host.out.error(error);
        host.run_idle();
    }
    for (const script_step& step : options.steps)
        run_step(host, step);
    host.quit();
    host.run_idle();
    return host.out.error_count() > 0 ? 1 : 0;
}

} // namespace sandbox
