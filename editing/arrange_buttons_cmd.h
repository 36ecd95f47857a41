#pragma once
// Aligning the fully selected buttons on one line, or spreading them evenly.
#include <QPoint>
#include <QRect>
#include <QUndoCommand>
#include <QVector>

class picker_view;

class arrange_buttons_cmd : public QUndoCommand {
public:
    // 0 align on a horizontal line, 1 on a vertical one, 2 distribute along x, 3 along y.
    arrange_buttons_cmd(picker_view* view, int mode);
    void undo() override;
    void redo() override;
    int id() const override { return 1; }

    picker_view* view;
    int mode;
    QVector<int> indices;  // in the order of the mode's axis
    QVector<QPoint> saved; // in list order
    QPoint mean;
    QRect bounds;

private:
    int key(int index) const;
    void sort_by_key();
};
