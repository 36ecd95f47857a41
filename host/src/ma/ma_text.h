#pragma once
// Codesets of Maya ASCII files: how bytes group into characters, how string literals
// decode, and how text is escaped back into a literal.
#include <QByteArray>
#include <QString>

class QTextCodec;

namespace host {
namespace ma {

// Double-byte codesets put 0x5C ('\\') in second bytes; a lexer that knows the lead bytes
// never takes such a byte for an escape.
enum class byte_grouping { single, shift_jis, double_byte };

inline bool is_lead_byte(byte_grouping g, unsigned char c) {
    switch (g) {
    case byte_grouping::single:
        return false;
    case byte_grouping::shift_jis:
        return (c >= 0x81 && c <= 0x9F) || (c >= 0xE0 && c <= 0xFC);
    case byte_grouping::double_byte:
        return c >= 0x81 && c <= 0xFE;
    }
    return false;
}

// Second bytes of all the double-byte codesets start at 0x40, so a quote, a semicolon or
// a line break always ends a malformed character rather than joining it.
inline bool is_trail_byte(unsigned char c) {
    return c >= 0x40 && c != 0x7F && c != 0xFF;
}

class text_codec {
public:
    // Without a codeset: UTF-8 where the bytes are valid UTF-8, Latin-1 otherwise.
    text_codec() = default;
    // The value of a "//Codeset:" header: "1252", "932", "936", "UTF-8", ...
    explicit text_codec(const QByteArray& codeset);

    byte_grouping grouping() const { return grouping_; }
    bool known() const { return codec_ != nullptr || latin1_; }
    QString decode(const char* data, qsizetype size) const;
    QString decode(const QByteArray& bytes) const { return decode(bytes.data(), bytes.size()); }

private:
    QTextCodec* codec_ = nullptr;
    bool latin1_ = false; // an unknown codeset
    byte_grouping grouping_ = byte_grouping::single;
};

// The body of a MEL string literal with its escapes resolved, bytes still encoded.
QByteArray unescape(const char* begin, const char* end, byte_grouping grouping);
// `text` as the body of a MEL string literal, escaped as Maya escapes it.
QString escape(const QString& text);

} // namespace ma
} // namespace host
