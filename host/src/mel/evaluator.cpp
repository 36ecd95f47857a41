#include "evaluator.h"

#include "openmaya/access.h"
#include "parser.h"

#include <maya/MArgList.h>
#include <maya/MPxCommand.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace host::mel {

namespace {

// Deep enough for real scripts, shallow enough for the C++ stack under sanitizers.
constexpr int max_call_depth = 150;

// Names the file (empty: typed or evaluated text) of an error that leaves it, once.
void locate(mel_error& e, const QString& file) {
    if (e.located)
        return;
    e.located = true;
    e.file = file;
}

// The directories of MAYA_SCRIPT_PATH, read each time: putenv may change it.
QStringList script_path() {
    return qEnvironmentVariable("MAYA_SCRIPT_PATH")
        .split(QDir::listSeparator(), Qt::SkipEmptyParts);
}

QString script_on_path(const QString& file_name) {
    for (const QString& dir : script_path()) {
        const QFileInfo candidate(QDir(dir).filePath(file_name));
        if (candidate.isFile())
            return candidate.absoluteFilePath();
    }
    return QString();
}

} // namespace

// ---------------------------------------------------------------- guards

struct evaluator::frame_guard {
    evaluator& e;
    frame_guard(evaluator& owner, int unit, const QString& file) : e(owner) {
        e.frames_.push_back(frame{unit, file, {}});
        e.frames_.back().scopes.emplace_back();
    }
    ~frame_guard() { e.frames_.pop_back(); }
};

struct evaluator::scope_guard {
    evaluator& e;
    explicit scope_guard(evaluator& owner) : e(owner) { e.frames_.back().scopes.emplace_back(); }
    ~scope_guard() { e.frames_.back().scopes.pop_back(); }
};

struct evaluator::depth_guard {
    evaluator& e;
    depth_guard(evaluator& owner, const position& at, const QString& overflow) : e(owner) {
        if (e.depth_ >= max_call_depth)
            e.fail(at, overflow);
        ++e.depth_;
    }
    ~depth_guard() { --e.depth_; }
};

// ---------------------------------------------------------------- set-up

evaluator::evaluator(session& host) : host_(host) {
    register_scene_builtins(builtins_);
    register_text_builtins(builtins_);
    register_language_builtins(builtins_);
    register_string_builtins(builtins_);
    register_math_builtins(builtins_);
    register_system_builtins(builtins_);
    register_attribute_builtins(builtins_);
    register_key_builtins(builtins_);
    register_node_builtins(builtins_);
}

evaluator::~evaluator() = default;

void evaluator::define_procs(const std::vector<stmt_ptr>& program, int unit, const QString& file) {
    for (const stmt_ptr& s : program) {
        if (s->what != stmt::kind::proc)
            continue;
        s->proc->file = file;
        proc_entry entry{s->proc, unit};
        if (s->proc->global)
            global_procs_.insert(s->proc->name, entry);
        else
            local_procs_[unit].insert(s->proc->name, entry);
    }
}

// The statements of a parsed text, in its own frame; the value of the last one when that
// is an expression other than an assignment, as the script editor shows it.
value evaluator::run_program(const std::vector<stmt_ptr>& program, const QString& file) {
    const int unit = next_unit_++;
    define_procs(program, unit, file);
    frame_guard frame(*this, unit, file);
    value last;
    for (const stmt_ptr& s : program) {
        last = value();
        if (s->what == stmt::kind::expression && s->e->what != expr::kind::assign &&
            s->e->what != expr::kind::incdec) {
            last = eval(*s->e);
            continue;
        }
        if (exec(*s) == flow::return_)
            break;
    }
    return last;
}

execution evaluator::run_text(const QString& source) {
    execution result;
    value v;
    result.ok = evaluate_text(source, v);
    if (result.ok && v.kind != type::none) {
        result.has_value = true;
        result.array = v.is_array();
        result.values = to_strings(v);
        result.shown = result_text(v);
    }
    return result;
}

