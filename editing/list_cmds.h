#pragma once
// Undoable changes that take buttons out of the list, put them back, or rewrite labels,
// places and targets. Commands name buttons by index and keep value copies only.
#include "canvas/picker_view.h"

#include <QUndoCommand>

class change_label_cmd : public QUndoCommand {
public:
    change_label_cmd(picker_view* view, const QString& label);
    void undo() override;
    void redo() override;
    int id() const override { return 10; }

    picker_view* view;
    QString value;
    QVector<int> indices;
    QStringList saved;
};

// An arrow key's step; opposite steps merge, down to nothing.
class nudge_buttons_cmd : public QUndoCommand {
public:
    nudge_buttons_cmd(picker_view* view, const QPoint& delta);
    void undo() override;
    void redo() override;
    int id() const override { return 9; }
    bool mergeWith(const QUndoCommand* other) override;

    picker_view* view;
    QPoint delta;
    QVector<int> indices;
    QVector<QPoint> saved;
};

class delete_buttons_cmd : public QUndoCommand {
public:
    explicit delete_buttons_cmd(picker_view* view);
    void undo() override;
    void redo() override;
    int id() const override { return 7; }

    picker_view* view;
    QVector<int> indices;
    QList<picker_button_data> saved;
};

// A delete whose undo leaves the buttons selected.
class cut_buttons_cmd : public QUndoCommand {
public:
    explicit cut_buttons_cmd(picker_view* view);
    void undo() override;
    void redo() override;
    int id() const override { return 12; }

    picker_view* view;
    QVector<int> indices;
    QList<picker_button_data> saved;
};

class paste_buttons_cmd : public QUndoCommand {
public:
    paste_buttons_cmd(picker_view* view, const QList<picker_button_data>& records, bool in_place);
    void undo() override;
    void redo() override;
    int id() const override { return 13; }

    picker_view* view;
    QList<picker_button_data> records;
    QVector<int> indices;
    QRect bounds;
    bool in_place;
};

// Swaps a button's targets with the given ones; its own undo.
class update_buttons_cmd : public QUndoCommand {
public:
    update_buttons_cmd(picker_view* view, const picker_button* button, const QStringList& targets);
    void undo() override { redo(); }
    void redo() override;
    int id() const override { return 8; }

    picker_view* view;
    int index = -1;
    QStringList targets;
};
