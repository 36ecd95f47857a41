#include "selection.h"

#include "scene.h"

#include <algorithm>

namespace host {

bool selection::resolve(const QString& name, QVector<item>& out, QString* error) const {
    QString object = name;
    QString component;
    // A component follows the object's name after a dot: "pCube1.vtx[0:3]".
    const int dot = name.indexOf(QLatin1Char('.'));
    if (dot > 0) {
        object = name.left(dot);
        component = name.mid(dot);
    }
    const QVector<int> ids = scene_.match(object);
    if (ids.isEmpty()) {
        if (error)
            *error = QStringLiteral("No object matches name: %1").arg(name);
        return false;
    }
    const bool pattern = object.contains(QLatin1Char('*')) || object.contains(QLatin1Char('?'));
    if (ids.size() > 1 && !pattern) {
        if (error)
            *error = QStringLiteral("More than one object matches name: %1").arg(name);
        return false;
    }
    for (int id : ids)
        out.append({id, component});
    return true;
}

bool selection::select(const QStringList& names, adjust how, QString* error) {
    QVector<item> wanted;
    for (const QString& name : names) {
        if (!resolve(name, wanted, error))
            return false;
    }
    if (how == adjust::replace)
        items_.clear();
    for (const item& it : wanted) {
        const int at = items_.indexOf(it);
        switch (how) {
        case adjust::replace:
        case adjust::add:
            if (at < 0)
                items_.append(it);
            break;
        case adjust::remove:
            if (at >= 0)
                items_.remove(at);
            break;
        case adjust::toggle:
            if (at >= 0)
                items_.remove(at);
            else
                items_.append(it);
            break;
        }
    }
    return true;
}

QStringList selection::names() const {
    QStringList out;
    out.reserve(items_.size());
    for (const item& it : items_)
        out.append(scene_.display_name(it.node) + it.component);
    return out;
}

bool selection::prune() {
    const int before = items_.size();
    items_.erase(std::remove_if(items_.begin(), items_.end(),
                                [this](const item& it) {
                                    return it.node >= scene_.node_capacity() ||
                                           !scene_.at(it.node).alive;
                                }),
                 items_.end());
    return items_.size() != before;
}

} // namespace host
