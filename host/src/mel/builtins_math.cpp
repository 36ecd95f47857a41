// Built-in commands of arithmetic: abs, floor, min, clamp, trigonometry, vectors, random.
#include "evaluator.h"

#include <QHash>
#include <cmath>
#include <random>

namespace host::mel {

namespace {

constexpr double pi = 3.14159265358979323846;

value float_function(builtin_call& c, double (*fn)(double)) {
    c.arity(1);
    return value::of_float(fn(c.float_arg(0)));
}

// int, float and vector each keep their type.
value absolute(builtin_call& c) {
    c.arity(1);
    const value& v = c.scalar_arg(0, type::float_);
    // The absolute value of the lowest int is not an int: it is held at the highest.
    if (v.kind == type::int_)
        return value::of_int(v.i == std::numeric_limits<int>::min()
                                 ? std::numeric_limits<int>::max()
                                 : std::abs(v.i));
    if (v.kind == type::vector)
        return value::of_vector({std::fabs(v.v.x), std::fabs(v.v.y), std::fabs(v.v.z)});
    return value::of_float(std::fabs(to_float(v)));
}

// min and max: a float gives a float, a vector a vector by component, else an int, held in
// range as every conversion to int is.
value extreme(builtin_call& c, bool largest) {
    c.arity(2);
    const value& a = c.scalar_arg(0, type::float_);
    const value& b = c.scalar_arg(1, type::float_);
    auto pick = [largest](double x, double y) { return largest ? std::max(x, y) : std::min(x, y); };
    if (a.kind == type::int_ && b.kind == type::int_)
        return value::of_int(largest ? std::max(a.i, b.i) : std::min(a.i, b.i));
    if (a.kind == type::vector || b.kind == type::vector) {
        const vec3 x = to_vector(a), y = to_vector(b);
        return value::of_vector({pick(x.x, y.x), pick(x.y, y.y), pick(x.z, y.z)});
    }
    const double r = pick(to_float(a), to_float(b));
    if (a.kind == type::float_ || b.kind == type::float_)
        return value::of_float(r);
    return value::of_int(to_int(value::of_float(r)));
}

value clamp(builtin_call& c) {
    c.arity(3);
    const double low = c.float_arg(0), high = c.float_arg(1), v = c.float_arg(2);
    return value::of_float(v < low ? low : v > high ? high : v);
}

value power(builtin_call& c) {
    c.arity(2);
    return value::of_float(std::pow(c.float_arg(0), c.float_arg(1)));
}

value vector_length(builtin_call& c) {
    c.arity(1);
    return value::of_float(magnitude(c.vector_arg(0)));
}

value dot(builtin_call& c) {
    c.arity(2);
    return value::of_float(dot_product(c.vector_arg(0), c.vector_arg(1)));
}

value cross(builtin_call& c) {
    c.arity(2);
    return value::of_vector(cross_product(c.vector_arg(0), c.vector_arg(1)));
}

// Random number streams by name; every stream starts from the same seed, so that the same
// calls give the same numbers, as Maya's do.
constexpr unsigned default_seed = 5489u;
QHash<QString, std::mt19937>& streams() {
    static QHash<QString, std::mt19937> all;
    return all;
}
std::mt19937& stream(const QString& name) {
    auto it = streams().find(name);
    if (it == streams().end())
        it = streams().insert(name, std::mt19937(default_seed));
    return *it;
}

double uniform(std::mt19937& generator, double low, double high) {
    return low + (high - low) * std::uniform_real_distribution<double>(0.0, 1.0)(generator);
}

// rand [stream] max | rand [stream] min max, with floats or vectors.
value random(builtin_call& c) {
    c.arity(1, 3);
    const bool named = c.args.size() == 3 || (c.args.size() == 2 && c.args[0].kind == type::string);
    std::mt19937& generator = stream(named ? c.string_arg(0) : QStringLiteral("default"));
    const int first = named ? 1 : 0;
    const bool range = c.args.size() - first == 2;
    const value& top = c.scalar_arg(range ? first + 1 : first, type::float_);
    if (top.kind == type::vector || (range && c.args[first].kind == type::vector)) {
        const vec3 low = range ? c.vector_arg(first) : vec3{};
        const vec3 high = to_vector(top);
        return value::of_vector({uniform(generator, low.x, high.x),
                                 uniform(generator, low.y, high.y),
                                 uniform(generator, low.z, high.z)});
    }
    const double low = range ? c.float_arg(first) : 0;
    return value::of_float(uniform(generator, low, to_float(top)));
}

value seed(builtin_call& c) {
    c.arity(1, 2);
    const bool named = c.args.size() == 2;
    const int number = c.int_arg(named ? 1 : 0);
    stream(named ? c.string_arg(0) : QStringLiteral("default")).seed(unsigned(number));
    return value::of_int(number);
}

} // namespace

void register_math_builtins(builtin_table& t) {
    t.insert(QStringLiteral("abs"), absolute);
    t.insert(QStringLiteral("floor"),
             [](builtin_call& c) { return float_function(c, std::floor); });
    t.insert(QStringLiteral("ceil"), [](builtin_call& c) { return float_function(c, std::ceil); });
    t.insert(QStringLiteral("sqrt"), [](builtin_call& c) { return float_function(c, std::sqrt); });
    t.insert(QStringLiteral("sin"), [](builtin_call& c) { return float_function(c, std::sin); });
    t.insert(QStringLiteral("cos"), [](builtin_call& c) { return float_function(c, std::cos); });
    t.insert(QStringLiteral("deg_to_rad"), [](builtin_call& c) {
        return float_function(c, [](double d) { return d * pi / 180.0; });
    });
    t.insert(QStringLiteral("rad_to_deg"), [](builtin_call& c) {
        return float_function(c, [](double r) { return r * 180.0 / pi; });
    });
    t.insert(QStringLiteral("min"), [](builtin_call& c) { return extreme(c, false); });
    t.insert(QStringLiteral("max"), [](builtin_call& c) { return extreme(c, true); });
    t.insert(QStringLiteral("clamp"), clamp);
    t.insert(QStringLiteral("pow"), power);
    t.insert(QStringLiteral("mag"), vector_length);
    t.insert(QStringLiteral("dot"), dot);
    t.insert(QStringLiteral("cross"), cross);
    t.insert(QStringLiteral("rand"), random);
    t.insert(QStringLiteral("seed"), seed);
}

} // namespace host::mel
