#include "ma_attribute_writer.h"

#include "core/anim_curves.h"
#include "core/scene.h"
#include "ma_text.h"

#include <QLocale>

namespace host {
namespace ma {

namespace {

const QString config_node = QStringLiteral("sceneConfigurationScriptNode");

QString number(double v) {
    return QString::number(v, 'g', QLocale::FloatingPointShortest);
}

QString quoted(const QString& text) {
    return QLatin1Char('"') + escape(text) + QLatin1Char('"');
}

QString value_text(const attribute_def& definition, double v) {
    if (definition.kind == attribute_kind::boolean)
        return v != 0 ? QStringLiteral("yes") : QStringLiteral("no");
    return number(v);
}

QString add_attr_line(const attribute_def& definition) {
    QString line = QStringLiteral("\taddAttr -ci true");
    if (definition.keyable)
        line += QStringLiteral(" -k true");
    line += QStringLiteral(" -sn ") + quoted(definition.short_name) + QStringLiteral(" -ln ") +
            quoted(definition.long_name);
    if (!definition.nice_name.isEmpty())
        line += QStringLiteral(" -nn ") + quoted(definition.nice_name);
    if (definition.default_value != 0)
        line += QStringLiteral(" -dv ") + number(definition.default_value);
    if (definition.has_min)
        line += QStringLiteral(" -min ") + number(definition.min);
    if (definition.has_max)
        line += QStringLiteral(" -max ") + number(definition.max);
    if (definition.kind == attribute_kind::enumeration)
        line += QStringLiteral(" -en ") + quoted(enum_fields_text(definition.fields));
    line += definition.kind == attribute_kind::string ? QStringLiteral(" -dt ")
                                                      : QStringLiteral(" -at ");
    return line + quoted(definition.type) + QStringLiteral(";\n");
}

// One setAttr with the flags that differ from the attribute's own and, when given, a value.
void set_attr_line(const attribute_def& definition, const plug_value& state, const QString& value,
                   QString& out) {
    QString flags;
    if (state.locked)
        flags += QStringLiteral(" -l on");
    if (state.keyable != definition.keyable)
        flags += state.keyable ? QStringLiteral(" -k on") : QStringLiteral(" -k off");
    if (state.channel_box)
        flags += QStringLiteral(" -cb on");
    if (flags.isEmpty() && value.isEmpty())
        return;
    out += QStringLiteral("\tsetAttr") + flags + QStringLiteral(" \".") + definition.short_name +
           QLatin1Char('"') + (value.isEmpty() ? QString() : QLatin1Char(' ') + value) +
           QStringLiteral(";\n");
}

void write_plugs(const scene& from, int id, QString& out) {
    const int count = attribute_count(from, id);
    for (int k = 0; k < count; ++k) {
        const attribute_def& definition = attribute_at(from, id, k);
        const plug p{id, k};
        if (definition.kind == attribute_kind::compound) {
            bool changed = false;
            QString values;
            for (int child : definition.children) {
                const double v = stored_number(from, {id, child});
                changed = changed || v != attribute_at(from, id, child).default_value;
                values += number(v) + QLatin1Char(' ');
            }
            if (changed)
                out += QStringLiteral("\tsetAttr \".") + definition.short_name +
                       QStringLiteral("\" -type \"double3\" ") + values + QStringLiteral(";\n");
            continue;
        }
        const plug_value state = plug_state(from, p);
        QString value;
        if (definition.kind == attribute_kind::string) {
            if (!state.text.isEmpty())
                value = QStringLiteral("-type \"string\" ") + quoted(state.text);
        } else if (definition.parent < 0 && state.number != definition.default_value) {
            value = value_text(definition, state.number);
        }
        set_attr_line(definition, state, value, out);
    }
}

// ".kit[2:8]" runs of the keys whose tangent a file or a command gave.
void write_tangents(const anim_curve& c, bool in, QString& out) {
    const int n = c.keys.size();
    for (int first = 0; first < n;) {
        auto type_of = [&](int k) { return in ? c.keys[k].in_tangent : c.keys[k].out_tangent; };
        if (type_of(first) == 0xff) {
            ++first;
            continue;
        }
        int last = first;
        QString values;
        for (; last < n && type_of(last) != 0xff; ++last)
            values += QLatin1Char(' ') + QString::number(type_of(last));
        const QString element = last - first == 1
                                    ? QString::number(first)
                                    : QStringLiteral("%1:%2").arg(first).arg(last - 1);
        out += QStringLiteral("\tsetAttr -s %1 \".%2[%3]\" %4;\n")
                   .arg(n)
                   .arg(in ? QStringLiteral("kit") : QStringLiteral("kot"), element, values);
        first = last;
    }
}

void write_curve(const anim_curve& c, QString& out) {
    out += QStringLiteral("\tsetAttr \".tan\" %1;\n").arg(c.tangent_type);
    out += QStringLiteral("\tsetAttr \".wgt\" %1;\n")
               .arg(c.weighted ? QStringLiteral("yes") : QStringLiteral("no"));
    const int n = c.keys.size();
    if (n == 0)
        return;
    QString pairs;
    for (const anim_key& k : c.keys)
        pairs += QLatin1Char(' ') + number(k.time) + QLatin1Char(' ') + number(k.value);
    if (n == 1)
        out += QStringLiteral("\tsetAttr \".ktv[0]\" %1;\n").arg(pairs);
    else
        out += QStringLiteral("\tsetAttr -s %1 \".ktv[0:%2]\" %3;\n").arg(n).arg(n - 1).arg(pairs);
    write_tangents(c, true, out);
    write_tangents(c, false, out);
}

QString playback_script(const time_state& t) {
    return QStringLiteral("playbackOptions -min %1 -max %2 -ast %3 -aet %4 ")
        .arg(number(t.min), number(t.max), number(t.start), number(t.end));
}

void write_config_lines(const scene& from, QString& out) {
    out += QStringLiteral("\tsetAttr \".b\" -type \"string\" ") +
           quoted(playback_script(from.time)) + QStringLiteral(";\n");
    out += QStringLiteral("\tsetAttr \".st\" 6;\n");
}

} // namespace

void write_node_attributes(const scene& from, int id, QString& out) {
    const node& n = from.at(id);
    if (n.curve) {
        write_curve(*n.curve, out);
        return;
    }
    if (n.name == config_node && n.type == QLatin1String("script")) {
        write_config_lines(from, out);
        return;
    }
    if (n.attributes) {
        for (const attribute_def& definition : n.attributes->user)
            out += add_attr_line(definition);
    }
    write_plugs(from, id, out);
}

void write_time_settings_node(const scene& from, QString& out) {
    const time_state defaults;
    const time_state& t = from.time;
    if (from.exists(config_node) || (t.min == defaults.min && t.max == defaults.max &&
                                     t.start == defaults.start && t.end == defaults.end))
        return;
    out += QStringLiteral("createNode script -n ") + quoted(config_node) + QStringLiteral(";\n");
    write_config_lines(from, out);
}

void write_current_time(const scene& from, QString& out) {
    out += QStringLiteral("select -ne :time1;\n");
    out += QStringLiteral("\tsetAttr \".o\" %1;\n").arg(number(from.time.current));
    out += QStringLiteral("\tsetAttr \".unw\" %1;\n").arg(number(from.time.current));
}

void write_curve_connections(const scene& from, const node_namer& name_of, QString& out) {
    for (int id : from.live_nodes()) {
        const anim_curve* c = from.at(id).curve.get();
        if (!c || c->target < 0 || !from.at(c->target).alive)
            continue;
        const int index = find_attribute(from, c->target, c->target_attribute);
        if (index < 0)
            continue;
        out += QStringLiteral("connectAttr ") + quoted(name_of(id) + QStringLiteral(".o")) +
               QLatin1Char(' ') +
               quoted(name_of(c->target) + QLatin1Char('.') +
                      attribute_at(from, c->target, index).short_name) +
               QStringLiteral(";\n");
    }
}

} // namespace ma
} // namespace host
