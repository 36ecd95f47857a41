// The statements that give the file's nodes their attributes, keys and the time:
// setAttr and addAttr after a createNode, connectAttr from a curve to a plug, and
// "select -ne :time1". Attributes the host does not keep are skipped without a word, as
// Maya's own data is.
#include "core/anim_curves.h"
#include "core/node_types.h"
#include "core/scene.h"
#include "ma_reader.h"

#include <QRegularExpression>
#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

namespace host {
namespace ma {

namespace {

const char* const set_attr_values[] = {"k",          "keyable", "l",    "lock", "cb",
                                       "channelBox", "type",    "typ",  "s",    "size",
                                       "ca",         "caching", nullptr};
const char* const connect_values[] = {"l", "lock", nullptr};
const char* const select_values[] = {nullptr};
// addAttr's flags that take a value; others are guessed.
const char* const add_attr_values[] = {"ln",  "sn",  "nn",  "at",  "dt",   "dv", "min",
                                       "max", "hnv", "hxv", "en",  "k",    "p",  "ci",
                                       "h",   "nc",  "smn", "smx", nullptr};

// addAttr's flags the host reads, short and long.
const char* const add_attr_names[][2] = {
    {"ln", "longName"},     {"sn", "shortName"},    {"nn", "niceName"},  {"at", "attributeType"},
    {"dt", "dataType"},     {"dv", "defaultValue"}, {"min", "minValue"}, {"max", "maxValue"},
    {"hnv", "hasMinValue"}, {"hxv", "hasMaxValue"}, {"en", "enumName"},  {"k", "keyable"},
    {"m", "multi"},         {"p", "parent"}};

const QString config_node = QStringLiteral("sceneConfigurationScriptNode");

// A finite number, or a boolean word as 1 or 0.
bool number_of(const arg* a, double* out) {
#if defined(__cpp_lib_to_chars) && __cpp_lib_to_chars >= 201611L
    // Maya writes 17 digits: the standard library reads them several times faster.
    const char* begin = a->bytes.constData();
    const char* end = begin + a->bytes.size();
    const std::from_chars_result r = std::from_chars(begin, end, *out);
    if (r.ec == std::errc() && r.ptr == end)
        return std::isfinite(*out);
#endif
    bool ok = false;
    *out = a->bytes.toDouble(&ok);
    if (ok)
        return std::isfinite(*out);
    const bool on = text_bool(QString::fromLatin1(a->bytes), &ok);
    *out = on ? 1 : 0;
    return ok;
}

// ".ktv[0:8]" -> "ktv" with the first index 0; ".tan" -> "tan" with -1.
QString element_of(const QString& attribute, int* first) {
    *first = -1;
    const int bracket = attribute.indexOf(QLatin1Char('['));
    if (bracket < 0)
        return attribute;
    bool ok = false;
    const QString inside = attribute.mid(bracket + 1).section(QLatin1Char(']'), 0, 0);
    const int index = inside.section(QLatin1Char(':'), 0, 0).toInt(&ok);
    *first = ok && index >= 0 ? index : -1;
    return attribute.left(bracket);
}

} // namespace

bool file_reader::takes_set_attr(const statement& s) {
    set_attr_index_ = -1;
    if (current_is_time_)
        return true;
    if (current_node_ < 0)
        return false;
    const node& n = session_.target.at(current_node_);
    if (n.curve || (depth_ == 0 && n.name == config_node))
        return true;
    if (!is_transform(n.type) && (!n.attributes || n.attributes->user.isEmpty()))
        return false;
    // Most lines set attributes the host does not keep: the plug, the statement's first
    // string, tells before the statement is taken apart.
    const size_t size = size_t(s.end - s.command_end);
    const char* open = static_cast<const char*>(std::memchr(s.command_end, '"', size));
    if (!open || open + 1 >= s.end || open[1] != '.')
        return false;
    const char* close =
        static_cast<const char*>(std::memchr(open + 1, '"', size_t(s.end - open - 1)));
    if (!close)
        return false;
    set_attr_index_ = find_attribute(session_.target, current_node_,
                                     QLatin1String(open + 2, int(close - open - 2)));
    return set_attr_index_ >= 0;
}

void file_reader::on_set_attr() {
    const command_args a = split_args(args_, set_attr_values, false);
    if (a.positional.empty())
        return;
    scene& target = session_.target;
    if (set_attr_index_ < 0) {
        on_set_special(a);
        return;
    }
    const plug p{current_node_, set_attr_index_};
    const attribute_def& definition = attribute_at(target, p.node, p.index);
    if (const arg* k = a.value("k", "keyable"))
        set_keyable(target, p, text_bool(decode(k)));
    if (const arg* l = a.value("l", "lock"))
        set_locked(target, p, text_bool(decode(l)));
    if (const arg* cb = a.value("cb", "channelBox"))
        set_channel_box(target, p, text_bool(decode(cb)));
    const size_t values = a.positional.size() - 1;
    if (values == 0)
        return;
    if (definition.kind == attribute_kind::string) {
        store_text(target, p, decode(a.positional[1]));
        return;
    }
    const int leaves = definition.children.isEmpty() ? 1 : definition.children.size();
    for (int k = 0; k < leaves && size_t(k) < values; ++k) {
        double v = 0;
        if (number_of(a.positional[size_t(k) + 1], &v))
            store_number(target,
                         {p.node, definition.children.isEmpty() ? p.index : definition.children[k]},
                         v);
    }
}

void file_reader::on_set_special(const command_args& a) {
    const QString written = decode(a.positional.front());
    if (!written.startsWith(QLatin1Char('.')))
        return; // plugs of other nodes: reference edits and default nodes
    const QString attribute = written.mid(1);
    const std::vector<const arg*> values(a.positional.begin() + 1, a.positional.end());
    scene& target = session_.target;
    if (current_is_time_) {
        double t = 0;
        if (depth_ == 0 &&
            (attribute == QLatin1String("o") || attribute == QLatin1String("outTime")) &&
            !values.empty() && number_of(values.front(), &t))
            target.time.current = t;
        return;
    }
    node& n = target.edit(current_node_);
    if (n.curve)
        set_curve_data(*n.curve, attribute, values);
    else if (attribute == QLatin1String("b") && !values.empty())
        set_time_settings(decode(values.front()));
}

void file_reader::set_curve_data(anim_curve& curve, const QString& attribute,
                                 const std::vector<const arg*>& values) {
    int first = -1;
    const QString name = element_of(attribute, &first);
    double v = 0;
    if ((name == QLatin1String("tan") || name == QLatin1String("tangentType")) && !values.empty() &&
        number_of(values.front(), &v)) {
        curve.tangent_type = int(qBound(0.0, v, 255.0));
        return;
    }
    if (name == QLatin1String("wgt") || name == QLatin1String("weightedTangents")) {
        curve.weighted = !values.empty() && number_of(values.front(), &v) && v != 0;
        return;
    }
    if (first < 0)
        return;
    const bool times = name == QLatin1String("ktv") || name == QLatin1String("keyTimeValue");
    const bool in = name == QLatin1String("kit") || name == QLatin1String("keyTanInType");
    const bool out = name == QLatin1String("kot") || name == QLatin1String("keyTanOutType");
    if (!times && !in && !out)
        return;
    // Keys come in order: an index past the next key, which only a damaged or hostile file
    // writes, would make keys out of nothing; tangents go to keys that exist.
    if (first > curve.keys.size())
        return;
    const size_t per_key = times ? 2 : 1;
    for (size_t k = 0; k + per_key <= values.size(); k += per_key) {
        const int index = first + int(k / per_key);
        double a = 0, b = 0;
        if (!number_of(values[k], &a) || (times && !number_of(values[k + 1], &b)))
            continue;
        if (curve.keys.size() <= index) {
            if (!times || index > curve.keys.size())
                break; // no gaps
            curve.keys.append(anim_key());
        }
        anim_key& key = curve.keys[index];
        if (times) {
            key.time = a;
            key.value = b;
        } else {
            (in ? key.in_tangent : key.out_tangent) = quint8(qBound(0.0, a, 255.0));
        }
    }
    if (times)
        std::stable_sort(curve.keys.begin(), curve.keys.end(),
                         [](const anim_key& x, const anim_key& y) { return x.time < y.time; });
}

void file_reader::set_time_settings(const QString& text) {
    // The script is read for its numbers, never run.
    static const QRegularExpression flag(
        QStringLiteral("-(min|minTime|max|maxTime|ast|animationStartTime|aet|animationEndTime)\\s+("
                       "-?[0-9.eE+-]+)"));
    time_state& t = session_.target.time;
    for (auto it = flag.globalMatch(text); it.hasNext();) {
        const QRegularExpressionMatch m = it.next();
        bool ok = false;
        const double v = m.captured(2).toDouble(&ok);
        if (!ok)
            continue;
        const QString name = m.captured(1);
        if (name.startsWith(QLatin1String("mi")))
            t.min = v;
        else if (name.startsWith(QLatin1String("ma")))
            t.max = v;
        else if (name == QLatin1String("ast") || name.startsWith(QLatin1String("animationS")))
            t.start = v;
        else
            t.end = v;
    }
}

void file_reader::on_add_attr() {
    const command_args a = split_args(args_, add_attr_values, true);
    attribute_flags flags;
    for (const command_args::flag_value& f : a.flags) {
        for (const auto& names : add_attr_names) {
            if (f.name == names[0] || f.name == names[1])
                flags.insert(QLatin1String(names[1]), f.value ? decode(f.value) : QString());
        }
    }
    attribute_def definition;
    QString error;
    // Kinds of attribute the host does not keep are skipped like other data.
    if (def_from_flags(flags, &definition, &error) &&
        !add_attribute(session_.target, current_node_, definition, &error))
        warn(QStringLiteral("addAttr: %1").arg(error));
}

void file_reader::on_connect_attr() {
    const command_args a = split_args(args_, connect_values, false);
    if (a.positional.size() < 2)
        return;
    scene& target = session_.target;
    const QString source = decode(a.positional[0]);
    const QString destination = decode(a.positional[1]);
    const QString output = source.section(QLatin1Char('.'), 1);
    if (output != QLatin1String("o") && output != QLatin1String("output"))
        return;
    const QVector<int> curves = target.find(qualify_lookup(source.section(QLatin1Char('.'), 0, 0)));
    if (curves.size() != 1 || !target.at(curves.front()).curve)
        return;
    const QString node = qualify_lookup(destination.section(QLatin1Char('.'), 0, 0));
    plug p;
    if (find_plug(target, node + QLatin1Char('.') + destination.section(QLatin1Char('.'), 1), p) ==
        plug_lookup::found)
        connect_curve(target, curves.front(), p);
}

void file_reader::on_select() {
    const command_args a = split_args(args_, select_values, false);
    current_node_ = -1;
    const QString name = a.positional.size() == 1 ? decode(a.positional.front()) : QString();
    current_is_time_ = a.has("ne", "noExpand") &&
                       (name == QLatin1String(":time1") || name == QLatin1String("time1"));
}

} // namespace ma
} // namespace host
