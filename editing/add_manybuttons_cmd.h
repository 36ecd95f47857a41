#pragma once
// One new button per selected scene object, spread by one drag. It waits for a press,
// makes the row at the press, and lays it out while the pointer moves. Not undoable.
#include "canvas/picker_mouse_cmd.h"

#include <QVector>

class picker_view;

class add_manybuttons_cmd : public picker_mouse_cmd {
public:
    explicit add_manybuttons_cmd(picker_view* view);
    void move_to(const QPoint& pos, Qt::KeyboardModifiers modifiers) override;
    void finish() override;

    picker_view* view;
    QVector<int> added_indices;
    QPoint anchor;
    bool placed = false;
    bool armed = false;

private:
    void create_row(const QPoint& pos);
    void lay_out(const QPoint& pos);
};