bool evaluator::evaluate_text(const QString& source, value& last, QString* error) {
    last = value();
    // A command may run MEL inside an execution; only the outermost starts a new budget.
    if (runs_ == 0)
        steps_ = 0;
    ++runs_;
    struct run_release {
        int& r;
        ~run_release() { --r; }
    } release{runs_};
    try {
        try {
            last = run_program(parse(source), QString());
        } catch (mel_error& e) {
            locate(e, QString());
            throw;
        }
        return true;
    } catch (const mel_error& e) {
        if (!e.reported)
            host_.out.error(e.text());
        if (error)
            *error = e.reported ? host_.out.last_error() : e.text();
        last = value();
        return false;
    }
}

value evaluator::eval_nested(const QString& source, const position& at) {
    depth_guard depth(*this, at, QStringLiteral("Stack overflow: eval nested too deeply."));
    try {
        return run_program(parse(source), QString());
    } catch (mel_error& e) {
        // Its positions count in the evaluated text, not in the file that called eval.
        locate(e, QString());
        throw;
    }
}

void evaluator::source_file(const QString& path, const position& at) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        fail(at, QStringLiteral("Cannot find file \"%1\" for source statement.").arg(path));
    const QString text = QString::fromUtf8(file.readAll());
    depth_guard depth(*this, at,
                      QStringLiteral("Stack overflow: %1 sources itself too deeply.")
                          .arg(QFileInfo(path).fileName()));
    try {
        run_program(parse(text), path);
    } catch (mel_error& e) {
        locate(e, path);
        throw;
    }
}

QString evaluator::find_script(const QString& name) {
    if (name.isEmpty())
        return QString();
    QStringList names{name};
    if (!name.endsWith(QLatin1String(".mel")))
        names << name + QStringLiteral(".mel");
    for (const QString& n : names) {
        if (QFileInfo(n).isAbsolute()) {
            if (QFileInfo(n).isFile())
                return n;
            continue;
        }
        const QString found = script_on_path(n);
        if (!found.isEmpty())
            return found;
        if (QFileInfo(n).isFile())
            return QFileInfo(n).absoluteFilePath();
    }
    return QString();
}

bool evaluator::auto_source(const QString& name, const position& at) {
    const QString path = script_on_path(name + QStringLiteral(".mel"));
    if (path.isEmpty() || auto_sourcing_.contains(path))
        return false;
    auto_sourcing_.insert(path);
    struct release {
        QSet<QString>& set;
        QString path;
        ~release() { set.remove(path); }
    } done{auto_sourcing_, path};
    source_file(path, at);
    return true;
}

bool evaluator::is_callable(const QString& name) const {
    int unit = 0;
    return find_proc(name, &unit) || is_command(name);
}

bool evaluator::is_command(const QString& name) const {
    return builtins_.contains(name) || host_.command(name);
}

QStringList evaluator::command_names() const {
    QStringList names = builtins_.keys() + host_.command_names();
    names.sort();
    names.removeDuplicates();
    return names;
}

value evaluator::call_command(const QString& name, const QVector<value>& args,
                              const QVector<bool>& flags, const QVector<int>& switches) {
    const position at;
    frame_guard frame(*this, next_unit_++, QString());
    const auto b = builtins_.constFind(name);
    if (b != builtins_.constEnd()) {
        builtin_call call{*this, host_, name, at, args, flags, nullptr, switches};
        call.flags.resize(call.args.size());
        return (*b)(call);
    }
    MCreatorFunction creator = host_.command(name);
    if (!creator)
        fail(at, QStringLiteral("Cannot find procedure \"%1\".").arg(name));
    // A plug-in sees flags as text: a flag given True stands alone, one given False goes.
    QVector<value> plain;
    for (int k = 0; k < args.size(); ++k) {
        const int given = flags.value(k) ? switches.value(k, -1) : -1;
        if (given != 0)
            plain.append(args[k]);
    }
    return call_plugin(name, creator, plain, at);
}

QString evaluator::describe(const QString& name) const {
    if (name.startsWith(QLatin1Char('$'))) {
        var_ptr var = find_variable(name.mid(1));
        if (!var)
            var = globals_.value(name.mid(1));
        return var ? type_name(var->declared) + QStringLiteral(" variable")
                   : QStringLiteral("Unknown");
    }
    int unit = 0;
    if (const proc_def* def = find_proc(name, &unit)) {
        return def->file.isEmpty() ? QStringLiteral("Mel procedure entered interactively.")
                                   : QStringLiteral("Mel procedure found in: ") + def->file;
    }
    if (builtins_.contains(name) || host_.command(name))
        return QStringLiteral("Command");
    const QString script = script_on_path(name + QStringLiteral(".mel"));
    if (!script.isEmpty())
        return QStringLiteral("Script found in: ") + script;
    return QStringLiteral("Unknown");
}

