#include "canvas/banner_overlay.h"

#include "canvas/picker_view.h"
#include "canvas/track_commands.h"

#include <QFontMetrics>
#include <QPainter>

namespace {

constexpr int strip_height = 22;

QImage& shared_logo() {
    static QImage logo;
    return logo;
}

} // namespace

const QImage& banner_logo() {
    QImage& logo = shared_logo();
    if (logo.isNull() || logo.width() == 0)
        logo.load(QStringLiteral(":/resources/PickerWindowLogoCropped.png"));
    return logo;
}

banner_overlay::banner_overlay(picker_view* owner) : view(owner) {
    // The project's own pages: its README's tour, the demo character, its news and its
    // discussions.
    const QString home = QStringLiteral("https://zelvani.example/picker/");
    links = {
        {QStringLiteral("Learn at Zelvani"), home + QStringLiteral("README.md#a-short-tour"), {}},
        {QStringLiteral("Free Characters"), home + QStringLiteral("sandbox/demo/"), {}},
        {QStringLiteral("Blog"), home + QStringLiteral("news/"), {}},
        {QStringLiteral("Forums"), home + QStringLiteral("discussions/"), {}}};
    layout(view->width(), view->height());
}

void banner_overlay::layout(int width, int height) {
    if (width < 1 || height < 1)
        return;
    const QImage& logo = banner_logo();
    if (logo.isNull())
        return;
    QFont font(QString::fromLatin1("Tahoma"), 8);
    const QFontMetrics metrics(font);
    int total = logo.width();
    for (banner_link& link : links) {
        link.hot_rect = metrics.boundingRect(link.text);
        total += link.hot_rect.width();
    }
    int gap = int((float(width) - float(total)) / (float(links.size()) + 1.25f));
    if (gap < 10)
        gap = 10;

    const int logo_h = logo.height();
    image = QImage(width, logo_h, QImage::Format_ARGB32);
    image.fill(0);
    QPainter painter;
    if (painter.begin(&image)) {
        painter.setFont(font);
        painter.setBrush(QColor(0xff929292));
        painter.setPen(QColor(0xff929292));
        const QRect strip(0, logo_h - strip_height, width, strip_height);
        painter.drawRects(&strip, 1);
        painter.drawImage(QPointF(0.0, 3.0), logo);
        painter.setBrush(Qt::white);
        painter.setPen(Qt::white);
        int x = logo.width() + gap;
        for (banner_link& link : links) {
            painter.drawText(QPoint(x, logo_h - 7), link.text);
            link.hot_rect.moveTo(x, height - 7);
            link.hot_rect.setTop(height - strip_height);
            link.hot_rect.setBottom(height);
            x += link.hot_rect.width() + gap;
        }
        painter.end();
    }
    banner_rect = QRect(0, height - logo_h, width, logo_h);
}

void banner_overlay::paint(QPainter* painter) {
    painter->drawImage(QPointF(banner_rect.topLeft()), image);
}

int banner_overlay::link_at(const QPoint& pos) const {
    if (!banner_rect.contains(pos) || banner_rect.bottom() - pos.y() > strip_height)
        return -1;
    if (!(pos.x() - banner_rect.left() > banner_logo().width()))
        return -1;
    for (int i = 0; i < links.size(); ++i) {
        if (!(links[i].hot_rect.left() > pos.x()) && !(pos.x() > links[i].hot_rect.right()))
            return i;
    }
    return -1;
}

bool banner_overlay::press(const QPoint& pos) {
    const int link = link_at(pos);
    if (link < 0)
        return false;
    view->gesture = new track_url_cmd(links[link].hot_rect, pos, links[link].url);
    return true;
}
