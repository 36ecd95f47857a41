#pragma once
// The arguments of one statement: flags, their values and positional words or strings,
// with string escapes resolved and "(" "a" + "b" ")" concatenations joined.
#include "ma_lexer.h"

#include <QByteArray>
#include <vector>

namespace host {
namespace ma {

struct arg {
    QByteArray bytes;  // still in the file's codeset
    bool flag = false; // an unquoted "-name"
    bool quoted = false;
};

// Turns tokens into arguments. Unescaped tokens share the text's bytes, so the text
// must outlive the arguments.
void collect_args(const std::vector<token>& tokens, byte_grouping grouping, std::vector<arg>& out);

struct command_args {
    struct flag_value {
        QByteArray name; // without the '-'
        const arg* value = nullptr;
    };
    std::vector<flag_value> flags;
    std::vector<const arg*> positional;

    bool has(const char* short_name, const char* long_name) const;
    // The value of the last occurrence of a flag, or null.
    const arg* value(const char* short_name, const char* long_name) const;
};

// `valued` (null-terminated) names the flags that take one value; others take none,
// unless `guess` is set: then an unlisted flag takes the next argument when that is
// neither a flag nor the last argument.
command_args split_args(const std::vector<arg>& args, const char* const* valued, bool guess);

} // namespace ma
} // namespace host
