// The window's side of keeping the picker in step with the scene selection.
#include "canvas/picker_view.h"
#include "document/button_queries.h"
#include "document/scene_text.h"
#include "document/selected_objects.h"
#include "window/picker_window.h"

#include <QAction>
#include <QTabWidget>
#include <maya/MGlobal.h>
#include <maya/MQtUtil.h>

void picker_window::set_add_actions_enabled(bool enabled) {
    add_one_action->setEnabled(enabled);
    add_many_action->setEnabled(enabled);
    update_button_action->setEnabled(enabled);
}

void picker_window::apply_selection(const QStringList& names) {
    selected_objects = names;
    if (tabs->count() < 1) {
        set_add_actions_enabled(false);
        return;
    }
    const QStringList wanted = distinct_names(selected_objects);
    const QSet<QString> lookup(wanted.begin(), wanted.end()); // built once for all tabs
    for (int t = 0; t < tabs->count(); ++t) {
        picker_view* view = view_at(t);
        if (!view || !view->match_selection(lookup))
            continue;
        // A single object switches to the last tab whose highlights changed and which
        // holds a button for it.
        if (wanted.size() == 1 && auto_tab_switching) {
            for (const picker_button* button : qAsConst(view->buttons)) {
                for (const QString& target : button->targets) {
                    if (lookup.contains(target))
                        tabs->setCurrentIndex(t);
                }
            }
        }
        view->update();
    }
    set_add_actions_enabled(!wanted.isEmpty());
}

void picker_window::clear_all_selected() {
    for (int t = 0; t < tabs->count(); ++t) {
        picker_view* view = view_at(t);
        if (view && view->deselect_all())
            view->update();
    }
    selected_objects.clear();
}

bool picker_window::publish_selection() {
    if (selected_objects.isEmpty()) {
        MGlobal::executeCommandOnIdle("ZelvaniPicker clear");
        return true;
    }
    // Names come from picker files: anything that is not a plain object name goes out
    // quoted, so that it stays a name and never becomes code.
    QStringList words;
    for (const QString& name : qAsConst(selected_objects)) {
        // No MEL text holds a NUL: the line would end there, with the rest of the names.
        // No object has one in its name either, so such a name selects nothing anyway.
        if (!name.contains(QChar(0)))
            words.append(mel_object_argument(name));
    }
    const QString mel = QStringLiteral("ZelvaniPicker select ") + words.join(QLatin1Char(' '));
    MGlobal::executeCommandOnIdle(MQtUtil::toMString(mel));
    return true;
}
