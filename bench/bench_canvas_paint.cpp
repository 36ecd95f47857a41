// One full paint of a 1920 x 1080 canvas with 1,000 and 10,000 labelled buttons, all of
// them visible and then a quarter after a zoom, beside the same number of bare fillRect
// calls on the same kind of painter.
#include "bench_timing.h"
#include "canvas/picker_view.h"
#include "window/picker_window.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <cstdio>

namespace {

void fill(picker_view* view, int count) {
    const int columns = count >= 10000 ? 100 : 40;
    const int rows = (count + columns - 1) / columns;
    for (int i = 0; i < count; ++i) {
        picker_button_data data;
        data.position =
            QPoint(10 + (i % columns) * 1900 / columns, 10 + (i / columns) * 1000 / rows);
        data.width = 1800 / columns;
        data.height = 900 / rows;
        data.color = 0xff000000u | (0x203040u + 0x010203u * (i % 60));
        data.label = QStringLiteral("%1").arg(i % 100);
        data.targets << QStringLiteral("hero:c%1").arg(i);
        if (i % 3 == 0)
            data.targets << QStringLiteral("hero:d%1").arg(i);
        data.kind = i % 10 == 0 ? 1 : 0;
        view->add_button_record(data, -1);
    }
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    std::printf("Canvas paint at 1920x1080 (best of 5)\n");
    for (int count : {1000, 10000}) {
        picker_window window(nullptr);
        picker_view* view = window.current_view();
        window.show();
        view->resize(1920, 1080);
        fill(view, count);
        QImage target(1920, 1080, QImage::Format_ARGB32_Premultiplied);
        for (const bool zoomed : {false, true}) {
            view->zoom = zoomed ? 2.0 : 1.0;
            // The bound fills each visible button's own widget rectangle, bare.
            QVector<QRect> rects;
            const QRect shown = view->rect_to_picker(view->rect());
            for (const picker_button* b : qAsConst(view->buttons)) {
                if (shown.intersects(b->rect))
                    rects << view->to_widget(b->rect);
            }
            const int visible = rects.size();
            const double paint = best_ms([&] { view->render(&target); });
            const double bound = best_ms([&] {
                QPainter painter(&target);
                for (const QRect& r : qAsConst(rects))
                    painter.fillRect(r, Qt::red);
            });
            const double with_backdrop = best_ms([&] {
                QPainter painter(&target);
                painter.fillRect(target.rect(), QColor(51, 51, 51));
                for (const QRect& r : qAsConst(rects))
                    painter.fillRect(r, Qt::red);
            });
            std::printf("%6d buttons, %6d visible  paint %7.2f ms  fillRect %6.2f ms  ratio %5.2fx"
                        "  (with the backdrop fill %6.2f ms, ratio %5.2fx)\n",
                        count, visible, paint, bound, paint / bound, with_backdrop,
                        paint / with_backdrop);
        }
    }
    return 0;
}
