#pragma once
// The ZelvaniPicker command: makes sure the window exists, then runs one directive.
#include <maya/MArgList.h>
#include <maya/MPxCommand.h>
#include <maya/MStatus.h>
#include <maya/MString.h>
#include <maya/MStringArray.h>

class picker_view;
class picker_window;

class picker_main : public MPxCommand {
public:
    ~picker_main() override;
    MStatus doIt(const MArgList& args) override;

    static void* creator();

private:
    using handler = MStatus (picker_main::*)(const MStringArray& args);
    struct directive {
        const char* name;
        handler run;
    };
    static const directive directives[];

    MStatus dispatch(const MString& name, const MStringArray& args);

    // --- selection ---
    MStatus clear(const MStringArray& args);
    MStatus select(const MStringArray& args);
    // --- documents ---
    MStatus restore(const MStringArray& args);
    MStatus open_picker_data(const MStringArray& args);
    MStatus get_picker_data(const MStringArray& args);
    MStatus get_saved_picker_data(const MStringArray& args);
    MStatus read_picker_data(const MStringArray& args, bool replace);
    // --- backgrounds ---
    MStatus fetch_image(const MStringArray& args);
    MStatus set_background(const MStringArray& args);
    MStatus clear_background(const MStringArray& args);
    MStatus resize_background(const MStringArray& args);
    // --- buttons ---
    MStatus add_button(const MStringArray& args);
    MStatus add_cmd_button(const MStringArray& args);
    MStatus add_button_of_kind(picker_view* view, const MStringArray& args, int kind);
    MStatus move_button(const MStringArray& args);
    MStatus rename_button(const MStringArray& args);
    MStatus update_button(const MStringArray& args);
    MStatus delete_button(const MStringArray& args);
    MStatus query_button(const MStringArray& args);
    MStatus get_button_bounds(const MStringArray& args);
    MStatus resize_button(const MStringArray& args);
    MStatus color_button(const MStringArray& args);
    MStatus color_button_text(const MStringArray& args);
    MStatus paint_button(const MStringArray& args, bool label);
    MStatus get_button_properties(const MStringArray& args);
    MStatus set_button_properties(const MStringArray& args);
    MStatus enable_batch_mode(const MStringArray& args);
    MStatus disable_batch_mode(const MStringArray& args);
    // --- namespaces ---
    MStatus bind(const MStringArray& args);
    MStatus rebind(const MStringArray& args);
    MStatus update_namespace(const MStringArray& args);
    MStatus get_namespaces(const MStringArray& args);
    // --- tabs ---
    MStatus save(const MStringArray& args);
    MStatus saveas(const MStringArray& args);
    MStatus new_tab(const MStringArray& args);
    MStatus close_tab(const MStringArray& args);
    MStatus clear_tabs(const MStringArray& args);
    MStatus rename_tab(const MStringArray& args);
    MStatus query_tabs(const MStringArray& args);
    MStatus set_tab(const MStringArray& args);
    MStatus open(const MStringArray& args);
};

// The window inside the dock, or null when there is none.
picker_window* picker_window_instance();
// The view of the current tab, or null when there is no tab.
picker_view* current_picker_view();
