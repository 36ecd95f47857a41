#pragma once
// A byte-level lexer for Maya ASCII text. It finds where statements end without
// interpreting them, so that megabytes of setAttr data pass at memchr speed; only the
// statements the reader wants are split further into tokens.
#include "ma_text.h"

#include <cstring>
#include <vector>

namespace host {
namespace ma {

struct statement {
    const char* begin = nullptr;       // the command word, or a comment's text after "//"
    const char* command_end = nullptr; // end of the command word
    const char* end = nullptr;         // the ';', the end of a comment's line, or the text's end
    bool comment = false;              // a "//" line between statements
    bool terminated = true;            // ended by ';' rather than by the end of the text

    bool command_is(const char* word, size_t size) const {
        return size_t(command_end - begin) == size && std::memcmp(begin, word, size) == 0;
    }
};

// `p` is just after an opening quote. Returns the closing quote, or for an unterminated
// string (`*closed` false) the line break or the end that cuts it short.
const char* string_end(const char* p, const char* end, byte_grouping grouping, bool* closed);
// `p` is at "//" or "/*"; returns the first byte after the comment.
const char* comment_end(const char* p, const char* end);

class statement_lexer {
public:
    statement_lexer(const char* begin, const char* end);

    void set_grouping(byte_grouping grouping) { grouping_ = grouping; }
    byte_grouping grouping() const { return grouping_; }
    bool next(statement& out);
    int unterminated_strings() const { return unterminated_; }

private:
    const char* find_statement_end(const char* p);
    const char* next_of(const char*& cache, const char* p, char c) const;
    const char* next_comment(const char* p);

    const char* pos_;
    const char* end_;
    // The next ';', '"' and comment start at or after the scan position, found once and
    // kept while still ahead, so that no byte is searched twice for the same character.
    const char* semi_ = nullptr;
    const char* quote_ = nullptr;
    const char* comment_ = nullptr;
    byte_grouping grouping_ = byte_grouping::single;
    int unterminated_ = 0;
};

struct token {
    enum kind_t { word, string, open, close, plus };
    kind_t kind = word;
    const char* begin = nullptr; // a string's body, without its quotes
    const char* end = nullptr;
    bool closed = true; // a string with its closing quote
};

// Splits the arguments of a statement (after its command word) into tokens.
void tokenize(const char* begin, const char* end, byte_grouping grouping, std::vector<token>& out);

} // namespace ma
} // namespace host
