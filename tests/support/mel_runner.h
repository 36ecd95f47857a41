#pragma once
// Runs MEL on the simulated host and hands back what a user would see: the value, the
// "// Result: ... //" line, the printed text and the error lines.
#include "core/session.h"

#include <QStringList>

struct mel_runner {
    host::session& host = host::session::get();
    QStringList lines;

    // A fresh host whose output lines land in `lines`.
    void reset() {
        host.reset();
        lines.clear();
        host.out.set_sink([this](host::line_kind, const QString& l) { lines << l; });
    }

    // The value of the last statement, elements joined by blanks; "ERROR" if it failed.
    QString run(const QString& mel) {
        const host::execution r = host.execute(mel);
        return r.ok ? r.values.join(QLatin1Char(' ')) : QStringLiteral("ERROR");
    }

    // The text of the Result line the script editor shows, or "ERROR".
    QString result(const QString& mel) {
        lines.clear();
        if (!host.execute(mel, /*echo*/ true).ok)
            return QStringLiteral("ERROR");
        for (const QString& l : lines) {
            if (l.startsWith(QLatin1String("// Result: ")))
                return l.mid(11, l.size() - 11 - 4);
        }
        return QString();
    }

    // Everything the text printed, errors and warnings included.
    QString output(const QString& mel) {
        lines.clear();
        host.execute(mel);
        return lines.join(QString());
    }

    // The one error line a failing text printed, without its "// Error: " frame.
    QString error(const QString& mel) {
        lines.clear();
        if (host.execute(mel).ok)
            return QStringLiteral("no error");
        for (const QString& l : lines) {
            if (l.startsWith(QLatin1String("// Error: ")))
                return l.mid(10, l.size() - 10 - 4);
        }
        return QStringLiteral("no error line");
    }
};
