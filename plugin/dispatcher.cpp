// The directive table: exact, case-sensitive names tried in order; the first match runs.
#include "plugin/picker_main.h"

#include <QString>
#include <cstring>
#include <maya/MGlobal.h>
#include <maya/MQtUtil.h>

const picker_main::directive picker_main::directives[] = {
    {"clear", &picker_main::clear},
    {"select", &picker_main::select},
    {"restore", &picker_main::restore},
    {"fetch_image", &picker_main::fetch_image},
    {"set_background", &picker_main::set_background},
    {"clear_background", &picker_main::clear_background},
    {"bind", &picker_main::bind},
    {"rebind", &picker_main::rebind},
    {"update_namespace", &picker_main::update_namespace},
    {"save", &picker_main::save},
    {"saveas", &picker_main::saveas},
    {"new_tab", &picker_main::new_tab},
    {"close_tab", &picker_main::close_tab},
    {"clear_tabs", &picker_main::clear_tabs},
    {"rename_tab", &picker_main::rename_tab},
    {"query_tabs", &picker_main::query_tabs},
    {"set_tab", &picker_main::set_tab},
    {"add_button", &picker_main::add_button},
    {"add_cmd_button", &picker_main::add_cmd_button},
    {"move_button", &picker_main::move_button},
    {"rename_button", &picker_main::rename_button},
    {"update_button", &picker_main::update_button},
    {"delete_button", &picker_main::delete_button},
    {"query_button", &picker_main::query_button},
    {"get_button_bounds", &picker_main::get_button_bounds},
    {"resize_button", &picker_main::resize_button},
    {"color_button", &picker_main::color_button},
    {"color_button_text", &picker_main::color_button_text},
    {"get_button_properties", &picker_main::get_button_properties},
    {"set_button_properties", &picker_main::set_button_properties},
    {"get_namespaces", &picker_main::get_namespaces},
    {"enable_batch_mode", &picker_main::enable_batch_mode},
    {"disable_batch_mode", &picker_main::disable_batch_mode},
    {"open_picker_data", &picker_main::open_picker_data},
    {"get_picker_data", &picker_main::get_picker_data},
    {"get_saved_picker_data", &picker_main::get_saved_picker_data},
    {"resize_background", &picker_main::resize_background},
    {"open", &picker_main::open},
};

MStatus picker_main::dispatch(const MString& name, const MStringArray& args) {
    for (const directive& d : directives) {
        if (std::strcmp(name.asChar(), d.name) == 0)
            return (this->*d.run)(args);
    }
    MGlobal::displayError(MQtUtil::toMString(
        QStringLiteral("ZelvaniPicker - unknown directive: %1").arg(MQtUtil::toQString(name))));
    return MS::kFailure;
}
