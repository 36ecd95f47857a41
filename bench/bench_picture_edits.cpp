// Edits on a picker drawn over pictures: 3 tabs of 300 buttons, each tab over a 1920 x 1080
// picture, against the same picker without pictures. Each edit is timed as the user waits
// for it: the edit, the scene write and the idle MEL that the host runs.
#include "bench_plugin.h"
#include "bench_timing.h"
#include "core/session.h"
#include "picker_data.h"

#include <QApplication>
#include <QBuffer>
#include <QDockWidget>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QRandomGenerator>
#include <QTabWidget>
#include <QTemporaryDir>
#include <cstdio>
#include <maya/MQtUtil.h>
#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace {

constexpr int tab_count = 3;
constexpr int buttons_per_tab = 300;

// A front view of a character, with the grain of a real drawing so that it does not
// compress away: about 1.6 MB as PNG.
QImage character_picture(int seed) {
    QImage image(1920, 1080, QImage::Format_RGB32);
    QLinearGradient backdrop(0, 0, 0, image.height());
    backdrop.setColorAt(0, QColor(60 + seed * 20, 70, 90));
    backdrop.setColorAt(1, QColor(190, 180, 160 - seed * 10));
    QPainter painter(&image);
    painter.fillRect(image.rect(), backdrop);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(QColor(200, 150, 120));
    painter.drawEllipse(QPoint(960, 200), 110, 140);
    painter.setBrush(QColor(70, 90, 160));
    painter.drawRoundedRect(760, 340, 400, 420, 60, 60);
    for (const QRect& limb : {QRect(820, 760, 110, 300), QRect(990, 760, 110, 300),
                              QRect(560, 360, 190, 80), QRect(1170, 360, 190, 80)})
        painter.drawRect(limb);
    painter.end();
    QRandomGenerator grain{quint32(seed)};
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int n = int(grain.bounded(9)) - 4;
            const QRgb c = line[x];
            line[x] = qRgb(qBound(0, qRed(c) + n, 255), qBound(0, qGreen(c) + n, 255),
                           qBound(0, qBlue(c) + n, 255));
        }
    }
    return image;
}

QString node(int tab, int i) {
    return QStringLiteral("hero:c%1_%2").arg(tab).arg(i);
}

// The scene stream of the picker, as its scene entry holds it.
QString picker_scene_data(bool pictures) {
    QList<test_tab> tabs;
    for (int t = 0; t < tab_count; ++t) {
        test_tab tab;
        tab.name = QStringLiteral("Tab %1").arg(t);
        if (pictures) {
            tab.background = QPixmap::fromImage(character_picture(t + 1));
            tab.background_id = QString::number(tab.background.cacheKey());
        }
        for (int i = 0; i < buttons_per_tab; ++i) {
            test_button b;
            b.targets << node(t, i);
            b.label = QStringLiteral("c%1").arg(i);
            b.position = QPoint(700 + (i % 20) * 26, 100 + (i / 20) * 60);
            b.width = 22;
            b.height = 16;
            tab.buttons << b;
        }
        tabs << tab;
    }
    return scene_data(tabs);
}

// Bytes the process holds on the heap now; 0 where the C library does not say.
double heap_mb() {
#if defined(__GLIBC__)
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks + info.hblkhd) / (1024 * 1024);
#else
    return 0;
#endif
}

struct edits {
    double open_ms = 0;
    double first_nudge_ms = 0;
    double nudge_ms = 0;
    double move_ms = 0;
    double heap_after_1 = 0;
    double heap_after_100 = 0;
};

// Writes a scene holding the picker, opens it as a user would and edits it.
edits run_picker(const QString& scene_path, bool pictures) {
    host::session& host = host::session::get();
    host.execute(QStringLiteral("file -f -new;"));
    host.run_idle();
    host.scene.set_file_info(QStringLiteral("ZelvaniPickerData"), picker_scene_data(pictures));
    QString script;
    for (int t = 0; t < tab_count; ++t)
        for (int i = 0; i < buttons_per_tab; ++i)
            script += QStringLiteral("createNode transform -n \"%1\";").arg(node(t, i));
    host.execute(script);
    host.save_scene(scene_path);

    edits e;
    QWidget* view = nullptr;
    int step = 0;
    // A nudge through the view's own slot: an undo command on its stack, then the
    // scene write its changed() triggers.
    const auto nudge = [&] {
        QMetaObject::invokeMethod(view, ++step % 2 ? "nudge_right" : "nudge_left");
        host.run_idle();
    };
    const auto move = [&] {
        host.execute(QStringLiteral("ZelvaniPicker move_button label c5 %1 40;").arg(++step % 7));
        host.run_idle();
    };
    // The scene opened as a user opens it, five times: the best opening, and the best
    // first nudge after it.
    e.open_ms = e.first_nudge_ms = 1e300;
    for (int run = 0; run < 5; ++run) {
        QElapsedTimer clock;
        clock.start();
        host.open_scene(scene_path);
        host.run_idle();
        e.open_ms = std::min(e.open_ms, clock.nsecsElapsed() / 1e6);
        QDockWidget* dock =
            MQtUtil::mainWindow()->findChild<QDockWidget*>(QStringLiteral("ZelvaniPicker"));
        view = dock->findChild<QTabWidget*>()->currentWidget();
        host.select({node(0, 5)}, host::selection::adjust::replace);
        host.run_idle();
        clock.restart();
        nudge();
        e.first_nudge_ms = std::min(e.first_nudge_ms, clock.nsecsElapsed() / 1e6);
    }
    e.heap_after_1 = heap_mb();
    e.nudge_ms = best_ms(nudge, 9);
    e.move_ms = best_ms(move, 9);
    for (int i = 0; i < 100 - 1 - 18; ++i)
        nudge();
    e.heap_after_100 = heap_mb();
    return e;
}

} // namespace

int main(int argc, char** argv) {
    headless_unless_asked();
    QApplication app(argc, argv);
    if (!load_picker_plugin(QStringLiteral("namespace -add \"hero\"; ZelvaniPicker;")))
        return 1;
    QTemporaryDir dir;

    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    character_picture(1).save(&buffer, "PNG");
    std::printf("Edits on %d tabs x %d buttons, each tab with a 1920 x 1080 picture (%.2f MB as "
                "PNG),\nagainst the same picker without pictures; an edit includes its scene "
                "write and the idle MEL\n",
                tab_count, buttons_per_tab, png.size() / (1024.0 * 1024.0));

    const edits plain = run_picker(dir.filePath(QStringLiteral("plain.ma")), false);
    const edits pictured = run_picker(dir.filePath(QStringLiteral("pictured.ma")), true);
    const auto row = [](const char* what, double with, double without) {
        std::printf("%-36s %9.2f ms  without pictures %8.2f ms  ratio %6.1fx\n", what, with,
                    without, with / without);
    };
    row("nudge of one button (best of 9)", pictured.nudge_ms, plain.nudge_ms);
    row("move_button directive (best of 9)", pictured.move_ms, plain.move_ms);
    row("first nudge after opening (best of 5)", pictured.first_nudge_ms, plain.first_nudge_ms);
    row("opening the scene (best of 5)", pictured.open_ms, plain.open_ms);
    std::printf("first nudge against the best nudge: %.2fx\n",
                pictured.first_nudge_ms / pictured.nudge_ms);
    std::printf("heap after 1 edit %.1f MB, after 100 edits %.1f MB: growth %+.1f MB\n",
                pictured.heap_after_1, pictured.heap_after_100,
                pictured.heap_after_100 - pictured.heap_after_1);
    return 0;
}
