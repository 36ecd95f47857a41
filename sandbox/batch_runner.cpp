#include "batch_runner.h"

#include "core/session.h"

#include <QFile>

namespace sandbox {

namespace {

bool read_script(const QString& path, QString* text) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    *text = QString::fromUtf8(file.readAll());
    return true;
}

void run_step(host::session& host, const QString& step) {
    QString text = step;
    if (step.startsWith(QLatin1Char('@'))) {
        const QString path = step.mid(1);
        if (!read_script(path, &text)) {
            host.out.error(QStringLiteral("Cannot open script file: %1").arg(path));
            return;
        }
    }
    host.execute(text, /*echo*/ true);
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
    for (const QString& step : options.steps)
        run_step(host, step);
    host.quit();
    host.run_idle();
    return host.out.error_count() > 0 ? 1 : 0;
}

} // namespace sandbox
