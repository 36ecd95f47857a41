// Pickers of thousands of buttons: writing the scene data, opening a .pkr and restoring
// from the scene, and following a selection, each beside the simplest way to do the same
// work in the same run.
#include "bench_timing.h"
#include "canvas/picker_view.h"
#include "core/session.h"
#include "document/button_geometry.h"
#include "document/picker_stream.h"
#include "document/scene_text.h"
#include "window/picker_window.h"

#include <QApplication>
#include <QFile>
#include <QHash>
#include <QImage>
#include <QPainter>
#include <QTabWidget>
#include <QTemporaryDir>
#include <cstdio>

namespace {

QString target_name(int button, int k) {
    return QStringLiteral("hero:ctrl_%1_%2").arg(button).arg(k);
}

void fill(picker_view* view, int count) {
    for (int i = 0; i < count; ++i) {
        picker_button_data data;
        data.position = QPoint((i % 100) * 30, (i / 100) * 20);
        data.width = 24;
        data.height = 14;
        data.label = QStringLiteral("c%1").arg(i);
        for (int k = 0; k <= i % 4; ++k)
            data.targets << target_name(i, k);
        view->add_button_record(data, -1);
    }
}

void print_row(const char* what, int buttons, double ms, double bound) {
    std::printf("%-34s %6d buttons  %9.2f ms  bound %9.2f ms  ratio %5.2fx\n", what, buttons, ms,
                bound, ms / bound);
}

// The button block of a one-tab .pkr file or scene stream, without a picture.
QByteArray button_block(const QByteArray& bytes, bool file) {
    QDataStream in(bytes);
    qint32 version = 0, count = 0, current = 0, index = 0;
    QString name, id;
    in >> version;
    if (file) {
        in.setVersion(picker_file_stream_version);
        in >> name >> id;
    } else {
        in >> count >> current >> index >> name >> id;
    }
    return bytes.mid(int(in.device()->pos()));
}

// The lower bound of opening: parse the records and draw each label once.
double parse_and_render(const QByteArray& stream_bytes, int version) {
    return best_ms([&] {
        QDataStream in(stream_bytes);
        const QList<picker_button_data> records = read_button_block(in, version);
        QImage image(64, 16, QImage::Format_ARGB32);
        for (const picker_button_data& record : records) {
            image.fill(0);
            QPainter painter(&image);
            painter.setFont(label_font());
            painter.drawText(image.rect(), Qt::AlignCenter, record.label);
        }
    });
}

void bench_size(picker_window& window, int count, const QString& dir) {
    host::session& host = host::session::get();
    window.clear_tabs();
    window.new_tab();
    picker_view* view = window.current_view();
    fill(view, count);

    // Writing the scene data after an edit: stream, compress what changed, encode, queue.
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    window.write_all_tabs(out);
    int step = 0;
    const double write = best_ms([&] {
        picker_button* moved = view->buttons[(step++ * 7919) % count];
        view->set_button_position(moved, moved->position + QPoint(1, 0));
        window.updateSceneData();
        host.idle.clear();
    });
    const double compress = best_ms([&] { qCompress(bytes, 9); });
    print_row("edit + updateSceneData vs qCompress", count, write, compress);

    // Opening the tab as a .pkr file, a different one each time: each differs from the
    // others and from the open tab in every record, so nothing of its data was deflated
    // before.
    QStringList paths, texts;
    for (int k = 0; k < 5; ++k) {
        for (picker_button* b : qAsConst(view->buttons))
            view->set_button_position(b, b->position + QPoint(0, 1));
        paths << dir + QStringLiteral("/bench%1.pkr").arg(k);
        window.save_file(view, paths.last());
        QByteArray scene;
        QDataStream scene_out(&scene, QIODevice::WriteOnly);
        window.write_all_tabs(scene_out);
        texts << encode_picker_data(scene);
    }
    for (picker_button* b : qAsConst(view->buttons))
        view->set_button_position(b, b->position + QPoint(0, 1));
    window.updateSceneData();
    QFile file(paths.last());
    file.open(QIODevice::ReadOnly);
    const QByteArray file_bytes = file.readAll();
    const QByteArray block = button_block(file_bytes, true);
    int opened = 0;
    const double open = best_ms([&] {
        window.open_files({paths[opened++ % paths.size()]});
        window.close_tab(window.tabs->count() - 1);
        host.idle.clear();
    });
    const double parse = parse_and_render(block, 5);
    print_row("open .pkr vs parse + draw labels", count, open, parse);
    // Opening writes the scene data: the new tab's deflating at level 9 is work it must do.
    QByteArray tab_bytes;
    QDataStream tab_out(&tab_bytes, QIODevice::WriteOnly);
    window.write_tab(tab_out, 0);
    const double deflate_tab = best_ms([&] { qCompress(tab_bytes, 9); });
    print_row("  same vs that + deflating the tab", count, open, parse + deflate_tab);

    // Restoring from the scene text, a different one each time. Restoring deflates the
    // tabs ahead of the first edit.
    int restored = 0;
    const double restore = best_ms([&] {
        const QByteArray decoded = decode_picker_data(texts[restored++ % texts.size()].toLatin1());
        QDataStream in(decoded);
        window.read_tabs(in, true);
        host.idle.clear();
    });
    const QByteArray stream_block = button_block(decode_picker_data(texts[0].toLatin1()), false);
    const double parse_stream = parse_and_render(stream_block, 5);
    print_row("restore vs parse + draw labels", count, restore, parse_stream);
    print_row("  same vs that + deflating the tab", count, restore, parse_stream + deflate_tab);

    // Following a selection.
    view = window.current_view();
    QHash<QString, int> index;
    for (int i = 0; i < count; ++i)
        index.insert(target_name(i, 0), i);
    for (int names : {1, 100, 1000}) {
        QStringList selection;
        for (int i = 0; i < names; ++i)
            selection << target_name((i * 7) % count, 0);
        const double apply = best_ms([&] { window.apply_selection(selection); }, 5);
        volatile int sink = 0;
        const double lookups = best_ms(
            [&] {
                for (const QString& name : selection)
                    sink = sink + index.value(name);
            },
            5);
        char what[64];
        std::snprintf(what, sizeof what, "apply_selection of %d vs lookups", names);
        print_row(what, count, apply, lookups);
        // The floor of any matching: one look-up per target of every button.
        const QSet<QString> set(selection.begin(), selection.end());
        const double per_target = best_ms(
            [&] {
                for (const picker_button* button : qAsConst(view->buttons))
                    for (const QString& target : button->targets)
                        sink = sink + set.contains(target);
            },
            5);
        std::snprintf(what, sizeof what, "  same vs a look-up per target");
        print_row(what, count, apply, per_target);
    }
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QTemporaryDir dir;
    picker_window window(nullptr);
    std::printf("Picker documents (best of several runs)\n"
                "Opening a .pkr also writes the scene data of all tabs, as every open does;\n"
                "apply_selection visits every button, so its bound of bare look-ups is a floor.\n");
    for (int count : {1000, 10000})
        bench_size(window, count, dir.path());
    return 0;
}
