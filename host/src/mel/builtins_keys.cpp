// Built-in commands on time and keys: currentTime, playbackOptions, setKeyframe, keyframe,
// cutKey. Curves evaluate linearly between keys (see core/anim_curves.h).
#include "builtins_common.h"
#include "core/anim_curves.h"
#include "core/node_types.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace host::mel {

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();

// ---------------------------------------------------------------- time

value current_time(builtin_call& c) {
    const parsed_flags f = parse_flags(c, {{"e", "edit", 0}, {"u", "update", 1}});
    scene& s = c.host.scene;
    if (f.query)
        return value::of_float(s.time.current);
    if (f.positional.isEmpty())
        c.fail(QStringLiteral("currentTime: No time was given."));
    double t = 0;
    if (!number_of(f.positional.front(), &t) || !std::isfinite(t))
        c.fail(
            QStringLiteral("currentTime: Invalid time: %1").arg(to_string(f.positional.front())));
    set_current_time(s, t);
    return value::of_float(t);
}

value playback_options(builtin_call& c) {
    const parsed_flags f = parse_flags(c, {{"min", "minTime", 1},
                                           {"max", "maxTime", 1},
                                           {"ast", "animationStartTime", 1},
                                           {"aet", "animationEndTime", 1},
                                           {"by", "by", 1},
                                           {"l", "loop", 1},
                                           {"ps", "playbackSpeed", 1},
                                           {"mps", "maxPlaybackSpeed", 1},
                                           {"v", "view", 1},
                                           {"e", "edit", 0},
                                           {"fps", "framesPerSecond", 1}});
    time_state& t = c.host.scene.time;
    if (f.query) {
        if (f.has("minTime"))
            return value::of_float(t.min);
        if (f.has("maxTime"))
            return value::of_float(t.max);
        if (f.has("animationStartTime"))
            return value::of_float(t.start);
        if (f.has("animationEndTime"))
            return value::of_float(t.end);
        if (f.has("by") || f.has("playbackSpeed"))
            return value::of_float(1);
        if (f.has("loop"))
            return value::of_string(QStringLiteral("continuous"));
        c.fail(QStringLiteral("playbackOptions: Nothing to query."));
    }
    if (f.has("minTime"))
        t.min = to_float(f.get("minTime"));
    if (f.has("maxTime"))
        t.max = to_float(f.get("maxTime"));
    if (f.has("animationStartTime"))
        t.start = to_float(f.get("animationStartTime"));
    if (f.has("animationEndTime"))
        t.end = to_float(f.get("animationEndTime"));
    // The animation range holds the playback range, as Maya keeps it.
    t.max = std::max(t.max, t.min);
    t.start = std::min(t.start, t.min);
    t.end = std::max(t.end, t.max);
    c.host.scene.attributes_changed();
    return value();
}

// ---------------------------------------------------------------- which keys

// "10", "10:20", ":20", "10:" or ":"; a plain number is one time.
QPair<double, double> range_of(builtin_call& c, const value& v, double low, double high) {
    double single = 0;
    if (number_of(v, &single))
        return {single, single};
    const QString text = to_string(v).trimmed();
    const int colon = text.indexOf(QLatin1Char(':'), text.startsWith(QLatin1Char('-')) ? 1 : 0);
    if (colon < 0)
        c.fail(QStringLiteral("%1: Invalid range: %2").arg(c.name, text));
    const QString from = text.left(colon).trimmed(), to = text.mid(colon + 1).trimmed();
    bool ok_from = true, ok_to = true;
    const double a = from.isEmpty() ? low : from.toDouble(&ok_from);
    const double b = to.isEmpty() ? high : to.toDouble(&ok_to);
    if (!ok_from || !ok_to)
        c.fail(QStringLiteral("%1: Invalid range: %2").arg(c.name, text));
    return {a, b};
}

struct key_filter {
    QVector<QPair<double, double>> times;
    QVector<QPair<double, double>> indices;

    bool picks(int index, const anim_key& k) const {
        constexpr double tick = 1e-6;
        bool time_ok = times.isEmpty(), index_ok = indices.isEmpty();
        for (const auto& r : times)
            time_ok = time_ok || (k.time >= r.first - tick && k.time <= r.second + tick);
        for (const auto& r : indices)
            index_ok = index_ok || (index >= r.first && index <= r.second);
        return time_ok && index_ok;
    }
};

key_filter filter_of(builtin_call& c, const parsed_flags& f) {
    key_filter out;
    for (const value& v : f.set.value(QStringLiteral("time")))
        out.times.append(range_of(c, v, -infinity, infinity));
    for (const value& v : f.set.value(QStringLiteral("index")))
        out.indices.append(range_of(c, v, 0, infinity));
    return out;
}

// The names with, for -hierarchy below, every descendant after each.
QStringList with_hierarchy(builtin_call& c, const parsed_flags& f, const QStringList& names) {
    if (!f.has("hierarchy") || to_string(f.get("hierarchy")) != QLatin1String("below"))
        return names;
    const scene& s = c.host.scene;
    QStringList out;
    for (const QString& name : names) {
        out << name;
        if (name.contains(QLatin1Char('.')))
            continue;
        QVector<int> stack = s.at(node_argument(c, name)).children;
        while (!stack.isEmpty()) {
            const int id = stack.takeFirst();
            out << s.full_path(id);
            stack = s.at(id).children + stack;
        }
    }
    return out;
}

