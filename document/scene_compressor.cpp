#include "document/scene_compressor.h"

#include <algorithm>

namespace {

constexpr int text_level = 9;
// An edit in a large picker deflates one chunk; primed with the text before it, a chunk
// costs a few tenths of a percent in size.
constexpr int chunk_size = 64 * 1024;
// Deflate reaches back 32 KiB: a chunk is primed with that much of the text before it.
constexpr int window_size = 32 * 1024;

} // namespace

const deflated_part* scene_compressor::text_part(const QByteArray& text, int start, int begin,
                                                 int end) {
    const int dictionary = std::min(window_size, begin - start);
    const char* from = text.constData() + begin - dictionary;
    // The key holds where the dictionary ends, so that equal keys are equal parts: repeated
    // text shares one part within a write, and no part handed out is replaced (and freed).
    QByteArray key = QByteArray::number(dictionary) + ':';
    key.append(from, end - begin + dictionary);
    if (const auto taken = next_.constFind(key); taken != next_.constEnd())
        return taken->get();
    if (const auto kept = parts_.constFind(key); kept != parts_.constEnd())
        return next_.insert(key, *kept).value().get();
    const part_ptr part = std::make_shared<const deflated_part>(
        deflate_part(from + dictionary, end - begin, text_level, dictionary));
    next_.insert(key, part);
    return part.get();
}

QVector<const deflated_part*> scene_compressor::parts(const scene_pieces& pieces) {
    const QByteArray& text = pieces.text;
    QVector<int> cuts = pieces.breaks;
    for (const scene_pieces::picture_at& picture : pieces.pictures)
        cuts.append(picture.offset);
    cuts.append(text.size());
    std::sort(cuts.begin(), cuts.end());

    next_.clear();
    QVector<const deflated_part*> parts;
    int picture = 0;
    int start = 0;
    for (const int cut : cuts) {
        for (int begin = start; begin < cut; begin += chunk_size)
            parts.append(text_part(text, start, begin, std::min(cut, begin + chunk_size)));
        for (; picture < pieces.pictures.size() && pieces.pictures[picture].offset == cut;
             ++picture)
            parts.append(pieces.pictures[picture].part);
        start = cut;
    }
    parts_.swap(next_);
    next_.clear();
    return parts;
}
