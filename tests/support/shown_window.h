#pragma once
// A picker window shown on the simulated host, with its first tab's view, made afresh for
// each test and gone after it; the scene selection and the idle queue start empty.
#include "canvas/picker_view.h"
#include "core/session.h"
#include "document/selected_objects.h"
#include "window/picker_window.h"

struct shown_window {
    host::session& host = host::session::get();
    picker_window* window = nullptr;
    picker_view* view = nullptr;

    void open_window(QSize size = QSize(400, 400)) {
        window = new picker_window(nullptr);
        window->resize(size);
        window->show();
        view = window->current_view();
        selected_objects.clear();
        host.idle.clear();
    }
    void close_window() {
        delete window;
        window = nullptr;
        view = nullptr;
        selected_objects.clear();
        host.idle.clear();
    }
};
