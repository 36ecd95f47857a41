#pragma once
// What the interpreter's files share. Python.h comes first, before any Qt or standard
// header, as Python asks and so that Qt's `slots` macro never reaches Python's headers.
#define PY_SSIZE_T_CLEAN
#include <Python.h>

#include <QString>
#include <utility>

namespace host {
class session;
namespace mel {
struct value;
}
} // namespace host

namespace host::python {

// An owned reference, given back when it goes out of scope.
class owned {
public:
    explicit owned(PyObject* o = nullptr) : o_(o) {}
    ~owned() { Py_XDECREF(o_); }
    owned(owned&& other) noexcept : o_(std::exchange(other.o_, nullptr)) {}
    owned(const owned&) = delete;
    owned& operator=(const owned&) = delete;
    PyObject* get() const { return o_; }
    PyObject* release() { return std::exchange(o_, nullptr); }
    void reset(PyObject* o) {
        Py_XDECREF(o_);
        o_ = o;
    }
    explicit operator bool() const { return o_ != nullptr; }

private:
    PyObject* o_;
};

// The session the interpreter serves, and the thread it runs on, bound at start.
void bind_session(session& host);
session& bound_session();
bool on_main_thread();

// Counts one language running inside the other. Scripts that call each other for ever
// end in an error at the limit instead of overflowing the stack.
class crossing {
public:
    crossing();
    ~crossing();
    crossing(const crossing&) = delete;
    crossing& operator=(const crossing&) = delete;
    bool allowed() const { return allowed_; }
    static QString refusal();

private:
    bool allowed_;
};

// The module of host functions under the maya package.
PyObject* make_host_module();
// Prints what Python wrote and has not yet ended with a line break.
void flush_output();
// Objects held by queued callables belong to an interpreter that ended: never touch them.
void forget_queued_objects();

// The raised exception as one error line's text, taken and cleared. `quiet` for a
// sys.exit() with no code or 0, which ends a script without an error.
struct error_report {
    bool quiet = false;
    QString text;
};
error_report take_error();

// Values between MEL and Python, as Maya's wrappers convert them.
QString text_of(PyObject* str);
PyObject* to_python(const QString& text);
PyObject* to_python(const mel::value& v);
// A command's argument: numbers, strings, and lists or tuples of them. False with a
// TypeError (or OverflowError) set for anything else.
bool to_mel_argument(PyObject* o, mel::value& out);
// The value of python() for MEL; what has no MEL type becomes its text.
mel::value to_mel_result(PyObject* o);

} // namespace host::python
