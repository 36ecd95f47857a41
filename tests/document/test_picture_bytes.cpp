// A picture's bytes kept with it: always what `QDataStream << pixmap` writes, made on a
// worker or here, and made anew once the pixmap is another.
#include "document/picture_bytes.h"

#include <QImage>
#include <QPainter>
#include <QThreadPool>
#include <QtTest>

namespace {

QPixmap picture(QImage::Format format, QColor color, const QString& text = {}) {
    QImage image(64, 48, format);
    image.fill(color);
    QPainter painter(&image);
    painter.setPen(Qt::white);
    painter.drawEllipse(8, 8, 40, 30);
    painter.end();
    if (!text.isEmpty())
        image.setText(QStringLiteral("Description"), text);
    image.setDotsPerMeterX(2835);
    return QPixmap::fromImage(image);
}

QByteArray plain(const QPixmap& pixmap, int version = QDataStream::Qt_DefaultCompiledVersion) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(version);
    out << pixmap;
    return bytes;
}

QByteArray written(picture_bytes& cache, const QPixmap& pixmap, int version) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(version);
    cache.write(out, pixmap);
    return bytes;
}

} // namespace

class test_picture_bytes : public QObject {
    Q_OBJECT
    QThreadPool pool;

private slots:
    void cleanup() { pool.waitForDone(); }

    void bytes_are_what_the_stream_writes_data() {
        QTest::addColumn<QPixmap>("pixmap");
        QTest::newRow("opaque") << picture(QImage::Format_RGB32, Qt::darkGreen);
        QTest::newRow("translucent, with text")
            << picture(QImage::Format_ARGB32, QColor(200, 10, 10, 90), "front view");
        QTest::newRow("indexed") << QPixmap::fromImage(
            picture(QImage::Format_RGB32, Qt::blue)
                .toImage()
                .convertToFormat(QImage::Format_Indexed8));
        QTest::newRow("null") << QPixmap();
    }
    void bytes_are_what_the_stream_writes() {
        QFETCH(QPixmap, pixmap);
        picture_bytes here, ahead;
        QCOMPARE(here.bytes(pixmap), plain(pixmap));
        ahead.prepare(pixmap, &pool);
        QCOMPARE(ahead.bytes(pixmap), plain(pixmap));
        // .pkr files run at Qt 4.0's stream version: the same bytes, written raw.
        QCOMPARE(written(here, pixmap, QDataStream::Qt_4_0), plain(pixmap, QDataStream::Qt_4_0));
        QCOMPARE(written(here, pixmap, QDataStream::Qt_DefaultCompiledVersion), plain(pixmap));
        // Versions before the null marker write no marker.
        QCOMPARE(written(here, pixmap, QDataStream::Qt_2_1), plain(pixmap, QDataStream::Qt_2_1));
        const deflated_part& part = ahead.deflated(pixmap);
        QCOMPARE(qUncompress(join_deflated_parts({&part})), plain(pixmap));
    }

    void another_pixmap_is_encoded_anew() {
        picture_bytes cache;
        QPixmap first = picture(QImage::Format_RGB32, Qt::red);
        const QByteArray red = cache.bytes(first);
        const deflated_part* red_part = &cache.deflated(first);
        QCOMPARE(&cache.deflated(first), red_part); // kept while the pixmap stays
        // Painting changes the cache key of the very same QPixmap object.
        QPainter painter(&first);
        painter.fillRect(0, 0, 10, 10, Qt::yellow);
        painter.end();
        QCOMPARE(cache.bytes(first), plain(first));
        QVERIFY(cache.bytes(first) != red);
        const QPixmap scaled = first.scaled(20, 20);
        QCOMPARE(cache.bytes(scaled), plain(scaled));
        QCOMPARE(qUncompress(join_deflated_parts({&cache.deflated(scaled)})), plain(scaled));
        QCOMPARE(cache.bytes(QPixmap()), plain(QPixmap()));
    }

    void a_worker_result_for_an_old_picture_is_not_taken() {
        picture_bytes cache;
        const QPixmap old_picture = picture(QImage::Format_RGB32, Qt::gray);
        const QPixmap new_picture = picture(QImage::Format_RGB32, Qt::cyan);
        cache.prepare(old_picture, &pool);
        QCOMPARE(cache.bytes(new_picture), plain(new_picture));
        cache.prepare(new_picture, &pool); // the same picture: nothing more to do
        QCOMPARE(cache.bytes(new_picture), plain(new_picture));
        cache.prepare(old_picture, &pool);
        pool.waitForDone();
        QCOMPARE(cache.bytes(old_picture), plain(old_picture));
    }

    void pictures_given_up_leave_no_work_behind() {
        // Owners that go before their workers start or finish: the workers' copies of the
        // images are theirs, and nothing reaches the owners after they are gone.
        QThreadPool one;
        one.setMaxThreadCount(1);
        for (int i = 0; i < 8; ++i) {
            picture_bytes cache;
            cache.prepare(picture(QImage::Format_ARGB32, QColor(i * 30, 0, 0, 128)), &one);
        }
        one.waitForDone();
        picture_bytes cache;
        const QPixmap last = picture(QImage::Format_RGB32, Qt::magenta);
        cache.prepare(last, &one);
        QCOMPARE(cache.bytes(last), plain(last));
    }
};

QTEST_MAIN(test_picture_bytes)
#include "test_picture_bytes.moc"