// The plugs named by -attribute on a node, or by a plug's text; compounds give their leaves.
QVector<plug> named_plugs(builtin_call& c, const parsed_flags& f, const QString& name) {
    const scene& s = c.host.scene;
    QVector<plug> out;
    if (name.contains(QLatin1Char('.')))
        return leaf_plugs(s, plug_argument(c, name, c.name + QStringLiteral(": ")));
    const int node = node_argument(c, name);
    for (const value& a : f.set.value(QStringLiteral("attribute"))) {
        const int index = find_attribute(s, node, to_string(a));
        if (index >= 0)
            out += leaf_plugs(s, {node, index});
    }
    return out;
}

// The curves of the targets (a curve node stands for itself), in attribute order.
QVector<int> target_curves(builtin_call& c, const parsed_flags& f) {
    const scene& s = c.host.scene;
    QVector<int> out;
    auto add = [&out](int curve) {
        if (curve >= 0 && !out.contains(curve))
            out.append(curve);
    };
    for (const QString& name : with_hierarchy(c, f, targets_or_selection(c, f))) {
        if (name.contains(QLatin1Char('.')) || f.has("attribute")) {
            for (const plug& p : named_plugs(c, f, name))
                add(driving_curve(s, p));
            continue;
        }
        const int node = node_argument(c, name);
        if (s.at(node).curve) {
            add(node);
            continue;
        }
        for (int k = 0; k < attribute_count(s, node); ++k)
            add(driving_curve(s, {node, k}));
    }
    return out;
}

int tangent_number(builtin_call& c, const value& v) {
    static const QHash<QString, int> numbers{{"fixed", 1},   {"linear", 2},    {"flat", 3},
                                             {"spline", 4},  {"smooth", 4},    {"step", 5},
                                             {"slow", 6},    {"fast", 7},      {"clamped", 8},
                                             {"plateau", 9}, {"stepnext", 10}, {"auto", 18}};
    const auto it = numbers.constFind(to_string(v));
    if (it == numbers.constEnd())
        c.fail(QStringLiteral("%1: Invalid tangent type: %2").arg(c.name, to_string(v)));
    return *it;
}

// ---------------------------------------------------------------- setKeyframe

// What setKeyframe keys: named plugs, or each object's keyable, unlocked numbers.
QVector<plug> plugs_to_key(builtin_call& c, const parsed_flags& f, const QStringList& names) {
    const scene& s = c.host.scene;
    QVector<plug> out;
    for (const QString& name : names) {
        if (name.contains(QLatin1Char('.')) || f.has("attribute")) {
            out += named_plugs(c, f, name);
            continue;
        }
        const int node = node_argument(c, name);
        for (int k = 0; k < attribute_count(s, node); ++k) {
            if (is_scalar(attribute_at(s, node, k)) && plug_state(s, {node, k}).keyable)
                out.append({node, k});
        }
    }
    return out;
}

value set_keyframe(builtin_call& c) {
    const parsed_flags f = parse_flags(c, {{"at", "attribute", 1},
                                           {"t", "time", 1},
                                           {"v", "value", 1},
                                           {"f", "float", 1},
                                           {"bd", "breakdown", 1},
                                           {"hi", "hierarchy", 1},
                                           {"s", "shape", 1},
                                           {"cp", "controlPoints", 1},
                                           {"an", "animated", 1},
                                           {"i", "insert", 0},
                                           {"itt", "inTangentType", 1},
                                           {"ott", "outTangentType", 1},
                                           {"rk", "respectKeyable", 1},
                                           {"id", "identity", 0},
                                           {"al", "animLayer", 1},
                                           {"mr", "minimizeRotation", 1},
                                           {"nr", "noResolve", 1},
                                           {"dd", "dirtyDG", 1},
                                           {"ucl", "useCurrentLockedWeights", 1},
                                           {"c", "clip", 1},
                                           {"ib", "insertBlend", 1}});
    scene& s = c.host.scene;
    const QStringList names = with_hierarchy(c, f, targets_or_selection(c, f));
    if (names.isEmpty()) {
        c.host.out.warning(QStringLiteral("setKeyframe: No objects to keyframe."));
        return value::of_int(0);
    }
    QVector<double> times;
    for (const value& t : f.set.value(QStringLiteral("time")))
        times.append(to_float(t));
    if (times.isEmpty())
        times.append(s.time.current);
    const bool only_animated = f.has("animated") && flag_bool(c, f.get("animated"));
    const int in = f.has("inTangentType") ? tangent_number(c, f.get("inTangentType")) : -1;
    const int out = f.has("outTangentType") ? tangent_number(c, f.get("outTangentType")) : -1;
    int count = 0;
    for (const plug& p : plugs_to_key(c, f, names)) {
        const attribute_def& definition = attribute_at(s, p.node, p.index);
        // Locked plugs and texts take no keys.
        if (!is_scalar(definition) || plug_state(s, p).locked)
            continue;
        if (only_animated && driving_curve(s, p) < 0)
            continue;
        for (double t : times) {
            const double v = f.has("value")    ? to_float(f.get("value"))
                             : f.has("insert") ? plug_number_at(s, p, t)
                                               : plug_number(s, p);
            if (set_key(s, p, t, v, in, out) >= 0)
                ++count;
        }
    }
    return value::of_int(count);
}

