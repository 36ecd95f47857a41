// Directives that add, find, change and delete the current tab's buttons from a script.
// They change the records directly: a script's change is not on the undo stack.
#include "canvas/picker_view.h"
#include "document/int_range.h"
#include "document/selected_objects.h"
#include "plugin/directive_args.h"
#include "plugin/picker_globals.h"
#include "plugin/picker_main.h"
#include "window/picker_window.h"

#include <QColor>
#include <limits>
#include <maya/MGlobal.h>

namespace {

// A slot the caller left out reads as empty.
MString slot(const MStringArray& args, unsigned int i) {
    return i < args.length() ? args[i] : MString();
}
int slot_int(const MStringArray& args, unsigned int i) {
    return slot(args, i).asInt();
}
// Truncated toward zero; 1e12 stops at the end of the int range.
int slot_coordinate(const MStringArray& args, unsigned int i) {
    return truncate_to_int(slot(args, i).asFloat());
}
QString slot_text(const MStringArray& args, unsigned int i) {
    return MQtUtil::toQString(slot(args, i));
}

// The button a call names: by a widget point, by label (the first) or by target (the last).
struct lookup {
    picker_view* view;
    int index = -1;
    unsigned int values = 0; // the first slot after the search
    picker_button* button() const { return index >= 0 ? view->buttons[index] : nullptr; }
};

lookup find_button(picker_view* view, const MStringArray& args, bool point_form) {
    lookup found{view};
    if (point_form) {
        found.values = 3;
        const QPoint point(slot_coordinate(args, 1), slot_coordinate(args, 2));
        for (int i = 0; i < view->buttons.size() && found.index < 0; ++i) {
            if (view->to_widget(view->buttons[i]->rect).contains(point))
                found.index = i;
        }
        return found;
    }
    found.values = 2;
    if (args.length() < 2)
        return found;
    const QString name = slot_text(args, 1);
    const bool by_label = slot(args, 0) == "label";
    for (int i = 0; i < view->buttons.size(); ++i) {
        const picker_button* b = view->buttons[i];
        if (by_label && b->label == name) {
            found.index = i;
            break;
        }
        if (!by_label && b->targets.contains(name))
            found.index = i;
    }
    return found;
}

MStatus not_found() {
    MGlobal::displayError("Couldn't find any matching buttons!");
    return MS::kFailure;
}

// The end of every change: repaint, and store the scene data unless a batch is running.
MStatus close_change(picker_view* view) {
    view->update();
    if (!batch_mode) {
        emit view->changed();
        view->refresh_toolbox();
    }
    return MS::kSuccess;
}

// The picker's highlight moves to this button alone; the host selection stays.
void select_only(picker_view* view, picker_button* button) {
    view->window->clear_all_selected();
    view->mark_selected(button, false);
    view->refresh_highlights();
}

QRgb named_color(const QString& name) {
    QColor color;
    color.setNamedColor(name);
    return color.rgb();
}

} // namespace

// Runs `change` on the button the call names, or reports that there is none.
template <typename F>
MStatus on_button(const MStringArray& args, unsigned int point_count, F&& change) {
    picker_view* view = current_picker_view();
    if (!view)
        return MS::kSuccess;
    const lookup found = find_button(view, args, args.length() == point_count);
    if (!found.button())
        return not_found();
    return change(found);
}

MStatus picker_main::add_button(const MStringArray& args) {
    picker_view* view = current_picker_view();
    if (!view || selected_objects.isEmpty())
        return MS::kSuccess;
    return add_button_of_kind(view, args, 0);
}

MStatus picker_main::add_cmd_button(const MStringArray& args) {
    picker_view* view = current_picker_view();
    if (!view || selected_objects.isEmpty())
        return MS::kSuccess;
    return add_button_of_kind(view, args, 1);
}

MStatus picker_main::add_button_of_kind(picker_view* view, const MStringArray& args, int kind) {
    const picker_window* window = view->window;
    picker_button_data data;
    data.position = view->to_picker(QPoint(slot_coordinate(args, 0), slot_coordinate(args, 1)));
    data.kind = kind;
    if (kind == 0) {
        data.label = slot_text(args, 2);
        data.targets = selected_objects;
    } else {
        const QString language = args.length() > 2 ? slot_text(args, 2) : QStringLiteral("mel");
        data.language = language == QLatin1String("python") ? 1 : 0;
        data.label = slot_text(args, 3);
        data.targets = QStringList{slot_text(args, 4)};
    }
    data.size = data.width = window->button_width;
    data.height = window->button_height;
    data.color = window->button_color;
    data.label_color = window->label_color;
    view->add_button_record(data, -1);
    return close_change(view);
}

MStatus picker_main::move_button(const MStringArray& args) {
    return on_button(args, 5, [&](const lookup& at) {
        picker_view* view = at.view;
        picker_button* button = at.button();
        const unsigned int v = at.values;
        view->set_button_position(button,
                                  QPoint(slot_coordinate(args, v), slot_coordinate(args, v + 1)));
        view->refresh_highlights();
        return close_change(view);
    });
}

