// The MEL evaluator on any text, under a step budget: a script that loops for ever is
// legitimate MEL, and the budget ends it with an error. Every input starts from a fresh
// interpreter and the same scene. The host refuses to save scenes or load plug-ins here,
// so that no script writes files or loads libraries of this machine.
#include "picker_host.h"

#include "mel/interpreter.h"

#include <QDir>

namespace {

// Enough for loops to run a while. A step may cost as much as what earlier steps built (an
// `ls` over the thousands of nodes a loop made), and the fuzzer favours inputs that loop
// longer, since each new count of iterations is new coverage: with 20,000 steps the corpus
// drifted to inputs of 30 ms each. 2,000 keeps every input to milliseconds.
constexpr qint64 step_budget = 2000;

void prepare() {
    fuzz::reset(fuzz::what_changed::anything);
    fuzz::host().mel().set_step_limit(step_budget);
    fuzz::host().failing << QStringLiteral("saveScene") << QStringLiteral("loadPlugin");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    fuzz::start(false);
    // A scene a script opens by a relative name is looked for in the run's folder.
    QDir::setCurrent(fuzz::work_path(QString()));
    prepare();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    fuzz::host().execute(QString::fromUtf8(reinterpret_cast<const char*>(data), int(size)));
    fuzz::host().run_idle();
    prepare();
    return 0;
}
