#pragma once
// Moving a button from one set of namespaces to another. Both lists are parallel, each
// entry with its trailing ':'; later entries are tried first, so that of two nested
// namespaces the longer one wins.
#include "document/picker_button.h"

#include <QStringList>

// A selection button rewrites the prefix of each target; a command button rewrites every
// name-like token of its script that starts with an old namespace.
void rename_namespaces(picker_button_data& button, const QStringList& from_list,
                       const QStringList& to_list);

// A namespace as the rewrite takes it: with a trailing ':' (an empty `to` stays empty).
QString namespace_prefix(const QString& name, bool keep_empty);
