#pragma once
#include "ast.h"

#include <QString>

namespace host::mel {

// A MEL error: ends the execution unless caught. `reported` when its line was printed.
struct mel_error {
    position at;
    QString message;
    bool reported = false;
};

} // namespace host::mel
