#pragma once
// The picker's own event loops: its menus and modal dialogs. The host runs idle jobs inside
// them, as Maya does, and a job may close the tab (or the window) whose handler opened the
// loop and still waits below it. So a view closed meanwhile is not deleted at once: its
// dialogs and menus are closed, it is hidden and taken out of its window, and it is deleted
// once the outermost loop has returned. The handlers below see that it left its window and
// drop what they were doing.
class QWidget;

// Held around each of the picker's event loops.
class loop_scope {
public:
    loop_scope();
    ~loop_scope();
    loop_scope(const loop_scope&) = delete;
    loop_scope& operator=(const loop_scope&) = delete;
};

// True while one of the picker's loops runs.
bool in_picker_loop();

// Deletes `widget` now, or, while a loop runs, as told above.
void dispose_when_unwound(QWidget* widget);

// Deletes at once what waits to be deleted; for the plug-in's unloading outside any loop,
// when the library's code is about to go.
void delete_disposed_widgets();
