// Pickers written by the Qt 5 build and by the Qt 6 build (tests/data/pickers, made by
// make_picker_files) read in this build to the same tabs, buttons and pictures, and this
// build writes them back to the same bytes: a .pkr file, a scene, and each value type.
#include "pickers_across_qt.h"

#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QByteArray file_bytes(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
}

QByteArray stream_of(const QString& base64) {
    return qUncompress(QByteArray::fromBase64(base64.toLatin1()));
}

} // namespace

class test_pickers_across_qt : public QObject {
    Q_OBJECT
    plugin_fixture f;
    QTemporaryDir dir, settings;

    test_tab tab(int index) {
        return read_scene_data(
                   f.mel(QStringLiteral("ZelvaniPicker get_picker_data \"%1\";").arg(index)))
            .value(0);
    }

    // Opens a copy by `command`, since saving writes where a file came from; its path.
    QString open_copy(const QString& committed, const QString& command) {
        const QString copy = dir.filePath(QString::fromLatin1(QTest::currentDataTag()) + '_' +
                                          QFileInfo(committed).fileName());
        QFile::remove(copy);
        if (!QFile::copy(committed, copy))
            return {};
        f.mel(command + mel_string(copy) + ';');
        return copy;
    }

    static void compare_tab(const test_tab& read, const picker_tab_source& source) {
        QCOMPARE(read.name, source.name);
        QCOMPARE(read.buttons.size(), source.buttons.size());
        for (int i = 0; i < source.buttons.size(); ++i) {
            const test_button &got = read.buttons[i], &want = source.buttons[i];
            QCOMPARE(got.label, want.label);
            QCOMPARE(got.targets, want.targets);
            QCOMPARE(got.kind, want.kind);
            QCOMPARE(got.language, want.language);
            QCOMPARE(got.position, want.position);
            QCOMPARE(QSize(got.width, got.height), QSize(want.width, want.height));
            QCOMPARE(got.color, want.color);
            QCOMPARE(got.label_color, want.label_color);
        }
        QVERIFY(!read.background_id.isEmpty());
        // The picture as set_background loaded it: a pixmap keeps alpha premultiplied.
        const QPixmap picture(picker_sources_dir() + "/" + source.picture);
        constexpr auto format = QImage::Format_ARGB32_Premultiplied;
        QCOMPARE(read.background.toImage().convertToFormat(format),
                 picture.toImage().convertToFormat(format));
    }

private slots:
    void initTestCase() {
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, settings.path());
    }
    void init() {
        f.start();
        f.mel("namespace -add \"hero\"; ZelvaniPicker;");
    }
    void cleanup() {
        QCOMPARE(f.unexpected_dialogs, QStringList());
        QVERIFY2(f.errors().isEmpty(), qPrintable(f.errors().join('\n')));
        f.host.reset();
    }

    void each_qt_data() {
        QTest::addColumn<QString>("written_by");
        for (const char* qt : {"qt5", "qt6"})
            QTest::newRow(qt) << picker_sources_dir() + "/written_by_" + qt;
    }

    void a_pkr_file_reads_the_same_and_saves_to_the_same_bytes_data() { each_qt_data(); }
    void a_pkr_file_reads_the_same_and_saves_to_the_same_bytes() {
        QFETCH(QString, written_by);
        const QString committed = written_by + "/picker.pkr";
        const QString copy = open_copy(committed, "ZelvaniPicker open ");
        QVERIFY(!copy.isEmpty());
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Untitled Body"));
        compare_tab(tab(1), picker_sources()[0]);
        if (QTest::currentTestFailed())
            return;
        QVERIFY(QFile::remove(copy));
        f.mel("ZelvaniPicker save;");
        QCOMPARE(file_bytes(copy), file_bytes(committed));
    }

    void a_scene_reads_the_same_and_stores_the_same_bytes_data() { each_qt_data(); }
    void a_scene_reads_the_same_and_stores_the_same_bytes() {
        QFETCH(QString, written_by);
        const QString committed = written_by + "/scene.ma";
        QVERIFY(!open_copy(committed, "file -f -open ").isEmpty());
        QCOMPARE(f.mel("ZelvaniPicker query_tabs;"), QString("Untitled Body Face"));
        QCOMPARE(tab(0).buttons.size(), 0);
        compare_tab(tab(1), picker_sources()[0]);
        compare_tab(tab(2), picker_sources()[1]);
        if (QTest::currentTestFailed())
            return;

        // The stream this build writes of the tabs it read is the stream it read.
        const QMap<QString, QString> entries = scene_picker_entries(committed);
        // The tabs, and one entry per picture: Body's first picture is face.png too, which
        // Qt's pixmap cache handed out again under the same key.
        QCOMPARE(entries.size(), 3);
        QCOMPARE(stream_of(f.mel("ZelvaniPicker get_picker_data;")),
                 stream_of(entries.value("ZelvaniPickerData")));
        // Reading the scene stored each tab's picture again, now by this build.
        const QString again = dir.filePath(QString::fromLatin1(QTest::currentDataTag()) + ".ma");
        f.mel("file -rename " + mel_string(again) + "; file -save;");
        QCOMPARE(scene_picker_entries(again), entries);
    }

    void every_value_type_streams_to_the_same_bytes_data() { each_qt_data(); }
    void every_value_type_streams_to_the_same_bytes() {
        QFETCH(QString, written_by);
        QCOMPARE(stream_value_samples(), file_bytes(written_by + "/values.bin"));
    }
};

QTEST_MAIN(test_pickers_across_qt)
#include "test_pickers_across_qt.moc"
