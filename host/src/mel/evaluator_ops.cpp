// MEL's operators on numbers, strings, vectors and matrices.
#include "evaluator.h"

#include <cmath>

namespace host::mel {

namespace {

bool is_comparison(const QString& op) {
    return op == QLatin1String("==") || op == QLatin1String("!=") || op == QLatin1String("<") ||
           op == QLatin1String(">") || op == QLatin1String("<=") || op == QLatin1String(">=");
}

template <typename T> bool compare(const QString& op, const T& x, const T& y) {
    if (op == QLatin1String("=="))
        return x == y;
    if (op == QLatin1String("!="))
        return x != y;
    if (op == QLatin1String("<"))
        return x < y;
    if (op == QLatin1String(">"))
        return x > y;
    if (op == QLatin1String("<="))
        return x <= y;
    return x >= y;
}

vec3 each(const vec3& a, const vec3& b, double (*fn)(double, double)) {
    return {fn(a.x, b.x), fn(a.y, b.y), fn(a.z, b.z)};
}

double add(double x, double y) {
    return x + y;
}
double subtract(double x, double y) {
    return x - y;
}
double multiply(double x, double y) {
    return x * y;
}
double divide(double x, double y) {
    return x / y;
}
double remainder(double x, double y) {
    return std::fmod(x, y);
}

// The arithmetic of one operator on doubles, or null for none.
double (*arithmetic(const QString& op))(double, double) {
    if (op == QLatin1String("+"))
        return add;
    if (op == QLatin1String("-"))
        return subtract;
    if (op == QLatin1String("*"))
        return multiply;
    if (op == QLatin1String("/"))
        return divide;
    if (op == QLatin1String("%"))
        return remainder;
    return nullptr;
}

} // namespace

value evaluator::eval_unary(const expr& e) {
    const value v = eval(*e.a);
    if (v.is_array())
        fail(e.at, QStringLiteral("Illegal operation on an array."));
    if (e.name == QLatin1String("!"))
        return value::of_int(to_bool(v) ? 0 : 1);
    if (e.name == QLatin1String("+"))
        return v;
    switch (v.kind) {
    case type::int_:
        return value::of_int(int(-qint64(v.i)));
    case type::vector:
        return value::of_vector({-v.v.x, -v.v.y, -v.v.z});
    case type::matrix: {
        value out = v;
        for (double& cell : out.fa)
            cell = -cell;
        return out;
    }
    default:
        return value::of_float(-to_float(v));
    }
}

value evaluator::eval_binary(const expr& e) {
    if (e.name == QLatin1String(",")) {
        eval(*e.a);
        return eval(*e.b);
    }
    const value a = eval(*e.a);
    const value b = eval(*e.b);
    return apply_binary(e.name, a, b, e.at);
}

value evaluator::apply_binary(const QString& op, const value& a, const value& b,
                              const position& at) {
    if (a.is_array() || b.is_array())
        fail(at, QStringLiteral("Illegal operation on an array."));
    // Strings dominate every other type, then matrices and vectors, then floats.
    const bool strings = a.kind == type::string || b.kind == type::string;
    if (op == QLatin1String("+") && strings)
        return value::of_string(to_string(a) + to_string(b));
    if (strings && is_comparison(op))
        return value::of_int(compare(op, QString::compare(to_string(a), to_string(b)), 0));
    if (!strings && (a.kind == type::matrix || b.kind == type::matrix))
        return apply_matrix(op, a, b, at);
    if (!strings && (a.kind == type::vector || b.kind == type::vector))
        return apply_vector(op, a, b, at);
    if (op == QLatin1String("^"))
        fail(at, QStringLiteral("The cross product ^ needs two vectors."));
    const bool floats = a.kind == type::float_ || b.kind == type::float_ || strings;
    if (floats) {
        const double x = to_float(a), y = to_float(b);
        if (auto fn = arithmetic(op))
            return value::of_float(fn(x, y));
        return value::of_int(compare(op, x, y));
    }
    const qint64 x = a.i, y = b.i;
    if (op == QLatin1String("+"))
        return value::of_int(int(x + y));
    if (op == QLatin1String("-"))
        return value::of_int(int(x - y));
    if (op == QLatin1String("*"))
        return value::of_int(int(x * y));
    if (op == QLatin1String("/") || op == QLatin1String("%")) {
        if (y == 0)
            fail(at, QStringLiteral("Division by zero."));
        return value::of_int(int(op == QLatin1String("/") ? x / y : x % y));
    }
    return value::of_int(compare(op, x, y));
}

// Vector with vector: + - / % by component, * the dot product, ^ the cross product.
// Vector with number: the number stands for <<n, n, n>>.
value evaluator::apply_vector(const QString& op, const value& a, const value& b,
                              const position& at) {
    const vec3 x = to_vector(a), y = to_vector(b);
    const bool both = a.kind == type::vector && b.kind == type::vector;
    if (op == QLatin1String("*") && both)
        return value::of_float(dot_product(x, y));
    if (op == QLatin1String("^")) {
        if (!both)
            fail(at, QStringLiteral("The cross product ^ needs two vectors."));
        return value::of_vector(cross_product(x, y));
    }
    if (op == QLatin1String("=="))
        return value::of_int(x == y ? 1 : 0);
    if (op == QLatin1String("!="))
        return value::of_int(x == y ? 0 : 1);
    if (auto fn = arithmetic(op))
        return value::of_vector(each(x, y, fn));
    fail(at, QStringLiteral("Illegal operation %1 on vectors.").arg(op));
}

// Matrix with matrix: + - by cell, * the product. Matrix with number: by cell. A vector
// times a 3x3 or 4x4 matrix is a row vector (a point, w = 1) transformed.
value evaluator::apply_matrix(const QString& op, const value& a, const value& b,
                              const position& at) {
    if (a.kind == type::vector && op == QLatin1String("*") &&
        ((b.rows == 3 && b.cols == 3) || (b.rows == 4 && b.cols == 4))) {
        const double row[4] = {a.v.x, a.v.y, a.v.z, 1};
        double out[3] = {0, 0, 0};
        for (int c = 0; c < 3; ++c) {
            for (int r = 0; r < b.rows; ++r)
                out[c] += row[r] * b.fa[r * b.cols + c];
        }
        return value::of_vector({out[0], out[1], out[2]});
    }
    if (a.kind == type::vector || b.kind == type::vector)
        fail(at, QStringLiteral("Illegal operation %1 on a matrix and a vector.").arg(op));
    const bool both = a.kind == type::matrix && b.kind == type::matrix;
    if (op == QLatin1String("*") && both) {
        if (a.cols != b.rows)
            fail(at, QStringLiteral("Cannot multiply a %1x%2 matrix by a %3x%4 matrix.")
                         .arg(a.rows)
                         .arg(a.cols)
                         .arg(b.rows)
                         .arg(b.cols));
        value out = value::of_matrix(a.rows, b.cols);
        for (int r = 0; r < a.rows; ++r) {
            for (int c = 0; c < b.cols; ++c) {
                double sum = 0;
                for (int k = 0; k < a.cols; ++k)
                    sum += a.fa[r * a.cols + k] * b.fa[k * b.cols + c];
                out.fa[r * out.cols + c] = sum;
            }
        }
        return out;
    }
    if (both && (a.rows != b.rows || a.cols != b.cols))
        fail(at, QStringLiteral("The matrices differ in size."));
    if (op == QLatin1String("==") || op == QLatin1String("!=")) {
        const bool same = both && a.fa == b.fa;
        return value::of_int(same == (op == QLatin1String("==")) ? 1 : 0);
    }
    auto fn = arithmetic(op);
    if (!fn || (!both && op != QLatin1String("*") && op != QLatin1String("/")))
        fail(at, QStringLiteral("Illegal operation %1 on a matrix.").arg(op));
    const value& shape = a.kind == type::matrix ? a : b;
    value out = shape;
    for (int k = 0; k < out.fa.size(); ++k) {
        const double x = a.kind == type::matrix ? a.fa[k] : to_float(a);
        const double y = b.kind == type::matrix ? b.fa[k] : to_float(b);
        out.fa[k] = fn(x, y);
    }
    return out;
}

} // namespace host::mel
