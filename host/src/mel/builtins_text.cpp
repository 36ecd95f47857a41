// Built-in commands on text: regular expressions, tokens, sizes, output.
#include "evaluator.h"
#include "python/runtime.h"

#include <QRegularExpression>

namespace host::mel {

namespace {

QRegularExpression regex(builtin_call& c, const QString& pattern) {
    QRegularExpression re(pattern);
    if (!re.isValid())
        c.fail(QStringLiteral("Invalid regular expression: %1").arg(pattern));
    return re;
}

value match(builtin_call& c) {
    c.arity(2);
    const QRegularExpressionMatch m = regex(c, c.string_arg(0)).match(c.string_arg(1));
    return value::of_string(m.hasMatch() ? m.captured(0) : QString());
}

value substitute(builtin_call& c) {
    c.arity(3);
    const QString subject = c.string_arg(1);
    const QRegularExpressionMatch m = regex(c, c.string_arg(0)).match(subject);
    if (!m.hasMatch())
        return value::of_string(subject);
    QString out = subject;
    out.replace(m.capturedStart(0), m.capturedLength(0), c.string_arg(2));
    return value::of_string(out);
}

value tokenize(builtin_call& c) {
    c.arity(2, 3);
    // Without separators, whitespace splits.
    const QString separators = c.args.size() >= 3 ? c.string_arg(1) : QStringLiteral(" \t\n\r");
    const QStringList tokens = tokens_of(c.string_arg(0), separators);
    c.assign(c.args.size() - 1, value::of_strings(tokens));
    return value::of_int(tokens.size());
}

value string_array_contains(builtin_call& c) {
    c.arity(2);
    return value::of_int(to_strings(c.args[1]).contains(c.string_arg(0)) ? 1 : 0);
}

value size(builtin_call& c) {
    c.arity(1);
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
    c.arity(1);
    value result;
    QString error;
    if (!c.host.python().evaluate(c.string_arg(0), result, error))
        c.fail(error);
    return result;
}

value strcmp_(builtin_call& c) {
    c.arity(2);
    const int r = QString::compare(c.string_arg(0), c.string_arg(1));
    return value::of_int(r < 0 ? -1 : r > 0 ? 1 : 0);
}

} // namespace

QStringList tokens_of(const QString& text, const QString& separators) {
    QStringList tokens;
    QString current;
    for (const QChar ch : text) {
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
    return tokens;
}

void register_text_builtins(builtin_table& t) {
    t.insert(QStringLiteral("match"), match);
    t.insert(QStringLiteral("substitute"), substitute);
    t.insert(QStringLiteral("tokenize"), tokenize);
    t.insert(QStringLiteral("stringArrayContains"), string_array_contains);
    t.insert(QStringLiteral("size"), size);
    t.insert(QStringLiteral("print"), print);
    t.insert(QStringLiteral("python"), python);
    t.insert(QStringLiteral("strcmp"), strcmp_);
}

} // namespace host::mel
