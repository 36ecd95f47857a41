#include "builtins_common.h"

namespace host::mel {

bool number_of(const value& v, double* out) {
    if (v.kind == type::int_ || v.kind == type::float_) {
        *out = to_float(v);
        return true;
    }
    if (v.kind != type::string)
        return false;
    bool ok = false;
    *out = v.s.trimmed().toDouble(&ok);
    return ok;
}

bool flag_bool(builtin_call& c, const value& v) {
    bool ok = false;
    const bool on = text_bool(to_string(v), &ok);
    if (!ok)
        c.fail(QStringLiteral("Invalid boolean value: %1").arg(to_string(v)));
    return on;
}

int node_argument(builtin_call& c, const QString& name) {
    const QVector<int> ids = c.host.scene.find(name);
    if (ids.isEmpty())
        c.fail(QStringLiteral("No object matches name: %1").arg(name));
    if (ids.size() > 1)
        c.fail(QStringLiteral("More than one object matches name: %1").arg(name));
    return ids.front();
}

plug plug_argument(builtin_call& c, const QString& text, const QString& prefix) {
    plug p;
    switch (find_plug(c.host.scene, text, p)) {
    case plug_lookup::found:
        return p;
    case plug_lookup::many_objects:
        c.fail(prefix + QStringLiteral("More than one object matches name: %1").arg(text));
    default:
        c.fail(prefix + QStringLiteral("No object matches name: %1").arg(text));
    }
}

QStringList targets_or_selection(builtin_call& c, const parsed_flags& f) {
    QStringList names = f.positional_strings();
    if (!names.isEmpty())
        return names;
    for (const QString& name : c.host.active.names()) {
        const QString node = name.section(QLatin1Char('.'), 0, 0);
        if (!names.contains(node))
            names.append(node);
    }
    return names;
}

QVector<plug> leaf_plugs(const scene& s, const plug& p) {
    const attribute_def& definition = attribute_at(s, p.node, p.index);
    if (definition.kind != attribute_kind::compound)
        return {p};
    QVector<plug> out;
    for (int child : definition.children)
        out.append({p.node, child});
    return out;
}

} // namespace host::mel
