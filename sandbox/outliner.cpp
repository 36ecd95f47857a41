#include "outliner.h"

#include "core/session.h"

#include <QHeaderView>
#include <QSignalBlocker>

namespace sandbox {

namespace {

constexpr int name_role = Qt::UserRole;

QString short_name(const QString& name) {
    return name.mid(name.lastIndexOf(QLatin1Char(':')) + 1);
}

} // namespace

outliner::outliner(QWidget* parent) : QTreeWidget(parent) {
    setHeaderHidden(true);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setUniformRowHeights(true);
    setIndentation(14);
    connect(this, &QTreeWidget::itemSelectionChanged, this, &outliner::lead_host_selection);
    selection_callback_ = host::session::get().events.add(
        QStringLiteral("SelectionChanged"),
        [](void* self) { static_cast<outliner*>(self)->follow_host_selection(); }, this);
    refresh();
}

outliner::~outliner() {
    host::session::get().events.remove(selection_callback_);
}

void outliner::refresh() {
    const host::scene& scene = host::session::get().scene;
    if (scene.generation() == generation_)
        return;
    generation_ = scene.generation();
    rebuild();
    follow_host_selection();
}

QTreeWidgetItem* outliner::namespace_item(const QString& full) {
    if (full.isEmpty())
        return nullptr;
    if (QTreeWidgetItem* item = namespaces_.value(full))
        return item;
    const int colon = full.lastIndexOf(QLatin1Char(':'));
    QTreeWidgetItem* parent = namespace_item(colon < 0 ? QString() : full.left(colon));
    auto* item = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(this);
    item->setText(0, full.mid(colon + 1) + QLatin1Char(':'));
    item->setIcon(0, style()->standardIcon(QStyle::SP_DirIcon));
    item->setFlags(Qt::ItemIsEnabled);
    namespaces_.insert(full, item);
    return item;
}

void outliner::rebuild() {
    const QSignalBlocker blocker(this);
    clear();
    namespaces_.clear();
    nodes_.clear();
    const host::scene& scene = host::session::get().scene;
    for (const QString& ns : scene.all_namespaces()) {
        if (!ns.isEmpty() && ns != QLatin1String("UI") && ns != QLatin1String("shared"))
            namespace_item(ns);
    }
    // Nodes come in creation order, so a parent always has its item first.
    QHash<int, QTreeWidgetItem*> by_id;
    for (int id : scene.live_nodes()) {
        const host::node& node = scene.at(id);
        // As Maya's outliner, it shows the DAG, not the animation curves.
        if (node.curve)
            continue;
        QTreeWidgetItem* parent = node.parent >= 0 ? by_id.value(node.parent) : nullptr;
        if (!parent)
            parent = namespace_item(host::namespace_of(node.name));
        auto* item = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(this);
        const QString name = scene.display_name(id);
        item->setText(0, short_name(node.name));
        item->setToolTip(0, name + QStringLiteral(" (") + node.type + QLatin1Char(')'));
        item->setData(0, name_role, name);
        by_id.insert(id, item);
        nodes_.insert(name, item);
    }
    expandAll();
}

void outliner::follow_host_selection() {
    if (syncing_)
        return;
    const QSignalBlocker blocker(this);
    clearSelection();
    QTreeWidgetItem* last = nullptr;
    for (const QString& name : host::session::get().active.names()) {
        // A component selects its node's row.
        if (QTreeWidgetItem* item = nodes_.value(name.section(QLatin1Char('.'), 0, 0))) {
            item->setSelected(true);
            last = item;
        }
    }
    if (last)
        scrollToItem(last);
    viewport()->update();
}

void outliner::lead_host_selection() {
    QStringList names;
    for (const QTreeWidgetItem* item : selectedItems())
        names.append(item->data(0, name_role).toString());
    host::session& host = host::session::get();
    syncing_ = true;
    if (names.isEmpty())
        host.clear_selection();
    else
        host.select(names, host::selection::adjust::replace);
    syncing_ = false;
}

} // namespace sandbox
