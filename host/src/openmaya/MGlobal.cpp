#include <maya/MGlobal.h>

#include "core/session.h"
#include "mel/interpreter.h"
#include "mel/value.h"
#include "openmaya/access.h"
#include "python/runtime.h"

namespace {

host::session& host_session() {
    return host::session::get();
}
QString text_of(const MString& s) {
    return QString::fromUtf8(s.asChar(), int(s.length()));
}

} // namespace

MStatus MGlobal::executeCommand(const MString& command, MStringArray& result, bool, bool) {
    const host::execution run = host_session().mel().execute(text_of(command));
    for (const QString& v : run.values)
        result.append(MString(v.toUtf8().constData()));
    return run.ok ? MStatus::kSuccess : MStatus::kFailure;
}

MStatus MGlobal::executeCommandOnIdle(const MString& command, bool) {
    host_session().idle.push_mel(text_of(command));
    return MStatus::kSuccess;
}

MStatus MGlobal::executePythonCommand(const MString& command, bool displayEnabled, bool) {
    return host_session().run_python(text_of(command), displayEnabled) ? MStatus::kSuccess
                                                                       : MStatus::kFailure;
}

MStatus MGlobal::executePythonCommand(const MString& command, MString& result, bool displayEnabled,
                                      bool) {
    host::session& s = host_session();
    const host::output::style_scope style(s.out, host::language::python);
    host::mel::value value;
    QString error;
    if (!s.python().evaluate(text_of(command), value, error)) {
        s.out.error(error);
        return MStatus::kFailure;
    }
    const QString text = host::mel::to_strings(value).join(QLatin1Char(' '));
    if (displayEnabled && value.kind != host::mel::type::none)
        s.out.result(text);
    result = MString(text.toUtf8().constData());
    return MStatus::kSuccess;
}

MStatus MGlobal::executePythonCommandOnIdle(const MString& command, bool) {
    host_session().idle.push_python(text_of(command));
    return MStatus::kSuccess;
}

void MGlobal::displayError(const MString& theError) {
    host_session().out.error(text_of(theError));
}

MStatus MGlobal::getActiveSelectionList(MSelectionList& dest, bool) {
    host::session& s = host_session();
    if (s.fails(QStringLiteral("getActiveSelectionList")))
        return MStatus::kFailure;
    MSelectionListAccess::set(dest, s.active.names());
    return MStatus::kSuccess;
}

MStatus MGlobal::selectByName(const MString& name, ListAdjustment listAdjustment) {
    host::selection::adjust how = host::selection::adjust::add;
    switch (listAdjustment) {
    case kReplaceList:
        how = host::selection::adjust::replace;
        break;
    case kXORWithList:
        how = host::selection::adjust::toggle;
        break;
    case kRemoveFromList:
        how = host::selection::adjust::remove;
        break;
    case kAddToList:
    case kAddToHeadOfList:
        break;
    }
    return host_session().select({text_of(name)}, how) ? MStatus::kSuccess : MStatus::kFailure;
}

MStatus MGlobal::clearSelectionList() {
    host_session().clear_selection();
    return MStatus::kSuccess;
}
