// Building a picker by script, with and without batch mode, and dragging 1,000 selected
// buttons, each beside the simplest way to do the same work in the same run.
#include "bench_plugin.h"
#include "bench_timing.h"
#include "canvas/picker_view.h"
#include "canvas/select_button_cmd.h"
#include "core/session.h"
#include "document/button_geometry.h"
#include "window/picker_window.h"

#include <QApplication>
#include <cstdio>

namespace {

QString add_script(int count) {
    QString mel;
    for (int i = 0; i < count; ++i)
        mel += QStringLiteral("ZelvaniPicker add_button %1 %2 \"b%3\";\n")
                   .arg(10 + (i % 50) * 30)
                   .arg(10 + (i / 50) * 20)
                   .arg(i);
    return mel;
}

// The plug-in, loaded as the host loads it, builds a picker from a script.
void bench_directives(int count) {
    host::session& host = host::session::get();
    const QString script = add_script(count);
    const auto run = [&](bool batch) {
        return best_ms(
            [&] {
                host.execute(QStringLiteral("ZelvaniPicker clear_tabs; ZelvaniPicker new_tab;"));
                host.execute(batch ? QStringLiteral("ZelvaniPicker enable_batch_mode;")
                                   : QString());
                host.execute(script);
                host.execute(batch ? QStringLiteral("ZelvaniPicker disable_batch_mode;")
                                   : QString());
                host.run_idle();
            },
            3);
    };
    const double plain = run(false);
    const double batched = run(true);
    // The bound: the same records made directly, labels rendered, no script, no scene.
    const double bound = best_ms([&] {
        for (int i = 0; i < count; ++i) {
            picker_button_data data;
            data.label = QStringLiteral("b%1").arg(i);
            data.targets = QStringList{QStringLiteral("hero:arm")};
            delete make_button_record(data);
        }
    });
    std::printf("add_button x%d  without batch %9.2f ms  with batch %8.2f ms  records alone "
                "%7.2f ms  ratios %6.1fx %5.1fx\n",
                count, plain, batched, bound, plain / bound, batched / bound);
}

// One step of a Ctrl-drag of every button of a picker.
void bench_drag(int count) {
    picker_window window(nullptr);
    picker_view* view = window.current_view();
    for (int i = 0; i < count; ++i) {
        picker_button_data data;
        data.position = QPoint((i % 50) * 30, (i / 50) * 20);
        data.targets = QStringList{QStringLiteral("n%1").arg(i)};
        view->mark_selected(view->buttons[view->add_button_record(data, -1)], true);
    }
    select_button_cmd drag(view, view->to_widget(view->buttons[0]->rect).center(),
                           Qt::ControlModifier);
    int step = 0;
    const double move = best_ms([&] { drag.move_to(QPoint(100 + ++step, 100), {}); });
    volatile int sink = 0;
    const double bound = best_ms([&] {
        for (picker_button* b : qAsConst(view->buttons)) {
            b->position += QPoint(1, 0);
            b->rect.translate(1, 0);
            sink = sink + b->position.x();
        }
    });
    std::printf("drag of %d buttons, one step  %7.3f ms  bare moves %7.3f ms  ratio %5.2fx\n",
                count, move, bound, move / bound);
}

} // namespace

int main(int argc, char** argv) {
    headless_unless_asked();
    QApplication app(argc, argv);
    if (!load_picker_plugin(QStringLiteral(
            "createNode transform -n \"hero:arm\"; select hero:arm; ZelvaniPicker;")))
        return 1;
    host::session& host = host::session::get();
    std::printf("Editing (best of several runs)\n");
    bench_directives(1000);
    host.reset();
    bench_drag(1000);
    return 0;
}
