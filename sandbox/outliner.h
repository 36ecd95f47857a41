#pragma once
// The scene's nodes grouped by namespace, DAG children under their parents. Its selection
// is the host's active selection, both ways.
#include <QTreeWidget>
#include <maya/MTypes.h>

namespace sandbox {

class outliner : public QTreeWidget {
    Q_OBJECT
public:
    explicit outliner(QWidget* parent = nullptr);
    ~outliner() override;

    // Rebuilds the tree when the scene changed since the last call.
    void refresh();
    // Selects the rows of the host's active selection.
    void follow_host_selection();

private:
    void rebuild();
    void lead_host_selection();
    QTreeWidgetItem* namespace_item(const QString& full);

    quint64 generation_ = ~quint64(0);
    QString scene_name_;
    bool syncing_ = false;
    MCallbackId selection_callback_ = 0;
    QHash<QString, QTreeWidgetItem*> namespaces_;
    QHash<QString, QTreeWidgetItem*> nodes_; // by the name the selection uses
};

} // namespace sandbox
