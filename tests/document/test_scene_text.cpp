// The texts built from picker data for the host.
#include "document/scene_text.h"

#include <QtEndian>
#include <QtTest>

class test_scene_text : public QObject {
    Q_OBJECT

private slots:
    void data_round_trips_and_garbage_decodes_to_nothing() {
        const QByteArray bytes("\x00\x01picker\xff", 9);
        QCOMPARE(decode_picker_data(encode_picker_data(bytes).toLatin1()), bytes);
        QVERIFY(decode_picker_data("not base64 at all").isEmpty());
        QVERIFY(decode_picker_data("").isEmpty());
    }

    void a_length_beyond_what_deflate_can_expand_is_refused() {
        // A valid stream whose four-byte length claims more than 1032 times its size:
        // qUncompress would allocate the claim first, and accept the data.
        const QByteArray zeros(100000, '\0');
        QByteArray compressed = qCompress(zeros, 9);
        QCOMPARE(decode_picker_data(compressed.toBase64()), zeros);
        const quint32 limit = quint32(compressed.size() - 4) * max_deflate_ratio;
        qToBigEndian<quint32>(limit, compressed.data());
        QCOMPARE(decode_picker_data(compressed.toBase64()), zeros); // the claim is possible
        qToBigEndian<quint32>(limit + 1, compressed.data());
        QVERIFY(decode_picker_data(compressed.toBase64()).isEmpty());
        // Eight characters that claim 2 GB.
        QVERIFY(decode_picker_data("fwAAAHgB").isEmpty());
    }

    void only_decimal_keys_are_background_keys() {
        QVERIFY(is_background_key("0"));
        QVERIFY(is_background_key("8589934592"));
        QVERIFY(!is_background_key(""));
        QVERIFY(!is_background_key("12\"; system(\"rm\")"));
        QVERIFY(!is_background_key("-1"));
        QVERIFY(!is_background_key("１２")); // full-width digits are not ASCII digits
    }

    void legal_names_go_as_they_are() {
        for (const char* n :
             {"arm_ctrl", "rig:arm_ctrl", "a:b:c", "|rig:root|rig:arm", ":pCube1",
              "pCube1.vtx[0:3]", "pCube1.f[12]", "curve1.cv[0][2]", "pSphere1.translateX"})
            QCOMPARE(mel_object_argument(n), QString(n));
    }

    void anything_else_is_a_quoted_string() {
        QCOMPARE(mel_object_argument("a; file -f -new"), QString("\"a; file -f -new\""));
        QCOMPARE(mel_object_argument("`quit`"), QString("\"`quit`\""));
        QCOMPARE(mel_object_argument("x\"y\\z"), QString("\"x\\\"y\\\\z\""));
        QCOMPARE(mel_object_argument("two words"), QString("\"two words\""));
        QCOMPARE(mel_object_argument("line\nbreak"), QString("\"line\\nbreak\""));
        QCOMPARE(mel_object_argument("$var"), QString("\"$var\""));
        // A line break at the end is no part of a name, and no end of the pattern.
        QCOMPARE(mel_object_argument("arm\n"), QString("\"arm\\n\""));
        QCOMPARE(mel_object_argument("rig:arm.tx\n"), QString("\"rig:arm.tx\\n\""));
    }
};

QTEST_GUILESS_MAIN(test_scene_text)
#include "test_scene_text.moc"
