#pragma once
#include "ast.h"

#include <QString>

namespace host::mel {

// A MEL error: ends the execution unless caught. `reported` when its line was printed;
// `fatal` when catch must not stop it (a script past its step budget).
struct mel_error {
    mel_error(const position& where, const QString& text, bool already_reported = false)
        : at(where), message(text), reported(already_reported) {}

    position at;
    QString message;
    bool reported = false;
    // The `error` command's own text goes out without a position, as Maya prints it.
    bool bare = false;
    // Set once the error has left the file (or typed text) it was raised in.
    bool located = false;
    QString file;

    // The text of its "// Error: ... //" line.
    QString text() const {
        if (bare)
            return message;
        if (!file.isEmpty())
            return QStringLiteral("file: %1 line %2: %3").arg(file).arg(at.line).arg(message);
        return QStringLiteral("Line %1.%2: %3").arg(at.line).arg(at.column).arg(message);
    }
    bool fatal = false;
};

} // namespace host::mel
