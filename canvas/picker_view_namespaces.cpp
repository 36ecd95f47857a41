// Binding a picker to the scene's namespaces. A rewrite is not an edit: no undo, no
// changed(), no repaint; the new names reach the scene with the next write.
#include "canvas/picker_view.h"

#include "document/button_queries.h"
#include "document/namespace_rewrite.h"
#include "window/picker_editNamespaceDialog.h"

namespace {

const QString root = QStringLiteral(":");

} // namespace

void picker_view::collect_namespaces(QStringList& list) const {
    collect_button_namespaces(buttons, list);
}

void picker_view::rebind_namespaces(QStringList scene_list, bool always) {
    QStringList used;
    collect_namespaces(used);
    used.removeAll(QString());
    if (used.isEmpty()) {
        used.append(root);
        if (!scene_list.contains(root))
            scene_list.append(root);
    }
    scene_list.removeAll(QString());
    if (!always) {
        bool all_there = !scene_list.isEmpty();
        for (const QString& ns : qAsConst(used))
            all_there = all_there && scene_list.contains(ns);
        if (all_there)
            return;
    }
    QStringList from_list, to_list;
    // A script run while the dialog waits may close the tab: the answer is then dropped.
    if (!ask_namespaces(this, used, scene_list, from_list, to_list) || !in_window())
        return;
    if (from_list.isEmpty())
        return;
    const namespace_rewrite pairs(from_list, to_list);
    for (picker_button* button : qAsConst(buttons))
        rename_namespaces(*button, pairs);
}

void picker_view::update_namespace(const QString& to) {
    QStringList used;
    collect_namespaces(used);
    if (used.isEmpty())
        used.append(root);
    QStringList from_list, to_list;
    const QString new_prefix = namespace_prefix(to, true);
    for (const QString& from : qAsConst(used)) {
        // As in a rebind, a pair that changes nothing is left out of the lists.
        const QString old_prefix = namespace_prefix(from, false);
        if (old_prefix != new_prefix) {
            from_list.append(old_prefix);
            to_list.append(new_prefix);
        }
    }
    const namespace_rewrite pairs(from_list, to_list);
    for (picker_button* button : qAsConst(buttons))
        rename_namespaces(*button, pairs);
}
