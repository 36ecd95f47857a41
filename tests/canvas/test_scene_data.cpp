// The scene data written from kept parts is byte for byte what a plain writer makes
// (every tab streamed, pictures by `QDataStream <<`), however the pictures came and went,
// and both Qt's and zlib's own readers take it.
#include "canvas/picker_view.h"
#include "core/session.h"
#include "document/picker_stream.h"
#include "picker_data.h"
#include "window/picker_window.h"
#include "zlib_reader.h"

#include <QPainter>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QtTest>

namespace {

QPixmap picture(QColor color, QSize size = QSize(96, 64)) {
    QImage image(size, QImage::Format_ARGB32);
    image.fill(color);
    QPainter painter(&image);
    painter.setPen(Qt::black);
    painter.drawLine(0, 0, size.width(), size.height());
    painter.end();
    return QPixmap::fromImage(image);
}

QString key_of(const QPixmap& pixmap) {
    return QString::number(pixmap.cacheKey());
}

QByteArray plain_pixmap(const QPixmap& pixmap,
                        int version = QDataStream::Qt_DefaultCompiledVersion) {
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setVersion(version);
    out << pixmap;
    return bytes;
}

test_tab tab_with(const QString& name, const QPixmap& background, int buttons) {
    test_tab tab;
    tab.name = name;
    tab.background = background;
    tab.background_id = background.isNull() ? QString() : key_of(background);
    for (int i = 0; i < buttons; ++i) {
        test_button b;
        b.targets << QStringLiteral("hero:%1_%2").arg(name).arg(i);
        b.label = QStringLiteral("b%1").arg(i);
        b.position = QPoint(i * 3, i * 2);
        tab.buttons << b;
    }
    return tab;
}

} // namespace

class test_scene_data : public QObject {
    Q_OBJECT
    host::session& host = host::session::get();
    picker_window* window = nullptr;
    QTemporaryDir dir;

    picker_view* view(int i) const { return window->view_at(i); }

    // Every tab, every picture through `QDataStream <<`.
    QByteArray plain_stream() const {
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out << qint32(5) << qint32(window->tabs->count()) << qint32(window->tabs->currentIndex());
        for (int i = 0; i < window->tabs->count(); ++i) {
            out << qint32(i) << window->tabs->tabText(i) << view(i)->background_id;
            if (!view(i)->background_id.isEmpty())
                out << view(i)->background;
            write_button_block(out, view(i)->buttons);
        }
        return bytes;
    }

    // Writes the scene data as an edit does, runs the host's idle queue, and compares.
    void check_scene_data() {
        host.idle.clear();
        host.scene.set_modified(false);
        window->updateSceneData();
        QCOMPARE(host.idle.size(), 1);
        const QString line = host.idle.pending().front().text;
        QVERIFY(line.startsWith("fileInfo \"ZelvaniPickerData\" \""));
        QVERIFY(line.endsWith("\"; file -modified 1;"));
        host.run_idle();
        QVERIFY(host.scene.modified());
        const QByteArray compressed =
            QByteArray::fromBase64(host.scene.file_info("ZelvaniPickerData").toLatin1());
        const QByteArray expected = plain_stream();
        QCOMPARE(qUncompress(compressed), expected);
        QCOMPARE(inflate_with_zlib(compressed), expected);
    }

    // The image entry of a tab holds its picture as `QDataStream <<` writes it.
    void check_image_entry(int tab) {
        const QString entry =
            host.scene.file_info("ZelvaniPickerImage_" + view(tab)->background_id);
        QCOMPARE(entry.toLatin1(), plain_pixmap(view(tab)->background).toBase64());
    }

    void add_buttons(picker_view* v, int count) {
        for (int i = 0; i < count; ++i) {
            picker_button_data data;
            data.position = QPoint(i * 5, 7);
            data.label = QStringLiteral("n%1").arg(i);
            data.targets << QStringLiteral("n%1").arg(i);
            v->add_button_record(data, -1);
        }
    }

    void read_scene(const QList<test_tab>& tabs) {
        const QByteArray bytes = qUncompress(QByteArray::fromBase64(scene_data(tabs).toLatin1()));
        QDataStream in(bytes);
        window->read_tabs(in, true);
    }

private slots:
    void init() {
        host.reset();
        window = new picker_window(nullptr);
        host.idle.clear();
    }
    void cleanup() {
        delete window;
        host.idle.clear();
    }

    void picture_set_from_a_file_then_edited() {
        const QString path = dir.filePath("front.png");
        QVERIFY(picture(Qt::darkCyan, QSize(300, 200)).save(path));
        add_buttons(view(0), 40);
        // As the set_background directive does: the old picture to its entry, then the new
        // one, which a worker starts encoding at once.
        const QPixmap loaded(path);
        window->store_background_image(view(0));
        view(0)->set_background_image(key_of(loaded), loaded);
        check_scene_data();
        view(0)->mark_selected(view(0)->buttons[3], true);
        view(0)->nudge_right();
        view(0)->nudge_down();
        check_scene_data();
    }

