#include "interpreter.h"

#include "evaluator.h"

namespace host::mel {

struct interpreter::impl {
    explicit impl(session& host) : eval(host) {}
    evaluator eval;
};

interpreter::interpreter(session& host) : d(std::make_unique<impl>(host)) {}
interpreter::~interpreter() = default;

execution interpreter::execute(const QString& source, const QString&) {
    return d->eval.run_text(source);
}

evaluator& interpreter::engine() {
    return d->eval;
}

void interpreter::set_step_limit(qint64 limit) {
    d->eval.set_step_limit(limit);
}

} // namespace host::mel
