#pragma once
// The host's embedded CPython: one interpreter per session, with the `maya` package that
// scripts import. Python.h stays out of this header, so that Qt's headers and Python's
// never meet in the files that include it.
#include <QString>

namespace host {

class session;

namespace mel {
struct value;
}

namespace python {

class runtime {
public:
    explicit runtime(session& host);
    ~runtime();
    runtime(const runtime&) = delete;
    runtime& operator=(const runtime&) = delete;

    // Starts the interpreter if it is not running; false (with an error printed) when
    // Python cannot start.
    bool start();
    // Ends the interpreter, running its exit handlers; a later use starts a fresh one.
    void stop();
    bool running() const;

    // A top-level execution (a command button, the script editor, a batch step). A text
    // that is one expression is evaluated, and with `echo` its value is printed; `file`
    // names a script file, whose text always runs as statements. Errors are printed in
    // Python's form; false when one was.
    bool execute(const QString& code, bool echo, const QString& file = QString());
    // MEL's python(): the value of an expression converted for MEL, or nothing for
    // statements. On an error, false and its text, printed by the caller.
    bool evaluate(const QString& code, mel::value& result, QString& error);

private:
    session& host_;
};

} // namespace python
} // namespace host
