// Parts deflated apart and joined: what comes out must be one ordinary zlib stream in
// qCompress's form, whatever the parts hold, and its Base64 must be that of the bytes.
#include "document/deflate_parts.h"
#include "document/scene_compressor.h"
#include "zlib_reader.h"

#include <QRandomGenerator>
#include <QtTest>

namespace {

QByteArray noise(int size, quint32 seed) {
    QByteArray bytes(size, Qt::Uninitialized);
    QRandomGenerator random(seed);
    for (char& c : bytes)
        c = char(random.bounded(256));
    return bytes;
}

QByteArray repetitive(int size) {
    QByteArray bytes;
    for (int i = 0; bytes.size() < size; ++i)
        bytes += QByteArray("\0h\0e\0r\0o\0:\0c\0t\0r\0l\0_", 20) + QByteArray::number(i);
    bytes.resize(size);
    return bytes;
}

// `whole` cut at `cuts` and deflated part by part at `level`; with `primed`, each part but
// the first is primed with up to 32 KiB of the part before it.
QByteArray joined(const QByteArray& whole, const QVector<int>& cuts, int level, bool primed,
                  QVector<deflated_part>* made = nullptr) {
    QVector<deflated_part> parts;
    int begin = 0;
    for (int end : cuts + QVector<int>{int(whole.size())}) {
        const int dictionary = primed ? std::min(begin, 32 * 1024) : 0;
        parts.append(deflate_part(whole.constData() + begin, end - begin, level, dictionary));
        begin = end;
    }
    QVector<const deflated_part*> pointers;
    for (const deflated_part& p : parts)
        pointers.append(&p);
    if (made)
        *made = parts;
    return join_deflated_parts(pointers);
}

} // namespace

class test_deflate_parts : public QObject {
    Q_OBJECT

private slots:
    void joined_parts_read_back_whole_data_data() {
        QTest::addColumn<QByteArray>("whole");
        QTest::addColumn<QVector<int>>("cuts");
        QTest::addColumn<int>("level");
        QTest::addColumn<bool>("primed");
        const QByteArray mixed = repetitive(300000) + noise(70000, 1) + repetitive(5000);
        QTest::newRow("nothing") << QByteArray() << QVector<int>{} << 9 << false;
        QTest::newRow("one byte") << QByteArray("x") << QVector<int>{} << 9 << false;
        QTest::newRow("empty parts around data")
            << QByteArray("abc") << QVector<int>{0, 0, 3, 3} << 9 << false;
        QTest::newRow("each length modulo 3")
            << repetitive(1000) << QVector<int>{1, 3, 6, 10, 400, 401} << 9 << false;
        QTest::newRow("noise at level 1") << noise(200000, 2) << QVector<int>{65536} << 1 << false;
        QTest::newRow("stored") << noise(100000, 3) << QVector<int>{7, 70000} << 0 << false;
        QTest::newRow("mixed, primed")
            << mixed << QVector<int>{131072, 262144, 300000, 301000} << 9 << true;
        QTest::newRow("primed across a short part")
            << repetitive(100000) << QVector<int>{40000, 40010} << 9 << true;
    }
    void joined_parts_read_back_whole_data() {
        QFETCH(QByteArray, whole);
        QFETCH(QVector<int>, cuts);
        QFETCH(int, level);
        QFETCH(bool, primed);
        QVector<deflated_part> parts;
        const QByteArray compressed = joined(whole, cuts, level, primed, &parts);
        QCOMPARE(qUncompress(compressed), whole);
        QCOMPARE(inflate_with_zlib(compressed), whole);
        QCOMPARE(qFromBigEndian<quint32>(compressed.constData()), quint32(whole.size()));
        for (const deflated_part& part : parts) {
            QCOMPARE(part.data.size() % 3, 0);
            QCOMPARE(part.base64, part.data.toBase64());
        }
    }

    void base64_of_the_parts_is_that_of_the_whole() {
        const QByteArray whole = repetitive(50000) + noise(5000, 4);
        QVector<deflated_part> parts;
        const QByteArray compressed = joined(whole, {1, 20000, 20002}, 9, true, &parts);
        QVector<const deflated_part*> pointers;
        for (const deflated_part& p : parts)
            pointers.append(&p);
        QCOMPARE(join_deflated_parts_base64(pointers, "fileInfo \"k\" \"", "\";"),
                 "fileInfo \"k\" \"" + compressed.toBase64() + "\";");
        QCOMPARE(join_deflated_parts_base64({}, {}, {}), join_deflated_parts({}).toBase64());
        QCOMPARE(qUncompress(QByteArray::fromBase64(join_deflated_parts_base64({}, {}, {}))),
                 QByteArray());
    }

    void level_9_parts_stay_near_one_level_9_stream() {
        const QByteArray whole = repetitive(600000);
        const QByteArray apart = joined(whole, {131072, 262144, 393216, 524288}, 9, true);
        const QByteArray plain = qCompress(whole, 9);
        QVERIFY2(apart.size() < plain.size() * 1.01,
                 qPrintable(QString("%1 against %2").arg(apart.size()).arg(plain.size())));
    }

    void a_damaged_join_is_refused_by_both_readers() {
        QByteArray compressed = joined(repetitive(5000), {2500}, 9, false);
        compressed[compressed.size() - 1] = char(compressed[compressed.size() - 1] ^ 1);
        QVERIFY(qUncompress(compressed).isEmpty());
        QVERIFY(inflate_with_zlib(compressed).startsWith("zlib error"));
    }

    // Text that repeats gives chunks with equal bytes and equal priming: each write's parts
    // must all stay valid, and a second write must reuse them to the same bytes.
    void repeated_chunks_of_scene_text_share_their_part() {
        const QByteArray period = noise(64 * 1024, 7);
        scene_pieces pieces;
        pieces.text = period + period + period + period;
        scene_compressor compressor;
        for (int write = 0; write < 2; ++write) {
            const QByteArray joined = join_deflated_parts(compressor.parts(pieces));
            QCOMPARE(qUncompress(joined), pieces.text);
        }
        // Equal bytes primed differently are different parts.
        pieces.breaks = {16 * 1024};
        QCOMPARE(qUncompress(join_deflated_parts(compressor.parts(pieces))), pieces.text);
    }
};

QTEST_MAIN(test_deflate_parts)
#include "test_deflate_parts.moc"
