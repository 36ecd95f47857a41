#pragma once
// qCompress's form assembled from parts deflated apart, so that a part that has not
// changed is not compressed again. Each part is raw deflate data that ends on a full
// flush; joined behind one zlib header and closed by one final block and the Adler-32 of
// the whole, they make a stream that qUncompress and any zlib reader take.
//
// Each part is padded with empty stored blocks to a multiple of three bytes, so that its
// Base64 text, made once with it, is also its stretch of the whole stream's Base64.
#include <QByteArray>
#include <QVector>

struct deflated_part {
    QByteArray data;    // raw deflate blocks, byte-aligned, none of them final
    QByteArray base64;  // `data` as Base64
    quint32 adler = 1;  // Adler-32 of the input
    qint64 size = 0;    // bytes of input
    int dictionary = 0; // bytes before the input that back-references may reach
};

// Deflates `size` bytes at `input`. With `dictionary` > 0 the bytes just before `input`
// prime the compressor: the part may then only follow those very bytes.
deflated_part deflate_part(const char* input, qint64 size, int level, int dictionary = 0);

// The 4-byte big-endian length, the zlib header, the parts in order, an empty final block
// and the combined Adler-32: what qUncompress turns into the parts' inputs end to end.
QByteArray join_deflated_parts(const QVector<const deflated_part*>& parts);
// The Base64 text of that, between `before` and `after`.
QByteArray join_deflated_parts_base64(const QVector<const deflated_part*>& parts,
                                      const QByteArray& before, const QByteArray& after);
