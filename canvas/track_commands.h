#pragma once
// Presses that act at the release, if the pointer is still where it was pressed: a command
// button, and a link of the banner.
#include "canvas/picker_mouse_cmd.h"

#include <QRect>
#include <QString>

class picker_view;
struct picker_button;

class track_button_cmd : public picker_mouse_cmd {
public:
    track_button_cmd(picker_view* view, picker_button* button, const QPoint& pos);
    void move_to(const QPoint& pos, Qt::KeyboardModifiers modifiers) override;
    void finish() override;

    picker_view* view;
    picker_button* button;
    QRect widget_rect;

private:
    void light(const QPoint& pos);
    bool button_alive() const;
};

class track_url_cmd : public picker_mouse_cmd {
public:
    track_url_cmd(const QRect& link_rect, const QPoint& pos, const QString& url);
    void move_to(const QPoint& pos, Qt::KeyboardModifiers modifiers) override;
    void finish() override;

    QRect link_rect;
    QPoint last;
    QString url;
};

// Pan and drag zoom: both work from the press, so rounding never adds up.
class shift_picker_cmd : public picker_mouse_cmd {
public:
    shift_picker_cmd(picker_view* view, const QPoint& pos);
    void move_to(const QPoint& pos, Qt::KeyboardModifiers modifiers) override;
    void finish() override {}

    picker_view* view;
    QPoint start;
    QPoint last;
    QPoint start_offset;
};

class zoom_picker_cmd : public picker_mouse_cmd {
public:
    zoom_picker_cmd(picker_view* view, const QPoint& pos);
    void move_to(const QPoint& pos, Qt::KeyboardModifiers modifiers) override;
    void finish() override {}

    picker_view* view;
    QPoint start;
    QPoint last;
    float start_zoom;
};
