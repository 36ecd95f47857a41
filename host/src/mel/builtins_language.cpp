// Built-in commands of the language itself: eval, evalDeferred, error, warning, exists,
// whatIs and source.
#include "evaluator.h"

namespace host::mel {

namespace {

// The text of a command's positional arguments, joined as they were written.
QString joined_text(const parsed_flags& f) {
    return f.positional_strings().join(QLatin1Char(' '));
}

value eval_command(builtin_call& c) {
    QString source;
    for (int k = 0; k < c.args.size(); ++k)
        source += (k ? QStringLiteral(" ") : QString()) + c.string_arg(k);
    return c.in.eval_nested(source, c.at);
}

value eval_deferred(builtin_call& c) {
    const parsed_flags f = parse_flags(c, {{"en", "evaluateNext", 0},
                                           {"ls", "list", 0},
                                           {"low", "lowPriority", 0},
                                           {"lp", "lowestPriority", 0}});
    idle_queue& idle = c.host.idle;
    if (f.has("list")) {
        QStringList pending;
        for (const idle_queue::entry& e : idle.pending()) {
            if (e.what == idle_queue::kind::mel)
                pending << e.text;
        }
        return value::of_strings(pending);
    }
    const QString script = joined_text(f);
    if (script.isEmpty())
        c.fail(QStringLiteral("evalDeferred: no command to evaluate."));
    if (f.has("evaluateNext"))
        idle.push_mel_next(script);
    else
        idle.push_mel(script);
    return value::empty_of(type::string_array);
}

// "-sl true" puts the file and line before the text, as Maya's script editor does.
QString with_line(builtin_call& c, const QString& text) {
    const QString file = c.in.current_file();
    if (file.isEmpty())
        return QStringLiteral("line %1: %2").arg(c.at.line).arg(text);
    return QStringLiteral("file: %1 line %2: %3").arg(file).arg(c.at.line).arg(text);
}

const std::initializer_list<flag_def> message_flags = {{"n", "noContext", 0},
                                                       {"sl", "showLineNumber", 1}};

value error_command(builtin_call& c) {
    const parsed_flags f = parse_flags(c, message_flags);
    mel_error e{c.at, joined_text(f)};
    // Maya prints the text alone; with -showLineNumber the line comes first.
    e.bare = !(f.has("showLineNumber") && to_bool(f.get("showLineNumber")));
    throw e;
}

value warning_command(builtin_call& c) {
    const parsed_flags f = parse_flags(c, message_flags);
    const QString text = joined_text(f);
    const bool line = f.has("showLineNumber") && to_bool(f.get("showLineNumber"));
    c.host.out.warning(line ? with_line(c, text) : text);
    return value();
}

value exists_command(builtin_call& c) {
    c.arity(1);
    const QString name = c.string_arg(0);
    const bool found =
        c.in.is_callable(name) || !evaluator::find_script(name + QStringLiteral(".mel")).isEmpty();
    return value::of_int(found ? 1 : 0);
}

value what_is(builtin_call& c) {
    c.arity(1);
    return value::of_string(c.in.describe(c.string_arg(0)));
}

value source_command(builtin_call& c) {
    c.arity(1);
    const QString name = c.string_arg(0);
    const QString path = evaluator::find_script(name);
    if (path.isEmpty())
        c.fail(QStringLiteral("Cannot find file \"%1\" for source statement.").arg(name));
    c.in.source_file(path, c.at);
    return value();
}

} // namespace

void register_language_builtins(builtin_table& t) {
    t.insert(QStringLiteral("eval"), eval_command);
    t.insert(QStringLiteral("evalDeferred"), eval_deferred);
    t.insert(QStringLiteral("error"), error_command);
    t.insert(QStringLiteral("warning"), warning_command);
    t.insert(QStringLiteral("exists"), exists_command);
    t.insert(QStringLiteral("whatIs"), what_is);
    t.insert(QStringLiteral("source"), source_command);
}

} // namespace host::mel
