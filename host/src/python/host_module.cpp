// The module `_mayahost`: the few host functions that the maya package is written over.
#include "embedding.h"

#include "core/session.h"
#include "mel/evaluator.h"
#include "mel/interpreter.h"

#include <QFile>
#include <memory>

namespace host::python {

namespace {

mel::evaluator& engine() {
    return bound_session().mel().engine();
}

bool refuse_off_main_thread() {
    if (on_main_thread())
        return false;
    PyErr_SetString(PyExc_RuntimeError, "the host can only be called from the main thread; "
                                        "use maya.utils.executeDeferred");
    return true;
}

bool refuse_deep_crossing(const crossing& guard) {
    if (guard.allowed())
        return false;
    PyErr_SetString(PyExc_RecursionError, crossing::refusal().toUtf8().constData());
    return true;
}

// ---------------------------------------------------------------- commands

// A command's arguments as MEL's evaluator takes them.
struct mel_arguments {
    QVector<mel::value> values;
    QVector<bool> flags;
    QVector<int> switches;

    void add(const mel::value& v, bool flag = false, int given = -1) {
        values.append(v);
        flags.append(flag);
        switches.append(given);
    }
    bool add_argument(PyObject* o) {
        mel::value v;
        if (!to_mel_argument(o, v))
            return false;
        add(v);
        return true;
    }
    // One use of a flag: True or False alone, a tuple for several values, or one value.
    bool add_flag(const QString& name, PyObject* given) {
        const mel::value flag = mel::value::of_string(QLatin1Char('-') + name);
        if (PyBool_Check(given)) {
            add(flag, true, given == Py_True ? 1 : 0);
            return true;
        }
        add(flag, true);
        if (!PyTuple_Check(given))
            return add_argument(given);
        for (Py_ssize_t k = 0; k < PyTuple_GET_SIZE(given); ++k) {
            if (!add_argument(PyTuple_GET_ITEM(given, k)))
                return false;
        }
        return true;
    }
    // A list stands for a flag used several times.
    bool add_flags(PyObject* kwargs) {
        Py_ssize_t pos = 0;
        PyObject *key, *given;
        while (kwargs && PyDict_Next(kwargs, &pos, &key, &given)) {
            const QString name = text_of(key);
            if (!PyList_Check(given)) {
                if (!add_flag(name, given))
                    return false;
                continue;
            }
            for (Py_ssize_t k = 0; k < PyList_GET_SIZE(given); ++k) {
                if (!add_flag(name, PyList_GET_ITEM(given, k)))
                    return false;
            }
        }
        return true;
    }
};

PyObject* raise_mel_error(const QString& message) {
    PyErr_SetString(PyExc_RuntimeError, message.toUtf8().constData());
    return nullptr;
}

// call(name, args, flags): runs a command; its result converted, or RuntimeError.
PyObject* call(PyObject*, PyObject* args) {
    PyObject *name, *positional, *kwargs;
    if (!PyArg_ParseTuple(args, "UO!O!:call", &name, &PyTuple_Type, &positional, &PyDict_Type,
                          &kwargs) ||
        refuse_off_main_thread())
        return nullptr;
    const crossing guard;
    if (refuse_deep_crossing(guard))
        return nullptr;
    mel_arguments call_args;
    for (Py_ssize_t k = 0; k < PyTuple_GET_SIZE(positional); ++k) {
        if (!call_args.add_argument(PyTuple_GET_ITEM(positional, k)))
            return nullptr;
    }
    if (!call_args.add_flags(kwargs))
        return nullptr;
    session& host = bound_session();
    const int errors_before = host.out.error_count();
    try {
        return to_python(engine().call_command(text_of(name), call_args.values, call_args.flags,
                                               call_args.switches));
    } catch (const mel::mel_error& e) {
        // A command that printed its own error raises with that text.
        const bool printed = e.reported && host.out.error_count() > errors_before;
        return raise_mel_error(printed ? host.out.last_error() : e.message);
    } catch (...) {
        return raise_mel_error(QStringLiteral("internal error in the host"));
    }
}

PyObject* has_command(PyObject*, PyObject* args) {
    PyObject* name;
    if (!PyArg_ParseTuple(args, "U:has_command", &name))
        return nullptr;
    return PyBool_FromLong(engine().is_command(text_of(name)));
}

PyObject* commands(PyObject*, PyObject*) {
    if (refuse_off_main_thread())
        return nullptr;
    return to_python(mel::value::of_strings(engine().command_names()));
}

// mel_eval(text): MEL's value, or RuntimeError after MEL printed its error.
PyObject* mel_eval(PyObject*, PyObject* args) {
    PyObject* text;
    if (!PyArg_ParseTuple(args, "U:eval", &text) || refuse_off_main_thread())
        return nullptr;
    const crossing guard;
    if (refuse_deep_crossing(guard))
        return nullptr;
    mel::value last;
    QString error;
    if (!engine().evaluate_text(text_of(text), last, &error))
        return raise_mel_error(QStringLiteral("Error occurred during execution of MEL script\n") +
                               error);
    return to_python(last);
}

// ---------------------------------------------------------------- the idle queue

// Callables queued by one interpreter; a fresh one starts a new generation.
unsigned generation = 0;

// Holds a queued callable; lets go of it only while its interpreter still runs.
struct queued_callable {
    PyObject* callable;
    unsigned made_in;
    queued_callable(PyObject* c) : callable(c), made_in(generation) { Py_INCREF(c); }
    ~queued_callable() {
        if (alive())
            Py_DECREF(callable);
    }
    bool alive() const { return made_in == generation && Py_IsInitialized(); }
};

void run_queued(const queued_callable& held) {
    if (!held.alive())
        return;
    session& host = bound_session();
    const output::style_scope style(host.out, language::python);
    const crossing guard;
    owned result(guard.allowed() ? PyObject_CallNoArgs(held.callable) : nullptr);
    flush_output();
    if (result)
        return;
    if (!guard.allowed()) {
        host.out.error(crossing::refusal());
        return;
    }
    const error_report error = take_error();
    if (!error.quiet)
        host.out.error(error.text);
}

// defer(callable or text): runs it when the host is next idle, in order with MEL jobs.
PyObject* defer(PyObject*, PyObject* args) {
    PyObject* what;
    if (!PyArg_ParseTuple(args, "O:defer", &what))
        return nullptr;
    session& host = bound_session();
    if (PyUnicode_Check(what)) {
        host.idle.push_python(text_of(what));
    } else if (PyCallable_Check(what)) {
        auto held = std::make_shared<queued_callable>(what);
        host.idle.push_task([held] { run_queued(*held); });
    } else {
        PyErr_SetString(PyExc_TypeError, "executeDeferred takes a callable or a text");
        return nullptr;
    }
    Py_RETURN_NONE;
}

PyObject* process_idle(PyObject*, PyObject*) {
    if (refuse_off_main_thread())
        return nullptr;
    return PyLong_FromLong(bound_session().run_idle());
}

// ---------------------------------------------------------------- output

// What each stream of the main thread, and all other threads, wrote since their last line
// break: the host prints whole lines.
QString pending[2];
QString pending_elsewhere;

// Takes the whole lines from the front of `buffer`, or all of it.
QString take_lines(QString& buffer, bool all) {
    const int end = all ? int(buffer.size()) : int(buffer.lastIndexOf(QLatin1Char('\n'))) + 1;
    const QString taken = buffer.left(end);
    buffer.remove(0, end);
    return taken;
}

void print_lines(const QString& text) {
    if (text.isEmpty())
        return;
    QStringList lines = text.split(QLatin1Char('\n'));
    if (lines.last().isEmpty())
        lines.removeLast(); // the text ended with a line break
    session& host = bound_session();
    for (const QString& line : lines)
        host.out.text(line + QLatin1Char('\n'));
}

// write(text, is_error): sys.stdout and sys.stderr. Other threads' lines are printed by
// the main thread, on idle.
PyObject* write(PyObject*, PyObject* args) {
    PyObject* text;
    int is_error = 0;
    if (!PyArg_ParseTuple(args, "U|p:write", &text, &is_error))
        return nullptr;
    const QString written = text_of(text);
    if (!on_main_thread()) {
        pending_elsewhere += written;
        const QString lines = take_lines(pending_elsewhere, false);
        if (!lines.isEmpty())
            bound_session().idle.push_task([lines] { print_lines(lines); });
        Py_RETURN_NONE;
    }
    QString& buffer = pending[is_error];
    buffer += written;
    print_lines(take_lines(buffer, buffer.size() > 1 << 16));
    Py_RETURN_NONE;
}

PyObject* flush(PyObject*, PyObject*) {
    if (on_main_thread())
        flush_output();
    Py_RETURN_NONE;
}

// ---------------------------------------------------------------- the package's sources

// source(module name): (text, is package, origin) for the maya package, else None.
PyObject* source(PyObject*, PyObject* args) {
    PyObject* name;
    if (!PyArg_ParseTuple(args, "U:source", &name))
        return nullptr;
    const QString module = text_of(name);
    if (module != QLatin1String("maya") && !module.startsWith(QLatin1String("maya.")))
        Py_RETURN_NONE;
    const QString root = QStringLiteral(":/python/");
    const QString base = root + QString(module).replace(QLatin1Char('.'), QLatin1Char('/'));
    for (const bool package : {true, false}) {
        QFile file(package ? base + QStringLiteral("/__init__.py") : base + QStringLiteral(".py"));
        if (file.open(QIODevice::ReadOnly)) {
            owned text(to_python(QString::fromUtf8(file.readAll())));
            owned origin(to_python(QStringLiteral("<host>/") + file.fileName().mid(root.size())));
            return Py_BuildValue("(OOO)", text.get(), package ? Py_True : Py_False, origin.get());
        }
    }
    Py_RETURN_NONE;
}

PyMethodDef methods[] = {
    {"call", call, METH_VARARGS, "call(name, args, flags): runs a host command."},
    {"has_command", has_command, METH_VARARGS, "has_command(name): whether the host has it."},
    {"commands", commands, METH_NOARGS, "commands(): the names of the host's commands."},
    {"mel_eval", mel_eval, METH_VARARGS, "mel_eval(text): runs MEL, gives its value."},
    {"defer", defer, METH_VARARGS, "defer(callable or text): runs it on idle."},
    {"process_idle", process_idle, METH_NOARGS, "process_idle(): runs the idle queue."},
    {"write", write, METH_VARARGS, "write(text, is_error=False): prints to the host."},
    {"flush", flush, METH_NOARGS, "flush(): prints an unfinished line."},
    {"source", source, METH_VARARGS, "source(name): a module of the maya package."},
    {nullptr, nullptr, 0, nullptr}};

PyModuleDef module_def = {PyModuleDef_HEAD_INIT,
                          "_mayahost",
                          "The host under the maya package.",
                          -1,
                          methods,
                          nullptr,
                          nullptr,
                          nullptr,
                          nullptr};

} // namespace

PyObject* make_host_module() {
    return PyModule_Create(&module_def);
}

void flush_output() {
    for (QString* buffer : {&pending[0], &pending[1], &pending_elsewhere})
        print_lines(take_lines(*buffer, true));
}

void forget_queued_objects() {
    ++generation;
    for (QString* buffer : {&pending[0], &pending[1], &pending_elsewhere})
        buffer->clear();
}

} // namespace host::python
