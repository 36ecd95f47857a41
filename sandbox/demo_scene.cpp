#include "demo_scene.h"

#include "core/session.h"

#include <QFile>
#include <QTemporaryDir>

// Resources of a static library are registered by hand.
static void register_sandbox_resources() {
    Q_INIT_RESOURCE(sandbox);
}

namespace sandbox {

bool open_demo_scene(QString* error) {
    register_sandbox_resources();
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("hero.ma"));
    if (!dir.isValid() || !QFile::copy(QStringLiteral(":/demo/hero.ma"), path)) {
        *error = QStringLiteral("Cannot unpack the demo scene");
        return false;
    }
    host::session& host = host::session::get();
    if (!host.open_scene(path, error))
        return false;
    host.scene.set_name(QString());
    host.scene.set_modified(false);
    return true;
}

} // namespace sandbox
