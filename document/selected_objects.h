#pragma once
// The names selected in the scene now, in the host's order, shared by every tab. It
// outlives the window and is never saved.
#include <QString>
#include <QStringList>

extern QStringList selected_objects;

// Appends `name` unless it is there already; tells whether it appended.
bool add_selected_object(const QString& name);
bool is_selected_object(const QString& name);
