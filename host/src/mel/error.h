#pragma once
#include "ast.h"

#include <QString>

namespace host::mel {

// A MEL error: ends the execution unless caught. `reported` when its line was printed;
// `fatal` when catch must not stop it (a script past its step budget).
struct mel_error {
    position at;
    QString message;
    bool reported = false;
    bool fatal = false;
};

} // namespace host::mel
