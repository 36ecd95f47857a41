#include "session.h"

#include "ma/ma_file.h"
#include "mel/interpreter.h"
#include "plugins.h"
#include "python/runtime.h"

#include <QFileInfo>

namespace host {

session& session::get() {
    static session instance;
    return instance;
}

session::session()
    : mel_(std::make_unique<mel::interpreter>(*this)),
      python_(std::make_unique<python::runtime>(*this)) {}

session::~session() = default;

// ---------------------------------------------------------------- selection

bool session::select(const QStringList& names, selection::adjust how, QString* error) {
    if (!active.select(names, how, error))
        return false;
    selection_changed();
    return true;
}

void session::clear_selection() {
    active.clear();
    selection_changed();
}

void session::selection_changed() {
    if (defer_selection_changed)
        idle.push_task([this] { events.fire(QStringLiteral("SelectionChanged")); });
    else
        events.fire(QStringLiteral("SelectionChanged"));
}

void session::nodes_removed() {
    if (active.prune())
        selection_changed();
}

// ---------------------------------------------------------------- scenes

void session::new_scene() {
    events.fire(QStringLiteral("deleteAll"));
    const bool had_selection = !active.empty();
    active.clear();
    scene.clear();
    if (had_selection)
        selection_changed();
    events.fire(QStringLiteral("NewSceneOpened"));
}

bool session::open_scene(const QString& path, QString* error) {
    if (!QFileInfo(path).isFile()) {
        if (error)
            *error = QStringLiteral("File not found: %1").arg(path);
        return false;
    }
    host::scene loaded;
    QStringList warnings;
    if (!ma::read_file(path, loaded, &warnings, error))
        return false;
    events.fire(QStringLiteral("deleteAll"));
    const bool had_selection = !active.empty();
    active.clear();
    scene = std::move(loaded);
    scene.set_name(QFileInfo(path).absoluteFilePath());
    scene.set_modified(false);
    for (const QString& w : warnings)
        out.warning(w);
    if (had_selection)
        selection_changed();
    events.fire(QStringLiteral("SceneOpened"));
    return true;
}

bool session::save_scene(const QString& path, QString* error) {
    if (fails(QStringLiteral("saveScene"))) {
        if (error)
            *error = QStringLiteral("Saving scenes is turned off in this session.");
        return false;
    }
    if (path.isEmpty()) {
        if (error)
            *error = QStringLiteral("The scene has no name: use file -rename first.");
        return false;
    }
    if (!ma::write_file(path, scene, error))
        return false;
    scene.set_name(QFileInfo(path).absoluteFilePath());
    scene.set_modified(false);
    return true;
}

void session::quit() {
    events.fire(QStringLiteral("quitApplication"));
    python_->stop();
}

// ---------------------------------------------------------------- scripts

mel::interpreter& session::mel() {
    return *mel_;
}

execution session::execute(const QString& source, bool echo) {
    output::style_scope style(out, language::mel);
    const execution run = mel_->execute(source);
    if (echo && run.ok && run.has_value && !(run.array && run.values.isEmpty()))
        out.result(run.shown.isNull() ? run.values.join(QLatin1Char(' ')) : run.shown);
    return run;
}

bool session::run_python(const QString& text, bool echo, const QString& file) {
    return python_->execute(text, echo, file);
}

python::runtime& session::python() {
    return *python_;
}

int session::run_idle() {
    return idle.run([this](const idle_queue::entry& e) {
        if (e.what == idle_queue::kind::python) {
            run_python(e.text);
        } else {
            output::style_scope style(out, language::mel);
            mel_->execute(e.text);
        }
    });
}

// ---------------------------------------------------------------- commands

bool session::register_command(const QString& name, MCreatorFunction creator,
                               plugin_record* owner) {
    if (name.isEmpty() || command(name))
        return false;
    commands_.push_back({name, creator, owner});
    if (owner)
        owner->commands.append(name);
    return true;
}

bool session::deregister_command(const QString& name) {
    for (auto it = commands_.begin(); it != commands_.end(); ++it) {
        if (it->name == name) {
            if (it->owner)
                it->owner->commands.removeAll(name);
            commands_.erase(it);
            return true;
        }
    }
    return false;
}

QStringList session::command_names() const {
    QStringList names;
    for (const auto& c : commands_)
        names << c.name;
    return names;
}

MCreatorFunction session::command(const QString& name) const {
    for (const auto& c : commands_) {
        if (c.name == name)
            return c.creator;
    }
    return nullptr;
}

command_result& session::current_result() {
    if (results_.empty())
        results_.emplace_back(); // a result outside any command goes nowhere
    return results_.back();
}

void session::push_result() {
    results_.emplace_back();
}

command_result session::pop_result() {
    if (results_.empty())
        return {};
    command_result top = std::move(results_.back());
    results_.pop_back();
    return top;
}

void session::reset() {
    while (!plugins_.empty())
        unload_plugin(plugins_.back()->path);
    idle.clear();
    idle.set_logging(false);
    idle.clear_log();
    // Procedures and globals of earlier scripts go too.
    mel_ = std::make_unique<mel::interpreter>(*this);
    failing.clear();
    python_log.clear();
    defer_selection_changed = false;
    active.clear();
    scene.clear();
    out.set_sink({});
    out.reset_error_count();
}

} // namespace host
