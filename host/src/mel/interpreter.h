#pragma once
// The MEL interpreter: tokenizer, parser to a syntax tree, evaluator, built-in commands.
#include "core/session.h"

#include <QString>
#include <memory>

namespace host::mel {

class evaluator;

class interpreter {
public:
    explicit interpreter(session& host);
    ~interpreter();

    // Runs `source` as one execution. An error prints one "// Error: ... //" line naming
    // its line and column, ends the execution and returns ok == false. Global procedures
    // and global variables outlive the execution.
    execution execute(const QString& source, const QString& source_name = QString());
    // The evaluator itself, for other languages that call commands and run MEL.
    evaluator& engine();
    // Bounds each execution: see evaluator::set_step_limit. 0, the default, for none.
    void set_step_limit(qint64 limit);

private:
    struct impl;
    std::unique_ptr<impl> d;
};

} // namespace host::mel
