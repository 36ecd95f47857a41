#include "window/picker_window.h"

#include "canvas/picker_view.h"

#include "window/held_dialog.h"
#include "window/picker_settings.h"

#include <QAction>
#include <QInputDialog>
#include <QKeyEvent>
#include <QMenuBar>
#include <QTabWidget>
#include <QVBoxLayout>

QPointer<QWidget> picker_window_parent;

picker_window::picker_window(QWidget* parent) : QWidget(parent) {
    picker_window_parent = parent;
    setWindowTitle(QStringLiteral("ZelvaniPicker"));
    setObjectName(QStringLiteral("ZelvaniPicker"));
    setWindowIcon(QIcon(QStringLiteral(":/resources/ZelvaniLogo.png")));
    setAttribute(Qt::WA_DeleteOnClose);

    menu_bar = new QMenuBar(this);
    tabs = new QTabWidget(this);
    tabs->setMovable(true);
    tabs->setTabsClosable(true);

    make_menus();

    picker_settings settings;
    auto_tab_switching = settings.value(settings_key("auto_tab_switching"), true).toBool();
    auto_switch_action->setChecked(!auto_tab_switching);

    new_tab();

    main_layout = new QVBoxLayout(this);
    main_layout->setSpacing(0);
    main_layout->setContentsMargins(0, 0, 0, 0);
    main_layout->setMenuBar(menu_bar);
    main_layout->addWidget(tabs);
    show_toolbox();

    connect(tabs, SIGNAL(tabCloseRequested(int)), this, SLOT(close_one(int)));
}

picker_window::~picker_window() {
    // Views die without scene writes: the scene already holds the last data.
    closing = true;
    clear_tabs();
    // No worker may outlive the window: the plug-in's code goes with it at unload.
    picture_encoders.clear();
    picture_encoders.waitForDone();
}

picker_view* picker_window::current_view() const {
    return qobject_cast<picker_view*>(tabs->currentWidget());
}

picker_view* picker_window::view_at(int index) const {
    return qobject_cast<picker_view*>(tabs->widget(index));
}

void picker_window::add_view_tab(picker_view* view, const QString& title) {
    tabs->addTab(view, title);
    connect(view, SIGNAL(changed()), this, SLOT(updateSceneData()));
}

void picker_window::new_tab() {
    auto* view = new picker_view(this);
    add_view_tab(view, tr("Untitled"));
    tabs->setCurrentWidget(view);
}

void picker_window::close_current() {
    if (tabs->count() > 0 && tabs->currentIndex() >= 0)
        close_one(tabs->currentIndex());
}

void picker_window::close_one(int index) {
    const QString text =
        QStringLiteral(
            "Are you sure you want to close the tab \"%1\"?\n\nAll changes will be lost.")
            .arg(tabs->tabText(index));
    const QPointer<picker_window> alive(this);
    const QPointer<picker_view> asked = view_at(index);
    const auto answer = ask_user(QMessageBox::Warning, this, QStringLiteral("Close Tab"), text,
                                 QMessageBox::Ok | QMessageBox::Cancel);
    if (!alive || answer == QMessageBox::Cancel)
        return;
    // Scripts run while the question waits may have closed or moved that tab.
    if (asked) {
        if (!asked->in_window())
            return;
        index = tabs->indexOf(asked);
    }
    close_tab(index);
    updateSceneData();
}

// Whether a remaining tab other than the one at `skip` shows the same picture.
bool picker_window::shares_background(const picker_view* view, int skip) const {
    for (int i = 0; i < tabs->count(); ++i) {
        const picker_view* other = view_at(i);
        if (i != skip && other && other->background_id == view->background_id)
            return true;
    }
    return false;
}

void picker_window::close_tab(int index) {
    picker_view* view = view_at(index);
    if (!view)
        return;
    tabs->removeTab(index);
    // The index is that after the removal: the neighbour that moved into place is not
    // compared, so a picture shared only with it loses its scene entry.
    if (!closing && !view->background_id.isEmpty() && !shares_background(view, index))
        remove_background_image(view);
    // A handler of the view may still wait in a dialog whose script closed the tab.
    view->window = nullptr;
    dispose_when_unwound(view);
}

void picker_window::clear_tabs() {
    for (int i = tabs->count() - 1; i >= 0; --i)
        close_tab(i);
}

void picker_window::reset_tabs() {
    clear_tabs();
    new_tab();
}

void picker_window::rename_tab() {
    const int index = tabs->currentIndex();
    if (index < 0)
        return;
    const QPointer<picker_window> alive(this);
    const QPointer<QWidget> tab = tabs->widget(index);
    held_dialog<QInputDialog> dialog(new QInputDialog(this));
    dialog->setWindowTitle(QStringLiteral("Tab Name"));
    dialog->setLabelText(QStringLiteral("Name"));
    dialog->setTextValue(tabs->tabText(index));
    const bool ok = dialog.exec() == QDialog::Accepted && dialog.alive();
    // The name is for the tab that was asked about, wherever scripts have moved it since.
    if (!ok || !alive || !tab || tabs->indexOf(tab) < 0)
        return;
    const QString name = dialog->textValue();
    if (!name.isEmpty())
        tabs->setTabText(tabs->indexOf(tab), name);
}
