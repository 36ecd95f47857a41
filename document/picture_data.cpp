#include "document/picture_data.h"

#include "document/scene_text.h"

#include <QBitmap>
#include <QBuffer>
#include <QImage>
#include <QImageReader>

namespace {

// Reads the picture when its claimed size fits in the bytes left for it.
QImage read_plausible(QImageReader& reader, qint64 bytes_left) {
    const QSize size = reader.size();
    const qint64 most_pixels = 8 * qint64(max_deflate_ratio) * qMax<qint64>(bytes_left, 0);
    if (size.isValid() && qint64(size.width()) * size.height() > most_pixels)
        return QImage();
    return reader.read();
}

} // namespace

QPixmap read_stream_picture(QDataStream& in) {
    if (in.version() >= 5) {
        qint32 marker = 0;
        in >> marker;
        if (!marker)
            return QPixmap();
    }
    QIODevice* device = in.device();
    QImageReader reader(device, in.version() == 1 ? "bmp" : "png");
    const QImage image = read_plausible(reader, device ? device->bytesAvailable() : 0);
    if (image.isNull()) {
        if (in.version() >= 5)
            in.setStatus(QDataStream::ReadPastEnd);
        return QPixmap();
    }
    return image.depth() == 1 ? QBitmap::fromImage(image) : QPixmap::fromImage(image);
}

QPixmap decode_png_picture(const QByteArray& bytes) {
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, "PNG");
    return QPixmap::fromImage(read_plausible(reader, bytes.size()));
}
