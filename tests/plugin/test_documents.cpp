// Pickers as documents: .pkr files of every version, the scene round trip with pictures,
// data between scenes, and data that tries to run MEL.
#include "picker_data.h"
#include "plugin_fixture.h"

#include <QImage>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

namespace {

test_button button(const QStringList& targets, const QString& label = {}, int kind = 0) {
    test_button b;
    b.targets = targets;
    b.label = label;
    b.kind = kind;
    return b;
}

QPixmap picture(QColor color) {
    QImage image(8, 6, QImage::Format_ARGB32);
    image.fill(color);
    return QPixmap::fromImage(image);
}

} // namespace

class test_documents : public QObject {
    Q_OBJECT
    plugin_fixture f;
    QTemporaryDir dir;

    QString path(const QString& name) const { return dir.filePath(name); }

    // The tab at `index` as the picker writes it.
    test_tab tab(int index) {
        const QList<test_tab> tabs = read_scene_data(
            f.mel(QStringLiteral("ZelvaniPicker get_picker_data \"%1\";").arg(index)));
        return tabs.value(0);
    }
    QString mel_path(const QString& name) const { return "\"" + path(name) + "\""; }

private slots:
    void init() {
        f.start();
        // The characters the pickers name, so that opening a file has nothing to ask.
        f.mel("namespace -add \"hero\"; ZelvaniPicker;");
    }
    void cleanup() {
        QCOMPARE(f.unexpected_dialogs, QStringList());
        f.host.reset();
    }

    void every_version_opens_with_its_defaults_data() {
        QTest::addColumn<int>("version");
        for (int v = 1; v <= 5; ++v)
            QTest::newRow(qPrintable(QString("v%1").arg(v))) << v;
    }
    void every_version_opens_with_its_defaults() {
        QFETCH(int, version);
        test_tab source{"Body", {}, QString::number(picture(Qt::red).cacheKey()), picture(Qt::red)};
        test_button wide = button({"hero:arm"}, "Arm");
        wide.width = 30;
        wide.height = 12;
        wide.label_color = 0x123456;
        source.buttons << wide << button({"print 1;"}, "Cmd", 1);
        QVERIFY(write_pkr(path("old.pkr"), source, version));

        f.mel("ZelvaniPicker open " + mel_path("old.pkr") + ";");
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Untitled Body"));
        const test_tab read = tab(1);
        QCOMPARE(read.buttons.size(), 2);
        const test_button& b = read.buttons[0];
        QCOMPARE(b.targets, QStringList{"hero:arm"});
        QCOMPARE(b.width, 30);
        QCOMPARE(b.height, version >= 5 ? 12 : 30); // one size before version 5
        QCOMPARE(b.label_color, version >= 4 ? 0x123456u : 0xffffffu);
        QCOMPARE(read.buttons[1].kind, version >= 2 ? 1 : 0);
        QCOMPARE(read.background_id, version >= 2 ? source.background_id : QString());
        QVERIFY(f.errors().isEmpty());
    }

    void invalid_records_are_dropped_and_the_rest_loads() {
        test_tab source{"T", {}, {}, {}};
        test_button misplaced = button({"b"});
        misplaced.stored_index = 7;
        test_button strange = button({"c"});
        strange.kind = 2;
        test_button negative = button({"d"});
        negative.language = -1;
        source.buttons << button({"a"}) << misplaced << strange << negative << button({})
                       << button({"f"}, "last");
        QVERIFY(write_pkr(path("mixed.pkr"), source));
        f.mel("ZelvaniPicker open " + mel_path("mixed.pkr") + ";");
        const test_tab read = tab(1);
        QCOMPARE(read.buttons.size(), 2);
        QCOMPARE(read.buttons[0].targets, QStringList{"a"});
        QCOMPARE(read.buttons[1].label, QString("last"));
    }

    void a_saved_tab_reopens_equal() {
        test_tab source{
            "Face", {}, QString::number(picture(Qt::blue).cacheKey()), picture(Qt::blue)};
        source.buttons << button({"hero:jaw", "hero:chin"}, "Jaw")
                       << button({"select -cl;"}, "", 1);
        QVERIFY(write_pkr(path("face.pkr"), source));
        f.mel("ZelvaniPicker open " + mel_path("face.pkr") + ";");
        const test_tab first = tab(1);
        QFile::remove(path("face.pkr"));
        f.mel("ZelvaniPicker save;"); // the tab remembers its file
        QVERIFY(QFile::exists(path("face.pkr")));
        f.mel("ZelvaniPicker open " + mel_path("face.pkr") + ";");
        const test_tab second = tab(2);
        QCOMPARE(second.name, first.name);
        QCOMPARE(second.background_id, first.background_id);
        QCOMPARE(second.background.toImage(), first.background.toImage());
        QCOMPARE(second.buttons.size(), 2);
        for (int i = 0; i < 2; ++i) {
            QCOMPARE(second.buttons[i].targets, first.buttons[i].targets);
            QCOMPARE(second.buttons[i].label, first.buttons[i].label);
            QCOMPARE(second.buttons[i].kind, first.buttons[i].kind);
            QCOMPARE(second.buttons[i].color, first.buttons[i].color);
            QCOMPARE(second.buttons[i].position, first.buttons[i].position);
        }
    }

