#pragma once
// Questions asked of a picker's buttons as a whole.
#include "document/picker_button.h"

#include <QList>
#include <QSet>
#include <QStringList>

// Sets each button's target flags and state from the selected names; true when the
// state of any button changed. A button with no targets counts as fully selected.
bool match_buttons(const QList<picker_button*>& buttons, const QSet<QString>& selected);

// Adds to `list` the namespaces used by the selection buttons' targets ("a:b:c" gives
// "a:b" and "a"; a ':' inside brackets does not count; 32 levels of a name at most), then
// sorts it by lower-cased text.
void collect_button_namespaces(const QList<picker_button*>& buttons, QStringList& list);

// The entries of `names` once each, in first-seen order.
QStringList distinct_names(const QStringList& names);
