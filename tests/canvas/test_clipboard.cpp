// Buttons through the real clipboard: the payload, its guards against damage, and the
// window's copy, cut and paste between tabs.
#include "canvas/picker_view.h"
#include "core/session.h"
#include "document/button_geometry.h"
#include "document/picker_clipboard.h"
#include "window/picker_window.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QMimeData>
#include <QtTest>
#include <climits>

static QByteArray payload_on_clipboard() {
    const QString type = "application/x-qt-picker-mime;value=\"buttons\"";
    const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
    return mime && mime->hasFormat(type) ? mime->data(type) : QByteArray();
}

static QStringList labels(const QList<picker_button_data>& records) {
    QStringList out;
    for (const picker_button_data& r : records)
        out << r.label;
    return out;
}

static QList<picker_button_data> read(const QByteArray& payload) {
    QDataStream in(payload);
    return read_clipboard_stream(in);
}

static QStringList on_clipboard() {
    return labels(read(payload_on_clipboard()));
}

static void write_record(QDataStream& out, int index, int kind, const QStringList& targets) {
    out << qint32(index) << QPoint(index, 0) << qint32(12) << qint32(12) << qint32(8)
        << qint32(kind) << qint32(0) << qint32(0x336699) << qint32(0xffffff)
        << QString("r%1").arg(index) << qint32(targets.size());
    for (const QString& t : targets)
        out << t;
}

class test_clipboard : public QObject {
    Q_OBJECT
    picker_window* window = nullptr;
    picker_view* view = nullptr;

    static void add(picker_view* v, QPoint at, const QString& label, int selected = 0) {
        picker_button_data data;
        data.position = at;
        data.label = label;
        data.targets = QStringList{"hero:" + label};
        v->buttons[v->add_button_record(data, -1)]->selected = selected;
    }
    static QStringList shown(const picker_view* v) {
        QStringList out;
        for (const picker_button* b : v->buttons)
            out << b->label + (b->selected ? "*" : "");
        return out;
    }

private slots:
    void init() {
        QGuiApplication::clipboard()->clear();
        window = new picker_window(nullptr);
        window->resize(400, 400);
        window->show();
        view = window->current_view();
    }
    void cleanup() {
        delete window;
        host::session::get().idle.clear();
    }

    void payload_round_trips_with_its_version_and_count() {
        picker_button_data command;
        command.position = QPoint(-40, 7);
        command.size = command.width = 31;
        command.height = 9;
        command.kind = command.language = 1;
        command.color = 0x123456;
        command.label_color = 0xabcdef;
        command.label = "Räume";
        command.targets = QStringList{"print('x')"};
        picker_button_data selection;
        selection.targets = QStringList{"a:b", "c", ""};
        write_clipboard({command, selection});

        QDataStream header(payload_on_clipboard());
        qint32 version = 0, count = 0;
        header >> version >> count;
        QCOMPARE(QPoint(version, count), QPoint(1, 2));
        QCOMPARE(read(payload_on_clipboard()), QList<picker_button_data>({command, selection}));
    }

    void other_versions_and_counts_read_as_nothing() {
        for (const QPoint& header : {QPoint(0, 1), QPoint(2, 1), QPoint(1, 0), QPoint(1, -3)}) {
            QByteArray payload;
            QDataStream out(&payload, QIODevice::WriteOnly);
            out << qint32(header.x()) << qint32(header.y());
            write_record(out, 0, 0, {"x"});
            QVERIFY(read(payload).isEmpty());
        }
        QVERIFY(read(QByteArray()).isEmpty());
    }

    // Bad records are consumed and dropped, the others kept; a huge count over short data
    // ends with the data.
    void damage_drops_records_and_never_spins() {
        QByteArray payload;
        QDataStream out(&payload, QIODevice::WriteOnly);
        out << qint32(1) << qint32(0x7fffffff);
        write_record(out, 0, 0, {"keep"});
        write_record(out, 1, 2, {"bad kind"});
        write_record(out, 7, 0, {"bad index"});
        write_record(out, 3, 0, {});
        write_record(out, 4, -1, {"negative kind"});
        write_record(out, 5, 1, {"keep"});
        payload.append("\0\0\0", 3); // a record cut short
        QElapsedTimer clock;
        clock.start();
        QCOMPARE(labels(read(payload)), QStringList({"r0", "r5"}));
        QVERIFY(clock.elapsed() < 2000);
    }

