#include "canvas/banner_overlay.h"

#include "canvas/picker_view.h"
#include "canvas/track_commands.h"

#include <QFontMetrics>
#include <QPainter>
#include <QVector>

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

namespace {

// The strip drawn for one width, and where each link's text starts in it. A new tab is
// laid out at its first size and then at the window's: the strips of the last few widths
// are kept, so that neither is drawn again for the next tab.
struct drawn_strip {
    int width = -1;
    QImage image;
    QVector<QRect> text_rects;
    QVector<int> lefts;
};

constexpr int kept_strips = 4;

const drawn_strip& strip_for(int width, const QList<banner_link>& links, const QImage& logo) {
    static drawn_strip strips[kept_strips];
    static int next = 0;
    for (const drawn_strip& kept : strips) {
        if (kept.width == width && kept.text_rects.size() == links.size())
            return kept;
    }
    drawn_strip& drawn = strips[next];
    next = (next + 1) % kept_strips;
    const QFont font(QString::fromLatin1("Tahoma"), 8);
    const QFontMetrics metrics(font);
    drawn.width = width;
    drawn.text_rects.clear();
    drawn.lefts.clear();
    int total = logo.width();
    for (const banner_link& link : links) {
        drawn.text_rects.append(metrics.boundingRect(link.text));
        total += drawn.text_rects.last().width();
    }
    int gap = int((float(width) - float(total)) / (float(links.size()) + 1.25f));
    if (gap < 10)
        gap = 10;

    int x = logo.width() + gap;
    for (const QRect& text : qAsConst(drawn.text_rects)) {
        drawn.lefts.append(x);
        x += text.width() + gap;
    }

    const int logo_h = logo.height();
    drawn.image = QImage(width, logo_h, QImage::Format_ARGB32);
    drawn.image.fill(0);
    QPainter painter;
    if (painter.begin(&drawn.image)) {
        painter.setFont(font);
        painter.setBrush(QColor(0xff929292));
        painter.setPen(QColor(0xff929292));
        const QRect strip(0, logo_h - strip_height, width, strip_height);
        painter.drawRects(&strip, 1);
        painter.drawImage(QPointF(0.0, 3.0), logo);
        painter.setBrush(Qt::white);
        painter.setPen(Qt::white);
        for (int i = 0; i < links.size(); ++i)
            painter.drawText(QPoint(drawn.lefts[i], logo_h - 7), links[i].text);
        painter.end();
    }
    return drawn;
}

} // namespace

void banner_overlay::layout(int width, int height) {
    if (width < 1 || height < 1)
        return;
    const QImage& logo = banner_logo();
    if (logo.isNull())
        return;
    const drawn_strip& drawn = strip_for(width, links, logo);
    image = drawn.image;
    for (int i = 0; i < links.size(); ++i) {
        QRect& hot = links[i].hot_rect;
        hot = drawn.text_rects[i];
        hot.moveTo(drawn.lefts[i], height - 7);
        hot.setTop(height - strip_height);
        hot.setBottom(height);
    }
    banner_rect = QRect(0, height - logo.height(), width, logo.height());
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
