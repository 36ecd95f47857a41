// Pictures that come with picker data, and the sizes their headers claim.
#include "document/picture_data.h"

#include <QBuffer>
#include <QImage>
#include <QtTest>

namespace {

// A PNG of 69 bytes whose header claims 20000 by 20000 pixels, and which holds almost none.
const QByteArray claiming_png(
    "\x89PNG\r\n\x1a\n\x00\x00\x00\x0dIHDR\x00\x00\x4e\x20\x00\x00\x4e\x20\x08\x06\x00\x00\x00"
    "\xe3\x70\x46\x39\x00\x00\x00\x0cIDAT\x78\x9c\x63\x60\xa0\x3d\x00\x00\x00\x64\x00\x01\x86"
    "\x64\x3c\x35\x00\x00\x00\x00IEND\xae\x42\x60\x82",
    69);

} // namespace

class test_picture_data : public QObject {
    Q_OBJECT

private slots:
    void pictures_read_as_qt_streams_them() {
        QImage image(5, 3, QImage::Format_ARGB32);
        image.fill(Qt::darkCyan);
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out << QPixmap::fromImage(image) << QPixmap() << qint32(77);
        QDataStream in(bytes);
        const QImage shown = QPixmap::fromImage(image).toImage();
        QCOMPARE(read_stream_picture(in).toImage(), shown);
        QVERIFY(read_stream_picture(in).isNull());
        qint32 after = 0;
        in >> after;
        QCOMPARE(after, 77); // the stream goes on where the pictures end

        QByteArray png;
        QBuffer buffer(&png);
        buffer.open(QIODevice::WriteOnly);
        image.save(&buffer, "PNG");
        QCOMPARE(decode_png_picture(png).toImage(), shown);
        QVERIFY(decode_png_picture("not a picture").isNull());
    }

    // Qt 5 allocated the 1.6 GB the header claims before reading a pixel (the sanitizer
    // build of the tests refuses allocations above 1 GB).
    void a_size_beyond_what_the_bytes_hold_is_refused() {
        const QByteArray huge = claiming_png;
        QVERIFY(decode_png_picture(huge).isNull());
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out << qint32(1);
        bytes += huge;
        QDataStream in(bytes);
        QVERIFY(read_stream_picture(in).isNull());
        QCOMPARE(in.status(), QDataStream::ReadPastEnd); // as a damaged picture reads
    }
};

QTEST_MAIN(test_picture_data)
#include "test_picture_data.moc"