    // A partly selected button opens the gate but is never taken: copying only such
    // buttons empties the picker part of the clipboard, and pasting that adds nothing
    // while still making its undo step.
    void partly_selected_buttons_are_neither_copied_nor_cut() {
        add(view, QPoint(20, 20), "a", 1);
        add(view, QPoint(60, 20), "b", 2);
        window->copy_buttons();
        QCOMPARE(on_clipboard(), QStringList{"a"});
        window->cut_buttons();
        QCOMPARE(shown(view), QStringList{"b"});
        QCOMPARE(view->undo_stack.undoText(), QString("Cut Button"));

        view->buttons[0]->selected = 2; // the cut cleared the selection
        window->copy_buttons();
        QVERIFY(!payload_on_clipboard().isEmpty());
        QVERIFY(on_clipboard().isEmpty());
        window->paste_buttons();
        QCOMPARE(shown(view), QStringList{"b"});
        QCOMPARE(view->undo_stack.undoText(), QString("Paste Buttons"));
    }

    void without_selection_picker_data_or_tab_nothing_happens() {
        add(view, QPoint(20, 20), "a");
        QGuiApplication::clipboard()->setText("kept");
        window->copy_buttons();
        window->cut_buttons();
        window->paste_buttons();
        QCOMPARE(view->undo_stack.count(), 0);
        window->clear_tabs();
        window->copy_buttons();
        window->paste_inplace_buttons();
        QCOMPARE(QGuiApplication::clipboard()->text(), QString("kept"));
    }

    // Into another tab: in place keeps the positions, otherwise the group is centred on the
    // widget's centre as mapped at the paste. Either way the pasted buttons end the list.
    void paste_between_tabs_in_place_or_centred() {
        add(view, QPoint(-300, 500), "a", 1);
        add(view, QPoint(-250, 540), "b", 1);
        window->copy_buttons();
        window->new_tab();
        picker_view* other = window->current_view();
        add(other, QPoint(0, 0), "z", 1);

        window->paste_inplace_buttons();
        QCOMPARE(shown(other), QStringList({"z", "a*", "b*"}));
        QCOMPARE(other->buttons[1]->position, QPoint(-300, 500));
        QCOMPARE(other->buttons[2]->position, QPoint(-250, 540));

        other->set_offset(QPoint(37, -55));
        const QPoint centre = other->to_picker(other->rect().center());
        window->paste_buttons();
        QCOMPARE(shown(other), QStringList({"z", "a", "b", "a*", "b*"}));
        QCOMPARE(other->buttons[3]->position + QPoint(25, 20), centre);
        QCOMPARE(other->buttons[4]->position - other->buttons[3]->position, QPoint(50, 40));
        QCOMPARE(shown(view), QStringList({"a*", "b*"}));
    }

    // Records from a hostile payload at the corners of int: held at the edge of the
    // picker, and every paste, frame, paint, undo and redo on them stays in range.
    void records_far_outside_any_screen_paste_framed_and_painted() {
        QByteArray payload;
        QDataStream out(&payload, QIODevice::WriteOnly);
        out << qint32(1) << qint32(2);
        const QPoint corners[] = {QPoint(INT_MIN, INT_MIN), QPoint(INT_MAX, INT_MAX)};
        for (int i = 0; i < 2; ++i) {
            out << qint32(i) << corners[i] << qint32(INT_MAX) << qint32(INT_MAX) << qint32(INT_MAX)
                << qint32(0) << qint32(0) << qint32(0x336699) << qint32(0xffffff)
                << QString("far%1").arg(i) << qint32(1) << QString("x");
        }
        auto* mime = new QMimeData;
        mime->setData("application/x-qt-picker-mime;value=\"buttons\"", payload);
        QGuiApplication::clipboard()->setMimeData(mime);

        window->paste_inplace_buttons();
        QCOMPARE(shown(view), QStringList({"far0*", "far1*"}));
        const int edge = picker_geometry_limit;
        QCOMPARE(view->buttons[0]->position, QPoint(-edge, -edge));
        QCOMPARE(view->buttons[1]->position, QPoint(edge, edge));
        QCOMPARE(view->buttons[1]->width, edge);
        window->paste_buttons();
        view->undo_stack.undo();
        view->undo_stack.redo();
        view->frame_view();
        for (int step = 0; step < 10; ++step)
            view->animate_zoom();
        view->grab();
        view->zoom_at(16, QPoint(0, 0));
        view->grab();
        QCOMPARE(view->buttons.size(), 4);
    }

    void cut_then_undo_leaves_them_selected_and_the_clipboard_alone() {
        add(view, QPoint(20, 20), "a", 1);
        add(view, QPoint(60, 20), "b");
        add(view, QPoint(100, 20), "c", 1);
        window->cut_buttons();
        QCOMPARE(shown(view), QStringList{"b"});
        QCOMPARE(view->undo_stack.undoText(), QString("Cut Buttons"));
        QCOMPARE(on_clipboard(), QStringList({"a", "c"}));

        QGuiApplication::clipboard()->setText("later");
        view->undo_stack.undo();
        QCOMPARE(shown(view), QStringList({"a*", "b", "c*"}));
        view->undo_stack.redo();
        QCOMPARE(QGuiApplication::clipboard()->text(), QString("later"));
    }
};

QTEST_MAIN(test_clipboard)
#include "test_clipboard.moc"
