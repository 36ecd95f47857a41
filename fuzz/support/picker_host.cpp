#include "picker_host.h"

#include "dialog_answerer.h"
#include "openmaya/access.h"
#include "picker_mel_lines.h"

#include <QApplication>
#include <QDir>
#include <QDockWidget>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QMenu>
#include <QMenuBar>
#include <QMouseEvent>
#include <QTabWidget>
#include <QTemporaryDir>
#include <cstdio>
#include <cstdlib>
#include <maya/MArgList.h>
#include <maya/MPxCommand.h>

namespace fuzz {

namespace {

QTemporaryDir* work_dir = nullptr;
QDockWidget* dock = nullptr;
bool plugin_loaded = false;

// The nodes and namespaces every input starts with, and what the check compares against.
const char* const scene_nodes[] = {"hero:arm", "hero:leg", "hero:face:jaw", "prop:box", "pSphere1"};
QStringList scene_snapshot;

QStringList snapshot() {
    QStringList out = host().scene.all_namespaces();
    for (int id : host().scene.live_nodes())
        out << host().scene.full_path(id);
    return out;
}

[[noreturn]] void fail(const char* what, const QString& detail) {
    std::fprintf(stderr, "fuzz check failed: %s\n%s\n", what, qPrintable(detail.left(2000)));
    std::abort();
}

QDockWidget* find_dock() {
    for (QWidget* w : QApplication::topLevelWidgets()) {
        if (auto* d = qobject_cast<QDockWidget*>(w)) {
            if (d->objectName() == QLatin1String("ZelvaniPicker"))
                return d;
        }
    }
    return nullptr;
}

void send_mouse(QWidget* view, QEvent::Type type, const QPoint& at, Qt::MouseButtons buttons,
                Qt::KeyboardModifiers keys) {
    QMouseEvent event(type, at, view->mapToGlobal(at), Qt::LeftButton, buttons, keys);
    QApplication::sendEvent(view, &event);
}

void drag(QWidget* view, const QPoint& from, const QPoint& to, Qt::KeyboardModifiers keys) {
    send_mouse(view, QEvent::MouseButtonPress, from, Qt::LeftButton, keys);
    send_mouse(view, QEvent::MouseMove, (from + to) / 2, Qt::LeftButton, keys);
    send_mouse(view, QEvent::MouseMove, to, Qt::LeftButton, keys);
    send_mouse(view, QEvent::MouseButtonRelease, to, Qt::NoButton, keys);
}

} // namespace

host::session& host() {
    return host::session::get();
}

void start(bool plugin) {
    static int argc = 1;
    static char name[] = "zelvani-fuzz";
    static char* argv[] = {name, nullptr};
    // Inputs become files: memory is much faster than a disk.
    const QString shm = QStringLiteral("/dev/shm");
    work_dir = new QTemporaryDir((QFileInfo(shm).isWritable() ? shm : QDir::tempPath()) +
                                 QStringLiteral("/zelvani-fuzz-XXXXXX"));
    // Nothing of a run may touch the user's settings, and there is no screen.
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(work_dir->filePath(QStringLiteral("config"))));
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Qt's warnings about the offscreen platform and odd pictures would flood the output.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtFatalMsg)
            fail("Qt fatal message", text);
    });
    new QApplication(argc, argv);
    new sandbox::dialog_answerer(qApp);
    // Lines the host prints are noise here; a failed check says what it saw.
    host().out.set_sink([](host::line_kind, const QString&) {});
    host().idle.set_logging(true);
    if (plugin) {
        QString error;
        if (!host().load_plugin(QStringLiteral(ZELVANI_PLUGIN_PATH), &error))
            fail("cannot load the plug-in", error);
        plugin_loaded = true;
        host().run_idle();
        picker({}); // opens the window, as the shelf button does
        // Small, so that painting costs little; large enough for a few buttons.
        if (QDockWidget* d = find_dock())
            d->resize(260, 200);
    }
    reset(what_changed::anything);
}

QString work_path(const QString& name) {
    return work_dir->filePath(name);
}

