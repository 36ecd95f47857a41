// Directives that bind the current tab to the scene's namespaces.
#include "canvas/picker_view.h"
#include "plugin/directive_args.h"
#include "plugin/picker_main.h"

MStatus picker_main::bind(const MStringArray& args) {
    if (picker_view* view = current_picker_view())
        view->rebind_namespaces(arg_list(args), false);
    return MS::kSuccess;
}

MStatus picker_main::rebind(const MStringArray& args) {
    if (picker_view* view = current_picker_view())
        view->rebind_namespaces(arg_list(args), true);
    return MS::kSuccess;
}

MStatus picker_main::update_namespace(const MStringArray& args) {
    picker_view* view = current_picker_view();
    if (view && args.length() > 0)
        view->update_namespace(arg_text(args, 0));
    return MS::kSuccess;
}

MStatus picker_main::get_namespaces(const MStringArray&) {
    picker_view* view = current_picker_view();
    if (!view)
        return MS::kSuccess;
    QStringList list;
    view->collect_namespaces(list);
    list.removeAll(QString());
    if (list.isEmpty())
        list.append(QStringLiteral(":"));
    MStringArray result;
    for (const QString& ns : qAsConst(list))
        result.append(MQtUtil::toMString(ns));
    clearResult();
    appendToResult(result);
    return MS::kSuccess;
}
