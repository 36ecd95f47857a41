#include "document/picture_bytes.h"

#include <QIODevice>
#include <QImage>
#include <QRunnable>
#include <QThreadPool>
#include <condition_variable>
#include <mutex>

namespace {

// PNG data is deflated already: level 9 leaves a 1.6 MB picture as large as it was,
// after 90 ms; stored blocks add 0.01 % in 2 ms.
constexpr int picture_level = 0;

template <typename Picture> QByteArray encode(const Picture& picture) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << picture;
    return bytes;
}

} // namespace

// One encoding handed to a worker. Whoever moves it out of `queued` does the work: the
// worker, or the owner when it needs the bytes first; an owner that no longer wants
// them moves it to `dropped`.
struct picture_encode_job {
    enum state_t { queued, running, done, dropped };
    std::mutex mutex; // the standard one, which thread sanitizers see
    std::condition_variable finished;
    state_t state = queued;
    // A deep copy: the worker shares no image data with the pixmap, so that nothing of
    // the pixmap is touched off its thread.
    QImage image;
    QByteArray bytes;
    deflated_part part;
};

namespace {

class encode_task : public QRunnable {
public:
    explicit encode_task(std::shared_ptr<picture_encode_job> job) : job_(std::move(job)) {}

    void run() override {
        {
            std::lock_guard<std::mutex> lock(job_->mutex);
            if (job_->state != picture_encode_job::queued)
                return;
            job_->state = picture_encode_job::running;
        }
        QByteArray bytes = encode(job_->image);
        deflated_part part = deflate_part(bytes.constData(), bytes.size(), picture_level);
        std::lock_guard<std::mutex> lock(job_->mutex);
        job_->bytes = std::move(bytes);
        job_->part = std::move(part);
        job_->image = QImage();
        job_->state = picture_encode_job::done;
        job_->finished.notify_all();
    }

private:
    std::shared_ptr<picture_encode_job> job_;
};

} // namespace

picture_bytes::picture_bytes() = default;

picture_bytes::~picture_bytes() {
    drop_job();
}

void picture_bytes::drop_job() {
    if (!job_)
        return;
    std::unique_lock<std::mutex> lock(job_->mutex);
    if (job_->state == picture_encode_job::queued)
        job_->state = picture_encode_job::dropped;
    lock.unlock();
    job_.reset();
}

void picture_bytes::prepare(const QPixmap& pixmap, QThreadPool* pool) {
    if (!pool || pixmap.isNull() || pixmap.cacheKey() == key_)
        return;
    auto job = std::make_shared<picture_encode_job>();
    job->image = pixmap.toImage().copy();
    if (job->image.isNull())
        return; // no memory for the copy: encoded here when wanted
    drop_job();
    key_ = pixmap.cacheKey();
    bytes_.clear();
    part_.reset();
    job_ = std::move(job);
    pool->start(new encode_task(job_));
}

void picture_bytes::take(const QPixmap& pixmap) {
    const qint64 key = pixmap.cacheKey();
    if (key != 0 && key == key_ && (!job_ || collect_job()))
        return;
    drop_job();
    key_ = key;
    bytes_ = encode(pixmap);
    part_.reset();
}

bool picture_bytes::collect_job() {
    std::unique_lock<std::mutex> lock(job_->mutex);
    if (job_->state == picture_encode_job::queued)
        return false; // cheaper to encode here than to wait for a worker
    job_->finished.wait(lock, [this] { return job_->state == picture_encode_job::done; });
    bytes_ = job_->bytes;
    part_ = std::make_unique<deflated_part>(std::move(job_->part));
    lock.unlock();
    job_.reset();
    return true;
}

void picture_bytes::write(QDataStream& out, const QPixmap& pixmap) {
    // The null marker in front of the picture follows the stream's version and order.
    if (out.version() < QDataStream::Qt_3_1 || out.byteOrder() != QDataStream::BigEndian) {
        out << pixmap;
        return;
    }
    const QByteArray& data = bytes(pixmap);
    out.writeRawData(data.constData(), data.size());
}

const QByteArray& picture_bytes::bytes(const QPixmap& pixmap) {
    take(pixmap);
    return bytes_;
}

const deflated_part& picture_bytes::deflated(const QPixmap& pixmap) {
    take(pixmap);
    if (!part_)
        part_ = std::make_unique<deflated_part>(
            deflate_part(bytes_.constData(), bytes_.size(), picture_level));
    return *part_;
}
