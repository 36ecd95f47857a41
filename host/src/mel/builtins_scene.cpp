// Built-in commands on the scene: fileInfo, file, namespaces, nodes, selection, plug-ins.
#include "builtins_common.h"
#include "core/node_types.h"

#include <QFileInfo>
#include <QSet>

namespace host::mel {

namespace {

value file_info(builtin_call& c) {
    const parsed_flags f = parse_flags(c, {{"rm", "remove", 1}});
    scene& s = c.host.scene;
    if (f.has("remove")) {
        s.remove_file_info(to_string(f.get("remove")));
        return value();
    }
    if (f.query) {
        if (f.positional.isEmpty()) {
            QStringList flat;
            for (const auto& kv : s.file_infos())
                flat << kv.first << kv.second;
            return value::of_strings(flat);
        }
        const QString key = to_string(f.positional[0]);
        return value::of_strings(s.has_file_info(key) ? QStringList{s.file_info(key)}
                                                      : QStringList());
    }
    if (f.positional.size() != 2)
        c.fail(QStringLiteral("fileInfo needs a keyword and a value."));
    s.set_file_info(to_string(f.positional[0]), to_string(f.positional[1]));
    return value();
}

value file_command(builtin_call& c) {
    const parsed_flags f = parse_flags(c, {{"f", "force", 0},
                                           {"new", "newFile", 0},
                                           {"o", "open", 0},
                                           {"rn", "rename", 1},
                                           {"s", "save", 0},
                                           {"typ", "type", 1},
                                           {"mf", "modified", 1},
                                           {"sn", "sceneName", 0},
                                           {"pmt", "prompt", 1},
                                           {"iv", "ignoreVersion", 0}});
    session& host = c.host;
    if (f.query) {
        if (f.has("sceneName"))
            return value::of_string(host.scene.name());
        if (f.has("modified"))
            return value::of_int(host.scene.modified() ? 1 : 0);
        c.fail(QStringLiteral("file: nothing to query."));
    }
    if (f.has("modified")) {
        host.scene.set_modified(to_bool(f.get("modified")));
        return value();
    }
    if (f.has("newFile")) {
        if (host.scene.modified() && !f.has("force"))
            c.fail(QStringLiteral("Unsaved changes: use file -force -new to discard them."));
        host.new_scene();
        return value();
    }
    if (f.has("rename")) {
        host.scene.set_name(QFileInfo(to_string(f.get("rename"))).absoluteFilePath());
        return value::of_string(host.scene.name());
    }
    if (f.has("save")) {
        QString error;
        if (!host.save_scene(host.scene.name(), &error))
            c.fail(error);
        return value::of_string(host.scene.name());
    }
    if (f.has("open")) {
        const QStringList paths = f.positional_strings();
        if (paths.isEmpty())
            c.fail(QStringLiteral("file -open needs a file name."));
        if (host.scene.modified() && !f.has("force"))
            c.fail(QStringLiteral("Unsaved changes: use file -force -open to discard them."));
        QString error;
        if (!host.open_scene(paths.first(), &error))
            c.fail(error);
        return value::of_string(host.scene.name());
    }
    c.fail(QStringLiteral("file: no action given."));
}

QString namespace_argument(builtin_call& c, const QString& name) {
    const QString full = c.host.scene.absolute_namespace(name);
    if (!c.host.scene.namespace_exists(full))
        c.fail(QStringLiteral("Namespace '%1' does not exist.").arg(name));
    return full;
}

value namespace_info(builtin_call& c) {
    const parsed_flags f = parse_flags(c, {{"lon", "listOnlyNamespaces", 0},
                                           {"cur", "currentNamespace", 0},
                                           {"an", "absoluteName", 0}});
    scene& s = c.host.scene;
    if (f.has("currentNamespace")) {
        const QString cur = s.current_namespace();
        return value::of_string(cur.isEmpty() ? QStringLiteral(":") : cur);
    }
    QString parent = s.current_namespace();
    if (!f.positional.isEmpty())
        parent = namespace_argument(c, to_string(f.positional[0]));
    if (f.has("listOnlyNamespaces"))
        return value::of_strings(s.child_namespaces(parent));
    c.fail(QStringLiteral("namespaceInfo: no action given."));
}

value namespace_command(builtin_call& c) {
    const parsed_flags f = parse_flags(c, {{"add", "add", 1},
                                           {"set", "setNamespace", 1},
                                           {"p", "parent", 1},
                                           {"rm", "removeNamespace", 1},
                                           {"ex", "exists", 0}});
    scene& s = c.host.scene;
    if (f.has("exists")) {
        const QString name = to_string(f.positional.value(0));
        return value::of_int(s.namespace_exists(s.absolute_namespace(name)) ? 1 : 0);
    }
    if (f.has("add")) {
        const QString name = to_string(f.get("add"));
        QString parent = s.current_namespace();
        if (f.has("parent"))
            parent = namespace_argument(c, to_string(f.get("parent")));
        const QString bare = name.startsWith(QLatin1Char(':')) ? name.mid(1) : name;
        const QString full = name.startsWith(QLatin1Char(':')) || parent.isEmpty()
                                 ? bare
                                 : parent + QLatin1Char(':') + bare;
        if (s.namespace_exists(full))
            c.fail(QStringLiteral("A namespace called '%1' already exists.").arg(full));
        if (full.isEmpty() || !s.ensure_namespace(full))
            c.fail(QStringLiteral("'%1' is not a valid namespace name.").arg(name));
        return value::of_string(full);
    }
    if (f.has("setNamespace")) {
        s.set_current_namespace(namespace_argument(c, to_string(f.get("setNamespace"))));
        return value();
    }
    if (f.has("removeNamespace")) {
        const QString full = namespace_argument(c, to_string(f.get("removeNamespace")));
        if (!s.remove_namespace(full))
            c.fail(QStringLiteral("Namespace '%1' is not empty or cannot be removed.")
                       .arg(full.isEmpty() ? QStringLiteral(":") : full));
        return value();
    }
    c.fail(QStringLiteral("namespace: no action given."));
}

value ls(builtin_call& c) {
    const parsed_flags f = parse_flags(c, {{"sl", "selection", 0}, {"type", "type", 1}});
    scene& s = c.host.scene;
    const QString type_filter = f.has("type") ? to_string(f.get("type")) : QString();
    QStringList out;
    QVector<int> ids;
    const QStringList patterns = f.positional_strings();
    if (f.has("selection")) {
        for (const QString& name : c.host.active.names()) {
            bool wanted = patterns.isEmpty();
            for (const QString& p : patterns)
                wanted = wanted || wildcard_match(p, name);
            if (wanted)
                out << name;
        }
        return value::of_strings(out);
    }
    if (patterns.isEmpty())
        ids = s.live_nodes();
    QSet<int> listed;
    for (const QString& p : patterns) {
        for (int id : s.match(p)) {
            if (!listed.contains(id)) {
                listed.insert(id);
                ids.append(id);
            }
        }
    }
    for (int id : ids) {
        if (type_filter.isEmpty() || is_a(s.at(id).type, type_filter))
            out << s.display_name(id);
    }
    return value::of_strings(out);
}

value select(builtin_call& c) {
    const parsed_flags f = parse_flags(c, {{"r", "replace", 0},
                                           {"add", "add", 0},
                                           {"d", "deselect", 0},
                                           {"tgl", "toggle", 0},
                                           {"cl", "clear", 0},
                                           {"ne", "noExpand", 0},
                                           {"af", "addFirst", 0}});
    const QStringList names = f.positional_strings();
    if (f.has("clear") || (names.isEmpty() && !f.has("add") && !f.has("deselect"))) {
        c.host.clear_selection();
        return value();
    }
    selection::adjust how = selection::adjust::replace;
    if (f.has("add") || f.has("addFirst"))
        how = selection::adjust::add;
    else if (f.has("deselect"))
        how = selection::adjust::remove;
    else if (f.has("toggle"))
        how = selection::adjust::toggle;
    QString error;
    if (!c.host.select(names, how, &error))
        c.fail(error);
    return value();
}

value create_node(builtin_call& c) {
    const parsed_flags f = parse_flags(
        c, {{"n", "name", 1}, {"p", "parent", 1}, {"ss", "skipSelect", 0}, {"s", "shared", 0}});
    if (f.positional.isEmpty())
        c.fail(QStringLiteral("createNode needs a node type."));
    scene& s = c.host.scene;
    const QString type = to_string(f.positional[0]);
    QString name = f.has("name") ? to_string(f.get("name")) : type + QLatin1Char('1');
    if (name.startsWith(QLatin1Char(':')))
        name = name.mid(1);
    else if (!s.current_namespace().isEmpty())
        name = s.current_namespace() + QLatin1Char(':') + name;
    const int parent = f.has("parent") ? node_argument(c, to_string(f.get("parent"))) : -1;
    const int id = s.create_node(type, name, parent, true);
    if (id < 0)
        c.fail(QStringLiteral("'%1' is not a valid node name.").arg(name));
    const QString created = s.display_name(id);
    if (!f.has("skipSelect"))
        c.host.select({created}, selection::adjust::replace);
    return value::of_string(created);
}

value delete_nodes(builtin_call& c) {
    const parsed_flags f = parse_flags(c, {});
    QStringList names = f.positional_strings();
    if (names.isEmpty())
        names = c.host.active.names();
    scene& s = c.host.scene;
    QVector<int> doomed;
    for (const QString& name : names) {
        const QString object = name.section(QLatin1Char('.'), 0, 0);
        const QVector<int> ids = s.match(object);
        if (ids.isEmpty())
            c.fail(QStringLiteral("No object matches name: %1").arg(name));
        doomed += ids;
    }
    for (int id : doomed)
        s.remove_node(id);
    c.host.nodes_removed();
    return value();
}

value obj_exists(builtin_call& c) {
    const QString text = to_string(c.args.value(0));
    const QString attribute = text.section(QLatin1Char('.'), 1);
    // A plug exists with its attribute; a component ("pCube1.vtx[0]") with its node.
    if (!attribute.isEmpty() && !attribute.contains(QLatin1Char('['))) {
        plug p;
        return value::of_int(find_plug(c.host.scene, text, p) == plug_lookup::found);
    }
    const QString name = text.section(QLatin1Char('.'), 0, 0);
    return value::of_int(!name.isEmpty() && !c.host.scene.match(name).isEmpty() ? 1 : 0);
}

value load_plugin(builtin_call& c) {
    const parsed_flags f = parse_flags(c, {{"qt", "quiet", 0}});
    QStringList loaded;
    for (const QString& path : f.positional_strings()) {
        QString error;
        if (!c.host.load_plugin(path, &error))
            c.fail(error);
        loaded << c.host.loaded_plugins().value(c.host.loaded_plugins().size() - 1);
    }
    return value::of_strings(loaded);
}

value unload_plugin(builtin_call& c) {
    const parsed_flags f = parse_flags(c, {{"f", "force", 0}});
    for (const QString& name : f.positional_strings()) {
        QString error;
        if (!c.host.unload_plugin(name, &error))
            c.fail(error);
    }
    return value();
}

} // namespace

void register_scene_builtins(builtin_table& t) {
    t.insert(QStringLiteral("fileInfo"), file_info);
    t.insert(QStringLiteral("file"), file_command);
    t.insert(QStringLiteral("namespaceInfo"), namespace_info);
    t.insert(QStringLiteral("namespace"), namespace_command);
    t.insert(QStringLiteral("ls"), ls);
    t.insert(QStringLiteral("select"), select);
    t.insert(QStringLiteral("createNode"), create_node);
    t.insert(QStringLiteral("delete"), delete_nodes);
    t.insert(QStringLiteral("objExists"), obj_exists);
    t.insert(QStringLiteral("loadPlugin"), load_plugin);
    t.insert(QStringLiteral("unloadPlugin"), unload_plugin);
    t.insert(QStringLiteral("getApplicationVersionAsFloat"),
             [](builtin_call&) { return value::of_float(2019); });
}

} // namespace host::mel
