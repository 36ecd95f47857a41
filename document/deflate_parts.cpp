#include "document/deflate_parts.h"

#include <QtEndian>
#include <algorithm>
#include <zlib.h>

deflated_part deflate_part(const char* input, qint64 size, int level, int dictionary) {
    deflated_part part;
    part.size = size;
    part.dictionary = dictionary;
    const auto* in = reinterpret_cast<const Bytef*>(input);
    part.adler = quint32(adler32_z(1, in, size_t(size)));

    z_stream z{};
    // Raw deflate: the one zlib header and trailer come with the join.
    if (deflateInit2(&z, level, Z_DEFLATED, -MAX_WBITS, 8, Z_DEFAULT_STRATEGY) != Z_OK)
        qFatal("zlib: out of memory");
    if (dictionary > 0)
        deflateSetDictionary(&z, in - dictionary, uInt(dictionary));
    // The bound holds the flush marker too; the loop below copes if it did not.
    part.data.resize(int(deflateBound(&z, uLong(size))) + 16);
    z.next_in = const_cast<Bytef*>(in);
    qint64 left = size;
    int written = 0;
    for (;;) {
        const uInt chunk = uInt(std::min<qint64>(left, 1 << 30));
        z.avail_in = chunk;
        left -= chunk;
        const int flush = left > 0 ? Z_NO_FLUSH : Z_FULL_FLUSH;
        do {
            if (written == part.data.size())
                part.data.resize(part.data.size() * 2);
            z.next_out = reinterpret_cast<Bytef*>(part.data.data()) + written;
            z.avail_out = uInt(part.data.size() - written);
            deflate(&z, flush);
            written = part.data.size() - int(z.avail_out);
        } while (z.avail_out == 0);
        if (left == 0)
            break;
    }
    deflateEnd(&z);
    part.data.resize(written);
    // An empty stored block is five bytes, 2 modulo 3: as many as the length is, modulo 3,
    // bring it to a multiple of 3.
    for (int pad = written % 3; pad > 0; --pad)
        part.data.append("\x00\x00\x00\xff\xff", 5);
    part.base64 = part.data.toBase64();
    return part;
}

namespace {

// What comes before the parts and after them: six bytes each, so that the parts' own Base64
// falls in place between.
struct stream_frame {
    char head[6];
    char tail[6];
    int compressed = int(sizeof head + sizeof tail);
};

stream_frame frame_of(const QVector<const deflated_part*>& parts) {
    stream_frame frame;
    qint64 size = 0;
    quint32 adler = 1;
    for (const deflated_part* part : parts) {
        size += part->size;
        frame.compressed += part->data.size();
        adler = quint32(adler32_combine(adler, part->adler, z_off_t(part->size)));
    }
    // qCompress's length, then CMF (deflate, 32K window) and FLG (maximum compression).
    qToBigEndian(quint32(size), frame.head);
    frame.head[4] = '\x78';
    frame.head[5] = '\xda';
    // A final fixed-Huffman block holding only its end code, then the checksum.
    frame.tail[0] = '\x03';
    frame.tail[1] = '\x00';
    qToBigEndian(adler, frame.tail + 2);
    return frame;
}

} // namespace

QByteArray join_deflated_parts(const QVector<const deflated_part*>& parts) {
    const stream_frame frame = frame_of(parts);
    QByteArray out;
    out.reserve(frame.compressed);
    out.append(frame.head, sizeof frame.head);
    for (const deflated_part* part : parts)
        out.append(part->data);
    out.append(frame.tail, sizeof frame.tail);
    return out;
}

QByteArray join_deflated_parts_base64(const QVector<const deflated_part*>& parts,
                                      const QByteArray& before, const QByteArray& after) {
    const stream_frame frame = frame_of(parts);
    const QByteArray head = QByteArray::fromRawData(frame.head, sizeof frame.head).toBase64();
    const QByteArray tail = QByteArray::fromRawData(frame.tail, sizeof frame.tail).toBase64();
    QByteArray out;
    out.reserve(before.size() + (frame.compressed / 3) * 4 + after.size());
    out += before;
    out += head;
    for (const deflated_part* part : parts)
        out += part->base64;
    out += tail;
    out += after;
    return out;
}
