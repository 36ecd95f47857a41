#pragma once
// A picture's stream form, kept with the picture: encoding a large picture as PNG costs
// far more than anything else a scene write does, so it is done once per picture and
// reused while the pixmap keeps its cache key. The first encoding may run ahead on a
// worker thread, from a copy of the image; everything else stays on the caller's thread.
#include "document/deflate_parts.h"

#include <QByteArray>
#include <QDataStream>
#include <QPixmap>
#include <memory>

class QThreadPool;
struct picture_encode_job;

class picture_bytes {
public:
    picture_bytes();
    ~picture_bytes();
    picture_bytes(const picture_bytes&) = delete;
    picture_bytes& operator=(const picture_bytes&) = delete;

    // Starts encoding and deflating `pixmap` on `pool`, so that later calls find it done.
    void prepare(const QPixmap& pixmap, QThreadPool* pool);
    // Writes `pixmap` to `out` exactly as `out << pixmap` does.
    void write(QDataStream& out, const QPixmap& pixmap);
    // What `QDataStream << pixmap` writes, from a stream of version 5 or later.
    const QByteArray& bytes(const QPixmap& pixmap);
    // Those bytes deflated as one part of a compressed stream.
    const deflated_part& deflated(const QPixmap& pixmap);

private:
    void take(const QPixmap& pixmap);
    void drop_job();
    // Waits for the worker's bytes, unless it has not started; true when they came.
    bool collect_job();

    qint64 key_ = 0; // cache key of the pixmap the members below belong to; 0: none
    QByteArray bytes_;
    std::unique_ptr<deflated_part> part_;
    std::shared_ptr<picture_encode_job> job_;
};
