#pragma once
// The channel box: the keyable attributes of the last selected node with their values at
// the current time, as Maya's shows them. Keyed values are red, locked ones grey. A value
// typed in (or an enum picked) becomes a setAttr on every selected node that has that
// attribute, run as if typed on the command line.
#include <QWidget>
#include <maya/MTypes.h>

class QLabel;
class QTableWidget;
class QTableWidgetItem;

namespace sandbox {

class channel_table;

class channel_box : public QWidget {
    Q_OBJECT
public:
    explicit channel_box(QWidget* parent = nullptr);
    ~channel_box() override;

    // Shows the scene as it is now, when the selection, a node or a value changed since
    // the last call.
    void refresh();
    // The node whose channels are shown, or "" when none.
    QString node_name() const { return node_name_; }
    QTableWidget* table() const;

signals:
    // A MEL text for an edit made here.
    void command(const QString& mel);

private:
    void rebuild();
    void commit(int row, const QString& value_text);
    void item_changed(QTableWidgetItem* item);

    QLabel* title_;
    channel_table* table_;
    QString node_name_;
    QStringList attributes_; // the long name shown on each row
    QStringList shown_selection_;
    quint64 generation_ = ~quint64(0);
    quint64 attribute_generation_ = ~quint64(0);
    bool filling_ = false;
    MCallbackId selection_callback_ = 0;
};

} // namespace sandbox
