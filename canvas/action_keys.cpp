#include "canvas/action_keys.h"

#include <QAction>
#include <QKeyEvent>

bool fire_actions_for_key(const QList<QAction*>& actions, const QKeyEvent* event) {
    const QKeySequence pressed(int(event->modifiers()) | event->key());
    bool fired = false;
    for (QAction* action : actions) {
        if (action->isEnabled() && action->shortcuts().contains(pressed)) {
            action->activate(QAction::Trigger);
            fired = true;
        }
    }
    return fired;
}
