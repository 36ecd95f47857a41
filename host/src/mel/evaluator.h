#pragma once
// The tree-walking evaluator behind the interpreter, and what built-in commands see.
#include "ast.h"
#include "core/session.h"
#include "error.h"

#include <QHash>
#include <QSet>
#include <functional>
#include <memory>
#include <vector>

namespace host::mel {

class evaluator;

// One call of a built-in command, with its evaluated arguments.
struct builtin_call {
    evaluator& in;
    session& host;
    QString name;
    position at;
    QVector<value> args;
    QVector<bool> flags;
    const expr* node;
    // Per argument: 1 or 0 for a flag that a Python caller gave True or False, else -1.
    QVector<int> switches = {};

    int switch_of(int index) const { return switches.value(index, -1); }

    [[noreturn]] void fail(const QString& message) const { throw mel_error{at, message}; }
    // Stores into the variable given as argument `index` (tokenize, clear).
    void assign(int index, const value& v);

    // Argument checks for built-ins called as functions; their errors read as MEL's own.
    void arity(int least, int most) const;
    void arity(int exactly) const { arity(exactly, exactly); }
    QString string_arg(int index) const;
    double float_arg(int index) const;
    int int_arg(int index) const;
    vec3 vector_arg(int index) const;
    // An array argument as text; a scalar is refused as MEL refuses it.
    QStringList strings_arg(int index) const;
    // A scalar argument; an array is refused as a conversion to `wanted` would be.
    const value& scalar_arg(int index, type wanted = type::string) const;
};

using builtin = std::function<value(builtin_call&)>;
using builtin_table = QHash<QString, builtin>;

// Flags of a built-in: the short and long names and how many values follow each. A
// negative count is that many values in query mode too ("keyframe -q -at tx").
struct flag_def {
    const char* short_name;
    const char* long_name;
    int values;
};

struct parsed_flags {
    QHash<QString, QVector<value>> set; // by long name
    QVector<value> positional;
    bool query = false;
    bool has(const char* long_name) const { return set.contains(QLatin1String(long_name)); }
    value get(const char* long_name) const { return set.value(QLatin1String(long_name)).value(0); }
    // Positional arguments with arrays spread out, as text.
    QStringList positional_strings() const;
};

// Unknown flags are errors. In query mode ("-q") flags take no values.
parsed_flags parse_flags(const builtin_call& call, std::initializer_list<flag_def> defs);

// The pieces of `text` between any of the `separators`, empty pieces left out (tokenize).
QStringList tokens_of(const QString& text, const QString& separators);

void register_scene_builtins(builtin_table& table);
void register_text_builtins(builtin_table& table);
void register_language_builtins(builtin_table& table);
void register_string_builtins(builtin_table& table);
void register_math_builtins(builtin_table& table);
void register_system_builtins(builtin_table& table);
void register_attribute_builtins(builtin_table& table);
void register_key_builtins(builtin_table& table);
void register_node_builtins(builtin_table& table);

class evaluator {
public:
    explicit evaluator(session& host);
    ~evaluator();

    // Runs a whole text; prints the one error line. Never throws.
    execution run_text(const QString& source);
    // Runs a text inside the current execution (eval); errors propagate.
    value eval_nested(const QString& source, const position& at);
    // Runs a MEL file: its procedures are defined, then its statements run.
    void source_file(const QString& path, const position& at);
    // A script on MAYA_SCRIPT_PATH by name ("foo", "foo.mel") or an existing path; empty if
    // none.
    static QString find_script(const QString& name);

    // Runs a whole text and gives the value of its last statement, typed; prints the one
    // error line and gives its text. Never throws.
    bool evaluate_text(const QString& source, value& last, QString* error = nullptr);
    // Calls a built-in or plug-in command with evaluated arguments, as another language
    // calls it; `flags` and `switches` as in builtin_call. Errors propagate.
    value call_command(const QString& name, const QVector<value>& args, const QVector<bool>& flags,
                       const QVector<int>& switches);

