// The entry points: a text or a file read into a scene.
#include "ma_file.h"
#include "ma_reader.h"

#include "core/scene.h"

#include <QFileInfo>

namespace host {
namespace ma {

bool read(const QByteArray& text, scene& into, read_report& report, QString* error,
          const read_options& options) {
    read_session session(into, report, options.load_references);
    if (!options.file_path.isEmpty())
        session.open_files.append(QFileInfo(options.file_path).canonicalFilePath());
    file_reader reader(session, text, options.file_path, QString(), 0);
    const bool ok = reader.run(error);
    if (session.dropped_warnings > 0)
        report.warnings.append(
            QStringLiteral("... and %1 more warnings").arg(session.dropped_warnings));
    into.set_current_namespace(QString());
    into.set_modified(false);
    return ok;
}

bool read_file(const QString& path, scene& into, read_report& report, QString* error,
               read_options options) {
    QByteArray text;
    if (!load_bytes(path, text, error))
        return false;
    options.file_path = path;
    if (!read(text, into, report, error, options))
        return false;
    into.set_name(QFileInfo(path).absoluteFilePath());
    return true;
}

bool read(const QByteArray& text, scene& into, QStringList* warnings, QString* error) {
    read_report report;
    const bool ok = read(text, into, report, error);
    if (warnings)
        warnings->append(report.warnings);
    return ok;
}

bool read_file(const QString& path, scene& into, QStringList* warnings, QString* error) {
    read_report report;
    const bool ok = read_file(path, into, report, error);
    if (warnings)
        warnings->append(report.warnings);
    return ok;
}

} // namespace ma
} // namespace host