QString write_work_file(const QString& name, const QByteArray& bytes) {
    const QString path = work_path(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        fail("cannot write a work file", path);
    return path;
}

void reset(what_changed what) {
    host::session& h = host();
    h.idle.clear();
    if (!plugin_loaded) {
        h.reset();
        h.out.set_sink([](host::line_kind, const QString&) {});
    } else if (what == what_changed::added_tabs && tabs() && tabs()->count() > 0) {
        // Cheaper than a new scene: only the added tabs go, and what the scene learned.
        while (tabs()->count() > 1) {
            tabs()->setCurrentIndex(tabs()->count() - 1);
            picker({QStringLiteral("close_tab")});
        }
        for (const auto& entry : QVector<QPair<QString, QString>>(h.scene.file_infos()))
            h.scene.remove_file_info(entry.first);
        h.select({QStringLiteral("hero:arm")}, host::selection::adjust::replace);
    } else {
        // A new scene resets the picker to one empty tab, as in Maya.
        h.new_scene();
    }
    if (h.scene.node_count() == 0) {
        for (const char* node : scene_nodes)
            h.scene.create_node(QStringLiteral("transform"), QString::fromLatin1(node), -1, false);
        h.select({QStringLiteral("hero:arm")}, host::selection::adjust::replace);
    }
    h.run_idle();
    h.idle.clear();
    dock = find_dock();
    // An "Open Failed" answered with Cancel leaves its new view with the window, as it
    // should; a run of a million inputs must not keep them all.
    if (dock && dock->widget()) {
        for (QObject* child : dock->widget()->children()) {
            if (child->inherits("picker_view"))
                child->deleteLater();
        }
    }
    // What an event loop would have delivered by now. Left in the queue, posted events pile
    // up over a run, and every later delivery walks past them all (the window targets slowed
    // from 400 to 100 inputs a second). Outside an event loop, deletions are delivered only
    // when asked for by name: the views of closed tabs and the tab bar's close buttons.
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    h.idle.clear();
    h.python_log.clear();
    h.idle.clear_log();
    scene_snapshot = snapshot();
}

MStatus picker(const QStringList& words) {
    QList<QByteArray> bytes;
    for (const QString& w : words)
        bytes << w.toUtf8();
    return picker_bytes(bytes);
}

MStatus picker_bytes(const QList<QByteArray>& words) {
    MArgList args;
    for (const QByteArray& w : words)
        MArgListAccess::add(args, MString(w.constData()));
    const MCreatorFunction creator = host().command(QStringLiteral("ZelvaniPicker"));
    if (!creator)
        fail("the picker command is not registered", QString());
    auto* command = static_cast<MPxCommand*>(creator());
    host().push_result();
    const MStatus status = command->doIt(args);
    delete command;
    host().pop_result();
    return status;
}

void run_idle_and_check() {
    host().run_idle();
    for (const auto& entry : host().idle.log()) {
        QStringList words;
        if (entry.what == host::idle_queue::kind::python)
            fail("Python was queued", entry.text);
        if (entry.what == host::idle_queue::kind::mel && !own_fixed_line(entry.text) &&
            !select_arguments(entry.text, &words))
            fail("MEL that is not the picker's own was queued", entry.text);
    }
    if (!host().python_log.isEmpty())
        fail("Python ran", host().python_log.join(QLatin1Char('\n')));
    const QStringList now = snapshot();
    if (now != scene_snapshot)
        fail("the scene changed", now.join(QLatin1Char(' ')));
}

QTabWidget* tabs() {
    return dock ? dock->findChild<QTabWidget*>() : nullptr;
}

QWidget* current_view() {
    QTabWidget* t = tabs();
    return t ? t->currentWidget() : nullptr;
}

bool trigger(const QString& text) {
    QMenuBar* bar = dock ? dock->findChild<QMenuBar*>() : nullptr;
    if (!bar)
        return false;
    for (QAction* entry : bar->actions()) {
        QMenu* menu = entry->menu();
        if (!menu)
            continue;
        // Menus set their entries' state as they open.
        emit menu->aboutToShow();
        for (QAction* action : menu->actions()) {
            // "Undo" reads "Undo Paste Buttons" while there is one.
            const bool named = action->text() == text || action->text().startsWith(text + ' ');
            if (named && action->isEnabled()) {
                action->trigger();
                return true;
            }
        }
    }
    return false;
}

void paint_current_view() {
    QWidget* view = current_view();
    if (!view)
        return;
    QImage image(view->size(), QImage::Format_ARGB32_Premultiplied);
    view->render(&image);
}

void select_with_mouse() {
    QWidget* view = current_view();
    if (!view)
        return;
    const QPoint from(-20000, -20000), to(view->width() + 20000, view->height() + 20000);
    // With Ctrl a press on a button selects it for editing and the drag moves it; elsewhere
    // the drag draws a band. No command runs, and nothing goes to the host.
    drag(view, from, to, Qt::ControlModifier);
    // Without Ctrl the band's selection goes to the host. A press on a command button
    // would be a click that runs it: the corner must be empty, as the lookup by widget
    // point tells.
    if (!picker({QStringLiteral("query_button"), QStringLiteral("-"), QString::number(from.x()),
                 QString::number(from.y())}))
        drag(view, from, to, Qt::NoModifier);
}

} // namespace fuzz
