#pragma once
// The strip along the bottom edge of every canvas: the logo and a row of web links.
#include "canvas/picker_overlay.h"

#include <QImage>
#include <QList>
#include <QRect>
#include <QString>

class picker_view;

struct banner_link {
    QString text;
    QString url;
    QRect hot_rect; // widget pixels, laid out by `layout`
};

class banner_overlay : public picker_overlay {
public:
    explicit banner_overlay(picker_view* owner);

    picker_view* view;
    QImage image; // the finished banner, as wide as the widget
    QList<banner_link> links;
    QRect banner_rect;

    void paint(QPainter* painter) override;
    void layout(int width, int height);
    // The link under a press, or -1: only the strip right of the logo counts.
    int link_at(const QPoint& pos) const;
    // A press on a link starts a gesture that opens it at a release on the same link.
    bool press(const QPoint& pos);
};

// The logo, loaded once and shared by every view.
const QImage& banner_logo();
