// Built-in commands on nodes and the DAG: listRelatives, nodeType, objectType, rename,
// parent.
#include "builtins_common.h"
#include "core/node_types.h"

namespace host::mel {

namespace {

// Every descendant, depth first, in the reverse order Maya lists them.
QVector<int> descendants(const scene& s, int node) {
    QVector<int> order;
    QVector<int> stack = s.at(node).children;
    while (!stack.isEmpty()) {
        const int id = stack.takeFirst();
        order.append(id);
        stack = s.at(id).children + stack;
    }
    std::reverse(order.begin(), order.end());
    return order;
}

value list_relatives(builtin_call& c) {
    const parsed_flags f = parse_flags(c, {{"c", "children", 0},
                                           {"p", "parent", 0},
                                           {"ad", "allDescendents", 0},
                                           {"ap", "allParents", 0},
                                           {"s", "shapes", 0},
                                           {"typ", "type", 1},
                                           {"f", "fullPath", 0},
                                           {"pa", "path", 0},
                                           {"ni", "noIntermediate", 0}});
    const scene& s = c.host.scene;
    const QVector<value> types = f.set.value(QStringLiteral("type"));
    QVector<int> found;
    for (const QString& name : targets_or_selection(c, f)) {
        const int node = node_argument(c, name);
        QVector<int> relatives;
        if (f.has("parent") || f.has("allParents")) {
            if (s.at(node).parent >= 0)
                relatives.append(s.at(node).parent);
        } else if (f.has("allDescendents")) {
            relatives = descendants(s, node);
        } else {
            relatives = s.at(node).children;
        }
        for (int id : relatives) {
            const QString& type = s.at(id).type;
            bool wanted = !f.has("shapes") || is_shape(type);
            if (!types.isEmpty()) {
                bool any = false;
                for (const value& t : types)
                    any = any || is_a(type, to_string(t));
                wanted = wanted && any;
            }
            if (wanted && !found.contains(id))
                found.append(id);
        }
    }
    QStringList out;
    for (int id : found)
        out << (f.has("fullPath") ? s.full_path(id) : s.display_name(id));
    return value::of_strings(out);
}

value node_type(builtin_call& c) {
    const parsed_flags f = parse_flags(c, {{"i", "inherited", 0}, {"api", "apiType", 0}});
    const QStringList names = f.positional_strings();
    if (names.isEmpty())
        c.fail(QStringLiteral("nodeType: No object was specified."));
    const QString object = names.front().section(QLatin1Char('.'), 0, 0);
    const QString& type = c.host.scene.at(node_argument(c, object)).type;
    if (f.has("inherited"))
        return value::of_strings(type_inheritance(type));
    if (f.has("apiType"))
        return value::of_string(QLatin1Char('k') + type.left(1).toUpper() + type.mid(1));
    return value::of_string(type);
}

value object_type(builtin_call& c) {
    const parsed_flags f =
        parse_flags(c, {{"i", "isType", 1}, {"isa", "isAType", 1}, {"tpt", "typeTag", 0}});
    const QStringList names = f.positional_strings();
    if (names.isEmpty())
        c.fail(QStringLiteral("objectType: No object was specified."));
    const QString object = names.front().section(QLatin1Char('.'), 0, 0);
    const QString& type = c.host.scene.at(node_argument(c, object)).type;
    if (f.has("isType"))
        return value::of_int(type == to_string(f.get("isType")));
    if (f.has("isAType"))
        return value::of_int(is_a(type, to_string(f.get("isAType"))));
    return value::of_string(type);
}

// A new name relative to the current namespace, as createNode takes it.
QString qualified(const scene& s, const QString& name) {
    if (name.startsWith(QLatin1Char(':')))
        return name.mid(1);
    return s.current_namespace().isEmpty() ? name : s.current_namespace() + QLatin1Char(':') + name;
}

value rename(builtin_call& c) {
    const parsed_flags f = parse_flags(c, {{"is", "ignoreShape", 0}, {"uid", "uuid", 0}});
    QStringList names = f.positional_strings();
    if (names.size() == 1 && !c.host.active.empty())
        names.prepend(c.host.active.names().front().section(QLatin1Char('.'), 0, 0));
    if (names.size() != 2)
        c.fail(QStringLiteral("rename: Give the object to rename and its new name."));
    scene& s = c.host.scene;
    const int node = node_argument(c, names[0]);
    const QString wanted = qualified(s, names[1]);
    if (!scene::valid_node_name(wanted))
        c.fail(QStringLiteral("rename: '%1' is not a valid name.").arg(names[1]));
    if (s.at(node).name != wanted && !s.rename_node(node, wanted) &&
        !s.rename_node(node, s.unique_name(wanted)))
        c.fail(QStringLiteral("rename: Cannot rename '%1' to '%2'.").arg(names[0], names[1]));
    return value::of_string(s.display_name(node));
}

value parent(builtin_call& c) {
    const parsed_flags f = parse_flags(c, {{"w", "world", 0},
                                           {"r", "relative", 0},
                                           {"a", "absolute", 0},
                                           {"add", "addObject", 0},
                                           {"s", "shape", 0},
                                           {"rm", "removeObject", 0},
                                           {"nc", "noConnections", 0},
                                           {"nis", "noInvScale", 0}});
    scene& s = c.host.scene;
    QStringList names = targets_or_selection(c, f);
    int new_parent = -1;
    if (!f.has("world")) {
        if (names.size() < 2)
            c.fail(QStringLiteral("parent: Give the objects to parent and their new parent."));
        new_parent = node_argument(c, names.takeLast());
    }
    QStringList out;
    for (const QString& name : names) {
        const int node = node_argument(c, name);
        if (s.at(node).curve)
            c.fail(QStringLiteral("parent: '%1' is not a DAG object.").arg(name));
        if (s.at(node).parent == new_parent) {
            c.host.out.warning(
                new_parent < 0
                    ? QStringLiteral("Object '%1' is already a child of the world.").arg(name)
                    : QStringLiteral("Object '%1' is already a child of the given "
                                     "parent.")
                          .arg(name));
            out << s.display_name(node);
            continue;
        }
        if (!s.reparent(node, new_parent))
            c.fail(QStringLiteral("parent: Cannot parent '%1' under its own descendant '%2'.")
                       .arg(name, s.display_name(new_parent)));
        out << s.display_name(node);
    }
    return value::of_strings(out);
}

} // namespace

void register_node_builtins(builtin_table& t) {
    t.insert(QStringLiteral("listRelatives"), list_relatives);
    t.insert(QStringLiteral("nodeType"), node_type);
    t.insert(QStringLiteral("objectType"), object_type);
    t.insert(QStringLiteral("rename"), rename);
    t.insert(QStringLiteral("parent"), parent);
}

} // namespace host::mel
