// The interpreter's life, top-level executions, and Python errors as the script editor
// prints them.
#include "embedding.h"

#include "runtime.h"

#include "core/session.h"
#include "mel/value.h"

#include <QFile>
#include <thread>

namespace host::python {

namespace {

session* served = nullptr;
std::thread::id main_thread;
int crossings = 0;
// Deep enough for real tools, shallow enough for the C++ stack under sanitizers.
constexpr int max_crossings = 100;

const char* const console_name = "<maya console>";

// str() of an object, or empty when it has none.
QString str_of(PyObject* o) {
    const owned text(o ? PyObject_Str(o) : nullptr);
    PyErr_Clear();
    return text ? text_of(text.get()) : QString();
}

// The value of an attribute as text, or empty.
QString attribute_text(PyObject* o, const char* name) {
    const owned a(o ? PyObject_GetAttrString(o, name) : nullptr);
    PyErr_Clear();
    return a && a.get() != Py_None ? str_of(a.get()) : QString();
}

// "file <name> line <n>: " of where the exception was raised: the innermost frame of
// its traceback outside the maya package (whose wrappers stand for the host's commands),
// or the place a syntax error names.
QString location(PyObject* type, PyObject* value, PyObject* traceback) {
    QString file, line;
    const bool syntax = PyErr_GivenExceptionMatches(type, PyExc_SyntaxError);
    if (syntax) {
        file = attribute_text(value, "filename");
        line = attribute_text(value, "lineno");
    }
    for (owned tb(Py_XNewRef(syntax ? nullptr : traceback)); tb && tb.get() != Py_None;
         tb.reset(PyObject_GetAttrString(tb.get(), "tb_next"))) {
        const owned frame(PyObject_GetAttrString(tb.get(), "tb_frame"));
        const owned code(frame ? PyObject_GetAttrString(frame.get(), "f_code") : nullptr);
        const QString frame_file = attribute_text(code.get(), "co_filename");
        if (file.isEmpty() || !frame_file.startsWith(QLatin1String("<host>/"))) {
            file = frame_file;
            line = attribute_text(tb.get(), "tb_lineno");
        }
    }
    PyErr_Clear();
    if (file.isEmpty() || line.isEmpty())
        return QString();
    return QStringLiteral("file %1 line %2: ").arg(file, line);
}

bool exits_quietly(PyObject* value) {
    owned code(PyObject_GetAttrString(value, "code"));
    PyErr_Clear();
    if (!code || code.get() == Py_None)
        return true;
    return PyLong_Check(code.get()) && PyLong_AsLong(code.get()) == 0 && !PyErr_Occurred();
}

PyObject* main_globals() {
    PyObject* main = PyImport_AddModule("__main__"); // borrowed
    return main ? PyModule_GetDict(main) : nullptr;
}

// Sets __file__ in the main module while a script file runs there.
class file_name_scope {
public:
    file_name_scope(PyObject* globals, const QString& file) : globals_(globals) {
        if (file.isEmpty())
            return;
        owned name(to_python(file));
        set_ = name && PyDict_SetItemString(globals_, "__file__", name.get()) == 0;
        PyErr_Clear();
    }
    ~file_name_scope() {
        if (!set_)
            return;
        PyObject *type, *value, *traceback;
        PyErr_Fetch(&type, &value, &traceback); // keep the script's own error
        if (PyDict_DelItemString(globals_, "__file__") < 0)
            PyErr_Clear();
        PyErr_Restore(type, value, traceback);
    }
    file_name_scope(const file_name_scope&) = delete;
    file_name_scope& operator=(const file_name_scope&) = delete;

private:
    PyObject* globals_;
    bool set_ = false;
};

// Runs code in the main module, as the script editor does, so that names stay from one
// execution to the next. Console text that is one expression is evaluated for its value.
PyObject* run_code(const QString& code, const QString& file, bool* expression) {
    *expression = false;
    const QByteArray text = code.toUtf8();
    if (text.contains('\0')) {
        PyErr_SetString(PyExc_ValueError, "source code string cannot contain null bytes");
        return nullptr;
    }
    const QByteArray name = file.isEmpty() ? QByteArray(console_name) : file.toUtf8();
    PyObject* globals = main_globals();
    if (!globals)
        return nullptr;
    owned compiled;
    if (file.isEmpty()) {
        compiled.reset(Py_CompileString(text.constData(), name.constData(), Py_eval_input));
        *expression = bool(compiled);
        PyErr_Clear();
    }
    if (!compiled)
        compiled.reset(Py_CompileString(text.constData(), name.constData(), Py_file_input));
    if (!compiled)
        return nullptr;
    const file_name_scope scope(globals, file);
    return PyEval_EvalCode(compiled.get(), globals, globals);
}

// The package's start-up: the import of the maya package from the host, and the
// streams that print to the host.
bool run_startup() {
    QFile file(QStringLiteral(":/python/startup.py"));
    if (!file.open(QIODevice::ReadOnly))
        return false;
    owned module(make_host_module());
    if (!module || PyDict_SetItemString(PyImport_GetModuleDict(), "_mayahost", module.get()) < 0)
        return false;
    const QByteArray text = file.readAll();
    owned globals(PyDict_New());
    owned compiled(Py_CompileString(text.constData(), "<host>/startup.py", Py_file_input));
    if (!globals || !compiled ||
        PyDict_SetItemString(globals.get(), "__builtins__", PyEval_GetBuiltins()) < 0)
        return false;
    owned result(PyEval_EvalCode(compiled.get(), globals.get(), globals.get()));
    return bool(result);
}

// Threads that Python would wait for at its end, which may never come.
bool threads_still_running() {
    if (!PyDict_GetItemString(PyImport_GetModuleDict(), "threading"))
        return false;
    const owned check(PyRun_String("(lambda th: any(t.is_alive() and not t.daemon and t is not "
                                   "th.main_thread() for t in th.enumerate()))"
                                   "(__import__('threading'))",
                                   Py_eval_input, main_globals(), nullptr));
    PyErr_Clear();
    return check && check.get() == Py_True;
}

} // namespace

// ---------------------------------------------------------------- shared

void bind_session(session& host) {
    served = &host;
    main_thread = std::this_thread::get_id();
}

session& bound_session() {
    return *served;
}

bool on_main_thread() {
    return std::this_thread::get_id() == main_thread;
}

crossing::crossing() : allowed_(++crossings <= max_crossings) {}
crossing::~crossing() {
    --crossings;
}
QString crossing::refusal() {
    return QStringLiteral("Stack overflow: MEL and Python call each other too deeply.");
}

error_report take_error() {
    error_report report;
    PyObject *type, *value, *traceback;
    PyErr_Fetch(&type, &value, &traceback);
    if (!type)
        return report;
    PyErr_NormalizeException(&type, &value, &traceback);
    const owned t(type), v(value), tb(traceback);
    if (PyErr_GivenExceptionMatches(type, PyExc_SystemExit) && exits_quietly(value)) {
        report.quiet = true;
        return report;
    }
    // A syntax error's text names its place again; the place is given once, in front.
    const bool syntax = PyErr_GivenExceptionMatches(type, PyExc_SyntaxError);
    report.text = attribute_text(type, "__name__") + QStringLiteral(": ") +
                  location(type, value, traceback) +
                  (syntax ? attribute_text(value, "msg") : str_of(value));
    return report;
}

// ---------------------------------------------------------------- runtime

runtime::runtime(session& host) : host_(host) {
    start();
}

runtime::~runtime() {
    // The process is ending: Qt and the plug-ins may be gone, so Python's exit handlers
    // do not run here. quit() is where the interpreter ends.
}

bool runtime::running() const {
    return Py_IsInitialized();
}

bool runtime::start() {
    if (Py_IsInitialized())
        return true;
    bind_session(host_);
    PyPreConfig preconfig;
    PyPreConfig_InitIsolatedConfig(&preconfig); // leaves the process's locale alone
    preconfig.utf8_mode = 1;
#if defined(__SANITIZE_ADDRESS__)
    preconfig.allocator = PYMEM_ALLOCATOR_MALLOC; // so that the sanitizer sees Python's objects
#endif
    PyStatus status = Py_PreInitialize(&preconfig);
    PyConfig config;
    PyConfig_InitPythonConfig(&config);
    config.install_signal_handlers = 0; // the host owns its signals
    config.parse_argv = 0;
    config.configure_c_stdio = 0;
    // The Python this host was built with, whatever else is first on the PATH.
    if (!PyStatus_Exception(status))
        status = PyConfig_SetBytesString(&config, &config.home, ZELVANI_PYTHON_HOME);
    if (!PyStatus_Exception(status))
        status = PyConfig_SetBytesString(&config, &config.executable, ZELVANI_PYTHON_EXECUTABLE);
    if (!PyStatus_Exception(status))
        status = Py_InitializeFromConfig(&config);
    PyConfig_Clear(&config);
    if (PyStatus_Exception(status)) {
        host_.out.error(QStringLiteral("Python could not start: %1")
                            .arg(QString::fromUtf8(status.err_msg ? status.err_msg : "")));
        return false;
    }
    if (!run_startup()) {
        const error_report error = take_error();
        host_.out.error(QStringLiteral("The maya package could not start: %1").arg(error.text));
    }
    return true;
}

void runtime::stop() {
    if (!Py_IsInitialized())
        return;
    flush_output();
    if (threads_still_running()) {
        host_.out.warning(QStringLiteral("Python threads are still running; Python is left to "
                                         "end with the process."));
        return;
    }
    forget_queued_objects();
    Py_FinalizeEx();
}

bool runtime::execute(const QString& code, bool echo, const QString& file) {
    host_.python_log.append(code);
    const output::style_scope style(host_.out, language::python);
    if (!start())
        return false;
    const crossing guard;
    if (!guard.allowed()) {
        host_.out.error(crossing::refusal());
        return false;
    }
    bool expression = false;
    const owned result(run_code(code, file, &expression));
    flush_output();
    if (!result) {
        const error_report error = take_error();
        if (!error.quiet)
            host_.out.error(error.text);
        return error.quiet;
    }
    if (echo && expression && result.get() != Py_None)
        host_.out.result(str_of(result.get()));
    return true;
}

bool runtime::evaluate(const QString& code, mel::value& result, QString& error) {
    host_.python_log.append(code);
    result = mel::value();
    if (!start()) {
        error = QStringLiteral("Python is not available.");
        return false;
    }
    const crossing guard;
    if (!guard.allowed()) {
        error = crossing::refusal();
        return false;
    }
    bool expression = false;
    const owned value(run_code(code, QString(), &expression));
    flush_output();
    if (!value) {
        const error_report report = take_error();
        error = report.text;
        return report.quiet;
    }
    if (expression)
        result = to_mel_result(value.get());
    return true;
}

} // namespace host::python
