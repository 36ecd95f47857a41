#pragma once
// Selecting: a click, a Shift click, a rubber band; with Ctrl, selecting for editing and
// dragging the selected buttons.
#include "canvas/picker_mouse_cmd.h"

#include <QStringList>
#include <QVector>

class picker_view;

class select_button_cmd : public picker_mouse_cmd {
public:
    select_button_cmd(picker_view* view, const QPoint& pos, Qt::KeyboardModifiers modifiers);
    void move_to(const QPoint& pos, Qt::KeyboardModifiers modifiers) override;
    void finish() override;

    picker_view* view;
    QPoint start;
    QPoint last;
    QStringList initial_selection;
    QVector<int> moved_indices;
    QVector<QPoint> moved_positions;
    bool additive = false;
    bool edit = false;
    bool rubber_band = false;
    bool moving = false;

private:
    void press_on_button(int index);
    void capture();
    QPoint drag_delta() const;
    void drag();
    void band();
};
