// The button block: versions, validity rules and damaged data.
#include "document/button_geometry.h"
#include "document/picker_stream.h"

#include <QRandomGenerator>
#include <QtTest>
#include <climits>
#include <cmath>

namespace {

struct raw_record {
    qint32 index;
    QPoint position;
    qint32 size, width, height, kind, language;
    quint32 color, label_color;
    QString label;
    QStringList targets;
};

// Writes records in the layout of an older (or current) version, as old files hold them.
QByteArray block(int version, const QList<raw_record>& records, qint32 count = -1) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(picker_file_stream_version);
    out << (count < 0 ? qint32(records.size()) : count);
    for (const raw_record& r : records) {
        out << r.index << r.position << r.size;
        if (version >= 5)
            out << r.width << r.height;
        if (version >= 2)
            out << r.kind << r.language;
        out << qint32(r.color);
        if (version >= 4)
            out << qint32(r.label_color);
        out << r.label << qint32(r.targets.size());
        for (const QString& t : r.targets)
            out << t;
    }
    return bytes;
}

raw_record record(qint32 index, const QStringList& targets = {"a"}) {
    return {index, {5, 6}, 30, 20, 12, 0, 0, 0xff0000, 0x00ff00, "L", targets};
}

QList<picker_button_data> read(const QByteArray& bytes, int version) {
    QDataStream in(bytes);
    in.setVersion(picker_file_stream_version);
    return read_button_block(in, version);
}

} // namespace

class test_picker_stream : public QObject {
    Q_OBJECT

private slots:
    void versions_default_what_they_lack() {
        const auto v1 = read(block(1, {record(0)}), 1);
        QCOMPARE(v1.size(), 1);
        QCOMPARE(v1[0].width, 30);
        QCOMPARE(v1[0].height, 30);
        QCOMPARE(v1[0].kind, 0);
        QCOMPARE(v1[0].label_color, QRgb(0xffffff));

        raw_record cmd = record(0, {"print 1;"});
        cmd.kind = 1;
        cmd.language = 1;
        const auto v2 = read(block(2, {cmd}), 2);
        const auto v3 = read(block(3, {cmd}), 3);
        QCOMPARE(v2.size(), 1);
        QVERIFY(v2 == v3);
        QCOMPARE(v2[0].language, 1);
        QCOMPARE(v2[0].label_color, QRgb(0xffffff));
        QCOMPARE(read(block(4, {cmd}), 4)[0].label_color, QRgb(0x00ff00));

        const auto v5 = read(block(5, {record(0)}), 5);
        QCOMPARE(v5[0].width, 20);
        QCOMPARE(v5[0].height, 12);
        QCOMPARE(v5[0].size, 30); // repaired only when the record enters a view
    }

    void invalid_records_are_consumed_and_dropped() {
        raw_record bad_kind = record(1, {"b"});
        bad_kind.kind = 2;
        raw_record negative_language = record(3, {"d"});
        negative_language.language = -1;
        const auto got = read(block(5, {record(0), bad_kind, record(2, {"c"}), negative_language,
                                        record(7, {"e"}), record(5, {}), record(6, {"g"})}),
                              5);
        QStringList firsts;
        for (const auto& r : got)
            firsts << r.targets.value(0);
        QCOMPARE(firsts, (QStringList{"a", "c", "g"}));
    }

    void written_buttons_read_back_equal() {
        picker_button_data a;
        a.position = {-40, 7};
        a.width = a.size = 33;
        a.height = 9;
        a.label = QString::fromUtf8("Kn\xc3\xa9\x65");
        a.targets = QStringList{"rig:knee_L", "rig:knee_R"};
        picker_button_data b;
        b.kind = 1;
        b.language = 1;
        b.targets = QStringList{"import os"};
        QList<picker_button*> buttons{make_button_record(a), make_button_record(b)};
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        write_button_block(out, buttons);
        const auto got = read(bytes, 5);
        QCOMPARE(got.size(), 2);
        QVERIFY(got[0] == buttons[0]->data());
        QVERIFY(got[1] == buttons[1]->data());
        qDeleteAll(buttons);
    }

    void records_enter_with_repaired_sizes() {
        picker_button_data d;
        d.size = 30;
        d.width = 0;
        d.height = 0;
        d.targets = QStringList{"x"};
        std::unique_ptr<picker_button> b(make_button_record(d));
        QCOMPARE(b->size, 1);
        QCOMPARE(b->width, 1);
        QCOMPARE(b->height, 1);
        QCOMPARE(b->target_selected, QVector<bool>{false});

        d.width = 4;
        d.height = 4;
        d.label = "A label far wider than four";
        d.position = {100, 50};
        b.reset(make_button_record(d));
        QVERIFY(b->rect.width() > 4);
        QCOMPARE(b->width, 4);
        QCOMPARE(b->rect.center(), QPoint(100, 50));
        QVERIFY(!b->label_pixmap.isNull());
    }

