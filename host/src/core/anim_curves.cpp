#include "anim_curves.h"

#include "scene.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

// Maya keeps time in ticks of 1/6000 s: keys closer than that are one key.
constexpr double same_time = 1e-6;

bool before(const anim_key& k, double time) {
    return k.time < time - same_time;
}

} // namespace

double curve_value(const anim_curve& c, double time) {
    const QVector<anim_key>& keys = c.keys;
    if (keys.isEmpty())
        return 0;
    if (!std::isfinite(time) || time <= keys.front().time)
        return keys.front().value;
    if (time >= keys.back().time)
        return keys.back().value;
    const auto next = std::upper_bound(keys.begin(), keys.end(), time,
                                       [](double t, const anim_key& k) { return t < k.time; });
    const anim_key& b = *next;
    const anim_key& a = *(next - 1);
    if (a.out_tangent == tangent_step)
        return a.value;
    if (a.out_tangent == tangent_step_next)
        return b.value;
    const double span = b.time - a.time;
    return span <= 0 ? b.value : a.value + (b.value - a.value) * (time - a.time) / span;
}

QString curve_type_for(const attribute_def& definition) {
    if (definition.type == QLatin1String("doubleLinear"))
        return QStringLiteral("animCurveTL");
    if (definition.type == QLatin1String("doubleAngle"))
        return QStringLiteral("animCurveTA");
    return QStringLiteral("animCurveTU");
}

int driving_curve(const scene& s, const plug& p) {
    const node_attributes* a = s.at(p.node).attributes.get();
    if (!a || a->curves.isEmpty())
        return -1;
    return a->curves.value(attribute_at(s, p.node, p.index).long_name, -1);
}

bool connect_curve(scene& s, int curve, const plug& p) {
    node& c = s.edit(curve);
    if (!c.curve || !c.alive)
        return false;
    // Touching a plug's state makes the node's attribute block.
    set_keyable(s, p, plug_state(s, p).keyable);
    const QString name = attribute_at(s, p.node, p.index).long_name;
    const int previous = driving_curve(s, p);
    if (previous >= 0)
        s.edit(previous).curve->target = -1;
    if (c.curve->target >= 0 && s.at(c.curve->target).attributes)
        s.edit(c.curve->target).attributes->curves.remove(c.curve->target_attribute);
    c.curve->target = p.node;
    c.curve->target_attribute = name;
    s.edit(p.node).attributes->curves.insert(name, curve);
    s.held.remove({p.node, p.index});
    s.attributes_changed();
    return true;
}

void insert_key(anim_curve& c, const anim_key& key) {
    // Keys are ordered by time: a time that orders nothing has no place among them.
    if (!std::isfinite(key.time))
        return;
    auto at = std::lower_bound(c.keys.begin(), c.keys.end(), key.time, before);
    if (at != c.keys.end() && std::fabs(at->time - key.time) <= same_time)
        *at = key;
    else
        c.keys.insert(at, key);
}

int set_key(scene& s, const plug& p, double time, double value, int in_tangent, int out_tangent) {
    if (!std::isfinite(time))
        return -1;
    const attribute_def& definition = attribute_at(s, p.node, p.index);
    int curve = driving_curve(s, p);
    if (curve < 0) {
        // Named after the node without its namespace, in the current namespace.
        const QString& node_name = s.at(p.node).name;
        QString name = node_name.mid(node_name.lastIndexOf(QLatin1Char(':')) + 1) +
                       QLatin1Char('_') + definition.long_name;
        if (!s.current_namespace().isEmpty())
            name = s.current_namespace() + QLatin1Char(':') + name;
        curve = s.create_node(curve_type_for(definition), name, -1, true);
        if (curve < 0)
            return -1;
        s.edit(curve).curve->tangent_type = tangent_linear;
        connect_curve(s, curve, p);
    }
    anim_key key;
    key.time = time;
    key.value = value;
    // Switches step from key to key; numbers go in straight lines.
    const bool stepped = definition.kind == attribute_kind::boolean ||
                         definition.kind == attribute_kind::enumeration;
    key.in_tangent = quint8(in_tangent >= 0 ? in_tangent : tangent_linear);
    key.out_tangent = quint8(out_tangent >= 0 ? out_tangent
                             : stepped        ? tangent_step
                                              : tangent_linear);
    insert_key(*s.edit(curve).curve, key);
    s.held.remove({p.node, p.index});
    s.attributes_changed();
    return curve;
}

int remove_keys(scene& s, int curve, const std::function<bool(int, const anim_key&)>& doomed) {
    anim_curve& c = *s.edit(curve).curve;
    const double now = curve_value(c, s.time.current);
    QVector<anim_key> kept;
    for (int k = 0; k < c.keys.size(); ++k) {
        if (!doomed(k, c.keys[k]))
            kept.append(c.keys[k]);
    }
    const int removed = c.keys.size() - kept.size();
    c.keys = kept;
    if (c.keys.isEmpty()) {
        if (c.target >= 0) {
            const plug p{c.target, find_attribute(s, c.target, c.target_attribute)};
            if (p.index >= 0 && !s.held.contains({p.node, p.index}))
                store_number(s, p, now);
        }
        s.remove_node(curve);
    }
    s.attributes_changed();
    return removed;
}

void set_current_time(scene& s, double time) {
    if (!std::isfinite(time))
        return;
    s.time.current = time;
    s.held.clear();
    s.attributes_changed();
}

} // namespace host