QString evaluator::current_file() const {
    return frames_.empty() ? QString() : frames_.back().file;
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

// One pass of a loop body: `stop` when the loop ends here (break or return).
evaluator::flow evaluator::exec_loop_body(const stmt& body, bool* stop) {
    const flow f = exec(body);
    *stop = f == flow::break_ || f == flow::return_;
    return f == flow::return_ ? f : flow::normal;
}

evaluator::flow evaluator::exec(const stmt& s) {
    bool stop = false;
    step(s.at);
    switch (s.what) {
    case stmt::kind::empty:
    case stmt::kind::proc:
    case stmt::kind::case_:
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
    case stmt::kind::switch_:
        return exec_switch(s);
    case stmt::kind::while_:
        while (!stop && to_bool(eval(*s.e))) {
            if (exec_loop_body(*s.then, &stop) == flow::return_)
                return flow::return_;
        }
        return flow::normal;
    case stmt::kind::do_while:
        do {
            if (exec_loop_body(*s.then, &stop) == flow::return_)
                return flow::return_;
        } while (!stop && to_bool(eval(*s.e)));
        return flow::normal;
    case stmt::kind::for_: {
        if (s.init)
            eval(*s.init);
        while (!stop && (!s.e || to_bool(eval(*s.e)))) {
            if (exec_loop_body(*s.then, &stop) == flow::return_)
                return flow::return_;
            if (!stop && s.step)
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
        for (int k = 0; !stop && k < array.array_size(); ++k) {
            if (!convert(element_at(array, k), var->declared, var->v))
                fail_conversion(s.at, element_type(array.kind), var->declared);
            if (exec_loop_body(*s.then, &stop) == flow::return_)
                return flow::return_;
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

// Runs from the first case equal to the value (or default) down to a break or the end:
// cases without a break fall through.
evaluator::flow evaluator::exec_switch(const stmt& s) {
    const value control = eval(*s.e);
    size_t start = s.body.size(), fallback = s.body.size();
    for (size_t k = 0; k < s.body.size(); ++k) {
        const stmt& label = *s.body[k];
        if (label.what != stmt::kind::case_)
            continue;
        if (!label.e) {
            fallback = std::min(fallback, k);
            continue;
        }
        if (to_bool(apply_binary(QStringLiteral("=="), control, eval(*label.e), label.at))) {
            start = k;
            break;
        }
    }
    if (start == s.body.size())
        start = fallback;
    scope_guard scope(*this);
    for (size_t k = start; k < s.body.size(); ++k) {
        const flow f = exec(*s.body[k]);
        if (f == flow::break_)
            return flow::normal;
        if (f != flow::normal)
            return f; // continue belongs to the enclosing loop, return to the procedure
    }
    return flow::normal;
}

value evaluator::initial_value(const declaration& d, type t, bool global) {
    value init = value::empty_of(t);
    if (t == type::matrix) {
        const int rows = to_int(eval(*d.rows)), cols = to_int(eval(*d.cols));
        if (rows < 1 || cols < 1 || qint64(rows) * cols > max_matrix_cells)
            fail(d.at, QStringLiteral("Invalid matrix size [%1][%2] for \"$%3\".")
                           .arg(rows)
                           .arg(cols)
                           .arg(d.name));
        init = value::of_matrix(rows, cols);
    }
    if (!d.init || (global && globals_.contains(d.name)))
        return init;
    const value v = eval(*d.init);
    value out;
    const bool fits = t == type::matrix ? fit_matrix(v, init, out) : convert(v, t, out);
    if (!fits)
        fail_conversion(d.at, v.kind, t);
    return out;
}

void evaluator::declare(const stmt& s) {
    for (const declaration& d : s.decls) {
        const type t = d.array ? array_of(s.declared) : s.declared;
        auto& scope = frames_.back().scopes.back();
        if (s.global_decl) {
            var_ptr g = globals_.value(d.name);
            if (g && g->declared != t)
                fail(d.at, QStringLiteral("Global variable \"$%1\" is already declared as %2.")
                               .arg(d.name, type_name(g->declared)));
            if (!g) {
                // A global takes its initial value once, when first declared.
                g = std::make_shared<variable>(variable{t, initial_value(d, t, true)});
                globals_.insert(d.name, g);
            }
            scope.insert(d.name, g);
            continue;
        }
        const auto existing = scope.constFind(d.name);
        if (existing != scope.constEnd() && (*existing)->declared != t)
            fail(d.at,
                 QStringLiteral("Invalid redeclaration of variable \"$%1\" as a different type.")
                     .arg(d.name));
        scope.insert(d.name, std::make_shared<variable>(variable{t, initial_value(d, t, false)}));
    }
}

// ---------------------------------------------------------------- variables

evaluator::var_ptr evaluator::find_variable(const QString& name) const {
    if (frames_.empty())
        return nullptr;
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

void evaluator::fail_conversion(const position& at, type from, type to) const {
    fail(at, QStringLiteral("Cannot convert data of type %1 to type %2.")
                 .arg(type_name(from), type_name(to)));
}

bool evaluator::fit_matrix(const value& v, const value& shape, value& out) const {
    value source = v;
    if (v.kind == type::vector) {
        source = value::of_matrix(1, 3);
        source.fa = {v.v.x, v.v.y, v.v.z};
    }
    if (source.kind != type::matrix || source.rows > shape.rows || source.cols > shape.cols)
        return false;
    // What the literal leaves out stays zero.
    out = value::of_matrix(shape.rows, shape.cols);
    for (int r = 0; r < source.rows; ++r) {
        for (int c = 0; c < source.cols; ++c)
            out.fa[r * out.cols + c] = source.fa[r * source.cols + c];
    }
    return true;
}

void evaluator::assign_to(const expr& target, const value& v) {
    if (target.what == expr::kind::variable) {
        var_ptr var = find_variable(target.name);
        if (!var) {
            if (v.kind == type::none)
                fail(target.at,
                     QStringLiteral("\"$%1\" cannot take a value of type void.").arg(target.name));
            // First assignment declares the variable with the value's type.
            frames_.back().scopes.back().insert(target.name,
                                                std::make_shared<variable>(variable{v.kind, v}));
            return;
        }
        value out;
        const bool fits = var->declared == type::matrix ? fit_matrix(v, var->v, out)
                                                        : convert(v, var->declared, out);
        if (!fits)
            fail_conversion(target.at, v.kind, var->declared);
        var->v = std::move(out);
        return;
    }
    if (target.what == expr::kind::index && target.a->what == expr::kind::index) {
        assign_matrix_cell(target, v);
        return;
    }
    if (target.what == expr::kind::index && target.a->what == expr::kind::variable) {
        assign_element(target, v);
        return;
    }
    fail(target.at, QStringLiteral("Cannot assign to this expression."));
}

void evaluator::assign_element(const expr& target, const value& v) {
    if (v.is_array())
        fail(target.at, QStringLiteral("Cannot assign an array to an array element."));
    const int index = to_int(eval(*target.b));
    var_ptr var = find_variable(target.a->name);
    if (!var) {
        const type t = array_of(v.kind == type::none ? type::string : v.kind);
        if (!value::is_array_type(t))
            fail_conversion(target.at, v.kind, type::string_array);
        var = std::make_shared<variable>(variable{t, value::empty_of(t)});
        frames_.back().scopes.back().insert(target.a->name, var);
    }
    if (var->v.kind == type::matrix)
        fail(target.at, QStringLiteral("A matrix element needs a row and a column: $%1[r][c].")
                            .arg(target.a->name));
    if (!var->v.is_array())
        fail(target.at, QStringLiteral("\"$%1\" is not an array.").arg(target.a->name));
    // Growing an array costs the elements it gains, counted wide: the index may be the
    // largest int.
    step(target.at, qMax<qint64>(0, qint64(index) + 1 - var->v.array_size()));
    if (!set_element(var->v, index, v))
        fail(target.at, QStringLiteral("Array index out of range: %1").arg(index));
}

void evaluator::assign_matrix_cell(const expr& target, const value& v) {
    const expr& row_of = *target.a;
    if (row_of.a->what != expr::kind::variable)
        fail(target.at, QStringLiteral("Cannot assign to this expression."));
    const var_ptr var = lookup_or_fail(*row_of.a);
    if (var->v.kind != type::matrix)
        fail(target.at, QStringLiteral("\"$%1\" is not a matrix.").arg(row_of.a->name));
    const int r = to_int(eval(*row_of.b)), c = to_int(eval(*target.b));
    value& m = var->v;
    // A matrix keeps its size: an element outside it does not exist.
    if (r < 0 || c < 0 || r >= m.rows || c >= m.cols)
        fail(target.at, QStringLiteral("Element [%1][%2] of matrix \"$%3\" doesn't exist.")
                            .arg(r)
                            .arg(c)
                            .arg(row_of.a->name));
    if (v.is_array() || v.kind == type::matrix)
        fail_conversion(target.at, v.kind, type::float_);
    m.fa[r * m.cols + c] = to_float(v);
}

// ---------------------------------------------------------------- expressions

value evaluator::eval(const expr& e) {
    step(e.at);
    switch (e.what) {
    case expr::kind::literal:
        return e.literal;
    case expr::kind::variable:
        return lookup_or_fail(e)->v;
    case expr::kind::index:
        return eval_index(e);
    case expr::kind::unary:
        return eval_unary(e);
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
        if (e.name != QLatin1String("="))
            v = apply_binary(e.name.left(1), eval(*e.a), v, e.at);
        step(e.at, size_of(v));
        assign_to(*e.a, v);
        if (e.a->what == expr::kind::variable)
            return lookup_or_fail(*e.a)->v;
        return v;
    }
    case expr::kind::incdec:
        return eval_incdec(e);
    case expr::kind::call:
        return charged(e.at, eval_call(e));
    case expr::kind::array_lit:
        return charged(e.at, eval_array_literal(e));
    case expr::kind::catch_call: {
        try {
            eval(*e.a);
            return value::of_int(0);
        } catch (const mel_error& err) {
            if (err.fatal)
                throw;
            if (!err.reported && e.name == QLatin1String("catch"))
                host_.out.error(err.text());
            return value::of_int(1);
        }
    }
    case expr::kind::cast: {
        const value v = eval(*e.a);
        value out;
        if (v.is_array() || !convert(v, e.declared, out))
            fail_conversion(e.at, v.kind, e.declared);
        return out;
    }
    case expr::kind::component: {
        const value v = eval(*e.a);
        if (v.kind != type::vector)
            fail(e.at,
                 QStringLiteral("Only a vector has the component .%1, not a value of type %2.")
                     .arg(e.name, type_name(v.kind)));
        return value::of_float(e.name == QLatin1String("x")   ? v.v.x
                               : e.name == QLatin1String("y") ? v.v.y
                                                              : v.v.z);
    }
    case expr::kind::vector_lit: {
        double parts[3];
        for (int k = 0; k < 3; ++k) {
            const value part = eval(*e.args[size_t(k)]);
            if (part.is_array() || part.kind == type::matrix)
                fail_conversion(e.args[size_t(k)]->at, part.kind, type::float_);
            parts[k] = to_float(part);
        }
        return value::of_vector({parts[0], parts[1], parts[2]});
    }
    case expr::kind::matrix_lit:
        return eval_matrix_literal(e);
    }
    return value();
}

value evaluator::eval_index(const expr& e) {
    if (e.a->what == expr::kind::index) {
        // $m[r][c] on a matrix.
        const value base = eval(*e.a->a);
        if (base.kind == type::matrix) {
            const int r = to_int(eval(*e.a->b)), c = to_int(eval(*e.b));
            if (r < 0 || c < 0 || r >= base.rows || c >= base.cols)
                fail(e.at,
                     QStringLiteral("Element [%1][%2] of the matrix doesn't exist.").arg(r).arg(c));
            return value::of_float(base.fa[r * base.cols + c]);
        }
    }
    const value array = eval(*e.a);
    if (!array.is_array())
        fail(e.at, QStringLiteral("Cannot index a value of type %1.").arg(type_name(array.kind)));
    return element_at(array, to_int(eval(*e.b)));
}

value evaluator::eval_array_literal(const expr& e) {
    QVector<value> items;
    bool any_string = false, any_vector = false, any_float = false;
    for (const expr_ptr& item : e.args) {
        items.append(eval(*item));
        const type k = items.back().kind;
        if (items.back().is_array() || k == type::matrix)
            fail(item->at, QStringLiteral("Arrays cannot hold arrays."));
        any_string = any_string || k == type::string;
        any_vector = any_vector || k == type::vector;
        any_float = any_float || k == type::float_;
    }
    // Strings dominate vectors, vectors floats, floats ints.
    const type t = items.isEmpty() || any_string ? type::string
                   : any_vector                  ? type::vector
                   : any_float                   ? type::float_
                                                 : type::int_;
    value out = value::empty_of(array_of(t));
    for (int k = 0; k < items.size(); ++k)
        set_element(out, k, items[k]);
    return out;
}

value evaluator::eval_matrix_literal(const expr& e) {
    int cols = 0;
    for (int n : e.row_sizes)
        cols = std::max(cols, n);
    const int rows = e.row_sizes.size();
    if (qint64(rows) * cols > max_matrix_cells)
        fail(e.at, QStringLiteral("The matrix is too large."));
    value m = value::of_matrix(rows, cols);
    size_t next = 0;
    for (int r = 0; r < rows; ++r) {
        for (int c = 0; c < e.row_sizes[r]; ++c) {
            const expr& cell = *e.args[next++];
            const value v = eval(cell);
            if (v.is_array() || v.kind == type::matrix)
                fail_conversion(cell.at, v.kind, type::float_);
            m.fa[r * cols + c] = to_float(v);
        }
    }
    return m;
}

value evaluator::eval_incdec(const expr& e) {
    const value old = eval(*e.a);
    if (!old.is_number())
        fail(e.at,
             QStringLiteral("Illegal operation on a value of type %1.").arg(type_name(old.kind)));
    const int delta = e.name == QLatin1String("++") ? 1 : -1;
    const value updated = old.kind == type::float_ ? value::of_float(old.f + delta)
                                                   : value::of_int(int(qint64(old.i) + delta));
    assign_to(*e.a, updated);
    return e.prefix ? updated : old;
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
        builtin_call call{*this, host_, e.name, e.at, std::move(args), e.is_flag, &e, {}};
        call.flags.resize(call.args.size());
        return (*b)(call);
    }
    if (MCreatorFunction creator = host_.command(e.name))
        return call_plugin(e.name, creator, args, e.at);
    if (auto_source(e.name, e.at)) {
        if (const proc_def* def = find_proc(e.name, &unit))
            return call_proc(*def, unit, args, e);
    }
    fail(e.at, QStringLiteral("Cannot find procedure \"%1\".").arg(e.name));
}

value evaluator::call_proc(const proc_def& def, int unit, const QVector<value>& args,
                           const expr& e) {
    if (args.size() != def.params.size())
        fail(e.at, QStringLiteral("Wrong number of arguments on call to %1.").arg(def.name));
    QVector<value> params(args.size());
    for (int k = 0; k < args.size(); ++k) {
        const type wanted = def.params[k].declared;
        if (!convert(args[k], wanted, params[k]))
            fail_conversion(e.args[size_t(k)]->at, args[k].kind, wanted);
    }
    depth_guard depth(*this, e.at,
                      QStringLiteral("Stack overflow: %1 calls itself too deeply.").arg(def.name));
    flow f = flow::normal;
    {
        frame_guard frame(*this, unit, def.file);
        try {
            for (int k = 0; k < params.size(); ++k) {
                frames_.back().scopes.back().insert(
                    def.params[k].name,
                    std::make_shared<variable>(variable{def.params[k].declared, params[k]}));
            }
            return_value_ = value();
            f = exec(*def.body);
        } catch (mel_error& err) {
            locate(err, def.file);
            throw;
        }
    }
    value result = f == flow::return_ ? std::move(return_value_) : value();
    if (def.returns == type::none)
        return value();
    if (result.kind == type::none)
        return value::empty_of(def.returns);
    value out;
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

} // namespace host::mel
