#pragma once
// Undoable changes of one property of the fully selected buttons. Each keeps the indices
// and the old values; indices a script invalidated since are skipped.
#include "canvas/picker_view.h"

#include <QRgb>
#include <QUndoCommand>
#include <QVector>

template <typename T, typename Derived> class property_cmd : public QUndoCommand {
public:
    property_cmd(picker_view* view_, T value_, const QString& text)
        : QUndoCommand(text), view(view_), value(value_) {
        for (int i = 0; i < view->buttons.size(); ++i) {
            if (view->buttons[i]->selected & 1) {
                indices.append(i);
                saved.append(Derived::read(*view->buttons[i]));
            }
        }
    }
    void redo() override { apply(true); }
    void undo() override { apply(false); }
    bool mergeWith(const QUndoCommand* other) override {
        const auto* same = dynamic_cast<const Derived*>(other);
        if (!same || same->indices != indices || !static_cast<Derived*>(this)->may_merge(*same))
            return false;
        static_cast<Derived*>(this)->take(*same);
        return true;
    }

    picker_view* view;
    T value;
    QVector<int> indices;
    QVector<T> saved;

protected:
    bool may_merge(const Derived&) const { return true; }
    void take(const Derived& other) { value = other.value; }
    // Most commands write the new value forward and the saved one back.
    static void apply_new(picker_view* v, picker_button* b, T x) { Derived::write(v, b, x); }
    static void apply_old(picker_view* v, picker_button* b, T x) { Derived::write(v, b, x); }

private:
    void apply(bool forward) {
        if (indices.isEmpty())
            return;
        const int n = view->buttons.size();
        for (int i = 0; i < indices.size(); ++i) {
            if (indices[i] < 0 || indices[i] >= n)
                continue;
            if (forward)
                Derived::apply_new(view, view->buttons[indices[i]], value);
            else
                Derived::apply_old(view, view->buttons[indices[i]], saved[i]);
        }
        view->update();
        emit view->changed();
        view->refresh_toolbox();
    }
};

class change_color_cmd : public property_cmd<QRgb, change_color_cmd> {
public:
    change_color_cmd(picker_view* view, QRgb color)
        : property_cmd(view, color, QObject::tr("Change Color")) {}
    int id() const override { return 3; }
    static QRgb read(const picker_button& b) { return b.color; }
    static void write(picker_view*, picker_button* b, QRgb v) { b->color = v; }
};

class change_labelc_cmd : public property_cmd<QRgb, change_labelc_cmd> {
public:
    change_labelc_cmd(picker_view* view, QRgb color)
        : property_cmd(view, color, QObject::tr("Change Color")) {}
    int id() const override { return 11; }
    static QRgb read(const picker_button& b) { return b.label_color; }
    // The colour is baked into the label picture.
    static void write(picker_view* view, picker_button* b, QRgb v) {
        b->label_color = v;
        view->update_button_geometry(b);
    }
};

class change_width_cmd : public property_cmd<int, change_width_cmd> {
public:
    change_width_cmd(picker_view* view, int width)
        : property_cmd(view, width, QObject::tr("Change Width")) {}
    int id() const override { return 4; }
    static int read(const picker_button& b) { return b.width; }
    static void write(picker_view* view, picker_button* b, int v) { view->set_button_width(b, v); }
};

class change_height_cmd : public property_cmd<int, change_height_cmd> {
public:
    change_height_cmd(picker_view* view, int height)
        : property_cmd(view, height, QObject::tr("Change Height")) {}
    int id() const override { return 5; }
    static int read(const picker_button& b) { return b.height; }
    static void write(picker_view* view, picker_button* b, int v) { view->set_button_height(b, v); }
};

// A size step: the delta is added with a floor of 1, and steps in one direction merge.
class adjust_width_cmd : public property_cmd<int, adjust_width_cmd> {
public:
    adjust_width_cmd(picker_view* view, int delta)
        : property_cmd(view, delta, QObject::tr("Adjust Size")) {}
    int id() const override { return 6; }
    static int read(const picker_button& b) { return b.width; }
    static void apply_new(picker_view* view, picker_button* b, int delta) {
        view->set_button_size(b, qMax(b->width + delta, 1), b->height);
    }
    static void apply_old(picker_view* view, picker_button* b, int width) {
        view->set_button_size(b, width, b->height);
    }
    bool may_merge(const adjust_width_cmd& other) const { return (value ^ other.value) >= 0; }
    void take(const adjust_width_cmd& other) { value += other.value; }
};

class adjust_height_cmd : public property_cmd<int, adjust_height_cmd> {
public:
    adjust_height_cmd(picker_view* view, int delta)
        : property_cmd(view, delta, QObject::tr("Adjust Size")) {}
    // Shares the width's id: pushed in pairs, the two never merge with each other.
    int id() const override { return 6; }
    static int read(const picker_button& b) { return b.height; }
    static void apply_new(picker_view* view, picker_button* b, int delta) {
        view->set_button_size(b, b->width, qMax(b->height + delta, 1));
    }
    static void apply_old(picker_view* view, picker_button* b, int height) {
        view->set_button_size(b, b->width, height);
    }
    bool may_merge(const adjust_height_cmd& other) const { return (value ^ other.value) >= 0; }
    void take(const adjust_height_cmd& other) { value += other.value; }
};
