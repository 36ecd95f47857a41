// The window's menu bar: what each entry is allowed to do when, and the keys that reach it.
#include "canvas/picker_view.h"
#include "core/session.h"
#include "document/selected_objects.h"
#include "window/picker_window.h"

#include <QClipboard>
#include <QDockWidget>
#include <QMenu>
#include <QMessageBox>
#include <QSettings>
#include <QTabWidget>
#include <QtTest>

class test_window_menus : public QObject {
    Q_OBJECT
    host::session& host = host::session::get();
    QDockWidget* dock = nullptr;
    picker_window* window = nullptr;

    picker_button* add(picker_view* view, QPoint centre, const QString& target) {
        picker_button_data data;
        data.position = centre;
        data.targets = QStringList{target};
        return view->buttons[view->add_button_record(data, -1)];
    }
    void key(int code, Qt::KeyboardModifiers modifiers = {}) {
        QKeyEvent press(QEvent::KeyPress, code, modifiers);
        QApplication::sendEvent(window, &press);
    }

private slots:
    void init() {
        dock = new QDockWidget;
        window = new picker_window(dock);
        dock->setWidget(window);
        dock->resize(400, 400);
        dock->show();
        dock->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(dock));
        selected_objects.clear();
        QApplication::clipboard()->clear();
    }
    void cleanup() {
        delete dock;
        host.idle.clear();
        selected_objects.clear();
    }

    void entries_follow_tabs_selection_and_clipboard() {
        window->updateEditMenu();
        QCOMPARE(window->undo_action->text(), QString("Can't Undo"));
        QVERIFY(!window->copy_action->isEnabled());
        QVERIFY(!window->paste_action->isEnabled());

        picker_view* view = window->current_view();
        view->mark_selected(add(view, QPoint(20, 20), "a"), true);
        view->adjust_size_up();
        window->updateEditMenu();
        QCOMPARE(window->undo_action->text(), QString("Undo Adjust Size"));
        QVERIFY(window->copy_action->isEnabled());
        window->copy_buttons();
        window->updateEditMenu();
        QVERIFY(window->paste_action->isEnabled());
        QVERIFY(window->paste_inplace_action->isEnabled());
        window->do_undo();
        window->updateEditMenu();
        QCOMPARE(window->redo_action->text(), QString("Redo Adjust Size"));

        window->clear_tabs();
        window->updateFileMenu();
        window->updateEditMenu();
        window->updatePickerMenu();
        for (QAction* a : {window->save_action, window->saveas_action, window->rename_action,
                           window->close_action, window->undo_action, window->paste_action,
                           window->add_one_action, window->resize_background_action})
            QVERIFY2(!a->isEnabled(), qPrintable(a->text()));
        QVERIFY(window->paste_inplace_action->isEnabled()); // keeps its last state
        QVERIFY(window->change_namespace_action->isEnabled());
        QVERIFY(window->new_action->isEnabled());
        window->new_tab();
        window->updateFileMenu();
        QVERIFY(window->save_action->isEnabled());
    }

    void every_entry_copes_without_a_tab() {
        window->clear_tabs();
        const QList<QAction*> entries{window->save_action,
                                      window->saveas_action,
                                      window->rename_action,
                                      window->close_action,
                                      window->undo_action,
                                      window->redo_action,
                                      window->cut_action,
                                      window->copy_action,
                                      window->paste_action,
                                      window->paste_inplace_action,
                                      window->add_one_action,
                                      window->add_many_action,
                                      window->update_button_action,
                                      window->change_background_action,
                                      window->resize_background_action,
                                      window->change_namespace_action};
        selected_objects = QStringList{"hero:arm"};
        for (QAction* entry : entries)
            entry->trigger(); // no dialog may come up: nothing would answer it
        QCOMPARE(window->tabs->count(), 0);
        QCOMPARE(QApplication::activeModalWidget(), nullptr);
    }

    void shortcuts_as_the_menus_show_them() {
        const QList<QPair<QAction*, QString>> keys{{window->new_action, "Ctrl+N"},
                                                   {window->open_action, "Ctrl+O"},
                                                   {window->save_action, "Ctrl+S"},
                                                   {window->close_action, "Ctrl+W"},
                                                   {window->exit_action, "Ctrl+Shift+W"},
                                                   {window->undo_action, "Ctrl+Z"},
                                                   {window->redo_action, "Ctrl+Shift+Z"},
                                                   {window->cut_action, "Ctrl+X"},
                                                   {window->copy_action, "Ctrl+C"},
                                                   {window->paste_action, "Ctrl+V"},
                                                   {window->paste_inplace_action, "Ctrl+Shift+V"}};
        for (const auto& [action, key] : keys)
            QCOMPARE(action->shortcut().toString(), key);
        picker_view* view = window->current_view();
        QCOMPARE(view->delete_action->shortcut(), QKeySequence(Qt::Key_Backspace));
        QCOMPARE(view->reset_action->shortcut(), QKeySequence(Qt::Key_H));
        QCOMPARE(view->frame_action->shortcut(), QKeySequence(Qt::Key_F));
        for (QAction* action : view->actions())
            QCOMPARE(action->shortcutContext(), Qt::WidgetShortcut);
    }

    void keys_act_only_while_the_pointer_is_over_the_window() {
        QCOMPARE(window->tabs->count(), 1);
        QEvent leave(QEvent::Leave);
        QApplication::sendEvent(window, &leave);
        key(Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(window->tabs->count(), 1);
        QEnterEvent enter(QPointF(5, 5), QPointF(5, 5), QPointF(5, 5));
        QApplication::sendEvent(window, &enter);
        QTRY_VERIFY(window->hasFocus());
        key(Qt::Key_N, Qt::ControlModifier);
        QCOMPARE(window->tabs->count(), 2);
        // Paste in Place shows its key but is not one of the window's own actions.
        QVERIFY(!window->actions().contains(window->paste_inplace_action));
        QVERIFY(!window->actions().contains(window->change_namespace_action));
    }

    void the_picker_menu_needs_a_scene_selection() {
        picker_view* view = window->current_view();
        window->add_one_button();
        window->add_many_buttons();
        QVERIFY(view->buttons.isEmpty());
        QVERIFY(!view->gesture);
        selected_objects = QStringList{"hero:arm", "hero:leg"};
        window->add_one_button();
        QCOMPARE(view->buttons.size(), 1);
        QCOMPARE(view->buttons[0]->targets, selected_objects);
        QCOMPARE(view->buttons[0]->color, QRgb(0xb22222));
        QCOMPARE(view->undo_stack.undoText(), QString("Add One Button"));
    }

    void exit_closes_the_dock_and_about_tells_the_version() {
        QString text;
        QTimer::singleShot(0, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            QVERIFY(box);
            text = box->text();
            box->accept();
        });
        window->about_action->trigger();
        QVERIFY(text.contains("Version 2.1.0 (build "));
        QVERIFY(text.contains("2012-"));

        QVERIFY(window->auto_tab_switching); // nothing in this program's own store turns it off
        window->auto_switch_action->trigger();
        QVERIFY(!window->auto_tab_switching);
        QVERIFY(window->auto_switch_action->isChecked());
        QCOMPARE(QSettings("Zelvani", "picker").value("auto_tab_switching"), QVariant(false));
        window->auto_switch_action->trigger();
        QVERIFY(window->auto_tab_switching);

        window->exit_action->trigger();
        QVERIFY(!dock->isVisible());
        QCOMPARE(window->tabs->count(), 1);
    }
};

QTEST_MAIN(test_window_menus)
#include "test_window_menus.moc"
