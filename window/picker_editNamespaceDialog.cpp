#include "window/picker_editNamespaceDialog.h"

#include "canvas/picker_view.h"
#include "document/namespace_rewrite.h"
#include "window/ElidedLabel.h"
#include "window/held_dialog.h"

#include <QCompleter>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>

picker_editNamespaceDialog::picker_editNamespaceDialog(QWidget* parent, const QStringList& used,
                                                       const QStringList& scene_list)
    : QDialog(parent) {
    setModal(true);
    setWindowTitle(tr("Choose Namespace"));
    auto* layout = new QVBoxLayout(this);
    auto* title = new QLabel(tr("Change Current Namespace to:"));

    auto* rows_layout = new QVBoxLayout;
    for (const QString& name : used) {
        auto* label = new ElidedLabel(name);
        label->setToolTip(name);
        label->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
        label->setMinimumWidth(150);
        QComboBox* box = namespace_box(name, scene_list);
        auto* row = new QHBoxLayout;
        row->addWidget(label, 20);
        row->addWidget(box, 40);
        rows_layout->addLayout(row);
        rows.append({label, box});
    }
    rows_layout->addStretch(50);

    content = new QWidget;
    content->setLayout(rows_layout);
    content->setMinimumWidth(300);
    scroll = new QScrollArea;
    scroll->setWidget(content);
    scroll->setWidgetResizable(true);
    scroll->setMinimumWidth(320);
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);

    ok_button = new QPushButton(tr("OK"));
    cancel_button = new QPushButton(tr("Cancel"));
    connect(ok_button, SIGNAL(clicked(bool)), this, SLOT(accept()));
    connect(cancel_button, SIGNAL(clicked(bool)), this, SLOT(reject()));
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(ok_button);
    buttons->addWidget(cancel_button);

    layout->addWidget(title);
    layout->addWidget(scroll);
    layout->addLayout(buttons);
}

QComboBox* picker_editNamespaceDialog::namespace_box(const QString& name,
                                                     const QStringList& scene_list) {
    auto* box = new QComboBox;
    box->setEditText(name);
    for (const QString& entry : scene_list) {
        box->insertItem(box->count(), entry, entry);
        box->setItemData(box->count() - 1, entry, Qt::ToolTipRole);
    }
    // The same name, else a scene namespace that ends with it, else the name itself.
    int index = scene_list.indexOf(name);
    for (int i = 0; index < 0 && i < scene_list.size(); ++i) {
        if (scene_list[i].endsWith(QLatin1Char(':') + name))
            index = i;
    }
    if (index < 0) {
        box->insertItem(0, name, name);
        box->setItemData(0, name, Qt::ToolTipRole);
        index = 0;
    }
    box->setCurrentIndex(index);
    box->setMinimumWidth(150);
    box->setEditable(true);
    box->completer()->setCompletionMode(QCompleter::InlineCompletion);
    return box;
}

bool ask_namespaces(picker_view* view, const QStringList& used, const QStringList& scene_list,
                    QStringList& from_list, QStringList& to_list) {
    held_dialog<picker_editNamespaceDialog> dialog(
        new picker_editNamespaceDialog(view, used, scene_list));
    if (dialog.exec() != QDialog::Accepted || !dialog.alive())
        return false;
    for (int i = 0; i < used.size() && i < dialog->rows.size(); ++i) {
        const QString from = namespace_prefix(used[i], false);
        const QString to = namespace_prefix(dialog->rows[i].second->currentText(), true);
        if (from != to) {
            from_list.append(from);
            to_list.append(to);
        }
    }
    return true;
}
