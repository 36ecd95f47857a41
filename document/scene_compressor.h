#pragma once
// The scene data compressed as qCompress at level 9 would, without compressing again what
// the last write already compressed. The writer leaves the pictures out of the stream's
// text and notes where each belongs; each picture brings its part, deflated once and
// kept with it. The text is deflated in chunks, each kept while its bytes stay the same,
// so an edit costs the deflating of the chunk it touched.
#include "document/deflate_parts.h"

#include <QByteArray>
#include <QHash>
#include <QVector>
#include <memory>

struct scene_pieces {
    QByteArray text; // the stream without its pictures
    struct picture_at {
        int offset; // where in `text` the picture's bytes belong
        const deflated_part* part;
    };
    QVector<picture_at> pictures; // in stream order
    QVector<int> breaks;          // offsets where a tab begins: no chunk spans one
};

class scene_compressor {
public:
    // The deflated parts of the whole stream, in order, for join_deflated_parts: those the
    // last call made are reused. They hold until the next call or a picture's change.
    QVector<const deflated_part*> parts(const scene_pieces& pieces);

private:
    // The chunk of text from `begin` to `end`, primed with what precedes it from `start`.
    const deflated_part* text_part(const QByteArray& text, int start, int begin, int end);

    // Parts by the bytes they were made from, dictionary included; the last write's only.
    using part_ptr = std::shared_ptr<const deflated_part>;
    QHash<QByteArray, part_ptr> parts_;
    QHash<QByteArray, part_ptr> next_;
};
