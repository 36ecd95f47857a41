#pragma once
// One interaction from a press to its release. The view holds at most one.
#include <QPoint>
#include <Qt>

class picker_mouse_cmd {
public:
    // The pointer is at `pos`, in widget pixels; only the press looked at the modifiers.
    virtual void move_to(const QPoint& pos, Qt::KeyboardModifiers modifiers) = 0;
    virtual void finish() = 0;
    virtual ~picker_mouse_cmd() = default;
};
