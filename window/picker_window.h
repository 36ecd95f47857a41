#pragma once
// The plug-in's one window: a menu bar, a tab per picker, and the values for new buttons.
#include <QDataStream>
#include <QPointer>
#include <QRgb>
#include <QString>
#include <QStringList>
#include <QWidget>

class QAction;
class QMenuBar;
class QTabWidget;
class QVBoxLayout;
class picker_view;

// The window's parent (the dock), kept for dialogs that outlive a call.
extern QPointer<QWidget> picker_window_parent;

class picker_window : public QWidget {
    Q_OBJECT
public:
    explicit picker_window(QWidget* parent);
    ~picker_window() override;

    QTabWidget* tabs;
    QMenuBar* menu_bar;
    bool auto_tab_switching = true;
    QVBoxLayout* main_layout;
    QRgb button_color = 0xb22222;
    QRgb label_color = 0;
    QString button_label;
    int button_spacing = 10;
    int button_width = 10;
    int button_height = 10;
    bool closing = false;

    // Enabled while the scene selection is not empty.
    QAction* add_one_action;
    QAction* add_many_action;
    QAction* update_button_action;

    picker_view* current_view() const;
    picker_view* view_at(int index) const;

    // --- tabs ---
    void close_tab(int index);
    void clear_tabs();
    void reset_tabs();
    void refresh_toolbox();

    // --- streams ---
    void write_all_tabs(QDataStream& out) const;
    void write_tab(QDataStream& out, int index) const;
    void read_tabs(QDataStream& in, bool clear);
    bool save_file(picker_view* view, const QString& path);
    void open_files(const QStringList& paths);

    // --- scene storage ---
    void store_background_image(picker_view* view);
    void remove_background_image(picker_view* view);
    void request_background_image(picker_view* view);
    void set_background_for_key(const QString& id, const QPixmap& pixmap);

    // --- selection ---
    void apply_selection(const QStringList& names);
    void clear_all_selected();
    bool publish_selection();

public slots:
    void new_tab();
    void close_current();
    void close_one(int index);
    void rename_tab();
    void updateSceneData();
    void save_current();
    void saveas_current();
    // Asks the host for the scene's namespaces and offers to rebind the current tab.
    void change_namespace();

protected:
    // Keys reach the current view's actions through here.
    void keyPressEvent(QKeyEvent* event) override;

private:
    void add_view_tab(picker_view* view, const QString& title);
    bool shares_background(const picker_view* view, int skip) const;
    void write_tab_body(QDataStream& out, int index) const;
    void set_add_actions_enabled(bool enabled);
};
