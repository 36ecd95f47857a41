// The toolbox: the strip below the tabs that holds the look of new buttons and edits the
// selected ones.
#include "canvas/picker_view.h"
#include "editing/list_cmds.h"
#include "editing/property_cmds.h"
#include "window/FlowLayout.h"
#include "window/picker_colorMenu.h"
#include "window/picker_window.h"

#include <QAction>
#include <QCursor>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPixmap>
#include <QPushButton>
#include <QSet>
#include <QSpacerItem>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {

QIcon swatch(QRgb color) {
    QPixmap pixmap(12, 12);
    pixmap.fill(QColor(color));
    return QIcon(pixmap);
}

QPushButton* size_button(const QString& tip, QObject* receiver, const char* slot) {
    static const char* const sizes[] = {"5",  "6",  "7",  "8",  "9",  "10", "11",
                                        "12", "13", "14", "15", "16", "17", "18",
                                        "19", "20", "30", "40", "50", "75", "100"};
    auto* button = new QPushButton(QString());
    button->setToolTip(tip);
    auto* menu = new QMenu(button);
    for (const char* text : sizes)
        menu->addAction(QString::fromLatin1(text));
    QObject::connect(menu, SIGNAL(triggered(QAction*)), receiver, slot);
    button->setMenu(menu);
    button->setMinimumWidth(50);
    button->setStyleSheet(QStringLiteral("text-align: left; padding: 3px"));
    return button;
}

QWidget* row(const QString& title, int title_stretch,
             std::initializer_list<std::pair<QWidget*, int>> parts) {
    auto* widget = new QWidget;
    auto* layout = new QHBoxLayout(widget);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel(title), title_stretch);
    for (const auto& [part, stretch] : parts)
        layout->addWidget(part, stretch);
    return widget;
}

QSpacerItem* spacer() {
    return new QSpacerItem(1, 1, QSizePolicy::Minimum, QSizePolicy::Minimum);
}

// The view whose selected buttons a toolbox edit changes, or null.
picker_view* edit_target(picker_view* view) {
    return view && view->any_selected() ? view : nullptr;
}

// A size menu's pick: shown on its button, kept for new buttons (10 for a text that is no
// number) and, with a selection, given to the selected buttons.
template <typename Command>
void apply_size(picker_view* view, const QAction* which, QPushButton* shown, int& setting) {
    if (!which)
        return;
    if (shown)
        shown->setText(which->text());
    bool ok = false;
    const int value = which->text().toInt(&ok, 10);
    setting = ok ? value : 10;
    if ((view = edit_target(view)))
        view->undo_stack.push(new Command(view, setting));
}

template <typename T> T first(const QSet<T>& set) {
    return *set.constBegin();
}

} // namespace

// Selecting the default sizes goes through the slots, so with a selection in the current
// tab building the strip also pushes a width and a height of 10.
void picker_window::build_toolbox() {
    color_button = new QPushButton(QString());
    color_button->setIcon(swatch(0xb22222));
    color_button->setToolTip(tr("Button Color"));
    connect(color_button, SIGNAL(pressed()), this, SLOT(do_color_menu()));
    label_color_button = new QPushButton(QString());
    label_color_button->setIcon(swatch(0));
    label_color_button->setToolTip(tr("Label Color"));
    connect(label_color_button, SIGNAL(pressed()), this, SLOT(do_labelcolor_menu()));

    width_button = size_button(tr("Button Width"), this, SLOT(set_button_width(QAction*)));
    QAction* ten = width_button->menu()->actions().at(5);
    width_button->menu()->setActiveAction(ten);
    set_button_width(ten);

    height_button = size_button(tr("Button Height"), this, SLOT(set_button_height(QAction*)));
    ten = height_button->menu()->actions().at(5);
    height_button->menu()->setActiveAction(ten);
    set_button_height(ten);

    label_edit = new QLineEdit;
    label_edit->setToolTip(tr("Button Label"));
    connect(label_edit, SIGNAL(editingFinished()), this, SLOT(set_button_label()));

    toolbox_layout = new FlowLayout(nullptr, 1, 1, 1);
    toolbox_layout->addItem(spacer());
    toolbox_layout->addWidget(row(tr("Color: "), 0, {{color_button, 0}}));
    toolbox_layout->addItem(spacer());
    toolbox_layout->addWidget(row(tr("Width: "), 0, {{width_button, 0}}));
    toolbox_layout->addItem(spacer());
    toolbox_layout->addWidget(row(tr("Height: "), 0, {{height_button, 0}}));
    toolbox_layout->addItem(spacer());
    // The eighth item: the layout stretches it over the rest of its line.
    toolbox_layout->addWidget(row(tr("Label: "), 1, {{label_edit, 1000}, {label_color_button, 1}}));
}

