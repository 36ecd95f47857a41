#pragma once
// Keys matched by hand against a widget's actions, for actions whose shortcuts Qt would
// only fire while their own widget has focus.
#include <QList>

class QAction;
class QKeyEvent;

// Fires every enabled action that has the event's key among its shortcuts; true when any
// fired. The search does not stop at the first match.
bool fire_actions_for_key(const QList<QAction*>& actions, const QKeyEvent* event);