    // A device is read for as long as it gives: /dev/urandom claims strings of gigabytes.
    void a_device_is_no_picker_file() {
        dialog_answerer ok(QMessageBox::Ok);
        f.mel("ZelvaniPicker open \"/dev/zero\";");
        QVERIFY(ok.answered);
        QCOMPARE(ok.title, QString("Open Failed"));
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Untitled"));
    }

    void a_missing_file_is_reported_and_cancel_stops_the_rest() {
        dialog_answerer cancel(QMessageBox::Cancel);
        f.mel("ZelvaniPicker open " + mel_path("none1.pkr") + " " + mel_path("none2.pkr") + ";");
        QCOMPARE(cancel.title, QString("Open Failed"));
        QVERIFY(cancel.text.contains("none1.pkr"));
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Untitled"));
    }

    void the_scene_keeps_tabs_and_pictures() {
        test_tab body{
            "Body", {}, QString::number(picture(Qt::green).cacheKey()), picture(Qt::green)};
        body.buttons << button({"hero:arm"}, "Arm");
        QVERIFY(write_pkr(path("body.pkr"), body));
        QVERIFY(picture(Qt::yellow).save(path("new.png")));
        f.mel("ZelvaniPicker open " + mel_path("body.pkr") + ";");
        // The old picture goes to its own entry; the new one travels with the tabs.
        f.mel("ZelvaniPicker set_background " + mel_path("new.png") + ";");
        f.mel("ZelvaniPicker open " + mel_path("body.pkr") + ";");
        f.mel("file -rename " + mel_path("pickers.ma") + "; file -save;");

        QFile ma(path("pickers.ma"));
        QVERIFY(ma.open(QIODevice::ReadOnly));
        const QByteArray text = ma.readAll();
        QVERIFY(text.contains("fileInfo \"ZelvaniPickerData\" \""));
        QVERIFY(text.contains("fileInfo \"ZelvaniPickerImage_" + body.background_id.toLatin1()));

        f.mel("file -f -new;");
        f.mel("file -f -open " + mel_path("pickers.ma") + ";");
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Untitled Body Body"));
        QCOMPARE(tab(1).background.toImage().pixelColor(0, 0), QColor(Qt::yellow));
        QCOMPARE(tab(2).background.toImage().pixelColor(0, 0), QColor(Qt::green));
        QCOMPARE(tab(2).buttons.value(0).targets, QStringList{"hero:arm"});
        QVERIFY2(f.errors().isEmpty(), qPrintable(f.errors().join("\n")));
    }

    void one_tab_travels_to_another_scene() {
        test_tab legs{"Legs", {}, {}, {}};
        legs.buttons << button({"hero:L_knee"}, "Knee");
        f.mel("ZelvaniPicker new_tab; ZelvaniPicker open_picker_data \"" + scene_data({legs}) +
              "\";");
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Untitled Untitled Legs"));
        const QString data = f.mel("ZelvaniPicker get_picker_data \"2\";");
        f.mel("file -f -new;");
        f.mel("ZelvaniPicker open_picker_data \"" + data + "\";");
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Untitled Legs"));
        QCOMPARE(tab(1).buttons.value(0).targets, QStringList{"hero:L_knee"});
        QCOMPARE(tab(1).buttons.value(0).label, QString("Knee"));
    }

    void background_keys_follow_their_rules() {
        f.mel("ZelvaniPicker set_background " + mel_path("missing.png") + ";");
        QCOMPARE(tab(0).background_id, QString("0")); // the key of a null picture
        f.mel("ZelvaniPicker clear_background;");
        QCOMPARE(tab(0).background_id, QString("0"));
        f.mel("ZelvaniPicker resize_background 5;");
        QCOMPARE(tab(0).background_id, QString("0"));

        // Two tabs share a picture: closing one keeps the entry, unless the other one was
        // its right-hand neighbour.
        test_tab shared{"A", {}, "4242", picture(Qt::red)};
        test_tab other{"B", {}, {}, {}};
        shared.name = "A";
        f.mel("ZelvaniPicker restore \"" + scene_data({shared, other, shared}) + "\";");
        QVERIFY(f.host.scene.has_file_info("ZelvaniPickerImage_4242"));
        f.mel("ZelvaniPicker set_tab \"B\"; ZelvaniPicker close_tab;"); // A A remain
        f.mel("ZelvaniPicker set_tab \"A\"; ZelvaniPicker close_tab;"); // closes the last A
        QVERIFY(f.host.scene.has_file_info("ZelvaniPickerImage_4242"));
        f.mel("ZelvaniPicker restore \"" + scene_data({shared, shared}) + "\";");
        plugin_fixture::tabs()->setCurrentIndex(0);
        f.mel("ZelvaniPicker close_tab;");
        QVERIFY(!f.host.scene.has_file_info("ZelvaniPickerImage_4242"));
    }

