#pragma once
// A new button, selection or command, placed where the user last pressed. It always goes to
// the end of the list, so it is drawn on top.
#include "document/picker_button.h"

#include <QPoint>
#include <QUndoCommand>

class picker_view;

class add_button_cmd : public QUndoCommand {
public:
    // A selection button for the scene's selection, in the look the toolbox gives.
    add_button_cmd(picker_view* view, const QPoint& widget_point, const QString& text);
    // A command button; the dialog fills in its label, language and script before the push.
    add_button_cmd(picker_view* view, const QPoint& widget_point, const QString& text, int language,
                   const QString& label, const QString& command);
    void undo() override;
    void redo() override;
    int id() const override { return 0; }

    picker_view* view;
    picker_button_data button;
    int index = -1;

private:
    void fill_common(const QPoint& widget_point);
};
