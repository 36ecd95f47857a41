#pragma once
// zlib's own reader, without Qt: the big-endian length qCompress puts in front, then the
// zlib stream through `uncompress`. An error comes back as "zlib error <status>".
#include <QByteArray>
#include <QtEndian>
#include <zlib.h>

inline QByteArray inflate_with_zlib(const QByteArray& compressed) {
    if (compressed.size() < 4)
        return "zlib error: too short";
    const quint32 size = qFromBigEndian<quint32>(compressed.constData());
    QByteArray out(int(size), Qt::Uninitialized);
    uLongf out_size = size;
    const int status = uncompress(reinterpret_cast<Bytef*>(out.data()), &out_size,
                                  reinterpret_cast<const Bytef*>(compressed.constData()) + 4,
                                  uLong(compressed.size() - 4));
    if (status != Z_OK || out_size != size)
        return "zlib error " + QByteArray::number(status);
    return out;
}
