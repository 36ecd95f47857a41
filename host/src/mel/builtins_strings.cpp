// Built-in commands and the standard script procedures on strings and string arrays.
#include "core/wildcard.h"
#include "evaluator.h"

#include <QSet>

#include <algorithm>

namespace host::mel {

namespace {

value substring(builtin_call& c) {
    c.arity(3);
    const QString s = c.string_arg(0);
    // Positions count from 1 and take both ends; what lies outside the string is dropped.
    const int start = std::max(1, c.int_arg(1));
    const int end = std::min(int(s.size()), c.int_arg(2));
    return value::of_string(end >= start ? s.mid(start - 1, end - start + 1) : QString());
}

// One character class "[...]" at pattern[p] (just after '['): whether it holds `ch`, and
// where the pattern goes on. A class without its ']' is an ordinary '['.
bool class_matches(const QString& pattern, int p, QChar ch, int* next) {
    const bool negated = p < pattern.size() && pattern[p] == QLatin1Char('!');
    int k = negated ? p + 1 : p;
    bool hit = false;
    bool first = true;
    while (k < pattern.size() && (first || pattern[k] != QLatin1Char(']'))) {
        QChar low = pattern[k];
        if (low == QLatin1Char('\\') && k + 1 < pattern.size())
            low = pattern[++k];
        QChar high = low;
        if (k + 2 < pattern.size() && pattern[k + 1] == QLatin1Char('-') &&
            pattern[k + 2] != QLatin1Char(']')) {
            high = pattern[k + 2];
            k += 2;
        }
        hit = hit || (ch >= low && ch <= high);
        first = false;
        ++k;
    }
    if (k >= pattern.size()) {
        *next = -1;
        return false;
    }
    *next = k + 1;
    return hit != negated;
}

// Whether one pattern element at pattern[p] takes text character `ch`; `next` is where the
// pattern goes on.
bool element_matches(const QString& pattern, int p, QChar ch, int* next) {
    const QChar pc = pattern[p];
    if (pc == QLatin1Char('?')) {
        *next = p + 1;
        return true;
    }
    if (pc == QLatin1Char('[')) {
        int after = 0;
        const bool hit = class_matches(pattern, p + 1, ch, &after);
        if (after >= 0) {
            *next = after;
            return hit;
        }
    }
    if (pc == QLatin1Char('\\') && p + 1 < pattern.size()) {
        *next = p + 2;
        return pattern[p + 1] == ch;
    }
    *next = p + 1;
    return pc == ch;
}

// Shell-style matching: * ? [a-z] [!a] and \ to escape.
bool glob_match(const QString& pattern, const QString& text) {
    return match_with_stars(pattern, text, [&pattern](int p, QChar ch, int* next) {
        return element_matches(pattern, p, ch, next);
    });
}

value gmatch(builtin_call& c) {
    c.arity(2);
    return value::of_int(glob_match(c.string_arg(1), c.string_arg(0)) ? 1 : 0);
}

value substitute_all_string(builtin_call& c) {
    c.arity(3);
    QString text = c.string_arg(0);
    const QString search = c.string_arg(1);
    if (!search.isEmpty())
        text.replace(search, c.string_arg(2));
    return value::of_string(text);
}

value string_to_string_array(builtin_call& c) {
    c.arity(2);
    return value::of_strings(tokens_of(c.string_arg(0), c.string_arg(1)));
}

value string_array_to_string(builtin_call& c) {
    c.arity(2);
    return value::of_string(c.strings_arg(0).join(c.string_arg(1)));
}

value string_array_remove(builtin_call& c) {
    c.arity(2);
    const QStringList listed = c.strings_arg(0);
    const QSet<QString> remove(listed.begin(), listed.end());
    QStringList out;
    for (const QString& s : c.strings_arg(1)) {
        if (!remove.contains(s))
            out << s;
    }
    return value::of_strings(out);
}

value string_array_remove_duplicates(builtin_call& c) {
    c.arity(1);
    QStringList out;
    QSet<QString> seen;
    for (const QString& s : c.strings_arg(0)) {
        if (!seen.contains(s)) {
            seen.insert(s);
            out << s;
        }
    }
    return value::of_strings(out);
}

// Inserts into the caller's array variable; a negative index inserts nothing and gives 0.
value string_array_insert_at_index(builtin_call& c) {
    c.arity(3);
    const int index = c.int_arg(0);
    QStringList list = c.strings_arg(1);
    if (index < 0)
        return value::of_int(0);
    list.insert(std::min(index, int(list.size())), c.string_arg(2));
    c.assign(1, value::of_strings(list));
    return value::of_int(1);
}

value sort(builtin_call& c) {
    c.arity(1);
    value v = c.args[0];
    switch (v.kind) {
    case type::string_array:
        std::sort(v.sa.begin(), v.sa.end());
        break;
    case type::int_array:
        std::sort(v.ia.begin(), v.ia.end());
        break;
    case type::float_array:
        std::sort(v.fa.begin(), v.fa.end());
        break;
    default:
        c.fail(QStringLiteral("sort needs an array of ints, floats or strings, not %1.")
                   .arg(type_name(v.kind)));
    }
    return v;
}

value clear(builtin_call& c) {
    c.arity(1);
    if (!c.args[0].is_array())
        c.fail(QStringLiteral("clear needs an array variable, not %1.")
                   .arg(type_name(c.args[0].kind)));
    c.assign(0, value::empty_of(c.args[0].kind));
    return value::of_int(0);
}

value strip(builtin_call& c) {
    c.arity(1);
    return value::of_string(c.string_arg(0).trimmed());
}

value to_lower(builtin_call& c) {
    c.arity(1);
    return value::of_string(c.string_arg(0).toLower());
}

value to_upper(builtin_call& c) {
    c.arity(1);
    return value::of_string(c.string_arg(0).toUpper());
}

value starts_with(builtin_call& c) {
    c.arity(2);
    return value::of_int(c.string_arg(0).startsWith(c.string_arg(1)) ? 1 : 0);
}

value ends_with(builtin_call& c) {
    c.arity(2);
    return value::of_int(c.string_arg(0).endsWith(c.string_arg(1)) ? 1 : 0);
}

} // namespace

void register_string_builtins(builtin_table& t) {
    t.insert(QStringLiteral("substring"), substring);
    t.insert(QStringLiteral("strip"), strip);
    t.insert(QStringLiteral("tolower"), to_lower);
    t.insert(QStringLiteral("toupper"), to_upper);
    t.insert(QStringLiteral("startsWith"), starts_with);
    t.insert(QStringLiteral("endsWith"), ends_with);
    t.insert(QStringLiteral("gmatch"), gmatch);
    t.insert(QStringLiteral("substituteAllString"), substitute_all_string);
    t.insert(QStringLiteral("stringToStringArray"), string_to_string_array);
    t.insert(QStringLiteral("stringArrayToString"), string_array_to_string);
    t.insert(QStringLiteral("stringArrayRemove"), string_array_remove);
    t.insert(QStringLiteral("stringArrayRemoveDuplicates"), string_array_remove_duplicates);
    t.insert(QStringLiteral("stringArrayInsertAtIndex"), string_array_insert_at_index);
    t.insert(QStringLiteral("sort"), sort);
    t.insert(QStringLiteral("clear"), clear);
}

} // namespace host::mel
