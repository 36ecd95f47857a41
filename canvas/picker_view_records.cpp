// The record operations of a view: each leaves `rect` and `label_pixmap` consistent with
// the stored part.
#include "canvas/picker_view.h"

#include "document/button_geometry.h"
#include "document/int_range.h"

#include <QtGlobal>

int picker_view::add_button_record(const picker_button_data& data, int index) {
    picker_button* button = make_button_record(data);
    if (index < 0) {
        buttons.append(button);
        return buttons.size() - 1;
    }
    buttons.insert(qMin(index, buttons.size()), button);
    return index;
}

void picker_view::remove_button_record(int index) {
    if (index < 0 || index >= buttons.size())
        return;
    picker_button* button = buttons.takeAt(index);
    if (pressed_button == button)
        pressed_button = nullptr;
    delete button;
}

void picker_view::update_button_geometry(picker_button* button) {
    if (button->label.isEmpty())
        reset_button_rect(*button);
    else
        ::update_button_geometry(*button);
}

void picker_view::set_button_width(picker_button* button, int w) {
    button->size = held_size(w);
    button->width = button->size;
    update_button_geometry(button);
}

void picker_view::set_button_height(picker_button* button, int h) {
    button->height = held_size(h);
    update_button_geometry(button);
}

void picker_view::set_button_size(picker_button* button, int w, int h) {
    button->width = qMax(held_size(w), 1);
    button->size = button->width;
    button->height = qMax(held_size(h), 1);
    update_button_geometry(button);
}

void picker_view::set_button_label(picker_button* button, const QString& text) {
    if (text.isEmpty()) {
        button->label_pixmap = QPixmap();
        button->label.clear();
        reset_button_rect(*button);
        return;
    }
    button->label = text;
    ::update_button_geometry(*button);
}

void picker_view::set_button_position(picker_button* button, const QPoint& point) {
    button->position = held_position(point);
    button->rect = centred_rect(button->rect.size(), button->position);
}

picker_button* picker_view::button_at(const QPoint& point) const {
    const int i = button_index_at(point);
    return i < buttons.size() && to_widget(buttons[i]->rect).contains(point) ? buttons[i] : nullptr;
}

int picker_view::button_index_at(const QPoint& point) const {
    for (int i = 0; i < buttons.size(); ++i) {
        if (to_widget(buttons[i]->rect).contains(point))
            return i;
    }
    return 0;
}

picker_button* picker_view::button_by_label(const QString& text) const {
    const int i = button_index_by_label(text);
    return i < buttons.size() && buttons[i]->label == text ? buttons[i] : nullptr;
}

int picker_view::button_index_by_label(const QString& text) const {
    for (int i = 0; i < buttons.size(); ++i) {
        if (buttons[i]->label == text)
            return i;
    }
    return 0;
}

picker_button* picker_view::button_by_target(const QString& name) const {
    picker_button* found = nullptr;
    for (picker_button* button : buttons) {
        if (button->targets.contains(name))
            found = button;
    }
    return found;
}

void picker_view::remove_buttons(QVector<int> indices) {
    if (indices.isEmpty())
        return;
    // Backwards, so that the lower indices stay valid.
    for (int i = indices.size() - 1; i >= 0; --i)
        remove_button_record(indices[i]);
    update();
    emit changed();
    refresh_toolbox();
}

void picker_view::restore_buttons(const QVector<int>& indices,
                                  const QList<picker_button_data>& saved) {
    if (indices.isEmpty())
        return;
    for (int i = 0; i < indices.size() && i < saved.size(); ++i)
        add_button_record(saved[i], indices[i]);
    update();
    emit changed();
    refresh_toolbox();
}
