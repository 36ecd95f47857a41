#pragma once
// Finding the end of a string literal: scripts carry megabytes of data in one literal,
// so the scan runs eight characters at a time where the processor allows.
#include <QChar>

namespace host::mel {

// The first '"', '\\' or '\n' in [from, end), or `end`.
const QChar* find_string_stop(const QChar* from, const QChar* end);

} // namespace host::mel
