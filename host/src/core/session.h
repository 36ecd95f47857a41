#pragma once
// The simulated host: one per process, holding the scene, the selection, the events, the
// idle queue, the output, the MEL interpreter, the plug-ins and their commands.
//
// Sandbox and tests reach the host through this class; a plug-in never does, it sees only
// the <maya/...> headers.
#include "events.h"
#include "idle_queue.h"
#include "output.h"
#include "scene.h"
#include "selection.h"

#include <maya/MTypes.h>

#include <QSet>
#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

class MPxCommand;
class QWidget;

namespace host {

namespace mel {
class interpreter;
}
namespace python {
class runtime;
}

// What a command hands back to its MEL caller.
struct command_result {
    enum class type { none, string, int_, float_ };
    type kind = type::none;
    bool array = false; // appendToResult always makes an array
    QStringList values;
};

// The outcome of one MEL execution.
struct execution {
    bool ok = true;
    bool has_value = false; // the last statement gave a value
    bool array = false;
    QStringList values; // that value as text, one entry per element
    QString shown;      // that value as the "// Result: ... //" line shows it
};

struct plugin_record;

class session {
public:
    static session& get();

    session(const session&) = delete;
    session& operator=(const session&) = delete;

    host::scene scene;
    host::selection active{scene};
    host::events events;
    host::idle_queue idle;
    host::output out;

    // Running without a user interface (about -batch).
    bool batch = false;
    // "SelectionChanged" runs inside the call that changed the selection; when deferred
    // it is queued on the idle queue instead.
    bool defer_selection_changed = false;
    // Host operations told to fail, for tests: "MFnPlugin", "registerCommand",
    // "deregisterCommand", "addEventCallback:<event>", "removeCallback",
    // "getActiveSelectionList", "argLength"; and for scripts that must not touch this
    // machine's files, "saveScene" and "loadPlugin".
    QSet<QString> failing;
    bool fails(const QString& operation) const { return failing.contains(operation); }
    // Every Python text the host was given to run, for tests.
    QStringList python_log;

    // --- selection, with its event ---
    bool select(const QStringList& names, selection::adjust how, QString* error = nullptr);
    void clear_selection();
    void selection_changed();

    // --- scenes, with their events ---
    void new_scene();
    bool open_scene(const QString& path, QString* error = nullptr);
    bool save_scene(const QString& path, QString* error = nullptr);
    void quit();
    // Nodes removed by MEL prune the selection through this.
    void nodes_removed();

    // --- scripts ---
    mel::interpreter& mel();
    // One execution, as one run of the script editor; with `echo` a value prints as
    // "// Result: ... //".
    execution execute(const QString& source, bool echo = false);
    // One Python execution, as the script editor's Python tab makes it: errors printed as
    // "# Error: ... #", with `echo` the value of an expression as "# Result: ... #".
    // `file` names the script for error lines. Returns false when an error was printed.
    bool run_python(const QString& text, bool echo = false, const QString& file = QString());
    // The embedded interpreter, started with the session and ended by quit().
    python::runtime& python();
    // Drains the idle queue; returns how many entries ran.
    int run_idle();

    // --- commands of plug-ins ---
    bool register_command(const QString& name, MCreatorFunction creator, plugin_record* owner);
    bool deregister_command(const QString& name);
    MCreatorFunction command(const QString& name) const;
    QStringList command_names() const;
    // The result stack of running commands; the top is the one being filled.
    command_result& current_result();
    void push_result();
    command_result pop_result();
    // Set when a command shows an error, so that its failure needs no second line.
    int errors_shown() const { return out.error_count(); }

    // --- plug-ins ---
    bool load_plugin(const QString& path, QString* error = nullptr);
    bool unload_plugin(const QString& name_or_path, QString* error = nullptr);
    QStringList loaded_plugins() const;
    // The plug-in whose entry point runs now (for MFnPlugin), or null.
    plugin_record* loading_plugin() const { return loading_; }

    // --- the main window of the sandbox (MQtUtil::mainWindow) ---
    void set_main_window(QWidget* w) { main_window_ = w; }
    QWidget* main_window_widget() const { return main_window_; }

    // Unloads the plug-ins, starts a fresh scene and a fresh interpreter; for tests.
    void reset();

private:
    session();
    ~session();

    std::unique_ptr<mel::interpreter> mel_;
    std::unique_ptr<python::runtime> python_;
    struct registered_command {
        QString name;
        MCreatorFunction creator;
        plugin_record* owner;
    };
    std::vector<registered_command> commands_;
    std::vector<command_result> results_;
    std::vector<std::unique_ptr<plugin_record>> plugins_;
    plugin_record* loading_ = nullptr;
    QWidget* main_window_ = nullptr;
};

} // namespace host
