#include "document/scene_text.h"

#include <QRegularExpression>
#include <QtEndian>

QString encode_picker_data(const QByteArray& stream_bytes) {
    return QString::fromLatin1(qCompress(stream_bytes, 9).toBase64());
}

QByteArray decode_picker_data(const QByteArray& base64) {
    const QByteArray compressed = QByteArray::fromBase64(base64);
    // qUncompress allocates the length the data claims before it inflates a byte. No
    // deflate stream expands more than 1032 to 1, so a larger claim is damage: refused
    // here, before it costs up to 4 GB.
    if (compressed.size() >= 4) {
        const quint64 claimed = qFromBigEndian<quint32>(compressed.constData());
        if (claimed > quint64(compressed.size() - 4) * max_deflate_ratio)
            return QByteArray();
    }
    return qUncompress(compressed);
}

bool is_background_key(const QString& id) {
    if (id.isEmpty())
        return false;
    for (const QChar c : id) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
    }
    return true;
}

QString mel_quoted(const QString& text) {
    QString out;
    out.reserve(text.size() + 2);
    out += QLatin1Char('"');
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
    out += QLatin1Char('"');
    return out;
}

QString mel_object_argument(const QString& name) {
    // node ("|" or ":" separated parts), then attributes or components with indices. The
    // whole name must match: `$` alone would take one that ends in a line break.
    static const QRegularExpression legal(QRegularExpression::anchoredPattern(
        QStringLiteral(R"([|:]?[A-Za-z_][A-Za-z0-9_]*(?:[|:]+[A-Za-z_][A-Za-z0-9_]*)*)"
                       R"((?:\.[A-Za-z_][A-Za-z0-9_]*(?:\[[0-9*]+(?::[0-9*]+)?\])*)*)")));
    return legal.match(name).hasMatch() ? name : mel_quoted(name);
}