    // A budget for each outermost execution, 0 for none. Every statement and expression
    // costs one step, and every value built costs its length besides, so that the budget
    // bounds both time and memory. A script past it ends with an error that catch does not
    // stop: a loop that never ends is legitimate MEL, and this is how a host bounds it.
    void set_step_limit(qint64 limit) { step_limit_ = limit; }

    bool is_callable(const QString& name) const;
    // Built-in and plug-in commands, not procedures.
    bool is_command(const QString& name) const;
    QStringList command_names() const;
    // What whatIs answers for a name: command, procedure, script, variable or "Unknown".
    QString describe(const QString& name) const;
    // The file whose code runs now; empty for typed or evaluated text.
    QString current_file() const;
    void assign_to(const expr& target, const value& v);
    session& host() { return host_; }

private:
    struct variable {
        type declared;
        value v;
    };
    using var_ptr = std::shared_ptr<variable>;
    struct frame {
        int unit;
        QString file;
        std::vector<QHash<QString, var_ptr>> scopes;
    };
    enum class flow { normal, break_, continue_, return_ };

    struct frame_guard;
    struct scope_guard;
    struct depth_guard;

    void define_procs(const std::vector<stmt_ptr>& program, int unit, const QString& file);
    value run_program(const std::vector<stmt_ptr>& program, const QString& file);
    flow exec(const stmt& s);
    flow exec_block(const std::vector<stmt_ptr>& body);
    flow exec_loop_body(const stmt& body, bool* stop);
    flow exec_switch(const stmt& s);
    void declare(const stmt& s);
    value initial_value(const declaration& d, type t, bool global);
    value eval(const expr& e);
    value eval_index(const expr& e);
    value eval_binary(const expr& e);
    value apply_binary(const QString& op, const value& a, const value& b, const position& at);
    value apply_vector(const QString& op, const value& a, const value& b, const position& at);
    value apply_matrix(const QString& op, const value& a, const value& b, const position& at);
    value eval_unary(const expr& e);
    value eval_array_literal(const expr& e);
    value eval_matrix_literal(const expr& e);
    value eval_call(const expr& e);
    value call_proc(const proc_def& def, int unit, const QVector<value>& args, const expr& e);
    value call_plugin(const QString& name, MCreatorFunction creator, const QVector<value>& args,
                      const position& at);
    // Maya's auto-loading: an unknown procedure "foo" is looked for as foo.mel.
    bool auto_source(const QString& name, const position& at);
    value eval_incdec(const expr& e);
    var_ptr find_variable(const QString& name) const;
    var_ptr lookup_or_fail(const expr& e) const;
    const proc_def* find_proc(const QString& name, int* unit) const;
    [[noreturn]] void fail(const position& at, const QString& message) const {
        throw mel_error{at, message};
    }
    [[noreturn]] void fail_conversion(const position& at, type from, type to) const;
    void assign_element(const expr& target, const value& v);
    void assign_matrix_cell(const expr& target, const value& v);
    // A value stored into a matrix variable keeps the variable's size.
    bool fit_matrix(const value& v, const value& shape, value& out) const;
    void step(const position& at, qint64 cost = 1);
    const value& charged(const position& at, const value& v);

    session& host_;
    builtin_table builtins_;
    QHash<QString, var_ptr> globals_;
    struct proc_entry {
        std::shared_ptr<proc_def> def;
        int unit;
    };
    QHash<QString, proc_entry> global_procs_;
    QHash<int, QHash<QString, proc_entry>> local_procs_;
    std::vector<frame> frames_;
    QSet<QString> auto_sourcing_; // files being auto-sourced now, never twice at once
    int next_unit_ = 1;
    int depth_ = 0;
    int runs_ = 0; // nested run_text calls; the outermost one starts the count
    qint64 step_limit_ = 0;
    qint64 steps_ = 0;
    value return_value_;
};

} // namespace host::mel
