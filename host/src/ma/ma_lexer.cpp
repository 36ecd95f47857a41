#include "ma_lexer.h"

namespace host {
namespace ma {

namespace {

bool is_space(char c) {
    return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f' || c == '\v';
}

bool is_word_char(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

bool starts_comment(const char* p, const char* end) {
    return p + 1 < end && p[0] == '/' && (p[1] == '/' || p[1] == '*');
}

const char* find(const char* p, const char* end, char c) {
    const void* hit = std::memchr(p, c, size_t(end - p));
    return hit ? static_cast<const char*>(hit) : end;
}

const char* string_end_single(const char* start, const char* end, bool* closed) {
    for (const char* p = start;;) {
        const char* quote = find(p, end, '"');
        const char* line_end = find(p, quote, '\n');
        if (line_end < quote || quote == end) {
            *closed = false;
            return line_end;
        }
        // A quote after an odd run of backslashes is escaped.
        const char* b = quote;
        while (b > start && b[-1] == '\\')
            --b;
        if ((quote - b) % 2 == 0) {
            *closed = true;
            return quote;
        }
        p = quote + 1;
    }
}

const char* string_end_double(const char* p, const char* end, byte_grouping grouping,
                              bool* closed) {
    for (; p < end; ++p) {
        const auto c = static_cast<unsigned char>(*p);
        if (c == '"') {
            *closed = true;
            return p;
        }
        if (c == '\n')
            break;
        const bool pair = c == '\\' ? p + 1 < end && p[1] != '\n'
                                    : is_lead_byte(grouping, c) && p + 1 < end &&
                                          is_trail_byte(static_cast<unsigned char>(p[1]));
        if (pair)
            ++p;
    }
    *closed = false;
    return p;
}

} // namespace

const char* string_end(const char* p, const char* end, byte_grouping grouping, bool* closed) {
    return grouping == byte_grouping::single ? string_end_single(p, end, closed)
                                             : string_end_double(p, end, grouping, closed);
}

const char* comment_end(const char* p, const char* end) {
    if (p[1] == '/') {
        const char* line_end = find(p + 2, end, '\n');
        return line_end < end ? line_end + 1 : end;
    }
    for (const char* q = p + 2;; ++q) {
        q = find(q, end, '*');
        if (q + 1 >= end)
            return end;
        if (q[1] == '/')
            return q + 2;
    }
}

statement_lexer::statement_lexer(const char* begin, const char* end) : pos_(begin), end_(end) {
    if (end_ - pos_ >= 3 && std::memcmp(pos_, "\xEF\xBB\xBF", 3) == 0)
        pos_ += 3;
}

const char* statement_lexer::next_of(const char*& cache, const char* p, char c) const {
    if (cache == nullptr || cache < p)
        cache = find(p, end_, c);
    return cache;
}

const char* statement_lexer::next_comment(const char* p) {
    if (comment_ != nullptr && comment_ >= p)
        return comment_;
    for (const char* q = p;; ++q) {
        q = find(q, end_, '/');
        if (q == end_ || starts_comment(q, end_))
            return comment_ = q;
    }
}

const char* statement_lexer::find_statement_end(const char* p) {
    for (;;) {
        const char* semi = next_of(semi_, p, ';');
        const char* quote = next_of(quote_, p, '"');
        const char* comment = next_comment(p);
        if (quote < semi && quote < comment) {
            bool closed = false;
            const char* q = string_end(quote + 1, end_, grouping_, &closed);
            unterminated_ += closed ? 0 : 1;
            p = closed ? q + 1 : q;
        } else if (comment < semi) {
            p = comment_end(comment, end_);
        } else {
            return semi;
        }
    }
}

bool statement_lexer::next(statement& out) {
    for (;;) {
        while (pos_ < end_ && is_space(*pos_))
            ++pos_;
        if (pos_ == end_)
            return false;
        if (starts_comment(pos_, end_) && pos_[1] == '*') {
            pos_ = comment_end(pos_, end_);
            continue;
        }
        if (starts_comment(pos_, end_)) {
            const char* line_end = find(pos_ + 2, end_, '\n');
            out = statement();
            out.comment = true;
            out.begin = pos_ + 2;
            out.command_end = out.begin;
            out.end = line_end > out.begin && line_end[-1] == '\r' ? line_end - 1 : line_end;
            pos_ = line_end < end_ ? line_end + 1 : end_;
            return true;
        }
        break;
    }
    out = statement();
    out.begin = pos_;
    const char* p = pos_;
    while (p < end_ && is_word_char(*p))
        ++p;
    out.command_end = p;
    out.end = find_statement_end(p);
    out.terminated = out.end < end_;
    pos_ = out.terminated ? out.end + 1 : end_;
    return true;
}

void tokenize(const char* begin, const char* end, byte_grouping grouping, std::vector<token>& out) {
    out.clear();
    for (const char* p = begin; p < end;) {
        const char c = *p;
        if (is_space(c)) {
            ++p;
        } else if (starts_comment(p, end)) {
            p = comment_end(p, end);
        } else if (c == '"') {
            token t;
            t.kind = token::string;
            t.begin = p + 1;
            t.end = string_end(p + 1, end, grouping, &t.closed);
            out.push_back(t);
            p = t.closed ? t.end + 1 : t.end;
        } else if (c == '(' || c == ')' || c == '+') {
            token t;
            t.kind = c == '(' ? token::open : c == ')' ? token::close : token::plus;
            t.begin = p;
            t.end = ++p;
            out.push_back(t);
        } else {
            token t;
            t.begin = p;
            while (p < end && !is_space(*p) && *p != '"' && *p != '(' && *p != ')' && *p != ';' &&
                   !starts_comment(p, end))
                ++p;
            if (p == t.begin) // a stray ';' in an unterminated statement
                ++p;
            t.end = p;
            out.push_back(t);
        }
    }
}

} // namespace ma
} // namespace host
