#include "output.h"

#include <cstdio>

namespace host {

QString output::format(line_kind kind, const QString& text, language style) {
    const bool python = style == language::python;
    const QString frame =
        python ? QStringLiteral("# %1: %2 #\n") : QStringLiteral("// %1: %2 //\n");
    switch (kind) {
    case line_kind::error:
        return frame.arg(QLatin1String("Error"), text);
    case line_kind::warning:
        return frame.arg(QLatin1String("Warning"), text);
    case line_kind::result:
        return frame.arg(QLatin1String("Result"), text);
    case line_kind::text:
        break;
    }
    return text;
}

void output::write(line_kind kind, const QString& text) {
    if (kind == line_kind::error) {
        ++errors_;
        last_error_ = text;
    }
    const QString line = format(kind, text, style_);
    if (sink_) {
        sink_(kind, line);
        return;
    }
    const QByteArray bytes = line.toUtf8();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
    std::fflush(stdout);
}

} // namespace host
