// The window's side of the picker stream: all tabs, one tab, and .pkr files.
#include "canvas/picker_view.h"
#include "document/picker_stream.h"
#include "document/picture_data.h"
#include "window/held_dialog.h"
#include "window/picker_window.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTabWidget>
#include <maya/MGlobal.h>

namespace {

// With `pieces`, the picture is only noted where it belongs, with its deflated part.
void write_tab_header(QDataStream& out, const picker_view* view, scene_pieces* pieces = nullptr) {
    out << view->background_id;
    if (view->background_id.isEmpty())
        return;
    if (pieces)
        pieces->pictures.append(
            {int(out.device()->pos()), &view->background_bytes.deflated(view->background)});
    else
        view->background_bytes.write(out, view->background);
}

// Reads the background part of a tab header into `view`; true when a picture came.
bool read_tab_background(QDataStream& in, int version, picker_view* view) {
    if (version < 2)
        return false;
    QString id;
    in >> id;
    if (id.isEmpty())
        return false;
    view->set_background_image(id, read_stream_picture(in));
    return true;
}

} // namespace

void picker_window::write_tab_body(QDataStream& out, int index, scene_pieces* pieces) const {
    const picker_view* view = view_at(index);
    if (pieces)
        pieces->breaks.append(int(out.device()->pos()));
    out << qint32(index) << tabs->tabText(index);
    write_tab_header(out, view, pieces);
    view->write_buttons(out);
}

void picker_window::write_all_tabs(QDataStream& out, scene_pieces* pieces) const {
    out << qint32(picker_format_version) << qint32(tabs->count()) << qint32(tabs->currentIndex());
    for (int i = 0; i < tabs->count(); ++i)
        write_tab_body(out, i, pieces);
}

void picker_window::write_all_tabs(QDataStream& out) const {
    write_all_tabs(out, nullptr);
}

void picker_window::write_tab(QDataStream& out, int index) const {
    out << qint32(picker_format_version) << qint32(1) << qint32(0);
    write_tab_body(out, index, nullptr);
}

void picker_window::read_tabs(QDataStream& in, bool clear) {
    qint32 version = 0;
    in >> version;
    if (version > picker_format_version) {
        ask_user(
            QMessageBox::Warning, nullptr, QStringLiteral("Warning"),
            QStringLiteral("The scene file contains data\nin a format (%1) more recent than the "
                           "version of the picker\ninstalled in this machine can understand.  "
                           "Please update\nthe picker, and try again.\n")
                .arg(version),
            QMessageBox::Ok);
        return;
    }
    qint32 count = 0, current = 0;
    in >> count >> current;
    if (clear)
        clear_tabs();
    // Damaged data may claim any count: stop once the bytes run out, or once a tab's stored
    // place is not the one after the last. Each tab is a view, and zeroed data would read as
    // one empty tab every twelve bytes; written data numbers its tabs 0, 1, 2... (a single
    // tab carries its place in the window, whatever it is).
    qint64 last_index = 0;
    QVector<picker_view*> pictured;
    for (int i = 0; i < count && !(i > 0 && stream_exhausted(in)); ++i) {
        qint32 stored_index = 0;
        QString name;
        in >> stored_index >> name;
        if (i > 0 && stored_index != last_index + 1)
            break;
        last_index = stored_index;
        auto* view = new picker_view(this);
        if (read_tab_background(in, version, view))
            pictured.append(view);
        view->read_buttons(in, version);
        add_view_tab(view, name);
    }
    // The image entries are queued once every picture is read, so that the pictures encode
    // side by side on the workers; nothing else is queued meanwhile, so the host gets the
    // same lines in the same order.
    for (picker_view* view : pictured)
        store_background_image(view);
    if (clear && current >= 0 && current < count && current < tabs->count())
        tabs->setCurrentIndex(current);
    // The first edit after opening then deflates only what it changed.
    scene_data_parts();
}

bool picker_window::save_file(picker_view* view, const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        ask_user(
            QMessageBox::Critical, this, QStringLiteral("Save Failed"),
            QStringLiteral("Could not open the file \"%1\" for writing.\n\nPlease check that this "
                           "file is not locked and that you have the proper permissions and try "
                           "again.")
                .arg(path),
            QMessageBox::Ok);
        return false;
    }
    QDataStream out(&file);
    out.setVersion(picker_file_stream_version);
    out << qint32(picker_format_version) << tabs->tabText(tabs->indexOf(view));
    write_tab_header(out, view);
    view->write_buttons(out);
    file.close();
    return true;
}

void picker_window::save_current() {
    picker_view* view = current_view();
    if (!view)
        return;
    if (view->file_path.isEmpty())
        saveas_current();
    else
        save_file(view, view->file_path);
}

void picker_window::saveas_current() {
    picker_view* view = current_view();
    if (!view)
        return;
    const QPointer<picker_window> alive(this);
    const QString path = choose_files(this, QStringLiteral("Save Tab:"), view->file_path,
                                      QStringLiteral("Zelvani Picker (*.pkr)"),
                                      QFileDialog::AnyFile, QFileDialog::AcceptSave)
                             .value(0);
    // A script run while the dialog waits may have closed the tab or the window.
    if (path.isEmpty() || !alive || !view->in_window())
        return;
    view->file_path = save_file(view, path) ? path : QString();
}

void picker_window::open_files(const QStringList& paths) {
    const QPointer<picker_window> alive(this);
    for (int p = 0; p < paths.size(); ++p) {
        auto* view = new picker_view(this);
        QFile file(paths[p]);
        // Only a file has an end: a device or a pipe would be read for as long as it gives.
        if (!QFileInfo(paths[p]).isFile() || !file.open(QIODevice::ReadOnly)) {
            const bool last = p == paths.size() - 1;
            const auto answer =
                ask_user(QMessageBox::Critical, this, QStringLiteral("Open Failed"),
                         QStringLiteral("Could not open the file \"%1\".\n\nPlease check the file "
                                        "permissions and try again.")
                             .arg(QDir::toNativeSeparators(paths[p])),
                         last ? QMessageBox::Ok : QMessageBox::Cancel | QMessageBox::Ignore);
            // Cancel ends the loop and leaves the unused view with the window; a window that
            // a script closed meanwhile took the view with it.
            if (answer == QMessageBox::Cancel || !alive)
                return;
            delete view;
            continue;
        }
        QDataStream in(&file);
        in.setVersion(picker_file_stream_version);
        qint32 version = 0;
        QString name;
        in >> version >> name;
        read_tab_background(in, version, view);
        view->read_buttons(in, version);
        file.close();
        view->file_path = paths[p];
        add_view_tab(view, name);
        tabs->setCurrentWidget(view);
        updateSceneData();
        MGlobal::executeCommandOnIdle("ZelvaniPicker \"bind\" `picker_ListNamespaces`;");
    }
}

void picker_window::change_namespace() {
    MGlobal::executeCommandOnIdle("ZelvaniPicker \"rebind\" `picker_ListNamespaces`;");
}
