#include "evaluator.h"

#include "openmaya/access.h"
#include "parser.h"

#include <maya/MArgList.h>
#include <maya/MPxCommand.h>

#include <cmath>

namespace host::mel {

namespace {

// Deep enough for real scripts, shallow enough for the C++ stack under sanitizers.
constexpr int max_call_depth = 150;

QString position_text(const position& at) {
    return QStringLiteral("Line %1.%2: ").arg(at.line).arg(at.column);
}

} // namespace

// ---------------------------------------------------------------- guards

struct evaluator::frame_guard {
    evaluator& e;
    frame_guard(evaluator& owner, int unit) : e(owner) {
        e.frames_.push_back(frame{unit, {}});
        e.frames_.back().scopes.emplace_back();
    }
    ~frame_guard() { e.frames_.pop_back(); }
};

struct evaluator::scope_guard {
    evaluator& e;
    explicit scope_guard(evaluator& owner) : e(owner) { e.frames_.back().scopes.emplace_back(); }
    ~scope_guard() { e.frames_.back().scopes.pop_back(); }
};

// ---------------------------------------------------------------- set-up

evaluator::evaluator(session& host) : host_(host) {
    register_scene_builtins(builtins_);
    register_text_builtins(builtins_);
}

evaluator::~evaluator() = default;

void evaluator::define_procs(const std::vector<stmt_ptr>& program, int unit) {
    for (const stmt_ptr& s : program) {
        if (s->what != stmt::kind::proc)
            continue;
        proc_entry entry{s->proc, unit};
        if (s->proc->global)
            global_procs_.insert(s->proc->name, entry);
        else
            local_procs_[unit].insert(s->proc->name, entry);
    }
}

execution evaluator::run_text(const QString& source) {
    execution result;
    // A command may run MEL inside an execution; only the outermost starts a new budget.
    if (runs_ == 0)
        steps_ = 0;
    ++runs_;
    struct run_release {
        int& r;
        ~run_release() { --r; }
    } release{runs_};
    try {
        std::vector<stmt_ptr> program = parse(source);
        const int unit = next_unit_++;
        define_procs(program, unit);
        frame_guard frame(*this, unit);
        for (const stmt_ptr& s : program) {
            result.has_value = false;
            if (s->what == stmt::kind::expression && s->e->what != expr::kind::assign &&
                s->e->what != expr::kind::incdec) {
                const value v = eval(*s->e);
                if (v.kind != type::none) {
                    result.has_value = true;
                    result.array = v.is_array();
                    result.values = to_strings(v);
                }
                continue;
            }
            const flow f = exec(*s);
            if (f == flow::return_)
                break;
        }
    } catch (const mel_error& e) {
        if (!e.reported)
            host_.out.error(position_text(e.at) + e.message);
        result = execution();
        result.ok = false;
    }
    return result;
}

value evaluator::eval_nested(const QString& source, const position& at) {
    if (depth_ >= max_call_depth)
        fail(at, QStringLiteral("Stack overflow: eval nested too deeply."));
    ++depth_;
    struct depth_release {
        int& d;
        ~depth_release() { --d; }
    } release{depth_};
    std::vector<stmt_ptr> program = parse(source);
    const int unit = next_unit_++;
    define_procs(program, unit);
    frame_guard frame(*this, unit);
    value last;
    for (const stmt_ptr& s : program) {
        last = value();
        if (s->what == stmt::kind::expression) {
            last = eval(*s->e);
            continue;
        }
        if (exec(*s) == flow::return_)
            break;
    }
    return last;
}

bool evaluator::is_callable(const QString& name) const {
    int unit = 0;
    return find_proc(name, &unit) || builtins_.contains(name) || host_.command(name);
}

// ---------------------------------------------------------------- the budget

void evaluator::step(const position& at, qint64 cost) {
    if (step_limit_ <= 0)
        return;
    steps_ += cost;
    if (steps_ > step_limit_) {
        mel_error e{at, QStringLiteral("Execution stopped after %1 steps.").arg(step_limit_)};
        e.fatal = true;
        throw e;
    }
}

namespace {

qint64 size_of(const value& v) {
    return v.kind == type::string ? v.s.size() : v.array_size();
}

} // namespace

const value& evaluator::charged(const position& at, const value& v) {
    step(at, size_of(v));
    return v;
}

// ---------------------------------------------------------------- statements

evaluator::flow evaluator::exec_block(const std::vector<stmt_ptr>& body) {
    scope_guard scope(*this);
    for (const stmt_ptr& s : body) {
        const flow f = exec(*s);
        if (f != flow::normal)
            return f;
    }
    return flow::normal;
}

evaluator::flow evaluator::exec(const stmt& s) {
    step(s.at);
    switch (s.what) {
    case stmt::kind::empty:
    case stmt::kind::proc:
        return flow::normal;
    case stmt::kind::expression:
        eval(*s.e);
        return flow::normal;
    case stmt::kind::block:
        return exec_block(s.body);
    case stmt::kind::declare:
        declare(s);
        return flow::normal;
    case stmt::kind::if_:
        if (to_bool(eval(*s.e)))
            return exec(*s.then);
        return s.otherwise ? exec(*s.otherwise) : flow::normal;
    case stmt::kind::while_:
        while (to_bool(eval(*s.e))) {
            const flow f = exec(*s.then);
            if (f == flow::break_)
                break;
            if (f == flow::return_)
                return f;
        }
        return flow::normal;
    case stmt::kind::do_while:
        do {
            const flow f = exec(*s.then);
            if (f == flow::break_)
                break;
            if (f == flow::return_)
                return f;
        } while (to_bool(eval(*s.e)));
        return flow::normal;
    case stmt::kind::for_: {
        if (s.init)
            eval(*s.init);
        while (!s.e || to_bool(eval(*s.e))) {
            const flow f = exec(*s.then);
            if (f == flow::break_)
                break;
            if (f == flow::return_)
                return f;
            if (s.step)
                eval(*s.step);
        }
        return flow::normal;
    }
    case stmt::kind::for_in: {
        const value array = eval(*s.e);
        if (!array.is_array())
            fail(s.e->at, QStringLiteral("The expression in a for-in loop must be an array."));
        var_ptr var = find_variable(s.var);
        if (!var) {
            var = std::make_shared<variable>(
                variable{element_type(array.kind), value::empty_of(element_type(array.kind))});
            frames_.back().scopes.back().insert(s.var, var);
        }
        for (int k = 0; k < array.array_size(); ++k) {
            if (!convert(element_at(array, k), var->declared, var->v))
                fail(s.at, QStringLiteral("Cannot convert data of type %1 to type %2.")
                               .arg(type_name(element_type(array.kind)), type_name(var->declared)));
            const flow f = exec(*s.then);
            if (f == flow::break_)
                break;
            if (f == flow::return_)
                return f;
        }
        return flow::normal;
    }
    case stmt::kind::return_:
        return_value_ = s.e ? eval(*s.e) : value();
        return flow::return_;
    case stmt::kind::break_:
        return flow::break_;
    case stmt::kind::continue_:
        return flow::continue_;
    }
    return flow::normal;
}

void evaluator::declare(const stmt& s) {
    for (const declaration& d : s.decls) {
        const type t = d.array ? array_of(s.declared) : s.declared;
        value init = value::empty_of(t);
        if (d.init && !s.global_decl) {
            const value v = eval(*d.init);
            if (!convert(v, t, init))
                fail(d.at, QStringLiteral("Cannot convert data of type %1 to type %2.")
                               .arg(type_name(v.kind), type_name(t)));
        }
        auto& scope = frames_.back().scopes.back();
        if (s.global_decl) {
            var_ptr g = globals_.value(d.name);
            if (g && g->declared != t)
                fail(d.at, QStringLiteral("Global variable \"$%1\" is already declared as %2.")
                               .arg(d.name, type_name(g->declared)));
            if (!g) {
                // A global takes its initial value once, when first declared.
                if (d.init) {
                    const value v = eval(*d.init);
                    if (!convert(v, t, init))
                        fail(d.at, QStringLiteral("Cannot convert data of type %1 to type %2.")
                                       .arg(type_name(v.kind), type_name(t)));
                }
                g = std::make_shared<variable>(variable{t, init});
                globals_.insert(d.name, g);
            }
            scope.insert(d.name, g);
        } else {
            scope.insert(d.name, std::make_shared<variable>(variable{t, init}));
        }
    }
}

// ---------------------------------------------------------------- variables

evaluator::var_ptr evaluator::find_variable(const QString& name) const {
    const auto& scopes = frames_.back().scopes;
    for (auto it = scopes.rbegin(); it != scopes.rend(); ++it) {
        const auto found = it->constFind(name);
        if (found != it->constEnd())
            return *found;
    }
    return nullptr;
}

evaluator::var_ptr evaluator::lookup_or_fail(const expr& e) const {
    var_ptr v = find_variable(e.name);
    if (!v)
        fail(e.at, QStringLiteral("\"$%1\" is an undeclared variable.").arg(e.name));
    return v;
}

void evaluator::assign_to(const expr& target, const value& v) {
    if (target.what == expr::kind::variable) {
        var_ptr var = find_variable(target.name);
        if (!var) {
            // First assignment declares the variable with the value's type.
            frames_.back().scopes.back().insert(target.name,
                                                std::make_shared<variable>(variable{v.kind, v}));
            return;
        }
        if (!convert(v, var->declared, var->v))
            fail(target.at, QStringLiteral("Cannot convert data of type %1 to type %2.")
                                .arg(type_name(v.kind), type_name(var->declared)));
        return;
    }
    if (target.what == expr::kind::index && target.a->what == expr::kind::variable) {
        if (v.is_array())
            fail(target.at, QStringLiteral("Cannot assign an array to an array element."));
        const int index = to_int(eval(*target.b));
        var_ptr var = find_variable(target.a->name);
        if (!var) {
            const type t = array_of(v.kind == type::none ? type::string : v.kind);
            var = std::make_shared<variable>(variable{t, value::empty_of(t)});
            frames_.back().scopes.back().insert(target.a->name, var);
        }
        if (!var->v.is_array())
            fail(target.at, QStringLiteral("\"$%1\" is not an array.").arg(target.a->name));
        // Growing an array costs the elements it gains.
        step(target.at, qMax(0, index + 1 - var->v.array_size()));
        if (!set_element(var->v, index, v))
            fail(target.at, QStringLiteral("Array index out of range: %1").arg(index));
        return;
    }
    fail(target.at, QStringLiteral("Cannot assign to this expression."));
}

// ---------------------------------------------------------------- expressions

value evaluator::eval(const expr& e) {
    step(e.at);
    switch (e.what) {
    case expr::kind::literal:
        return e.literal;
    case expr::kind::variable:
        return lookup_or_fail(e)->v;
    case expr::kind::index: {
        const value array = eval(*e.a);
        if (!array.is_array())
            fail(e.at,
                 QStringLiteral("Cannot index a value of type %1.").arg(type_name(array.kind)));
        return element_at(array, to_int(eval(*e.b)));
    }
    case expr::kind::unary: {
        const value v = eval(*e.a);
        if (v.is_array())
            fail(e.at, QStringLiteral("Illegal operation on an array."));
        if (e.name == QLatin1String("!"))
            return value::of_int(to_bool(v) ? 0 : 1);
        if (e.name == QLatin1String("+"))
            return v;
        if (v.kind == type::int_)
            return value::of_int(int(-qint64(v.i)));
        return value::of_float(-to_float(v));
    }
    case expr::kind::binary:
        return charged(e.at, eval_binary(e));
    case expr::kind::logical: {
        const bool left = to_bool(eval(*e.a));
        if (e.name == QLatin1String("&&"))
            return value::of_int(left && to_bool(eval(*e.b)) ? 1 : 0);
        return value::of_int(left || to_bool(eval(*e.b)) ? 1 : 0);
    }
    case expr::kind::ternary:
        return to_bool(eval(*e.a)) ? eval(*e.b) : eval(*e.c);
    case expr::kind::assign: {
        value v = eval(*e.b);
        if (e.name != QLatin1String("=")) {
            expr op;
            op.what = expr::kind::binary;
            op.at = e.at;
            op.name = e.name.left(1);
            const value current = eval(*e.a);
            op.a = std::make_unique<expr>();
            op.a->what = expr::kind::literal;
            op.a->literal = current;
            op.b = std::make_unique<expr>();
            op.b->what = expr::kind::literal;
            op.b->literal = std::move(v);
            v = eval_binary(op);
        }
        step(e.at, size_of(v));
        assign_to(*e.a, v);
        return eval(*e.a);
    }
    case expr::kind::incdec:
        return eval_incdec(e);
    case expr::kind::call:
        return charged(e.at, eval_call(e));
    case expr::kind::array_lit: {
        QVector<value> items;
        type t = type::string;
        bool any_string = false, any_float = false;
        for (const expr_ptr& item : e.args) {
            items.append(eval(*item));
            if (items.back().is_array())
                fail(item->at, QStringLiteral("Arrays cannot hold arrays."));
            any_string = any_string || items.back().kind == type::string;
            any_float = any_float || items.back().kind == type::float_;
        }
        if (!items.isEmpty())
            t = any_string ? type::string : any_float ? type::float_ : type::int_;
        value out = value::empty_of(array_of(t));
        for (int k = 0; k < items.size(); ++k)
            set_element(out, k, items[k]);
        return charged(e.at, out);
    }
    case expr::kind::catch_call: {
        try {
            eval(*e.a);
            return value::of_int(0);
        } catch (const mel_error& err) {
            if (err.fatal)
                throw;
            if (!err.reported && e.name == QLatin1String("catch"))
                host_.out.error(position_text(err.at) + err.message);
            return value::of_int(1);
        }
    }
    }
    return value();
}

value evaluator::eval_incdec(const expr& e) {
    const value old = eval(*e.a);
    if (old.is_array() || old.kind == type::string)
        fail(e.at,
             QStringLiteral("Illegal operation on a value of type %1.").arg(type_name(old.kind)));
    const int delta = e.name == QLatin1String("++") ? 1 : -1;
    const value updated = old.kind == type::float_
                              ? value::of_float(old.f + delta)
                              : value::of_int(int(qint64(to_int(old)) + delta));
    assign_to(*e.a, updated);
    return e.prefix ? updated : old;
}

value evaluator::eval_binary(const expr& e) {
    if (e.name == QLatin1String(",")) {
        eval(*e.a);
        return eval(*e.b);
    }
    const value a = eval(*e.a);
    const value b = eval(*e.b);
    const QString& op = e.name;
    if (a.is_array() || b.is_array())
        fail(e.at, QStringLiteral("Illegal operation on an array."));
    const bool strings = a.kind == type::string || b.kind == type::string;
    if (op == QLatin1String("+") && strings)
        return value::of_string(to_string(a) + to_string(b));
    if (strings &&
        (op == QLatin1String("==") || op == QLatin1String("!=") || op == QLatin1String("<") ||
         op == QLatin1String(">") || op == QLatin1String("<=") || op == QLatin1String(">="))) {
        const int c = QString::compare(to_string(a), to_string(b));
        const bool r = op == QLatin1String("==")   ? c == 0
                       : op == QLatin1String("!=") ? c != 0
                       : op == QLatin1String("<")  ? c < 0
                       : op == QLatin1String(">")  ? c > 0
                       : op == QLatin1String("<=") ? c <= 0
                                                   : c >= 0;
        return value::of_int(r ? 1 : 0);
    }
    const bool floats = a.kind == type::float_ || b.kind == type::float_ || strings;
    if (floats) {
        const double x = to_float(a), y = to_float(b);
        if (op == QLatin1String("+"))
            return value::of_float(x + y);
        if (op == QLatin1String("-"))
            return value::of_float(x - y);
        if (op == QLatin1String("*"))
            return value::of_float(x * y);
        if (op == QLatin1String("/"))
            return value::of_float(x / y);
        if (op == QLatin1String("%"))
            return value::of_float(std::fmod(x, y));
        if (op == QLatin1String("=="))
            return value::of_int(x == y);
        if (op == QLatin1String("!="))
            return value::of_int(x != y);
        if (op == QLatin1String("<"))
            return value::of_int(x < y);
        if (op == QLatin1String(">"))
            return value::of_int(x > y);
        if (op == QLatin1String("<="))
            return value::of_int(x <= y);
        return value::of_int(x >= y);
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
            fail(e.at, QStringLiteral("Division by zero."));
        return value::of_int(int(op == QLatin1String("/") ? x / y : x % y));
    }
    if (op == QLatin1String("=="))
        return value::of_int(x == y);
    if (op == QLatin1String("!="))
        return value::of_int(x != y);
    if (op == QLatin1String("<"))
        return value::of_int(x < y);
    if (op == QLatin1String(">"))
        return value::of_int(x > y);
    if (op == QLatin1String("<="))
        return value::of_int(x <= y);
    return value::of_int(x >= y);
}

// ---------------------------------------------------------------- calls

const proc_def* evaluator::find_proc(const QString& name, int* unit) const {
    if (!frames_.empty()) {
        const auto locals = local_procs_.constFind(frames_.back().unit);
        if (locals != local_procs_.constEnd()) {
            const auto it = locals->constFind(name);
            if (it != locals->constEnd()) {
                *unit = it->unit;
                return it->def.get();
            }
        }
    }
    const auto it = global_procs_.constFind(name);
    if (it == global_procs_.constEnd())
        return nullptr;
    *unit = it->unit;
    return it->def.get();
}

value evaluator::eval_call(const expr& e) {
    QVector<value> args;
    args.reserve(int(e.args.size()));
    for (const expr_ptr& a : e.args)
        args.append(eval(*a));

    int unit = 0;
    if (const proc_def* def = find_proc(e.name, &unit))
        return call_proc(*def, unit, args, e);
    const auto b = builtins_.constFind(e.name);
    if (b != builtins_.constEnd()) {
        builtin_call call{*this, host_, e.name, e.at, std::move(args), e.is_flag, &e};
        call.flags.resize(call.args.size());
        return (*b)(call);
    }
    if (MCreatorFunction creator = host_.command(e.name))
        return call_plugin(e.name, creator, args, e.at);
    fail(e.at, QStringLiteral("Cannot find procedure \"%1\".").arg(e.name));
}

value evaluator::call_proc(const proc_def& def, int unit, const QVector<value>& args,
                           const expr& e) {
    if (args.size() != def.params.size())
        fail(e.at, QStringLiteral("Wrong number of arguments on call to %1.").arg(def.name));
    if (depth_ >= max_call_depth)
        fail(e.at, QStringLiteral("Stack overflow: %1 calls itself too deeply.").arg(def.name));
    ++depth_;
    struct depth_release {
        int& d;
        ~depth_release() { --d; }
    } release{depth_};
    frame_guard frame(*this, unit);
    for (int k = 0; k < args.size(); ++k) {
        const param& p = def.params[k];
        value v;
        if (!convert(args[k], p.declared, v))
            fail(e.args[size_t(k)]->at, QStringLiteral("Cannot convert data of type %1 to type %2.")
                                            .arg(type_name(args[k].kind), type_name(p.declared)));
        frames_.back().scopes.back().insert(p.name,
                                            std::make_shared<variable>(variable{p.declared, v}));
    }
    return_value_ = value();
    const flow f = exec(*def.body);
    value result = f == flow::return_ ? std::move(return_value_) : value();
    if (def.returns == type::none)
        return value();
    value out;
    if (result.kind == type::none)
        return value::empty_of(def.returns);
    if (!convert(result, def.returns, out))
        fail(e.at, QStringLiteral("%1 returns %2, not %3.")
                       .arg(def.name, type_name(def.returns), type_name(result.kind)));
    return out;
}

value evaluator::call_plugin(const QString& name, MCreatorFunction creator,
                             const QVector<value>& args, const position& at) {
    MArgList list;
    for (const value& v : args) {
        if (v.is_array()) {
            MStringArray array;
            for (const QString& s : to_strings(v))
                array.append(MString(s.toUtf8().constData()));
            MArgListAccess::add_array(list, array);
        } else {
            MArgListAccess::add(list, MString(to_string(v).toUtf8().constData()));
        }
    }
    MPxCommand* command = static_cast<MPxCommand*>(creator());
    if (!command)
        fail(at, QStringLiteral("%1: the command could not be created.").arg(name));
    host_.push_result();
    const int errors_before = host_.out.error_count();
    const MStatus status = command->doIt(list);
    delete command;
    const command_result r = host_.pop_result();
    if (!status)
        throw mel_error{at, QStringLiteral("%1: command failed").arg(name),
                        host_.out.error_count() > errors_before};
    if (r.kind == command_result::type::none)
        return value();
    const type scalar = r.kind == command_result::type::int_     ? type::int_
                        : r.kind == command_result::type::float_ ? type::float_
                                                                 : type::string;
    value out = value::empty_of(r.array ? array_of(scalar) : scalar);
    for (int k = 0; k < r.values.size(); ++k) {
        const value element = value::of_string(r.values[k]);
        if (r.array)
            set_element(out, k, element);
        else
            convert(element, scalar, out);
    }
    return out;
}

// ---------------------------------------------------------------- built-in support

void builtin_call::assign(int index, const value& v) {
    if (!node || index < 0 || size_t(index) >= node->args.size())
        fail(QStringLiteral("Missing argument."));
    const expr& target = *node->args[size_t(index)];
    if (target.what != expr::kind::variable)
        fail(QStringLiteral("Argument %1 must be a variable.").arg(index + 1));
    in.assign_to(target, v);
}

QStringList parsed_flags::positional_strings() const {
    QStringList out;
    for (const value& v : positional)
        out += to_strings(v);
    return out;
}

parsed_flags parse_flags(const builtin_call& call, std::initializer_list<flag_spec> specs) {
    parsed_flags out;
    for (int k = 0; k < call.args.size(); ++k) {
        if (call.flags.value(k)) {
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
        const flag_spec* declared = nullptr;
        for (const flag_spec& s : specs) {
            if (f == QLatin1String(s.short_name) || f == QLatin1String(s.long_name))
                declared = &s;
        }
        if (!declared)
            call.fail(QStringLiteral("Invalid flag '-%1'").arg(f));
        QVector<value>& values = out.set[QLatin1String(declared->long_name)];
        const int wanted = out.query ? 0 : declared->values;
        for (int n = 0; n < wanted; ++n) {
            if (k + 1 >= call.args.size() || call.flags.value(k + 1))
                call.fail(QStringLiteral("Flag '-%1' needs a value.").arg(f));
            values.append(call.args[++k]);
        }
    }
    return out;
}

} // namespace host::mel