    void pictures_restored_from_a_scene_go_to_their_entries_in_order() {
        read_scene({tab_with("A", picture(Qt::red), 30), tab_with("B", QPixmap(), 10),
                    tab_with("C", picture(Qt::blue), 200)});
        // One entry per picture, in tab order, and nothing else queued.
        QCOMPARE(host.idle.size(), 2);
        QVERIFY(host.idle.pending()[0].text.startsWith("fileInfo \"ZelvaniPickerImage_" +
                                                       view(0)->background_id + "\" \""));
        QVERIFY(host.idle.pending()[1].text.startsWith("fileInfo \"ZelvaniPickerImage_" +
                                                       view(2)->background_id + "\" \""));
        host.run_idle();
        check_image_entry(0);
        check_image_entry(2);
        check_scene_data();
        window->tabs->setCurrentIndex(2);
        check_scene_data();
    }

    void a_pkr_file_opens_and_saves_with_its_picture() {
        read_scene({tab_with("Body", picture(Qt::green), 20)});
        const QString in_path = dir.filePath("face.pkr");
        QVERIFY(write_pkr(in_path, tab_with("Face", picture(Qt::yellow, QSize(120, 80)), 15)));
        host.idle.clear();
        window->open_files({in_path});
        host.run_idle();
        check_scene_data();
        // Saved back, the file holds the picture as a plain Qt 4.0 stream writes it.
        const QString out_path = dir.filePath("saved.pkr");
        QVERIFY(window->save_file(view(1), out_path));
        QByteArray expected;
        QDataStream out(&expected, QIODevice::WriteOnly);
        out.setVersion(picker_file_stream_version);
        out << qint32(5) << QString("Face") << view(1)->background_id << view(1)->background;
        write_button_block(out, view(1)->buttons);
        QFile saved(out_path);
        QVERIFY(saved.open(QIODevice::ReadOnly));
        QCOMPARE(saved.readAll(), expected);
    }

    void rescaled_replaced_and_cleared_pictures_data() {
        QTest::addColumn<int>("change");
        QTest::newRow("rescaled by the directive") << 0;
        QTest::newRow("rescaled by the menu") << 1;
        QTest::newRow("replaced") << 2;
        QTest::newRow("cleared") << 3;
        QTest::newRow("painted over in place") << 4;
    }
    void rescaled_replaced_and_cleared_pictures() {
        QFETCH(int, change);
        read_scene({tab_with("A", picture(Qt::red), 12), tab_with("B", picture(Qt::gray), 3)});
        check_scene_data();
        picker_view* v = view(0);
        if (change == 0) {
            const QPixmap scaled = v->background.scaled(40, 30);
            v->set_background_image(key_of(scaled), scaled);
        } else if (change == 1) {
            v->background = v->background.scaled(50, 20);
            v->background_id = key_of(v->background);
        } else if (change == 2) {
            window->remove_background_image(v);
            const QPixmap other = picture(Qt::magenta);
            v->set_background_image(key_of(other), other);
        } else if (change == 3) {
            window->remove_background_image(v);
            v->set_background_image(key_of(QPixmap()), QPixmap());
        } else {
            QPainter painter(&v->background);
            painter.fillRect(0, 0, 20, 20, Qt::white);
        }
        check_scene_data();
        check_scene_data(); // and again, from what the first write kept
    }

    void a_picture_shared_by_two_tabs() {
        const QPixmap shared = picture(Qt::darkRed);
        view(0)->set_background_image(key_of(shared), shared);
        window->new_tab();
        view(1)->set_background_image(key_of(shared), shared);
        add_buttons(view(1), 5);
        check_scene_data();
        const QPixmap other = picture(Qt::darkBlue);
        view(1)->set_background_image(key_of(other), other);
        check_scene_data();
    }

    void a_large_tab_edited_here_and_there() {
        // Text of several chunks, each deflated primed with the one before it.
        add_buttons(view(0), 3000);
        const QPixmap front = picture(Qt::darkGreen);
        view(0)->set_background_image(key_of(front), front);
        check_scene_data();
        for (int i : {1500, 0, 2999}) {
            view(0)->set_button_position(view(0)->buttons[i], QPoint(-7, i));
            check_scene_data();
        }
        view(0)->set_button_label(view(0)->buttons[700], "a longer label shifts the rest");
        check_scene_data();
        view(0)->remove_button_record(10);
        check_scene_data();
    }

    void damaged_and_hostile_pictures_data() {
        QTest::addColumn<int>("cut");
        QTest::addColumn<QString>("id");
        QTest::newRow("picture cut short") << 200 << QString();
        QTest::newRow("hostile id") << 0 << QString("1\"; quit; //");
    }
    void damaged_and_hostile_pictures() {
        QFETCH(int, cut);
        QFETCH(QString, id);
        test_tab tab = tab_with("A", picture(Qt::red, QSize(200, 150)), 5);
        if (!id.isEmpty())
            tab.background_id = id;
        QByteArray bytes = qUncompress(QByteArray::fromBase64(scene_data({tab}).toLatin1()));
        if (cut)
            bytes.chop(bytes.size() - bytes.indexOf("\x89PNG") - cut);
        QDataStream in(bytes);
        window->read_tabs(in, true);
        for (const auto& entry : host.idle.pending())
            QVERIFY(!entry.text.contains("quit"));
        host.run_idle();
        // Whatever the reader kept is written back as it stands.
        QCOMPARE(window->tabs->count(), 1);
        check_scene_data();
    }
};

QTEST_MAIN(test_scene_data)
#include "test_scene_data.moc"
