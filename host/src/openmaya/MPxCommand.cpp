#include <maya/MPxCommand.h>

#include "core/session.h"

#include <QString>

namespace {

QString text_of(const MString& s) {
    return QString::fromUtf8(s.asChar());
}

// Appending makes the result an array; its element type follows the first value.
void append(host::command_result::type kind, const QString& value) {
    host::command_result& r = host::session::get().current_result();
    if (r.kind == host::command_result::type::none)
        r.kind = kind;
    else if (r.kind != kind)
        r.kind = host::command_result::type::string;
    r.array = true;
    r.values.append(value);
}

} // namespace

MPxCommand::MPxCommand() = default;
MPxCommand::~MPxCommand() = default;
MStatus MPxCommand::doIt(const MArgList&) {
    return MStatus::kSuccess;
}
bool MPxCommand::isUndoable() const {
    return false;
}

void MPxCommand::clearResult() {
    host::session::get().current_result() = host::command_result();
}

void MPxCommand::appendToResult(int val) {
    append(host::command_result::type::int_, QString::number(val));
}
void MPxCommand::appendToResult(double val) {
    append(host::command_result::type::float_, QString::number(val, 'g', 15));
}
void MPxCommand::appendToResult(bool val) {
    append(host::command_result::type::int_, val ? QStringLiteral("1") : QStringLiteral("0"));
}
void MPxCommand::appendToResult(const char* val) {
    append(host::command_result::type::string, QString::fromUtf8(val ? val : ""));
}
void MPxCommand::appendToResult(const MString& val) {
    append(host::command_result::type::string, text_of(val));
}
void MPxCommand::appendToResult(const MStringArray& val) {
    host::command_result& r = host::session::get().current_result();
    r.kind = host::command_result::type::string;
    r.array = true;
    for (unsigned int i = 0; i < val.length(); ++i)
        r.values.append(text_of(val[i]));
}
