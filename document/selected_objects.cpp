#include "document/selected_objects.h"

QStringList selected_objects;

bool add_selected_object(const QString& name) {
    if (selected_objects.contains(name))
        return false;
    selected_objects.append(name);
    return true;
}

bool is_selected_object(const QString& name) {
    return !selected_objects.isEmpty() && selected_objects.contains(name);
}
