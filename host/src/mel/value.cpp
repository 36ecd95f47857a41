#include "value.h"

#include <cmath>

namespace host::mel {

int value::array_size() const {
    switch (kind) {
    case type::int_array:
        return ia.size();
    case type::float_array:
        return fa.size();
    case type::string_array:
        return sa.size();
    default:
        return 0;
    }
}

QString type_name(type t) {
    switch (t) {
    case type::none:
        return QStringLiteral("void");
    case type::int_:
        return QStringLiteral("int");
    case type::float_:
        return QStringLiteral("float");
    case type::string:
        return QStringLiteral("string");
    case type::int_array:
        return QStringLiteral("int[]");
    case type::float_array:
        return QStringLiteral("float[]");
    case type::string_array:
        return QStringLiteral("string[]");
    }
    return QString();
}

type element_type(type t) {
    switch (t) {
    case type::int_array:
        return type::int_;
    case type::float_array:
        return type::float_;
    case type::string_array:
        return type::string;
    default:
        return t;
    }
}

type array_of(type t) {
    switch (t) {
    case type::int_:
        return type::int_array;
    case type::float_:
        return type::float_array;
    case type::string:
        return type::string_array;
    default:
        return t;
    }
}

QString format_float(double f) {
    if (std::isfinite(f) && f == std::floor(f) && std::fabs(f) < 1e15)
        return QString::number(qint64(f));
    // Beyond that, six significant digits and an exponent, as MEL prints them: in fixed
    // notation 1e308 has 309 digits, slow to make and no use to read.
    if (std::isfinite(f) && std::fabs(f) >= 1e15)
        return QString::number(f, 'g', 6);
    QString text = QString::number(f, 'f', 6);
    while (text.endsWith(QLatin1Char('0')))
        text.chop(1);
    if (text.endsWith(QLatin1Char('.')))
        text.chop(1);
    return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

QString to_string(const value& v) {
    switch (v.kind) {
    case type::int_:
        return QString::number(v.i);
    case type::float_:
        return format_float(v.f);
    case type::string:
        return v.s;
    default:
        return QString();
    }
}

namespace {

// MEL reads the leading number of a string and ignores the rest: a sign, digits with at
// most one point, and an exponent with digits, as far as they go. One pass: a long run of
// digits and points costs its length once. A number beyond the range of double reads as
// toDouble gives it, infinite or zero.
double leading_number(const QString& s) {
    const int n = s.size();
    const auto digit = [&](int i) {
        return i < n && s[i] >= QLatin1Char('0') && s[i] <= QLatin1Char('9');
    };
    int i = 0;
    while (i < n && s[i].isSpace())
        ++i;
    const int start = i;
    if (i < n && (s[i] == QLatin1Char('-') || s[i] == QLatin1Char('+')))
        ++i;
    int digits = 0;
    for (; digit(i); ++i)
        ++digits;
    if (i < n && s[i] == QLatin1Char('.')) {
        ++i;
        for (; digit(i); ++i)
            ++digits;
    }
    if (digits == 0)
        return 0;
    if (i < n && (s[i] == QLatin1Char('e') || s[i] == QLatin1Char('E')) && digit(i + 1)) {
        i += 2;
        while (digit(i))
            ++i;
    }
    return s.mid(start, i - start).toDouble();
}

} // namespace

int to_int(const value& v) {
    switch (v.kind) {
    case type::int_:
        return v.i;
    case type::float_:
        return std::isfinite(v.f) ? int(qBound(-2147483648.0, v.f, 2147483647.0)) : 0;
    case type::string: {
        const double d = leading_number(v.s);
        return int(qBound(-2147483648.0, d, 2147483647.0));
    }
    default:
        return 0;
    }
}

double to_float(const value& v) {
    switch (v.kind) {
    case type::int_:
        return v.i;
    case type::float_:
        return v.f;
    case type::string:
        return leading_number(v.s);
    default:
        return 0;
    }
}

bool to_bool(const value& v) {
    switch (v.kind) {
    case type::string:
        return !v.s.isEmpty();
    case type::float_:
        return v.f != 0;
    default:
        return v.is_array() ? v.array_size() > 0 : v.i != 0;
    }
}

QStringList to_strings(const value& v) {
    switch (v.kind) {
    case type::string_array:
        return v.sa;
    case type::int_array: {
        QStringList out;
        for (int x : v.ia)
            out << QString::number(x);
        return out;
    }
    case type::float_array: {
        QStringList out;
        for (double x : v.fa)
            out << format_float(x);
        return out;
    }
    case type::none:
        return {};
    default:
        return {to_string(v)};
    }
}

bool convert(const value& v, type t, value& out) {
    if (v.kind == t) {
        out = v;
        return true;
    }
    if (value::is_array_type(t) != v.is_array() || v.kind == type::none)
        return false;
    out = value::empty_of(t);
    switch (t) {
    case type::int_:
        out.i = to_int(v);
        return true;
    case type::float_:
        out.f = to_float(v);
        return true;
    case type::string:
        out.s = to_string(v);
        return true;
    default:
        break;
    }
    for (int k = 0; k < v.array_size(); ++k)
        set_element(out, k, element_at(v, k));
    return true;
}

value element_at(const value& array, int index) {
    switch (array.kind) {
    case type::int_array:
        return value::of_int(index >= 0 && index < array.ia.size() ? array.ia[index] : 0);
    case type::float_array:
        return value::of_float(index >= 0 && index < array.fa.size() ? array.fa[index] : 0);
    case type::string_array:
        return value::of_string(index >= 0 && index < array.sa.size() ? array.sa[index]
                                                                      : QString());
    default:
        return value();
    }
}

bool set_element(value& array, int index, const value& element) {
    // A stray huge index must not take all memory.
    if (index < 0 || index > (1 << 24))
        return false;
    switch (array.kind) {
    case type::int_array:
        if (index >= array.ia.size())
            array.ia.resize(index + 1);
        array.ia[index] = to_int(element);
        return true;
    case type::float_array:
        if (index >= array.fa.size())
            array.fa.resize(index + 1);
        array.fa[index] = to_float(element);
        return true;
    case type::string_array:
        while (array.sa.size() <= index)
            array.sa.append(QString());
        array.sa[index] = to_string(element);
        return true;
    default:
        return false;
    }
}

} // namespace host::mel
