#pragma once
// Maps each namespace a picker uses onto one of the scene's.
#include <QComboBox>
#include <QDialog>
#include <QList>
#include <QPair>
#include <QStringList>

class ElidedLabel;
class QPushButton;
class QScrollArea;
class picker_view;

class picker_editNamespaceDialog : public QDialog {
    Q_OBJECT
public:
    picker_editNamespaceDialog(QWidget* parent, const QStringList& used,
                               const QStringList& scene_list);

    QWidget* content;
    QScrollArea* scroll;
    QList<QPair<ElidedLabel*, QComboBox*>> rows;
    QPushButton* ok_button;
    QPushButton* cancel_button;

private:
    QComboBox* namespace_box(const QString& name, const QStringList& scene_list);
};

// Asks; when accepted, fills the parallel lists of old and new prefixes that differ.
bool ask_namespaces(picker_view* view, const QStringList& used, const QStringList& scene_list,
                    QStringList& from_list, QStringList& to_list);
