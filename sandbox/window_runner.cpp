#include "window_runner.h"

#include "core/session.h"
#include "demo_scene.h"
#include "host_style.h"
#include "idle_pump.h"
#include "main_window.h"

#include <QApplication>
#include <QScreen>
#include <QTimer>

namespace sandbox {

namespace {

void run_steps(main_window& window, const QVector<script_step>& steps) {
    host::session& host = host::session::get();
    for (const script_step& step : steps) {
        QString code;
        if (step_code(host, step, &code))
            window.run_command(code, step.language);
        host.run_idle();
    }
}

void take_screenshot(const QString& path) {
    const QPixmap shot = QGuiApplication::primaryScreen()->grabWindow(0);
    if (!shot.save(path))
        host::session::get().out.error(QStringLiteral("Cannot write %1").arg(path));
    QApplication::closeAllWindows();
    QApplication::quit();
}

} // namespace

int run_window(const window_options& options) {
    apply_host_style();
    host::session& host = host::session::get();
    main_window window;
    host.set_main_window(&window);
    idle_pump pump;
    QObject::connect(&pump, &idle_pump::drained, &window, &main_window::refresh_views);
    window.show();

    for (const QString& plugin : options.plugins) {
        QString error;
        if (!host.load_plugin(plugin, &error))
            host.out.error(error);
    }
    QString error;
    const bool opened =
        options.scene.isEmpty() ? open_demo_scene(&error) : host.open_scene(options.scene, &error);
    if (!opened)
        host.out.error(error);
    host.run_idle();
    window.refresh_views();
    run_steps(window, options.steps);

    if (!options.screenshot.isEmpty())
        QTimer::singleShot(500, [path = options.screenshot] { take_screenshot(path); });
    const int code = QApplication::exec();
    host.set_main_window(nullptr);
    return code;
}

} // namespace sandbox
