#include "ma_text.h"

#include <QTextCodec>

namespace host {
namespace ma {

namespace {

bool all_ascii(const char* data, qsizetype size) {
    unsigned char seen = 0;
    for (qsizetype i = 0; i < size; ++i)
        seen |= static_cast<unsigned char>(data[i]);
    return seen < 0x80;
}

QTextCodec* codec_for_number(const QByteArray& number) {
    for (const char* prefix : {"windows-", "cp", "CP"}) {
        if (QTextCodec* c = QTextCodec::codecForName(QByteArray(prefix) + number))
            return c;
    }
    return nullptr;
}

} // namespace

text_codec::text_codec(const QByteArray& codeset) {
    const QByteArray name = codeset.trimmed().toLower();
    if (name == "932" || name == "shift_jis" || name == "sjis") {
        codec_ = QTextCodec::codecForName("Shift_JIS");
        grouping_ = byte_grouping::shift_jis;
    } else if (name == "936" || name == "gbk" || name == "gb2312") {
        codec_ = QTextCodec::codecForName("GBK");
        grouping_ = byte_grouping::double_byte;
    } else if (name == "949") {
        codec_ = QTextCodec::codecForName("windows-949");
        grouping_ = byte_grouping::double_byte;
    } else if (name == "950" || name == "big5") {
        codec_ = QTextCodec::codecForName("Big5");
        grouping_ = byte_grouping::double_byte;
    } else if (name == "65001" || name == "utf8") {
        codec_ = QTextCodec::codecForName("UTF-8");
    } else if (!name.isEmpty() && name.at(0) >= '0' && name.at(0) <= '9') {
        codec_ = codec_for_number(name);
    } else if (!name.isEmpty()) {
        codec_ = QTextCodec::codecForName(name);
    }
    latin1_ = codec_ == nullptr;
}

QString text_codec::decode(const char* data, qsizetype size) const {
    if (all_ascii(data, size) || latin1_)
        return QString::fromLatin1(data, int(size));
    if (codec_)
        return codec_->toUnicode(data, int(size));
    // No codeset given: UTF-8 when it decodes cleanly.
    QTextCodec::ConverterState state;
    const QString utf8 = QTextCodec::codecForMib(106)->toUnicode(data, int(size), &state);
    return state.invalidChars == 0 ? utf8 : QString::fromLatin1(data, int(size));
}

QByteArray unescape(const char* begin, const char* end, byte_grouping grouping) {
    QByteArray out;
    out.reserve(int(end - begin));
    for (const char* p = begin; p < end; ++p) {
        const auto c = static_cast<unsigned char>(*p);
        if (is_lead_byte(grouping, c) && p + 1 < end &&
            is_trail_byte(static_cast<unsigned char>(p[1]))) {
            out.append(*p);
            out.append(*++p);
        } else if (c == '\\' && p + 1 < end) {
            switch (*++p) {
            case 'n':
                out.append('\n');
                break;
            case 't':
                out.append('\t');
                break;
            case 'r':
                out.append('\r');
                break;
            default: // \\, \" and any other character stand for themselves
                out.append(*p);
            }
        } else {
            out.append(*p);
        }
    }
    return out;
}

QString escape(const QString& text) {
    QString out;
    out.reserve(text.size() + 8);
    for (const QChar c : text) {
        switch (c.unicode()) {
        case '\\':
            out += QLatin1String("\\\\");
            break;
        case '"':
            out += QLatin1String("\\\"");
            break;
        case '\n':
            out += QLatin1String("\\n");
            break;
        case '\r':
            out += QLatin1String("\\r");
            break;
        case '\t':
            out += QLatin1String("\\t");
            break;
        default:
            out += c;
        }
    }
    return out;
}

} // namespace ma
} // namespace host
