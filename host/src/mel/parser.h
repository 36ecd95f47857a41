#pragma once
// MEL source text to a syntax tree.
#include "ast.h"

#include <QString>

namespace host::mel {

// Throws mel_error on a syntax error.
std::vector<stmt_ptr> parse(const QString& source);

} // namespace host::mel
