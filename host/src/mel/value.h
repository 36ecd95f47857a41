#pragma once
// MEL values: int, float, string and arrays of each.
#include <QString>
#include <QStringList>
#include <QVector>

namespace host::mel {

enum class type { none, int_, float_, string, int_array, float_array, string_array };

struct value {
    type kind = type::none;
    int i = 0;
    double f = 0;
    QString s;
    QVector<int> ia;
    QVector<double> fa;
    QStringList sa;

    static value of_int(int v) {
        value x;
        x.kind = type::int_;
        x.i = v;
        return x;
    }
    static value of_float(double v) {
        value x;
        x.kind = type::float_;
        x.f = v;
        return x;
    }
    static value of_string(QString v) {
        value x;
        x.kind = type::string;
        x.s = std::move(v);
        return x;
    }
    static value of_strings(QStringList v) {
        value x;
        x.kind = type::string_array;
        x.sa = std::move(v);
        return x;
    }
    static value empty_of(type t) {
        value x;
        x.kind = t;
        return x;
    }

    bool is_array() const { return is_array_type(kind); }
    int array_size() const;
    static bool is_array_type(type t) {
        return t == type::int_array || t == type::float_array || t == type::string_array;
    }
};

QString type_name(type t);
type element_type(type array_type);
type array_of(type scalar_type);
QString format_float(double f);

// Scalar conversions as MEL makes them; arrays do not convert to scalars.
QString to_string(const value& v);
int to_int(const value& v);
double to_float(const value& v);
bool to_bool(const value& v);
// The elements of an array (or a scalar alone) as text.
QStringList to_strings(const value& v);
// Converts to `t`; false when MEL would refuse.
bool convert(const value& v, type t, value& out);
value element_at(const value& array, int index);
// Sets array[index], growing it; `array` must be an array value.
bool set_element(value& array, int index, const value& element);

} // namespace host::mel