MStatus picker_main::rename_button(const MStringArray& args) {
    return on_button(args, 4, [&](const lookup& at) {
        picker_view* view = at.view;
        picker_button* button = at.button();
        const unsigned int v = at.values;
        select_only(view, button);
        view->set_button_label(button, slot_text(args, v));
        return close_change(view);
    });
}

MStatus picker_main::update_button(const MStringArray& args) {
    return on_button(args, 4, [&](const lookup& at) {
        picker_view* view = at.view;
        picker_button* button = at.button();
        const unsigned int v = at.values;
        button->targets = QStringList{slot_text(args, v)};
        button->target_selected.resize(1);
        view->mark_selected(button, false);
        return close_change(view);
    });
}

MStatus picker_main::delete_button(const MStringArray& args) {
    return on_button(args, 3, [&](const lookup& at) {
        picker_view* view = at.view;
        const int index = at.index;
        view->remove_button_record(index);
        return close_change(view);
    });
}

MStatus picker_main::resize_button(const MStringArray& args) {
    return on_button(args, 5, [&](const lookup& at) {
        picker_view* view = at.view;
        picker_button* button = at.button();
        const unsigned int v = at.values;
        view->set_button_size(button, slot_int(args, v), slot_int(args, v + 1));
        view->refresh_highlights();
        return close_change(view);
    });
}

MStatus picker_main::query_button(const MStringArray& args) {
    return on_button(args, 3, [&](const lookup& at) {
        picker_view* view = at.view;
        picker_button* button = at.button();
        select_only(view, button);
        MStringArray targets;
        for (const QString& target : qAsConst(button->targets))
            targets.append(MQtUtil::toMString(target));
        clearResult();
        appendToResult(targets);
        return MS::kSuccess;
    });
}

MStatus picker_main::get_button_bounds(const MStringArray& args) {
    return on_button(args, 3, [&](const lookup& at) {
        picker_view* view = at.view;
        picker_button* button = at.button();
        select_only(view, button);
        clearResult();
        const QRect& r = button->rect;
        for (int value : {r.left(), r.top(), r.width(), r.height()})
            appendToResult(MQtUtil::toMString(QString::number(value)));
        return MS::kSuccess;
    });
}

MStatus picker_main::get_button_properties(const MStringArray& args) {
    return on_button(args, 3, [&](const lookup& at) {
        picker_view* view = at.view;
        picker_button* button = at.button();
        select_only(view, button);
        clearResult();
        const QStringList properties{
            button->label,
            QString::number(button->position.x()),
            QString::number(button->position.y()),
            QString::number(button->kind),
            QString::number(button->language),
            QString::number(button->size),
            QString::number(button->width),
            QString::number(button->height),
            QColor(button->color).name(),
            QColor(button->label_color).name(),
        };
        for (const QString& property : properties)
            appendToResult(MQtUtil::toMString(property));
        return MS::kSuccess;
    });
}

MStatus picker_main::set_button_properties(const MStringArray& args) {
    return on_button(args, 13, [&](const lookup& at) {
        picker_view* view = at.view;
        picker_button* button = at.button();
        const unsigned int v = at.values;
        auto given = [&](unsigned int i) { return slot(args, v + i).length() > 0; };
        if (given(0))
            view->set_button_label(button, slot_text(args, v));
        if (given(1) && given(2))
            view->set_button_position(
                button, QPoint(slot_coordinate(args, v + 1), slot_coordinate(args, v + 2)));
        int* const numbers[] = {&button->kind, &button->language, &button->size, &button->width,
                                &button->height};
        for (unsigned int i = 0; i < 5; ++i) {
            if (given(3 + i))
                *numbers[i] = slot_int(args, v + 3 + i);
        }
        if (given(8))
            button->color = named_color(slot_text(args, v + 8));
        if (given(9))
            button->label_color = named_color(slot_text(args, v + 9));
        view->set_button_size(button, button->width, button->height);
        view->refresh_highlights();
        return close_change(view);
    });
}

MStatus picker_main::color_button(const MStringArray& args) {
    return paint_button(args, false);
}

MStatus picker_main::color_button_text(const MStringArray& args) {
    return paint_button(args, true);
}

MStatus picker_main::paint_button(const MStringArray& args, bool label) {
    picker_view* view = current_picker_view();
    if (!view)
        return MS::kSuccess;
    const unsigned int count = args.length();
    if (count < 3 || count > 6)
        return not_found();
    const bool point_form = count == 6 || count == 4;
    const lookup found = find_button(view, args, point_form);
    picker_button* button = found.button();
    if (!button)
        return not_found();
    QColor color;
    if (count >= 5)
        color.setRgb(slot_int(args, found.values), slot_int(args, found.values + 1),
                     slot_int(args, found.values + 2), 255);
    else
        color.setNamedColor(slot_text(args, found.values));
    (label ? button->label_color : button->color) = color.rgb();
    if (label)
        view->update_button_geometry(button);
    view->refresh_highlights();
    return close_change(view);
}

MStatus picker_main::enable_batch_mode(const MStringArray&) {
    batch_mode = true;
    return MS::kSuccess;
}

MStatus picker_main::disable_batch_mode(const MStringArray&) {
    batch_mode = false;
    if (picker_view* view = current_picker_view()) {
        emit view->changed();
        view->refresh_toolbox();
    }
    return MS::kSuccess;
}
