#pragma once
// A drag of the selected buttons, as one undo entry. The drag moved them already; the
// first redo writes the same positions again.
#include <QPoint>
#include <QUndoCommand>
#include <QVector>

class picker_view;

class move_buttons_cmd : public QUndoCommand {
public:
    move_buttons_cmd(picker_view* view, const QVector<QPoint>& saved, const QVector<int>& indices,
                     const QPoint& delta);
    void undo() override;
    void redo() override;
    int id() const override { return 2; }

private:
    void place(const QPoint& delta);

    picker_view* view;
    QVector<QPoint> saved;
    QVector<int> indices;
    QPoint delta;
};
