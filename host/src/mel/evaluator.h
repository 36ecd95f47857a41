#pragma once
// The tree-walking evaluator behind the interpreter, and what built-in commands see.
#include "ast.h"
#include "core/session.h"
#include "error.h"

#include <QHash>
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

    [[noreturn]] void fail(const QString& message) const { throw mel_error{at, message}; }
    // Stores into the variable given as argument `index` (tokenize, clear).
    void assign(int index, const value& v);
};

using builtin = std::function<value(builtin_call&)>;
using builtin_table = QHash<QString, builtin>;

// Flags of a built-in: the short and long names and how many values follow each.
struct flag_spec {
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
parsed_flags parse_flags(const builtin_call& call, std::initializer_list<flag_spec> specs);

void register_scene_builtins(builtin_table& table);
void register_text_builtins(builtin_table& table);

class evaluator {
public:
    explicit evaluator(session& host);
    ~evaluator();

    // Runs a whole text; prints the one error line. Never throws.
    execution run_text(const QString& source);
    // Runs a text inside the current execution (eval); errors propagate.
    value eval_nested(const QString& source, const position& at);

    // A budget for each outermost execution, 0 for none. Every statement and expression
    // costs one step, and every value built costs its length besides, so that the budget
    // bounds both time and memory. A script past it ends with an error that catch does not
    // stop: a loop that never ends is legitimate MEL, and this is how a host bounds it.
    void set_step_limit(qint64 limit) { step_limit_ = limit; }

    bool is_callable(const QString& name) const;
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
        std::vector<QHash<QString, var_ptr>> scopes;
    };
    enum class flow { normal, break_, continue_, return_ };

    struct frame_guard;
    struct scope_guard;

    void define_procs(const std::vector<stmt_ptr>& program, int unit);
    flow exec(const stmt& s);
    flow exec_block(const std::vector<stmt_ptr>& body);
    void declare(const stmt& s);
    value eval(const expr& e);
    value eval_binary(const expr& e);
    value eval_call(const expr& e);
    value call_proc(const proc_def& def, int unit, const QVector<value>& args, const expr& e);
    value call_plugin(const QString& name, MCreatorFunction creator, const QVector<value>& args,
                      const position& at);
    value eval_incdec(const expr& e);
    var_ptr find_variable(const QString& name) const;
    var_ptr lookup_or_fail(const expr& e) const;
    const proc_def* find_proc(const QString& name, int* unit) const;
    [[noreturn]] void fail(const position& at, const QString& message) const {
        throw mel_error{at, message};
    }
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
    int next_unit_ = 1;
    int depth_ = 0;
    int runs_ = 0; // nested run_text calls; the outermost one starts the count
    qint64 step_limit_ = 0;
    qint64 steps_ = 0;
    value return_value_;
};

} // namespace host::mel
