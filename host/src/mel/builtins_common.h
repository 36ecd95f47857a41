#pragma once
// What the attribute, key and node commands share: MEL's boolean words, names and plugs
// looked up with Maya's errors, and the selection as the default target.
#include "core/attributes.h"
#include "evaluator.h"

namespace host::mel {

// on/off, yes/no, true/false, or a number.
bool flag_bool(builtin_call& c, const value& v);
// A number from a value; false for a text that is no number.
bool number_of(const value& v, double* out);
// The one node a name designates: "No object matches name" and "More than one object
// matches name" otherwise.
int node_argument(builtin_call& c, const QString& name);
// The plug a "node.attr" text names; errors as Maya gives them, after `prefix`.
plug plug_argument(builtin_call& c, const QString& text, const QString& prefix = QString());
// The positional names, or the selected objects (components give their node) when none.
QStringList targets_or_selection(builtin_call& c, const parsed_flags& f);
// The leaves of a plug: a compound's children, or the plug alone.
QVector<plug> leaf_plugs(const scene& s, const plug& p);

} // namespace host::mel