void picker_window::show_toolbox() {
    build_toolbox();
    main_layout->addSpacing(4);
    main_layout->addLayout(toolbox_layout);
    main_layout->addSpacing(4);
}

void picker_window::do_color_menu() {
    open_color_menu(QCursor::pos(), QColor(button_color), this, SLOT(set_button_color(QRgb)));
}

void picker_window::do_labelcolor_menu() {
    open_label_color_menu(QCursor::pos(), QColor(label_color), this, SLOT(set_label_color(QRgb)));
}

// Neither colour slot stores the colour for new buttons: with a selection the command's
// refresh does, without one the swatch alone shows it until the next refresh.
void picker_window::set_button_color(QRgb which) {
    if (color_button)
        color_button->setIcon(swatch(which));
    if (picker_view* view = edit_target(current_view()))
        view->undo_stack.push(new change_color_cmd(view, which));
}

void picker_window::set_label_color(QRgb which) {
    if (label_color_button)
        label_color_button->setIcon(swatch(which));
    if (picker_view* view = edit_target(current_view()))
        view->undo_stack.push(new change_labelc_cmd(view, which));
}

// Unlike the colours, the sizes are stored for new buttons at once.
void picker_window::set_button_width(QAction* which) {
    apply_size<change_width_cmd>(current_view(), which, width_button, button_width);
}

void picker_window::set_button_height(QAction* which) {
    apply_size<change_height_cmd>(current_view(), which, height_button, button_height);
}

// The label for new buttons is not written here: only a refresh takes it from the field.
void picker_window::set_button_label() {
    picker_view* view = edit_target(current_view());
    if (!view || !label_edit)
        return;
    view->undo_stack.push(new change_label_cmd(view, label_edit->text()));
    label_edit->clearFocus();
}

void picker_window::refresh_toolbox() {
    // The toolbox stands only when the layout holds its four items.
    if (main_layout->count() < 4)
        return;
    picker_view* view = current_view();
    if (!view || view->buttons.isEmpty())
        return;

    QSet<QRgb> colors, label_colors;
    QSet<int> widths, heights;
    QSet<QString> labels;
    for (const picker_button* button : qAsConst(view->buttons)) {
        if (button->selected != 1)
            continue;
        colors.insert(button->color);
        widths.insert(button->width);
        heights.insert(button->height);
        labels.insert(button->label);
        label_colors.insert(button->label_color);
    }
    if (colors.isEmpty())
        return;

    // A mixed selection shows whichever value its set yields first.
    color_button->setIcon(swatch(first(colors)));
    width_button->blockSignals(true);
    height_button->blockSignals(true);
    width_button->setText(QStringLiteral("%1").arg(first(widths)));
    height_button->setText(QStringLiteral("%1").arg(first(heights)));
    width_button->blockSignals(false);
    height_button->blockSignals(false);
    label_edit->blockSignals(true);
    label_edit->setText(labels.size() == 1 ? first(labels) : QString());
    label_edit->blockSignals(false);
    label_color_button->setIcon(swatch(first(label_colors)));

    button_color = first(colors);
    label_color = first(label_colors);
    button_label = label_edit->text();
    button_width = first(widths);
    button_height = first(heights);
}

// Hiding destroys the controls; showing builds them anew, with the start colours on the
// swatches and the sizes reset to 10.
void picker_window::toggle_toolbox() {
    if (main_layout->count() < 4) {
        show_toolbox();
        if (toolbox_action)
            toolbox_action->setText(tr("Hide Toolbox"));
        return;
    }
    QLayoutItem* taken[3];
    for (int i = 2; i >= 0; --i)
        taken[i] = main_layout->takeAt(main_layout->count() - 1);
    for (int i = 0; i < toolbox_layout->count(); ++i)
        delete toolbox_layout->itemAt(i)->widget();
    for (QLayoutItem* item : taken)
        delete item;
    color_button = nullptr;
    width_button = nullptr;
    height_button = nullptr;
    label_edit = nullptr;
    label_color_button = nullptr;
    toolbox_layout = nullptr;
    if (toolbox_action)
        toolbox_action->setText(tr("Show Toolbox"));
}
