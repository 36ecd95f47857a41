#include "ma_args.h"

#include <cstring>

namespace host {
namespace ma {

namespace {

QByteArray token_bytes(const token& t, byte_grouping grouping) {
    const int size = int(t.end - t.begin);
    if (t.kind == token::string && std::memchr(t.begin, '\\', size_t(size)))
        return unescape(t.begin, t.end, grouping);
    return QByteArray::fromRawData(t.begin, size);
}

bool is_flag_word(const token& t) {
    return t.kind == token::word && t.end - t.begin >= 2 && t.begin[0] == '-' &&
           ((t.begin[1] >= 'a' && t.begin[1] <= 'z') || (t.begin[1] >= 'A' && t.begin[1] <= 'Z'));
}

bool names(const QByteArray& flag, const char* short_name, const char* long_name) {
    return flag == short_name || (long_name && flag == long_name);
}

} // namespace

void collect_args(const std::vector<token>& tokens, byte_grouping grouping, std::vector<arg>& out) {
    out.clear();
    int depth = 0;
    bool join_next = false; // after a '+', or inside parentheses
    for (const token& t : tokens) {
        switch (t.kind) {
        case token::open:
            if (depth++ == 0) {
                out.push_back(arg{QByteArray(), false, true});
                join_next = true;
            }
            continue;
        case token::close:
            depth = depth > 0 ? depth - 1 : 0;
            join_next = false;
            continue;
        case token::plus:
            join_next = !out.empty();
            continue;
        case token::word:
        case token::string:
            break;
        }
        if ((join_next || depth > 0) && !out.empty()) {
            out.back().bytes.append(token_bytes(t, grouping));
            out.back().quoted = true;
            join_next = false;
            continue;
        }
        arg a;
        a.bytes = token_bytes(t, grouping);
        a.flag = is_flag_word(t);
        a.quoted = t.kind == token::string;
        out.push_back(std::move(a));
    }
}

bool command_args::has(const char* short_name, const char* long_name) const {
    for (const flag_value& f : flags) {
        if (names(f.name, short_name, long_name))
            return true;
    }
    return false;
}

const arg* command_args::value(const char* short_name, const char* long_name) const {
    const arg* found = nullptr;
    for (const flag_value& f : flags) {
        if (names(f.name, short_name, long_name) && f.value)
            found = f.value;
    }
    return found;
}

command_args split_args(const std::vector<arg>& args, const char* const* valued, bool guess) {
    command_args out;
    for (size_t i = 0; i < args.size(); ++i) {
        if (!args[i].flag) {
            out.positional.push_back(&args[i]);
            continue;
        }
        command_args::flag_value f;
        const QByteArray& word = args[i].bytes;
        f.name = QByteArray::fromRawData(word.constData() + 1, word.size() - 1);
        bool takes_value = false;
        for (const char* const* v = valued; v && *v; ++v)
            takes_value = takes_value || f.name == *v;
        if (!takes_value && guess)
            takes_value = i + 2 < args.size() && !args[i + 1].flag;
        if (takes_value && i + 1 < args.size() && !args[i + 1].flag)
            f.value = &args[++i];
        out.flags.push_back(std::move(f));
    }
    return out;
}

} // namespace ma
} // namespace host
