#include "output.h"

#include <cstdio>

namespace host {

QString output::format(line_kind kind, const QString& text) {
    switch (kind) {
    case line_kind::error:
        return QStringLiteral("// Error: %1 //\n").arg(text);
    case line_kind::warning:
        return QStringLiteral("// Warning: %1 //\n").arg(text);
    case line_kind::result:
        return QStringLiteral("// Result: %1 //\n").arg(text);
    case line_kind::text:
        break;
    }
    return text;
}

void output::write(line_kind kind, const QString& text) {
    if (kind == line_kind::error)
        ++errors_;
    const QString line = format(kind, text);
    if (sink_) {
        sink_(kind, line);
        return;
    }
    const QByteArray bytes = line.toUtf8();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
    std::fflush(stdout);
}

} // namespace host
