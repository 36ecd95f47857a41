#include "attributes.h"

#include "anim_curves.h"
#include "node_types.h"
#include "scene.h"

#include <QRegularExpression>
#include <cmath>

namespace host {

namespace {

attribute_def scalar(const char* long_name, const char* short_name, const char* type,
                     attribute_kind kind, double default_value, int parent) {
    attribute_def a;
    a.long_name = QLatin1String(long_name);
    a.short_name = QLatin1String(short_name);
    a.type = QLatin1String(type);
    a.kind = kind;
    a.default_value = default_value;
    a.keyable = true;
    a.parent = parent;
    return a;
}

// A double3 and its X, Y and Z children, in Maya's attribute order.
void add_vector(QVector<attribute_def>& out, const char* long_name, const char* short_name,
                const char* child_type, double default_value) {
    attribute_def compound;
    compound.long_name = QLatin1String(long_name);
    compound.short_name = QLatin1String(short_name);
    compound.type = QStringLiteral("double3");
    compound.kind = attribute_kind::compound;
    const int at = out.size();
    out.append(compound);
    for (const char* axis : {"X", "Y", "Z"}) {
        out[at].children.append(out.size());
        const QByteArray l = QByteArray(long_name) + axis;
        const QByteArray s = QByteArray(short_name) + QByteArray(axis).toLower();
        out.append(scalar(l.constData(), s.constData(), child_type, attribute_kind::number,
                          default_value, at));
    }
}

const QVector<attribute_def>& transform_attributes() {
    static const QVector<attribute_def> defs = [] {
        QVector<attribute_def> out;
        out.append(scalar("visibility", "v", "bool", attribute_kind::boolean, 1, -1));
        add_vector(out, "translate", "t", "doubleLinear", 0);
        add_vector(out, "rotate", "r", "doubleAngle", 0);
        add_vector(out, "scale", "s", "double", 1);
        return out;
    }();
    return defs;
}

const QVector<attribute_def>& builtins_of(const QString& type) {
    static const QVector<attribute_def> none;
    return is_transform(type) ? transform_attributes() : none;
}

plug_value default_state(const attribute_def& definition) {
    plug_value v;
    v.number = definition.default_value;
    v.keyable = definition.keyable;
    return v;
}

node_attributes& materialise(scene& s, int node) {
    host::node& n = s.edit(node);
    if (!n.attributes) {
        n.attributes = std::make_unique<node_attributes>();
        const QVector<attribute_def>& builtins = builtins_of(n.type);
        n.attributes->values.reserve(builtins.size());
        for (const attribute_def& definition : builtins)
            n.attributes->values.append(default_state(definition));
    }
    return *n.attributes;
}

bool integral(attribute_kind kind) {
    return kind == attribute_kind::integer || kind == attribute_kind::boolean ||
           kind == attribute_kind::enumeration;
}

double normalised(const attribute_def& definition, double v) {
    if (definition.kind == attribute_kind::boolean)
        return v != 0 ? 1 : 0;
    // Whole numbers stay within an int, which is what MEL reads them as.
    return integral(definition.kind) ? qBound(-2147483648.0, std::round(v), 2147483647.0) : v;
}

QString limit_text(double v) {
    return QString::number(v, 'g', 10);
}

// Applies `edit` to a plug's state, or to each child's for a compound.
template <typename Edit> void edit_state(scene& s, const plug& p, Edit edit) {
    node_attributes& a = materialise(s, p.node);
    const attribute_def& definition = attribute_at(s, p.node, p.index);
    if (definition.kind == attribute_kind::compound) {
        for (int child : definition.children)
            edit(a.values[child]);
    } else {
        edit(a.values[p.index]);
    }
    s.attributes_changed();
}

QString name_part(const QString& name, QString* attribute) {
    const int dot = name.indexOf(QLatin1Char('.'));
    *attribute = dot < 0 ? QString() : name.mid(dot + 1);
    return dot < 0 ? name : name.left(dot);
}

} // namespace

// ---------------------------------------------------------------- lookup

int attribute_count(const scene& s, int node) {
    const host::node& n = s.at(node);
    return builtins_of(n.type).size() + (n.attributes ? n.attributes->user.size() : 0);
}

const attribute_def& attribute_at(const scene& s, int node, int index) {
    const host::node& n = s.at(node);
    const QVector<attribute_def>& builtins = builtins_of(n.type);
    return index < builtins.size() ? builtins[index] : n.attributes->user[index - builtins.size()];
}

namespace {

// An attribute by long or short name whose parent is `parent` (-1: any), or -1.
template <typename Name> int find_named(const scene& s, int node, const Name& name, int parent) {
    const host::node& n = s.at(node);
    const QVector<attribute_def>& builtins = builtins_of(n.type);
    auto matches = [&](const attribute_def& a) {
        return (a.short_name == name || a.long_name == name) && (parent < 0 || a.parent == parent);
    };
    for (int k = 0; k < builtins.size(); ++k) {
        if (matches(builtins[k]))
            return k;
    }
    // User attributes stand at the top level; a node may carry thousands of them.
    if (n.attributes && parent < 0 && !n.attributes->user_names.isEmpty()) {
        const int k = n.attributes->user_names.value(QString(name), -1);
        if (k >= 0)
            return builtins.size() + k;
    }
    return -1;
}

} // namespace

int find_attribute(const scene& s, int node, QLatin1String name) {
    return find_named(s, node, name, -1);
}

int find_attribute(const scene& s, int node, const QString& name) {
    if (!name.contains(QLatin1Char('.')))
        return find_named(s, node, name, -1);
    int found = -1;
    for (const QString& part : name.split(QLatin1Char('.'))) {
        const int parent = found;
        found = find_named(s, node, part, parent);
        if (found < 0 || (parent >= 0 && attribute_at(s, node, found).parent != parent))
            return -1;
    }
    return found;
}

plug_lookup find_plug(const scene& s, const QString& text, plug& out) {
    QString attribute;
    const QString object = name_part(text, &attribute);
    const QVector<int> ids = s.find(object);
    if (ids.isEmpty())
        return plug_lookup::no_object;
    if (ids.size() > 1)
        return plug_lookup::many_objects;
    out.node = ids.front();
    out.index = attribute.isEmpty() ? -1 : find_attribute(s, out.node, attribute);
    return out.index < 0 ? plug_lookup::no_attribute : plug_lookup::found;
}

plug_value plug_state(const scene& s, const plug& p) {
    const host::node& n = s.at(p.node);
    if (n.attributes)
        return n.attributes->values[p.index];
    return default_state(attribute_at(s, p.node, p.index));
}

QString plug_name(const scene& s, const plug& p) {
    return s.display_name(p.node) + QLatin1Char('.') + attribute_at(s, p.node, p.index).long_name;
}

QString nice_name(const attribute_def& definition) {
    if (!definition.nice_name.isEmpty())
        return definition.nice_name;
    QString out;
    const QString& name = definition.long_name;
    for (int k = 0; k < name.size(); ++k) {
        const QChar c = name[k];
        if (k == 0) {
            out += c.toUpper();
            continue;
        }
        const QChar before = name[k - 1];
        const bool word_start = (c.isUpper() && !before.isUpper()) ||
                                (c.isDigit() && !before.isDigit()) ||
                                (c.isUpper() && k + 1 < name.size() && name[k + 1].isLower());
        if (c == QLatin1Char('_')) {
            out += QLatin1Char(' ');
            continue;
        }
        if (word_start && !out.endsWith(QLatin1Char(' ')))
            out += QLatin1Char(' ');
        out += out.endsWith(QLatin1Char(' ')) ? c.toUpper() : c;
    }
    return out;
}

bool is_scalar(const attribute_def& definition) {
    return definition.kind != attribute_kind::string && definition.kind != attribute_kind::compound;
}

// ---------------------------------------------------------------- values

double stored_number(const scene& s, const plug& p) {
    return plug_state(s, p).number;
}

double plug_number(const scene& s, const plug& p) {
    return plug_number_at(s, p, s.time.current);
}

double plug_number_at(const scene& s, const plug& p, double time) {
    const int curve = driving_curve(s, p);
    if (curve < 0 || (time == s.time.current && s.held.contains({p.node, p.index})))
        return stored_number(s, p);
    return normalised(attribute_at(s, p.node, p.index), curve_value(*s.at(curve).curve, time));
}

QVector<double> plug_numbers(const scene& s, const plug& p) {
    const attribute_def& definition = attribute_at(s, p.node, p.index);
    if (definition.kind != attribute_kind::compound)
        return {plug_number(s, p)};
    QVector<double> out;
    for (int child : definition.children)
        out.append(plug_number(s, {p.node, child}));
    return out;
}

QString plug_text(const scene& s, const plug& p) {
    return plug_state(s, p).text;
}

void store_number(scene& s, const plug& p, double v) {
    const attribute_def& definition = attribute_at(s, p.node, p.index);
    v = normalised(definition, v);
    // Defaults need no storage: files are full of them.
    if (!s.at(p.node).attributes && v == definition.default_value)
        return;
    materialise(s, p.node).values[p.index].number = v;
    s.attributes_changed();
}

void store_text(scene& s, const plug& p, const QString& v) {
    materialise(s, p.node).values[p.index].text = v;
    s.attributes_changed();
}

QString set_number(scene& s, const plug& p, double v, bool clamp) {
    const attribute_def& definition = attribute_at(s, p.node, p.index);
    if (plug_state(s, p).locked)
        return QStringLiteral("The attribute '%1' is locked or connected and cannot be modified.")
            .arg(plug_name(s, p));
    if (definition.has_min && v < definition.min) {
        if (!clamp)
            return QStringLiteral("Cannot set the attribute '%1' past its minimum value of %2.")
                .arg(plug_name(s, p), limit_text(definition.min));
        v = definition.min;
    }
    if (definition.has_max && v > definition.max) {
        if (!clamp)
            return QStringLiteral("Cannot set the attribute '%1' past its maximum value of %2.")
                .arg(plug_name(s, p), limit_text(definition.max));
        v = definition.max;
    }
    store_number(s, p, v);
    // A keyed plug shows the hand-set value until the time moves, as in Maya.
    if (driving_curve(s, p) >= 0)
        s.held.insert({p.node, p.index});
    return QString();
}

QString set_text(scene& s, const plug& p, const QString& v) {
    if (plug_state(s, p).locked)
        return QStringLiteral("The attribute '%1' is locked or connected and cannot be modified.")
            .arg(plug_name(s, p));
    store_text(s, p, v);
    return QString();
}

void set_locked(scene& s, const plug& p, bool on) {
    edit_state(s, p, [on](plug_value& v) { v.locked = on; });
}

void set_keyable(scene& s, const plug& p, bool on) {
    edit_state(s, p, [on](plug_value& v) { v.keyable = on; });
}

void set_channel_box(scene& s, const plug& p, bool on) {
    edit_state(s, p, [on](plug_value& v) { v.channel_box = on; });
}

// ---------------------------------------------------------------- user attributes

bool add_attribute(scene& s, int node, attribute_def definition, QString* error) {
    for (const QString& name : {definition.long_name, definition.short_name}) {
        if (find_attribute(s, node, name) >= 0) {
            *error = QStringLiteral("Found an attribute named '%1' on node '%2' already.")
                         .arg(name, s.display_name(node));
            return false;
        }
    }
    definition.user = true;
    plug_value value = default_state(definition);
    if (definition.kind == attribute_kind::boolean || integral(definition.kind))
        value.number = normalised(definition, value.number);
    node_attributes& a = materialise(s, node);
    a.user_names.insert(definition.long_name, a.user.size());
    a.user_names.insert(definition.short_name, a.user.size());
    a.user.append(definition);
    a.values.append(value);
    s.attributes_changed();
    return true;
}

void delete_attribute(scene& s, const plug& p) {
    const int curve = driving_curve(s, p);
    if (curve >= 0)
        s.remove_node(curve);
    node_attributes& a = materialise(s, p.node);
    const int first_user = attribute_count(s, p.node) - a.user.size();
    a.user.remove(p.index - first_user);
    a.values.remove(p.index);
    a.user_names.clear();
    for (int k = 0; k < a.user.size(); ++k) {
        a.user_names.insert(a.user[k].long_name, k);
        a.user_names.insert(a.user[k].short_name, k);
    }
    // Indices past the removed one moved: hand-set values of this node are dropped.
    for (auto it = s.held.begin(); it != s.held.end();) {
        if (it->first == p.node)
            it = s.held.erase(it);
        else
            ++it;
    }
    s.attributes_changed();
}

void redefine_attribute(scene& s, const plug& p, const attribute_def& definition) {
    node_attributes& a = materialise(s, p.node);
    const int first_user = attribute_count(s, p.node) - a.user.size();
    a.user[p.index - first_user] = definition;
    a.user[p.index - first_user].user = true;
    double v = a.values[p.index].number;
    if (definition.has_min && v < definition.min)
        v = definition.min;
    if (definition.has_max && v > definition.max)
        v = definition.max;
    a.values[p.index].number = v;
    s.attributes_changed();
}

bool text_bool(const QString& text, bool* ok) {
    const QString word = text.trimmed().toLower();
    bool known = true;
    bool result = false;
    if (word == QLatin1String("on") || word == QLatin1String("yes") ||
        word == QLatin1String("true"))
        result = true;
    else if (word != QLatin1String("off") && word != QLatin1String("no") &&
             word != QLatin1String("false"))
        result = word.toDouble(&known) != 0;
    if (ok)
        *ok = known;
    return result;
}

namespace {

bool valid_attribute_name(const QString& name) {
    static const QRegularExpression re(QStringLiteral("^[A-Za-z_][A-Za-z0-9_]*$"));
    return re.match(name).hasMatch();
}

// The kind an -at or -dt type gives; false for types this host does not keep.
bool kind_of_type(const QString& type, attribute_kind* kind) {
    static const QHash<QString, attribute_kind> kinds{
        {"double", attribute_kind::number},       {"float", attribute_kind::number},
        {"doubleLinear", attribute_kind::number}, {"doubleAngle", attribute_kind::number},
        {"floatLinear", attribute_kind::number},  {"floatAngle", attribute_kind::number},
        {"time", attribute_kind::number},         {"long", attribute_kind::integer},
        {"short", attribute_kind::integer},       {"byte", attribute_kind::integer},
        {"char", attribute_kind::integer},        {"bool", attribute_kind::boolean},
        {"enum", attribute_kind::enumeration},    {"string", attribute_kind::string}};
    const auto it = kinds.constFind(type);
    if (it == kinds.constEnd())
        return false;
    *kind = *it;
    return true;
}

} // namespace

void apply_flags(const attribute_flags& flags, attribute_def& definition) {
    auto number = [&flags](const char* name) {
        return flags.value(QLatin1String(name)).toDouble();
    };
    auto has = [&flags](const char* name) { return flags.contains(QLatin1String(name)); };
    if (has("niceName"))
        definition.nice_name = flags.value(QStringLiteral("niceName"));
    if (has("defaultValue"))
        definition.default_value = number("defaultValue");
    if (has("minValue")) {
        definition.has_min = true;
        definition.min = number("minValue");
    }
    if (has("maxValue")) {
        definition.has_max = true;
        definition.max = number("maxValue");
    }
    if (has("hasMinValue"))
        definition.has_min = text_bool(flags.value(QStringLiteral("hasMinValue")));
    if (has("hasMaxValue"))
        definition.has_max = text_bool(flags.value(QStringLiteral("hasMaxValue")));
    if (has("enumName"))
        definition.fields = parse_enum_fields(flags.value(QStringLiteral("enumName")));
    if (has("keyable"))
        definition.keyable = text_bool(flags.value(QStringLiteral("keyable"))) &&
                             definition.kind != attribute_kind::string;
    // A switch and an enum keep to their values.
    if (definition.kind == attribute_kind::boolean) {
        definition.has_min = definition.has_max = true;
        definition.min = 0;
        definition.max = 1;
    }
    if (definition.kind == attribute_kind::enumeration && !definition.fields.isEmpty()) {
        definition.has_min = definition.has_max = true;
        definition.min = definition.max = definition.fields.front().second;
        for (const auto& field : definition.fields) {
            definition.min = std::min(definition.min, double(field.second));
            definition.max = std::max(definition.max, double(field.second));
        }
    }
}

bool def_from_flags(const attribute_flags& flags, attribute_def* out, QString* error) {
    attribute_def definition;
    definition.long_name = flags.value(QStringLiteral("longName"));
    definition.short_name = flags.value(QStringLiteral("shortName"));
    if (definition.long_name.isEmpty())
        definition.long_name = definition.short_name;
    if (definition.short_name.isEmpty())
        definition.short_name = definition.long_name;
    if (definition.long_name.isEmpty()) {
        *error = QStringLiteral("Either the longName or the shortName must be specified.");
        return false;
    }
    for (const QString& name : {definition.long_name, definition.short_name}) {
        if (!valid_attribute_name(name)) {
            *error = QStringLiteral("'%1' is not a valid attribute name.").arg(name);
            return false;
        }
    }
    const bool data = flags.contains(QStringLiteral("dataType"));
    definition.type = data ? flags.value(QStringLiteral("dataType"))
                           : flags.value(QStringLiteral("attributeType"), QStringLiteral("double"));
    const bool nested =
        flags.contains(QStringLiteral("multi")) || flags.contains(QStringLiteral("parent"));
    if (nested || !kind_of_type(definition.type, &definition.kind) ||
        data != (definition.kind == attribute_kind::string)) {
        *error = QStringLiteral("Attributes of type '%1'%2 are not supported by this host.")
                     .arg(definition.type,
                          nested ? QStringLiteral(" in arrays or compounds") : QString());
        return false;
    }
    apply_flags(flags, definition);
    *out = definition;
    return true;
}

QVector<QPair<QString, int>> parse_enum_fields(const QString& text) {
    QVector<QPair<QString, int>> out;
    int next = 0;
    for (const QString& part : text.split(QLatin1Char(':'), Qt::SkipEmptyParts)) {
        const int equals = part.indexOf(QLatin1Char('='));
        int v = next;
        if (equals >= 0) {
            bool ok = false;
            const int given = part.mid(equals + 1).trimmed().toInt(&ok);
            if (ok)
                v = given;
        }
        out.append({equals >= 0 ? part.left(equals) : part, v});
        next = v + 1;
    }
    return out;
}

QString enum_fields_text(const QVector<QPair<QString, int>>& fields) {
    QStringList parts;
    int next = 0;
    for (const auto& f : fields) {
        parts << (f.second == next ? f.first
                                   : f.first + QLatin1Char('=') + QString::number(f.second));
        next = f.second + 1;
    }
    return parts.join(QLatin1Char(':'));
}

} // namespace host