    void data_never_runs_as_mel() {
        const QString hostile = "createNode transform -n pwned";
        test_tab evil{"Evil", {}, "1\"; " + hostile + "; //", picture(Qt::red)};
        evil.buttons << button({"a; " + hostile, "b\" ; " + hostile, "`" + hostile + "`"});
        QVERIFY(write_pkr(path("evil.pkr"), evil));
        f.mel("createNode transform -n \"a\";");
        f.mel("ZelvaniPicker open " + mel_path("evil.pkr") + ";");
        f.mel("ZelvaniPicker restore \"" + scene_data({evil}) + "\";");
        f.mel("ZelvaniPicker open_picker_data \"" + scene_data({evil}) + "\";");
        f.mel("ZelvaniPicker select \"a; " + hostile + "\" a;");
        f.mel("file -rename " + mel_path("evil.ma") + "; file -save;");
        f.mel("file -f -new; file -f -open " + mel_path("evil.ma") + ";");
        QCOMPARE(f.mel("objExists pwned;"), QString("0"));
        // The scene kept the tabs of the last write: the one after the file was opened.
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Untitled Evil"));
        QCOMPARE(tab(1).background.toImage().pixelColor(0, 0), QColor(Qt::red));
    }

    // Zeroed data after a tab read as one empty tab every twelve bytes: hundreds of views
    // from a few kilobytes, hours of them from a megabyte that compresses to almost nothing.
    void tabs_stop_where_their_numbering_does() {
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out << qint32(5) << qint32(0x05040053) << qint32(0) << qint32(0) << QString("S")
            << QString() << qint32(0);
        bytes.append(QByteArray(4000, '\0'));
        f.mel("ZelvaniPicker open_picker_data \"" +
              QString::fromLatin1(qCompress(bytes).toBase64()) + "\";");
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Untitled S"));
        // Written data numbers its tabs from 0, and a single tab carries its own place.
        test_tab t{"T", {button({"hero:a"})}, {}, {}};
        f.mel("ZelvaniPicker restore \"" + scene_data({t, t, t}) + "\";");
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("T T T"));
        const QString third = f.mel("ZelvaniPicker get_picker_data \"2\";");
        f.mel("ZelvaniPicker open_picker_data \"" + third + "\";");
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("T T T T"));
    }

    void damaged_streams_never_crash_or_hang() {
        // A huge count in a short file ends with the data.
        QFile huge(path("huge.pkr"));
        QVERIFY(huge.open(QIODevice::WriteOnly));
        QDataStream out(&huge);
        out.setVersion(7);
        out << qint32(5) << QString("Huge") << QString() << qint32(0x7fffffff) << qint32(0);
        huge.close();
        f.mel("ZelvaniPicker open " + mel_path("huge.pkr") + ";");
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Untitled Huge"));

        // Mutations of a valid scene stream, and random bytes.
        test_tab tab{"T", {}, {}, {}};
        for (int i = 0; i < 6; ++i)
            tab.buttons << button({"hero:a", "hero:b"}, "L" + QString::number(i));
        const QByteArray valid =
            qUncompress(QByteArray::fromBase64(scene_data({tab, tab}).toLatin1()));
        QRandomGenerator random(7);
        for (int round = 0; round < 1500; ++round) {
            QByteArray bytes = valid;
            if (round % 5 == 0) {
                bytes.resize(random.bounded(200));
                for (char& c : bytes)
                    c = char(random.bounded(256));
            } else {
                for (int n = random.bounded(1, 6); n > 0; --n)
                    bytes[random.bounded(bytes.size())] = char(random.bounded(256));
                bytes.truncate(random.bounded(bytes.size() + 1));
            }
            // A newer version only warns, which another test covers.
            if (bytes.size() >= 4)
                bytes.replace(0, 4, QByteArray("\0\0\0\5", 4));
            const QString data = QString::fromLatin1(qCompress(bytes, 9).toBase64());
            f.host.execute("ZelvaniPicker restore \"" + data + "\";");
        }
        f.host.run_idle();
        QVERIFY(plugin_fixture::tabs());
    }
};

QTEST_MAIN(test_documents)
#include "test_documents.moc"
