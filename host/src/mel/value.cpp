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
    case type::vector_array:
        return va.size();
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
    case type::vector:
        return QStringLiteral("vector");
    case type::matrix:
        return QStringLiteral("matrix");
    case type::int_array:
        return QStringLiteral("int[]");
    case type::float_array:
        return QStringLiteral("float[]");
    case type::string_array:
        return QStringLiteral("string[]");
    case type::vector_array:
        return QStringLiteral("vector[]");
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
    case type::vector_array:
        return type::vector;
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
    case type::vector:
        return type::vector_array;
    default:
        return t;
    }
}

double dot_product(const vec3& a, const vec3& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

vec3 cross_product(const vec3& a, const vec3& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

double magnitude(const vec3& v) {
    return std::sqrt(dot_product(v, v));
}

namespace {

QString format_significant(double f, int digits) {
    const QString text = QString::number(f, 'g', digits);
    return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

// MEL reads the leading number of a string and ignores the rest: a sign, digits with at
// most one point, and an exponent with digits, as far as they go. One pass: a long run of
// digits and points costs its length once. A number beyond the range of double reads as
// toDouble gives it, infinite or zero.
double leading_number(const QString& s, int* consumed = nullptr) {
    const int n = s.size();
    const auto digit = [&](int i) {
        return i < n && s[i] >= QLatin1Char('0') && s[i] <= QLatin1Char('9');
    };
    const auto sign = [&](int i) {
        return i < n && (s[i] == QLatin1Char('-') || s[i] == QLatin1Char('+'));
    };
    int i = 0;
    while (i < n && s[i].isSpace())
        ++i;
    const int start = i;
    if (sign(i))
        ++i;
    int digits = 0;
    for (; digit(i); ++i)
        ++digits;
    if (i < n && s[i] == QLatin1Char('.')) {
        ++i;
        for (; digit(i); ++i)
            ++digits;
    }
    if (consumed)
        *consumed = 0;
    if (digits == 0)
        return 0;
    if (i < n && (s[i] == QLatin1Char('e') || s[i] == QLatin1Char('E'))) {
        const int exponent = sign(i + 1) ? i + 2 : i + 1;
        if (digit(exponent)) {
            i = exponent;
            while (digit(i))
                ++i;
        }
    }
    if (consumed)
        *consumed = i;
    return s.mid(start, i - start).toDouble();
}

int clamp_to_int(double d) {
    return std::isfinite(d) ? int(qBound(-2147483648.0, d, 2147483647.0)) : 0;
}

// "<<1, 2, 3>>" or "1 2 3": up to three numbers, the missing ones 0.
vec3 parse_vector(const QString& text) {
    double parts[3] = {0, 0, 0};
    QString rest = text;
    for (double& part : parts) {
        int k = 0;
        while (k < rest.size() &&
               (rest[k].isSpace() || rest[k] == QLatin1Char('<') || rest[k] == QLatin1Char(',')))
            ++k;
        rest = rest.mid(k);
        int used = 0;
        part = leading_number(rest, &used);
        if (used == 0)
            break;
        rest = rest.mid(used);
    }
    return {parts[0], parts[1], parts[2]};
}

QString vector_text(const vec3& v, QString (*number)(double), const char* separator) {
    return number(v.x) + QLatin1String(separator) + number(v.y) + QLatin1String(separator) +
           number(v.z);
}

QString matrix_text(const value& m, QString (*number)(double)) {
    QString out = QStringLiteral("<<");
    for (int r = 0; r < m.rows; ++r) {
        for (int c = 0; c < m.cols; ++c)
            out +=
                number(m.fa[r * m.cols + c]) + (c + 1 < m.cols ? QStringLiteral(", ") : QString());
        if (r + 1 < m.rows)
            out += QStringLiteral("; ");
    }
    return out + QStringLiteral(">>");
}

} // namespace

QString format_float(double f) {
    return format_significant(f, 10);
}

QString format_result_float(double f) {
    return format_significant(f, 6);
}

QString to_string(const value& v) {
    switch (v.kind) {
    case type::int_:
        return QString::number(v.i);
    case type::float_:
        return format_float(v.f);
    case type::string:
        return v.s;
    case type::vector:
        return vector_text(v.v, format_float, " ");
    case type::matrix:
        return matrix_text(v, format_float);
    default:
        return QString();
    }
}

int to_int(const value& v) {
    switch (v.kind) {
    case type::int_:
        return v.i;
    case type::float_:
        return clamp_to_int(v.f);
    case type::string:
        return clamp_to_int(leading_number(v.s));
    case type::vector:
        return clamp_to_int(magnitude(v.v));
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
    case type::vector:
        return magnitude(v.v);
    default:
        return 0;
    }
}

vec3 to_vector(const value& v) {
    switch (v.kind) {
    case type::vector:
        return v.v;
    case type::string:
        return parse_vector(v.s);
    case type::int_:
    case type::float_: {
        const double d = to_float(v);
        return {d, d, d};
    }
    default:
        break;
    }
    if (v.is_array() && v.kind != type::vector_array)
        return {to_float(element_at(v, 0)), to_float(element_at(v, 1)), to_float(element_at(v, 2))};
    return {};
}

bool to_bool(const value& v) {
    switch (v.kind) {
    case type::string:
        return !v.s.isEmpty();
    case type::float_:
        return v.f != 0;
    case type::vector:
        return !(v.v == vec3{});
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
    case type::vector_array: {
        QStringList out;
        for (const vec3& x : v.va)
            out << vector_text(x, format_float, " ");
        return out;
    }
    case type::none:
        return {};
    default:
        return {to_string(v)};
    }
}

QString result_text(const value& v) {
    switch (v.kind) {
    case type::float_:
        return format_result_float(v.f);
    case type::vector:
        return QStringLiteral("<<") + vector_text(v.v, format_result_float, ", ") +
               QStringLiteral(">>");
    case type::matrix:
        return matrix_text(v, format_result_float);
    case type::float_array: {
        QStringList out;
        for (double x : v.fa)
            out << format_result_float(x);
        return out.join(QLatin1Char(' '));
    }
    case type::vector_array: {
        QStringList out;
        for (const vec3& x : v.va)
            out << QStringLiteral("<<") + vector_text(x, format_result_float, ", ") +
                       QStringLiteral(">>");
        return out.join(QLatin1Char(' '));
    }
    default:
        return to_strings(v).join(QLatin1Char(' '));
    }
}

bool convert(const value& v, type t, value& out) {
    if (v.kind == t) {
        out = v;
        return true;
    }
    if (v.kind == type::none || v.kind == type::matrix || t == type::matrix)
        return false;
    if (t == type::vector) {
        // A float array (what `xform -q -t` gives) fills a vector from its first three.
        if (v.kind == type::vector_array)
            return false;
        out = value::of_vector(to_vector(v));
        return true;
    }
    if (v.kind == type::vector && value::is_array_type(t) && t != type::vector_array) {
        out = value::empty_of(t);
        set_element(out, 0, value::of_float(v.v.x));
        set_element(out, 1, value::of_float(v.v.y));
        set_element(out, 2, value::of_float(v.v.z));
        return true;
    }
    if (value::is_array_type(t) != v.is_array())
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
    case type::vector_array:
        return value::of_vector(index >= 0 && index < array.va.size() ? array.va[index] : vec3{});
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
    case type::vector_array:
        if (index >= array.va.size())
            array.va.resize(index + 1);
        array.va[index] = to_vector(element);
        return true;
    default:
        return false;
    }
}

} // namespace host::mel
