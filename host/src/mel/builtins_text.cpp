// Built-in commands on strings and arrays, output and evaluation.
#include "evaluator.h"

#include <QRegularExpression>
#include <QSet>
#include <algorithm>
#include <climits>
#include <cmath>

namespace host::mel {

namespace {

void need(builtin_call& c, int count) {
    if (c.args.size() < count)
        c.fail(QStringLiteral("%1 needs %2 argument(s).").arg(c.name).arg(count));
}

QString text(builtin_call& c, int index) {
    if (c.args[index].is_array())
        c.fail(QStringLiteral("Argument %1 of %2 cannot be an array.").arg(index + 1).arg(c.name));
    return to_string(c.args[index]);
}

QRegularExpression regex(builtin_call& c, const QString& pattern) {
    QRegularExpression re(pattern);
    if (!re.isValid())
        c.fail(QStringLiteral("Invalid regular expression: %1").arg(pattern));
    return re;
}

value match(builtin_call& c) {
    need(c, 2);
    const QRegularExpressionMatch m = regex(c, text(c, 0)).match(text(c, 1));
    return value::of_string(m.hasMatch() ? m.captured(0) : QString());
}

value substitute(builtin_call& c) {
    need(c, 3);
    const QString subject = text(c, 1);
    const QRegularExpressionMatch m = regex(c, text(c, 0)).match(subject);
    if (!m.hasMatch())
        return value::of_string(subject);
    QString out = subject;
    out.replace(m.capturedStart(0), m.capturedLength(0), text(c, 2));
    return value::of_string(out);
}

value tokenize(builtin_call& c) {
    need(c, 2);
    const QString subject = text(c, 0);
    const QString separators = c.args.size() >= 3 ? text(c, 1) : QStringLiteral(" ");
    QStringList tokens;
    QString current;
    for (const QChar ch : subject) {
        if (separators.contains(ch)) {
            if (!current.isEmpty())
                tokens << current;
            current.clear();
        } else {
            current += ch;
        }
    }
    if (!current.isEmpty())
        tokens << current;
    c.assign(c.args.size() - 1, value::of_strings(tokens));
    return value::of_int(tokens.size());
}

value string_array_contains(builtin_call& c) {
    need(c, 2);
    return value::of_int(to_strings(c.args[1]).contains(text(c, 0)) ? 1 : 0);
}

value size(builtin_call& c) {
    need(c, 1);
    const value& v = c.args[0];
    return value::of_int(v.is_array() ? v.array_size() : to_string(v).size());
}

value print(builtin_call& c) {
    QString out;
    for (const value& v : c.args)
        out +=
            v.is_array() ? to_strings(v).join(QLatin1Char('\n')) + QLatin1Char('\n') : to_string(v);
    c.host.out.text(out);
    return value();
}

value python(builtin_call& c) {
    need(c, 1);
    c.host.run_python(text(c, 0));
    return value::of_string(QString());
}

value eval_command(builtin_call& c) {
    QString source;
    for (int k = 0; k < c.args.size(); ++k)
        source += (k ? QStringLiteral(" ") : QString()) + text(c, k);
    return c.in.eval_nested(source, c.at);
}

value warning(builtin_call& c) {
    QString message;
    for (int k = 0; k < c.args.size(); ++k) {
        if (!c.flags.value(k))
            message += to_string(c.args[k]);
    }
    c.host.out.warning(message);
    return value();
}

value error(builtin_call& c) {
    QString message;
    for (int k = 0; k < c.args.size(); ++k) {
        if (!c.flags.value(k))
            message += to_string(c.args[k]);
    }
    c.fail(message);
}

value exists(builtin_call& c) {
    need(c, 1);
    return value::of_int(c.in.is_callable(text(c, 0)) ? 1 : 0);
}

value strcmp_(builtin_call& c) {
    need(c, 2);
    const int r = QString::compare(text(c, 0), text(c, 1));
    return value::of_int(r < 0 ? -1 : r > 0 ? 1 : 0);
}

value substring(builtin_call& c) {
    need(c, 3);
    const QString s = text(c, 0);
    const int start = std::max(1, to_int(c.args[1]));
    const int end = std::min(int(s.size()), to_int(c.args[2]));
    return value::of_string(end >= start ? s.mid(start - 1, end - start + 1) : QString());
}

value gmatch(builtin_call& c) {
    need(c, 2);
    const QRegularExpression re(QRegularExpression::anchoredPattern(
        QRegularExpression::wildcardToRegularExpression(text(c, 1))));
    return value::of_int(re.match(text(c, 0)).hasMatch() ? 1 : 0);
}

value clear(builtin_call& c) {
    need(c, 1);
    if (!c.args[0].is_array())
        c.fail(QStringLiteral("clear needs an array variable."));
    c.assign(0, value::empty_of(c.args[0].kind));
    return value();
}

value sort(builtin_call& c) {
    need(c, 1);
    value v = c.args[0];
    std::sort(v.sa.begin(), v.sa.end());
    std::sort(v.ia.begin(), v.ia.end());
    std::sort(v.fa.begin(), v.fa.end());
    return v;
}

value remove_duplicates(builtin_call& c) {
    need(c, 1);
    QStringList out;
    QSet<QString> seen;
    for (const QString& s : to_strings(c.args[0])) {
        if (!seen.contains(s)) {
            seen.insert(s);
            out << s;
        }
    }
    return value::of_strings(out);
}

value array_to_string(builtin_call& c) {
    need(c, 2);
    return value::of_string(to_strings(c.args[0]).join(text(c, 1)));
}

value string_to_array(builtin_call& c) {
    need(c, 1);
    const QString separators = c.args.size() > 1 ? text(c, 1) : QStringLiteral(" ");
    QStringList out;
    QString current;
    for (const QChar ch : text(c, 0)) {
        if (separators.contains(ch)) {
            if (!current.isEmpty())
                out << current;
            current.clear();
        } else {
            current += ch;
        }
    }
    if (!current.isEmpty())
        out << current;
    return value::of_strings(out);
}

value numeric(builtin_call& c, double (*fn)(double, double)) {
    need(c, 2);
    const bool floats = c.args[0].kind == type::float_ || c.args[1].kind == type::float_;
    const double r = fn(to_float(c.args[0]), to_float(c.args[1]));
    // An int result is held in range as every conversion to int is.
    return floats ? value::of_float(r) : value::of_int(to_int(value::of_float(r)));
}

} // namespace

void register_text_builtins(builtin_table& t) {
    t.insert(QStringLiteral("match"), match);
    t.insert(QStringLiteral("substitute"), substitute);
    t.insert(QStringLiteral("tokenize"), tokenize);
    t.insert(QStringLiteral("stringArrayContains"), string_array_contains);
    t.insert(QStringLiteral("size"), size);
    t.insert(QStringLiteral("print"), print);
    t.insert(QStringLiteral("python"), python);
    t.insert(QStringLiteral("eval"), eval_command);
    t.insert(QStringLiteral("warning"), warning);
    t.insert(QStringLiteral("error"), error);
    t.insert(QStringLiteral("exists"), exists);
    t.insert(QStringLiteral("strcmp"), strcmp_);
    t.insert(QStringLiteral("substring"), substring);
    t.insert(QStringLiteral("gmatch"), gmatch);
    t.insert(QStringLiteral("clear"), clear);
    t.insert(QStringLiteral("sort"), sort);
    t.insert(QStringLiteral("stringArrayRemoveDuplicates"), remove_duplicates);
    t.insert(QStringLiteral("stringArrayToString"), array_to_string);
    t.insert(QStringLiteral("stringToStringArray"), string_to_array);
    t.insert(QStringLiteral("tolower"), [](builtin_call& c) {
        need(c, 1);
        return value::of_string(text(c, 0).toLower());
    });
    t.insert(QStringLiteral("toupper"), [](builtin_call& c) {
        need(c, 1);
        return value::of_string(text(c, 0).toUpper());
    });
    t.insert(QStringLiteral("startsWith"), [](builtin_call& c) {
        need(c, 2);
        return value::of_int(text(c, 0).startsWith(text(c, 1)) ? 1 : 0);
    });
    t.insert(QStringLiteral("endsWith"), [](builtin_call& c) {
        need(c, 2);
        return value::of_int(text(c, 0).endsWith(text(c, 1)) ? 1 : 0);
    });
    t.insert(QStringLiteral("abs"), [](builtin_call& c) {
        need(c, 1);
        // The absolute value of the lowest int is not an int: it is held at the highest.
        return c.args[0].kind == type::float_
                   ? value::of_float(std::fabs(c.args[0].f))
                   : value::of_int(int(qMin(qAbs(qint64(to_int(c.args[0]))), qint64(INT_MAX))));
    });
    t.insert(QStringLiteral("min"), [](builtin_call& c) {
        return numeric(c, [](double a, double b) { return std::min(a, b); });
    });
    t.insert(QStringLiteral("max"), [](builtin_call& c) {
        return numeric(c, [](double a, double b) { return std::max(a, b); });
    });
}

} // namespace host::mel
