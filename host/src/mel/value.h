#pragma once
// MEL values: int, float, string, vector, matrix and arrays of the first four.
#include <QString>
#include <QStringList>
#include <QVector>

namespace host::mel {

enum class type {
    none,
    int_,
    float_,
    string,
    vector,
    matrix,
    int_array,
    float_array,
    string_array,
    vector_array
};

struct vec3 {
    double x = 0, y = 0, z = 0;
    bool operator==(const vec3& o) const { return x == o.x && y == o.y && z == o.z; }
};

double dot_product(const vec3& a, const vec3& b);
vec3 cross_product(const vec3& a, const vec3& b);
double magnitude(const vec3& v);

struct value {
    type kind = type::none;
    int i = 0;
    double f = 0;
    QString s;
    vec3 v;
    QVector<int> ia;
    QVector<double> fa; // a float array, or a matrix's cells row by row
    QStringList sa;
    QVector<vec3> va;
    int rows = 0, cols = 0; // matrix

    static value of_int(int x) {
        value out;
        out.kind = type::int_;
        out.i = x;
        return out;
    }
    static value of_float(double x) {
        value out;
        out.kind = type::float_;
        out.f = x;
        return out;
    }
    static value of_string(QString x) {
        value out;
        out.kind = type::string;
        out.s = std::move(x);
        return out;
    }
    static value of_vector(const vec3& x) {
        value out;
        out.kind = type::vector;
        out.v = x;
        return out;
    }
    static value of_strings(QStringList x) {
        value out;
        out.kind = type::string_array;
        out.sa = std::move(x);
        return out;
    }
    static value of_matrix(int rows, int cols) {
        value out;
        out.kind = type::matrix;
        out.rows = rows;
        out.cols = cols;
        out.fa.fill(0, rows * cols);
        return out;
    }
    static value empty_of(type t) {
        value out;
        out.kind = t;
        return out;
    }

    bool is_array() const { return is_array_type(kind); }
    bool is_number() const { return kind == type::int_ || kind == type::float_; }
    int array_size() const;
    static bool is_array_type(type t) {
        return t == type::int_array || t == type::float_array || t == type::string_array ||
               t == type::vector_array;
    }
};

// Matrices are small tables; a bigger declaration is refused rather than allocated.
constexpr int max_matrix_cells = 1 << 16;

QString type_name(type t);
type element_type(type array_type);
type array_of(type scalar_type);

// A float as MEL turns it into text: up to ten significant digits, no trailing zeros.
QString format_float(double f);
// A float as the Result line shows it: six significant digits.
QString format_result_float(double f);

// Scalar conversions as MEL makes them; arrays do not convert to scalars.
QString to_string(const value& v);
int to_int(const value& v);
double to_float(const value& v);
vec3 to_vector(const value& v);
bool to_bool(const value& v);
// The elements of an array (or a scalar alone) as text.
QStringList to_strings(const value& v);
// The value as the script editor's "// Result: ... //" line shows it.
QString result_text(const value& v);
// Converts to `t`; false when MEL would refuse.
bool convert(const value& v, type t, value& out);
value element_at(const value& array, int index);
// Sets array[index], growing it; `array` must be an array value.
bool set_element(value& array, int index, const value& element);

} // namespace host::mel
