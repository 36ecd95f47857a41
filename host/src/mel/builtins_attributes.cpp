// Built-in commands on attributes: getAttr, setAttr, addAttr, deleteAttr, listAttr,
// attributeQuery.
#include "builtins_common.h"
#include "core/anim_curves.h"

namespace host::mel {

namespace {

const QString set_prefix = QStringLiteral("setAttr: ");

bool integral(attribute_kind kind) {
    return kind == attribute_kind::integer || kind == attribute_kind::boolean ||
           kind == attribute_kind::enumeration;
}

value number_value(const attribute_def& definition, double v) {
    return integral(definition.kind) ? value::of_int(int(v)) : value::of_float(v);
}

QString enum_name(const attribute_def& definition, int v) {
    for (const auto& field : definition.fields) {
        if (field.second == v)
            return field.first;
    }
    return QString::number(v);
}

// ---------------------------------------------------------------- getAttr

value get_attr(builtin_call& c) {
    const parsed_flags f = parse_flags(c, {{"typ", "type", 0},
                                           {"k", "keyable", 0},
                                           {"l", "lock", 0},
                                           {"cb", "channelBox", 0},
                                           {"t", "time", 1},
                                           {"as", "asString", 0},
                                           {"sl", "silent", 0},
                                           {"x", "expandEnvironmentVariables", 0}});
    const QStringList names = f.positional_strings();
    if (names.isEmpty())
        c.fail(QStringLiteral("getAttr: No attribute was specified."));
    const scene& s = c.host.scene;
    const plug p = plug_argument(c, names.front());
    const attribute_def& definition = attribute_at(s, p.node, p.index);
    const plug_value state = plug_state(s, p);
    if (f.has("type"))
        return value::of_string(definition.type);
    if (f.has("keyable"))
        return value::of_int(definition.kind != attribute_kind::compound && state.keyable);
    if (f.has("lock"))
        return value::of_int(state.locked);
    if (f.has("channelBox"))
        return value::of_int(state.channel_box);
    if (definition.kind == attribute_kind::string)
        return value::of_string(state.text);
    const double time = f.has("time") ? to_float(f.get("time")) : s.time.current;
    if (definition.kind == attribute_kind::compound) {
        value out = value::empty_of(type::float_array);
        for (const plug& child : leaf_plugs(s, p))
            out.fa.append(plug_number_at(s, child, time));
        return out;
    }
    const double v = plug_number_at(s, p, time);
    if (f.has("asString"))
        return value::of_string(definition.kind == attribute_kind::enumeration
                                    ? enum_name(definition, int(v))
                                    : format_float(v));
    return number_value(definition, v);
}

// ---------------------------------------------------------------- setAttr

double datum(builtin_call& c, const QVector<value>& data, int k) {
    if (k >= data.size())
        c.fail(set_prefix + QStringLiteral("Error reading data element number %1").arg(k + 1));
    double v = 0;
    if (number_of(data[k], &v))
        return v;
    bool ok = false;
    const bool on = text_bool(to_string(data[k]), &ok);
    if (!ok)
        c.fail(set_prefix + QStringLiteral("Error reading data element number %1: %2")
                                .arg(k + 1)
                                .arg(to_string(data[k])));
    return on ? 1 : 0;
}

void set_values(builtin_call& c, const plug& p, const QString& type_flag,
                const QVector<value>& data, bool clamp) {
    scene& s = c.host.scene;
    const attribute_def& definition = attribute_at(s, p.node, p.index);
    QString error;
    if (definition.kind == attribute_kind::string) {
        if (type_flag != QLatin1String("string"))
            c.fail(set_prefix + QStringLiteral("Error reading data element number 1: %1")
                                    .arg(to_string(data.front())));
        error = set_text(s, p, to_string(data.front()));
    } else if (type_flag == QLatin1String("string")) {
        c.fail(
            set_prefix +
            QStringLiteral("The attribute '%1' is not a string attribute.").arg(plug_name(s, p)));
    } else if (definition.kind == attribute_kind::compound) {
        const QVector<plug> leaves = leaf_plugs(s, p);
        QVector<double> numbers;
        for (int k = 0; k < leaves.size(); ++k)
            numbers.append(datum(c, data, k));
        for (int k = 0; k < leaves.size() && error.isEmpty(); ++k)
            error = set_number(s, leaves[k], numbers[k], clamp);
    } else {
        // A scalar takes one number whatever -type says, as Maya reads it.
        error = set_number(s, p, datum(c, data, 0), clamp);
    }
    if (!error.isEmpty())
        c.fail(set_prefix + error);
}

value set_attr(builtin_call& c) {
    const parsed_flags f = parse_flags(c, {{"typ", "type", 1},
                                           {"k", "keyable", 1},
                                           {"l", "lock", 1},
                                           {"cb", "channelBox", 1},
                                           {"c", "clamp", 0},
                                           {"av", "alteredValue", 0},
                                           {"s", "size", 1},
                                           {"ca", "caching", 1},
                                           {"e", "edit", 0}});
    if (f.positional.isEmpty())
        c.fail(set_prefix + QStringLiteral("No attribute was specified."));
    scene& s = c.host.scene;
    const plug p = plug_argument(c, to_string(f.positional.front()), set_prefix);
    QVector<value> data;
    for (int k = 1; k < f.positional.size(); ++k) {
        // Arrays spread into their elements, as a list of values.
        if (f.positional[k].is_array()) {
            for (int e = 0; e < f.positional[k].array_size(); ++e)
                data.append(element_at(f.positional[k], e));
        } else {
            data.append(f.positional[k]);
        }
    }
    const bool lock = f.has("lock") && flag_bool(c, f.get("lock"));
    if (f.has("lock") && !lock)
        set_locked(s, p, false);
    if (f.has("keyable"))
        set_keyable(s, p, flag_bool(c, f.get("keyable")));
    if (f.has("channelBox"))
        set_channel_box(s, p, flag_bool(c, f.get("channelBox")));
    if (!data.isEmpty())
        set_values(c, p, to_string(f.get("type")), data, f.has("clamp"));
    if (lock)
        set_locked(s, p, true);
    return value();
}

// ---------------------------------------------------------------- addAttr

const std::initializer_list<flag_def> add_attr_flags = {{"ln", "longName", 1},
                                                        {"sn", "shortName", 1},
                                                        {"nn", "niceName", 1},
                                                        {"at", "attributeType", 1},
                                                        {"dt", "dataType", 1},
                                                        {"dv", "defaultValue", 1},
                                                        {"min", "minValue", 1},
                                                        {"max", "maxValue", 1},
                                                        {"hnv", "hasMinValue", 1},
                                                        {"hxv", "hasMaxValue", 1},
                                                        {"smn", "softMinValue", 1},
                                                        {"smx", "softMaxValue", 1},
                                                        {"hsn", "hasSoftMinValue", 1},
                                                        {"hsx", "hasSoftMaxValue", 1},
                                                        {"en", "enumName", 1},
                                                        {"k", "keyable", 1},
                                                        {"h", "hidden", 1},
                                                        {"r", "readable", 1},
                                                        {"w", "writable", 1},
                                                        {"s", "storable", 1},
                                                        {"ci", "cachedInternally", 1},
                                                        {"m", "multi", 0},
                                                        {"im", "indexMatters", 1},
                                                        {"p", "parent", 1},
                                                        {"nc", "numberOfChildren", 1},
                                                        {"uac", "usedAsColor", 0},
                                                        {"uaf", "usedAsFilename", 0},
                                                        {"ct", "category", 1},
                                                        {"bt", "binaryTag", 1},
                                                        {"dcb", "disconnectBehaviour", 1},
                                                        {"fp", "fromPlugin", 1},
                                                        {"is", "internalSet", 1},
                                                        {"e", "edit", 0},
                                                        {"ex", "exists", 0},
                                                        {"pxy", "proxy", 1},
                                                        {"uap", "usedAsProxy", 0}};

// The flags as addAttr's description of an attribute takes them.
attribute_flags texts_of(const parsed_flags& f) {
    attribute_flags out;
    for (auto it = f.set.constBegin(); it != f.set.constEnd(); ++it)
        out.insert(it.key(), it->isEmpty() ? QString() : to_string(it->front()));
    return out;
}

value add_attr_query(builtin_call& c, const parsed_flags& f) {
    const QStringList names = f.positional_strings();
    if (names.isEmpty())
        c.fail(QStringLiteral("addAttr: No attribute was specified."));
    plug p;
    const bool found = find_plug(c.host.scene, names.front(), p) == plug_lookup::found;
    if (f.has("exists"))
        return value::of_int(found);
    if (!found)
        plug_argument(c, names.front(), QStringLiteral("addAttr: "));
    const attribute_def& definition = attribute_at(c.host.scene, p.node, p.index);
    if (f.has("longName"))
        return value::of_string(definition.long_name);
    if (f.has("shortName"))
        return value::of_string(definition.short_name);
    if (f.has("niceName"))
        return value::of_string(nice_name(definition));
    if (f.has("attributeType") || f.has("dataType"))
        return value::of_string(definition.type);
    if (f.has("defaultValue"))
        return value::of_float(definition.default_value);
    if (f.has("minValue"))
        return value::of_float(definition.min);
    if (f.has("maxValue"))
        return value::of_float(definition.max);
    if (f.has("hasMinValue"))
        return value::of_int(definition.has_min);
    if (f.has("hasMaxValue"))
        return value::of_int(definition.has_max);
    if (f.has("enumName"))
        return value::of_string(enum_fields_text(definition.fields));
    if (f.has("keyable"))
        return value::of_int(plug_state(c.host.scene, p).keyable);
    c.fail(QStringLiteral("addAttr: Nothing to query."));
}

value add_attr(builtin_call& c) {
    const parsed_flags f = parse_flags(c, add_attr_flags);
    scene& s = c.host.scene;
    if (f.query)
        return add_attr_query(c, f);
    if (f.has("edit")) {
        for (const QString& name : f.positional_strings()) {
            const plug p = plug_argument(c, name, QStringLiteral("addAttr: "));
            attribute_def definition = attribute_at(s, p.node, p.index);
            if (!definition.user)
                c.fail(QStringLiteral("addAttr: '%1' is not a dynamic attribute.")
                           .arg(plug_name(s, p)));
            apply_flags(texts_of(f), definition);
            redefine_attribute(s, p, definition);
            if (f.has("keyable"))
                set_keyable(s, p, definition.keyable);
        }
        return value();
    }
    attribute_def definition;
    QString error;
    if (!def_from_flags(texts_of(f), &definition, &error))
        c.fail(QStringLiteral("addAttr: ") + error);
    const QStringList targets = targets_or_selection(c, f);
    if (targets.isEmpty())
        c.fail(QStringLiteral("addAttr: No object was specified or selected."));
    for (const QString& name : targets) {
        if (!add_attribute(s, node_argument(c, name), definition, &error))
            c.fail(QStringLiteral("addAttr: ") + error);
    }
    return value();
}

// ---------------------------------------------------------------- deleteAttr

value delete_attr(builtin_call& c) {
    const parsed_flags f = parse_flags(c, {{"at", "attribute", 1}, {"n", "name", 1}});
    scene& s = c.host.scene;
    QStringList plugs;
    for (const QString& name : targets_or_selection(c, f)) {
        if (f.has("attribute"))
            plugs << name + QLatin1Char('.') + to_string(f.get("attribute"));
        else
            plugs << name;
    }
    if (plugs.isEmpty())
        c.fail(QStringLiteral("deleteAttr: No attribute was specified."));
    for (const QString& name : plugs) {
        const plug p = plug_argument(c, name, QStringLiteral("deleteAttr: "));
        if (!attribute_at(s, p.node, p.index).user)
            c.fail(QStringLiteral("deleteAttr: The attribute '%1' is not a dynamic attribute and "
                                  "cannot be deleted.")
                       .arg(plug_name(s, p)));
        if (plug_state(s, p).locked)
            c.fail(QStringLiteral("deleteAttr: The attribute '%1' is locked and cannot be deleted.")
                       .arg(plug_name(s, p)));
        delete_attribute(s, p);
    }
    c.host.nodes_removed(); // with the curves that drove them
    return value();
}

// ---------------------------------------------------------------- listAttr

bool locked_plug(const scene& s, const plug& p) {
    for (const plug& leaf : leaf_plugs(s, p)) {
        if (!plug_state(s, leaf).locked)
            return false;
    }
    return true;
}

bool listed(const scene& s, const plug& p, const parsed_flags& f) {
    const attribute_def& definition = attribute_at(s, p.node, p.index);
    const plug_value state = plug_state(s, p);
    const bool compound = definition.kind == attribute_kind::compound;
    if (f.has("keyable") && (compound || !state.keyable))
        return false;
    if (f.has("channelBox") && (compound || state.keyable || !state.channel_box))
        return false;
    if (f.has("userDefined") && !definition.user)
        return false;
    if (f.has("locked") && !locked_plug(s, p))
        return false;
    if (f.has("unlocked") && locked_plug(s, p))
        return false;
    if ((f.has("scalar") || f.has("leaf")) && compound)
        return false;
    if (f.has("scalar") && definition.kind == attribute_kind::string)
        return false;
    if (f.has("multi") || f.has("array"))
        return false;
    if (f.has("string")) {
        bool any = false;
        for (const value& pattern : f.set.value(QStringLiteral("string")))
            any = any || wildcard_match(to_string(pattern), definition.long_name);
        return any;
    }
    return true;
}

value list_attr(builtin_call& c) {
    const parsed_flags f =
        parse_flags(c, {{"k", "keyable", 0},   {"ud", "userDefined", 0}, {"u", "unlocked", 0},
                        {"l", "locked", 0},    {"cb", "channelBox", 0},  {"sn", "shortNames", 0},
                        {"st", "string", 1},   {"s", "scalar", 0},       {"v", "visible", 0},
                        {"w", "write", 0},     {"r", "read", 0},         {"c", "connectable", 0},
                        {"m", "multi", 0},     {"lf", "leaf", 0},        {"a", "array", 0},
                        {"h", "hasData", 0},   {"i", "inUse", 0},        {"o", "output", 0},
                        {"se", "settable", 0}, {"ct", "category", 1},    {"fp", "fromPlugin", 0}});
    const scene& s = c.host.scene;
    QStringList out;
    for (const QString& name : targets_or_selection(c, f)) {
        QString attribute;
        const int dot = name.indexOf(QLatin1Char('.'));
        const int node = node_argument(c, dot < 0 ? name : name.left(dot));
        QVector<int> indices;
        if (dot >= 0) {
            const plug p = plug_argument(c, name);
            indices.append(p.index);
            for (int child : attribute_at(s, node, p.index).children)
                indices.append(child);
        } else {
            for (int k = 0; k < attribute_count(s, node); ++k)
                indices.append(k);
        }
        for (int k : indices) {
            if (listed(s, {node, k}, f)) {
                const attribute_def& definition = attribute_at(s, node, k);
                out << (f.has("shortNames") ? definition.short_name : definition.long_name);
            }
        }
    }
    return value::of_strings(out);
}

// ---------------------------------------------------------------- attributeQuery

value attribute_query(builtin_call& c) {
    const parsed_flags f = parse_flags(c, {{"n", "node", 1},
                                           {"ex", "exists", 0},
                                           {"min", "minimum", 0},
                                           {"max", "maximum", 0},
                                           {"mne", "minExists", 0},
                                           {"mxe", "maxExists", 0},
                                           {"k", "keyable", 0},
                                           {"le", "listEnum", 0},
                                           {"at", "attributeType", 0},
                                           {"ln", "longName", 0},
                                           {"sn", "shortName", 0},
                                           {"nn", "niceName", 0},
                                           {"lc", "listChildren", 0},
                                           {"lp", "listParent", 0},
                                           {"ld", "listDefault", 0},
                                           {"h", "hidden", 0},
                                           {"smn", "softMin", 0},
                                           {"smx", "softMax", 0},
                                           {"sme", "softMinExists", 0},
                                           {"sxe", "softMaxExists", 0},
                                           {"uac", "usedAsColor", 0},
                                           {"w", "writable", 0},
                                           {"r", "readable", 0},
                                           {"s", "storable", 0},
                                           {"m", "multi", 0},
                                           {"i", "internal", 0},
                                           {"c", "connectable", 0},
                                           {"ct", "category", 0},
                                           {"uaf", "usedAsFilename", 0}});
    if (!f.has("node"))
        c.fail(QStringLiteral("attributeQuery: The -node flag is required."));
    const QStringList names = f.positional_strings();
    if (names.isEmpty())
        c.fail(QStringLiteral("attributeQuery: No attribute was specified."));
    const scene& s = c.host.scene;
    const QString node_name = to_string(f.get("node"));
    const int node = node_argument(c, node_name);
    const int index = find_attribute(s, node, names.front());
    if (f.has("exists"))
        return value::of_int(index >= 0);
    if (index < 0)
        c.fail(QStringLiteral("attributeQuery: The node '%1' has no attribute '%2'.")
                   .arg(node_name, names.front()));
    const plug p{node, index};
    const attribute_def& definition = attribute_at(s, node, index);
    auto floats = [](QVector<double> v) {
        value out = value::empty_of(type::float_array);
        out.fa = std::move(v);
        return out;
    };
    if (f.has("minimum"))
        return floats(definition.has_min ? QVector<double>{definition.min} : QVector<double>{});
    if (f.has("maximum"))
        return floats(definition.has_max ? QVector<double>{definition.max} : QVector<double>{});
    if (f.has("minExists"))
        return value::of_int(definition.has_min);
    if (f.has("maxExists"))
        return value::of_int(definition.has_max);
    if (f.has("keyable"))
        return value::of_int(definition.kind != attribute_kind::compound &&
                             plug_state(s, p).keyable);
    if (f.has("listEnum"))
        return value::of_strings(definition.kind == attribute_kind::enumeration
                                     ? QStringList{enum_fields_text(definition.fields)}
                                     : QStringList{});
    if (f.has("attributeType"))
        return value::of_string(definition.kind == attribute_kind::string ? QStringLiteral("typed")
                                                                          : definition.type);
    if (f.has("longName"))
        return value::of_string(definition.long_name);
    if (f.has("shortName"))
        return value::of_string(definition.short_name);
    if (f.has("niceName"))
        return value::of_string(nice_name(definition));
    if (f.has("listChildren") || f.has("listParent")) {
        QStringList out;
        for (int k :
             f.has("listChildren") ? definition.children : QVector<int>{definition.parent}) {
            if (k >= 0)
                out << attribute_at(s, node, k).long_name;
        }
        return value::of_strings(out);
    }
    if (f.has("listDefault")) {
        QVector<double> defaults;
        for (const plug& leaf : leaf_plugs(s, p))
            defaults.append(attribute_at(s, node, leaf.index).default_value);
        return floats(defaults);
    }
    if (f.has("multi") || f.has("hidden") || f.has("internal") || f.has("usedAsColor") ||
        f.has("usedAsFilename") || f.has("softMinExists") || f.has("softMaxExists"))
        return value::of_int(0);
    // Readable, writable, storable and connectable hold for every attribute kept here.
    return value::of_int(1);
}

} // namespace

void register_attribute_builtins(builtin_table& t) {
    t.insert(QStringLiteral("getAttr"), get_attr);
    t.insert(QStringLiteral("setAttr"), set_attr);
    t.insert(QStringLiteral("addAttr"), add_attr);
    t.insert(QStringLiteral("deleteAttr"), delete_attr);
    t.insert(QStringLiteral("listAttr"), list_attr);
    t.insert(QStringLiteral("attributeQuery"), attribute_query);
}

} // namespace host::mel