// ---------------------------------------------------------------- keyframe, cutKey

const std::initializer_list<flag_def> keyset_flags = {{"at", "attribute", -1},
                                                      {"t", "time", -1},
                                                      {"in", "index", -1},
                                                      {"hi", "hierarchy", -1},
                                                      {"an", "animation", -1},
                                                      {"o", "option", -1},
                                                      {"f", "float", -1},
                                                      {"s", "shape", -1},
                                                      {"cp", "controlPoints", -1},
                                                      {"iub", "includeUpperBound", -1},
                                                      {"kc", "keyframeCount", 0},
                                                      {"tc", "timeChange", 1},
                                                      {"vc", "valueChange", 1},
                                                      {"n", "name", 0},
                                                      {"iv", "indexValue", 0},
                                                      {"a", "absolute", 0},
                                                      {"r", "relative", 0},
                                                      {"e", "edit", 0},
                                                      {"sl", "selected", 0},
                                                      {"lsl", "lastSelected", 0},
                                                      {"ev", "eval", 0},
                                                      {"fc", "floatChange", 1},
                                                      {"bd", "breakdown", 1},
                                                      {"adj", "adjustBreakdown", 1},
                                                      {"tds", "tickDrawSpecial", 1},
                                                      {"cl", "clear", 0}};

value keyframe_query(builtin_call& c, const parsed_flags& f, const QVector<int>& curves) {
    const scene& s = c.host.scene;
    const key_filter filter = filter_of(c, f);
    if (f.has("name")) {
        QStringList out;
        for (int curve : curves)
            out << s.display_name(curve);
        return value::of_strings(out);
    }
    int count = 0;
    value times = value::empty_of(type::float_array);
    value values = value::empty_of(type::float_array);
    value indices = value::empty_of(type::int_array);
    for (int curve : curves) {
        const QVector<anim_key>& keys = s.at(curve).curve->keys;
        for (int k = 0; k < keys.size(); ++k) {
            if (!filter.picks(k, keys[k]))
                continue;
            ++count;
            times.fa.append(keys[k].time);
            values.fa.append(keys[k].value);
            indices.ia.append(k);
        }
    }
    if (f.has("keyframeCount"))
        return value::of_int(count);
    if (f.has("valueChange"))
        return values;
    if (f.has("indexValue"))
        return indices;
    return times;
}

value keyframe(builtin_call& c) {
    const parsed_flags f = parse_flags(c, keyset_flags);
    scene& s = c.host.scene;
    const QVector<int> curves = target_curves(c, f);
    if (f.query)
        return keyframe_query(c, f, curves);
    const key_filter filter = filter_of(c, f);
    const bool relative = !f.has("absolute");
    int changed = 0;
    for (int curve : curves) {
        anim_curve& data = *s.edit(curve).curve;
        QVector<anim_key> kept, moved;
        for (int k = 0; k < data.keys.size(); ++k) {
            anim_key key = data.keys[k];
            if (!filter.picks(k, key)) {
                kept.append(key);
                continue;
            }
            if (f.has("valueChange")) {
                const double v = to_float(f.get("valueChange"));
                key.value = relative ? key.value + v : v;
            }
            if (f.has("timeChange")) {
                const double t = to_float(f.get("timeChange"));
                key.time = relative ? key.time + t : t;
            }
            moved.append(key);
        }
        if (moved.isEmpty())
            continue;
        // Moved keys replace keys they land on.
        data.keys = kept;
        for (const anim_key& key : moved)
            insert_key(data, key);
        ++changed;
    }
    s.attributes_changed();
    return value::of_int(changed);
}

value cut_key(builtin_call& c) {
    const parsed_flags f = parse_flags(c, keyset_flags);
    scene& s = c.host.scene;
    const key_filter filter = filter_of(c, f);
    int cut = 0;
    for (int curve : target_curves(c, f)) {
        if (remove_keys(s, curve,
                        [&filter](int k, const anim_key& key) { return filter.picks(k, key); }) > 0)
            ++cut;
    }
    c.host.nodes_removed(); // curves left without keys are gone
    return value::of_int(cut);
}

} // namespace

void register_key_builtins(builtin_table& t) {
    t.insert(QStringLiteral("currentTime"), current_time);
    t.insert(QStringLiteral("playbackOptions"), playback_options);
    t.insert(QStringLiteral("setKeyframe"), set_keyframe);
    t.insert(QStringLiteral("keyframe"), keyframe);
    t.insert(QStringLiteral("cutKey"), cut_key);
}

} // namespace host::mel
