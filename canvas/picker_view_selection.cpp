// The selection state of a view's buttons, kept in step with `selected_objects`.
#include "canvas/picker_view.h"

#include "document/button_queries.h"
#include "document/selected_objects.h"

#include <QSet>
#include <maya/MGlobal.h>
#include <maya/MQtUtil.h>

bool picker_view::mark_selected(picker_button* button, bool flags_only) {
    bool touched = false;
    button->target_selected.resize(button->targets.size());
    for (int i = 0; i < button->targets.size(); ++i) {
        if (!flags_only && !button->target_selected[i]) {
            add_selected_object(button->targets[i]);
            touched = true;
        }
        button->target_selected[i] = true;
    }
    button->selected = 1;
    return touched;
}

bool picker_view::mark_deselected(picker_button* button, bool flags_only) {
    bool touched = false;
    button->target_selected.resize(button->targets.size());
    for (int i = 0; i < button->targets.size(); ++i) {
        if (!flags_only && button->target_selected[i]) {
            selected_objects.removeOne(button->targets[i]);
            touched = true;
        }
        button->target_selected[i] = false;
    }
    button->selected = 0;
    return touched;
}

bool picker_view::deselect_all() {
    bool touched = false;
    for (picker_button* button : qAsConst(buttons)) {
        if (button->selected != 0) {
            mark_deselected(button, false);
            touched = true;
        }
    }
    return touched;
}

void picker_view::select_indices(const QVector<int>& indices, bool flags_only) {
    for (int i : indices) {
        if (i >= 0 && i < buttons.size())
            mark_selected(buttons[i], flags_only);
    }
}

bool picker_view::any_selected() const {
    for (const picker_button* button : buttons) {
        if (button->selected != 0)
            return true;
    }
    return false;
}

QList<picker_button_data> picker_view::selected_data() const {
    QVector<int> unused;
    return selected_indices_and_data(unused);
}

QList<picker_button_data> picker_view::selected_indices_and_data(QVector<int>& indices) const {
    QList<picker_button_data> data;
    indices.clear();
    for (int i = 0; i < buttons.size(); ++i) {
        if (buttons[i]->selected == 1) {
            data.append(buttons[i]->data());
            indices.append(i);
        }
    }
    return data;
}

bool picker_view::match_selection(const QStringList& names) {
    return match_selection(QSet<QString>(names.begin(), names.end()));
}

// A set makes this linear in targets; the outcome is that of a search of the list.
bool picker_view::match_selection(const QSet<QString>& names) {
    return match_buttons(buttons, names);
}

bool picker_view::refresh_highlights() {
    return match_selection(distinct_names(selected_objects));
}

void picker_view::propagate_selection() {
    // A band over one button lights every other button of the same objects.
    QStringList names;
    for (const picker_button* button : qAsConst(buttons)) {
        if (button->kind != 0)
            continue;
        for (int i = 0; i < button->targets.size() && i < button->target_selected.size(); ++i) {
            if (button->target_selected[i] && !names.contains(button->targets[i]))
                names.append(button->targets[i]);
        }
    }
    match_selection(names);
}

bool picker_view::select_in_rect(const QRect& widget_rect, bool additive) {
    bool touched = false;
    for (picker_button* button : qAsConst(buttons)) {
        if (!widget_rect.intersects(to_widget(button->rect)))
            continue;
        touched = true;
        if (additive) {
            if (button->selected != 1)
                mark_selected(button, false);
        } else if (button->selected == 1) {
            mark_deselected(button, false);
        } else {
            mark_selected(button, false);
        }
    }
    return touched;
}

void picker_view::run_button_script(const picker_button* button) {
    if (button->kind != 1 || button->targets.isEmpty())
        return;
    const MString text = MQtUtil::toMString(button->targets[0]);
    if (text.length() == 0)
        return;
    if (button->language == 0)
        MGlobal::executeCommandOnIdle(text, false);
    else if (button->language == 1)
        MGlobal::executePythonCommandOnIdle(text, false);
}