    void damaged_data_ends_quickly() {
        // A count of 2^31-1 in a short stream stops at the end of the data.
        QByteArray bytes = block(5, {record(0)}, 0x7fffffff);
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(read(bytes, 5).size(), 1);
        // A huge target count, a negative string length, truncation at every byte.
        raw_record many = record(0);
        QByteArray huge = block(5, {many});
        huge.chop(4 + 2 * 1 + 4); // drop the last target and its count...
        QDataStream patch(&huge, QIODevice::Append);
        patch << qint32(0x7fffffff) << qint32(-8);
        QVERIFY(read(huge, 5).size() <= 1);
        const QByteArray whole = block(5, {record(0), record(1, {"b", "c"})});
        for (int cut = 0; cut < whole.size(); ++cut)
            QVERIFY(read(whole.left(cut), 5).size() <= 2);
        QVERIFY(clock.elapsed() < 60000); // guards against a spin, not a timing claim
    }

    void data_that_ends_before_its_targets_drops_the_record() {
        const QByteArray whole = block(5, {record(0), record(1, {"b", "c"})});
        // Each target is a length and one UTF-16 character.
        const int after_count = whole.size() - 2 * (4 + 2);
        const int after_b = whole.size() - (4 + 2);
        QCOMPARE(read(whole.left(after_count), 5).size(), 1);
        QCOMPARE(read(whole.left(after_b), 5).size(), 1);
        QCOMPARE(read(whole.left(after_b + 2), 5).size(), 1); // inside "c"
        QCOMPARE(read(whole, 5).size(), 2);
    }

    void geometry_far_outside_any_screen_is_held() {
        raw_record far = record(0);
        far.position = {std::numeric_limits<int>::max(), std::numeric_limits<int>::min()};
        far.size = far.width = std::numeric_limits<int>::max();
        far.height = std::numeric_limits<int>::min();
        raw_record near = record(1);
        near.position = {-picker_geometry_limit, picker_geometry_limit};
        near.width = picker_geometry_limit;
        const auto got = read(block(5, {far, near}), 5);
        QCOMPARE(got.size(), 2);
        QCOMPARE(got[0].position, QPoint(picker_geometry_limit, -picker_geometry_limit));
        QCOMPARE(got[0].width, picker_geometry_limit);
        QCOMPARE(got[0].height, -picker_geometry_limit);
        QCOMPARE(got[1].position, near.position); // at the edge: kept as it is
        QCOMPARE(got[1].width, near.width);

        // Records made in memory are held as they enter a view; the rectangle's arithmetic
        // stays in range at every corner.
        for (const QPoint corner : {QPoint(INT_MAX, INT_MAX), QPoint(INT_MIN, INT_MIN)}) {
            picker_button_data d;
            d.position = corner;
            d.width = d.height = INT_MAX;
            d.targets = QStringList{"x"};
            for (const QString& label : {QString(), QStringLiteral("Label")}) {
                d.label = label;
                std::unique_ptr<picker_button> b(make_button_record(d));
                QCOMPARE(b->position, held_position(corner));
                QCOMPARE(b->width, picker_geometry_limit);
                QVERIFY(b->rect.contains(b->position));
                QCOMPARE(b->rect.width(), picker_geometry_limit);
            }
        }
        QCOMPARE(held_coordinate(std::nan("")), 0);
        QCOMPARE(held_coordinate(-1e300), -picker_geometry_limit);
    }

    void a_label_wider_than_any_screen_keeps_its_middle() {
        picker_button_data d;
        d.targets = QStringList{"x"};
        d.label = QString(20000, QLatin1Char('W'));
        std::unique_ptr<picker_button> b(make_button_record(d));
        QVERIFY(b->rect.width() > 100000); // the button is as wide as its label
        QCOMPARE(b->label_pixmap.width(), 1 << 15);
        // Some ink in the middle of the picture: the text is centred in its full width.
        const QImage picture = b->label_pixmap.toImage();
        bool inked = false;
        for (int x = picture.width() / 2 - 20; x < picture.width() / 2 + 20 && !inked; ++x) {
            for (int y = 0; y < picture.height() && !inked; ++y)
                inked = qAlpha(picture.pixel(x, y)) != 0;
        }
        QVERIFY(inked);
    }

    void random_bytes_never_crash() {
        QRandomGenerator rng(20261122);
        const QByteArray good = block(5, {record(0), record(1, {"b", "c"}), record(2)});
        for (int round = 0; round < 3000; ++round) {
            QByteArray bytes = good;
            if (round % 3 == 0) {
                bytes.resize(int(rng.bounded(200)));
                for (char& c : bytes)
                    c = char(rng.bounded(256));
            } else {
                for (int flips = int(rng.bounded(1, 6)); flips > 0; --flips)
                    bytes[int(rng.bounded(bytes.size()))] = char(rng.bounded(256));
            }
            const auto got = read(bytes, int(rng.bounded(1, 6)));
            for (const auto& r : got)
                QVERIFY(r.kind == 0 || r.kind == 1);
        }
    }
};

QTEST_MAIN(test_picker_stream)
#include "test_picker_stream.moc"
