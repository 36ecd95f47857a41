// What built-in commands share: their arguments, checked and converted, and their flags.
#include "evaluator.h"

namespace host::mel {

void builtin_call::assign(int index, const value& v) {
    if (!node || index < 0 || size_t(index) >= node->args.size())
        fail(QStringLiteral("Missing argument."));
    const expr& target = *node->args[size_t(index)];
    if (target.what != expr::kind::variable)
        fail(QStringLiteral("Argument %1 must be a variable.").arg(index + 1));
    in.assign_to(target, v);
}

void builtin_call::arity(int least, int most) const {
    if (args.size() < least || (most >= 0 && args.size() > most))
        fail(QStringLiteral("Wrong number of arguments on call to %1.").arg(name));
}

const value& builtin_call::scalar_arg(int index, type wanted) const {
    const value& v = args.at(index);
    if (v.is_array() || v.kind == type::matrix || v.kind == type::none)
        fail(QStringLiteral("Cannot convert data of type %1 to type %2.")
                 .arg(type_name(v.kind), type_name(wanted)));
    return v;
}

QString builtin_call::string_arg(int index) const {
    return to_string(scalar_arg(index));
}

double builtin_call::float_arg(int index) const {
    return to_float(scalar_arg(index, type::float_));
}

int builtin_call::int_arg(int index) const {
    return to_int(scalar_arg(index, type::int_));
}

vec3 builtin_call::vector_arg(int index) const {
    return to_vector(scalar_arg(index, type::vector));
}

QStringList builtin_call::strings_arg(int index) const {
    const value& v = args.at(index);
    if (!v.is_array())
        fail(QStringLiteral("Cannot convert data of type %1 to type string[].")
                 .arg(type_name(v.kind)));
    return to_strings(v);
}

QStringList parsed_flags::positional_strings() const {
    QStringList out;
    for (const value& v : positional)
        out += to_strings(v);
    return out;
}

parsed_flags parse_flags(const builtin_call& call, std::initializer_list<flag_def> defs) {
    parsed_flags out;
    for (int k = 0; k < call.args.size(); ++k) {
        if (call.flags.value(k) && call.switch_of(k) != 0) {
            const QString f = to_string(call.args[k]);
            if (f == QLatin1String("-q") || f == QLatin1String("-query"))
                out.query = true;
        }
    }
    for (int k = 0; k < call.args.size(); ++k) {
        if (!call.flags.value(k)) {
            out.positional.append(call.args[k]);
            continue;
        }
        const QString f = to_string(call.args[k]).mid(1);
        if (f == QLatin1String("q") || f == QLatin1String("query"))
            continue;
        const flag_def* declared = nullptr;
        for (const flag_def& s : defs) {
            if (f == QLatin1String(s.short_name) || f == QLatin1String(s.long_name))
                declared = &s;
        }
        if (!declared)
            call.fail(QStringLiteral("Invalid flag '-%1'").arg(f));
        const QLatin1String name(declared->long_name);
        // A negative count: that many values, which the flag keeps in query mode too.
        const int wanted = declared->values < 0 ? -declared->values
                           : out.query          ? 0
                                                : declared->values;
        // From Python, True or False sets or leaves out a flag without values, and is the
        // value of a flag that takes one.
        const int given = call.switch_of(k);
        if (given == 0 && wanted == 0)
            continue;
        QVector<value>& values = out.set[name];
        if (given >= 0) {
            if (wanted > 0)
                values.append(value::of_int(given));
            continue;
        }
        for (int n = 0; n < wanted; ++n) {
            if (k + 1 >= call.args.size() || call.flags.value(k + 1))
                call.fail(QStringLiteral("Flag '-%1' needs a value.").arg(f));
            values.append(call.args[++k]);
        }
    }
    return out;
}

} // namespace host::mel
