#pragma once
// The plug-in's one window: a menu bar, a tab per picker, and the values for new buttons.
#include "document/scene_compressor.h"

#include <QDataStream>
#include <QMap>
#include <QPointer>
#include <QRgb>
#include <QString>
#include <QStringList>
#include <QThreadPool>
#include <QWidget>

class FlowLayout;
class QAction;
class QLineEdit;
class QMenu;
class QMenuBar;
class QPushButton;
class QTabWidget;
class QVBoxLayout;
class picker_view;

// The event of the pointer coming over a widget: Qt 6 hands QWidget::enterEvent a class of
// its own.
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
class QEnterEvent;
using pointer_enter_event = QEnterEvent;
#else
using pointer_enter_event = QEvent;
#endif

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

    // --- menus ---
    QMenu* file_menu;
    QMenu* edit_menu;
    QMenu* picker_menu;
    QMenu* help_menu;
    QAction* new_action;
    QAction* open_action;
    QAction* save_action;
    QAction* saveas_action;
    QAction* rename_action;
    QAction* close_action;
    QAction* exit_action;
    QAction* undo_action;
    QAction* redo_action;
    QAction* cut_action;
    QAction* copy_action;
    QAction* paste_action;
    QAction* paste_inplace_action;
    QAction* toolbox_action = nullptr;
    // Also enabled while the scene selection is not empty.
    QAction* add_one_action;
    QAction* add_many_action;
    QAction* update_button_action;
    QAction* change_background_action;
    QAction* resize_background_action;
    QAction* change_namespace_action;
    QAction* about_action;
    QAction* auto_switch_action;
    QMap<QString, QString> recent_files; // menu text to path; nothing fills it yet

    picker_view* current_view() const;
    picker_view* view_at(int index) const;

    // --- tabs ---
    void close_tab(int index);
    void clear_tabs();
    void reset_tabs();

    // --- streams ---
    void write_all_tabs(QDataStream& out) const;
    void write_tab(QDataStream& out, int index) const;
    void read_tabs(QDataStream& in, bool clear);
    bool save_file(picker_view* view, const QString& path);
    void open_files(const QStringList& paths);

    // --- scene storage ---
    // Workers that encode pictures ahead of the scene writes that need them.
    QThreadPool picture_encoders;
    void store_background_image(picker_view* view);
    void remove_background_image(picker_view* view);
    void request_background_image(picker_view* view);
    void set_background_for_key(const QString& id, const QPixmap& pixmap);
    // The scene stream deflated in parts, for join_deflated_parts; what it deflates is
    // kept for the next call.
    QVector<const deflated_part*> scene_data_parts();

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

    // --- menu commands ---
    void open_tab();
    void open_recent_file();
    void request_save();
    void request_saveas();
    void do_undo();
    void do_redo();
    void add_one_button();
    void add_many_buttons();
    void update_button();
    void change_background();
    void resize_background();
    void toggle_auto_tab_switching();
    void about_dialog();
    void updateFileMenu();
    void updateEditMenu();
    void updatePickerMenu();

    // --- clipboard ---
    void copy_buttons();
    void cut_buttons();
    void paste_buttons();
    void paste_inplace_buttons();

public:
    // Adds the clipboard's buttons to `view` as one undo step, centred in its visible part
    // unless in place.
    void paste(picker_view* view, bool in_place);

    // --- toolbox ---
    // The strip below the tabs; all null while the toolbox is hidden.
    QPushButton* color_button = nullptr;
    QPushButton* width_button = nullptr;
    QPushButton* height_button = nullptr;
    QLineEdit* label_edit = nullptr;
    QPushButton* label_color_button = nullptr;
    FlowLayout* toolbox_layout = nullptr;
    // Refills the strip from the fully selected buttons of the current tab.
    void refresh_toolbox();

public slots:
    void do_color_menu();
    void do_labelcolor_menu();
    void set_button_color(QRgb which);
    void set_label_color(QRgb which);
    void set_button_width(QAction* which);
    void set_button_height(QAction* which);
    void set_button_label();
    void toggle_toolbox();

private:
    void build_toolbox();
    // Builds the strip and adds it below the tabs between two spacings of 4.
    void show_toolbox();

protected:
    // The window's keys first, then the current view's; only while the pointer is over it.
    void keyPressEvent(QKeyEvent* event) override;
    void enterEvent(pointer_enter_event* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void add_view_tab(picker_view* view, const QString& title);
    bool shares_background(const picker_view* view, int skip) const;
    void write_tab_body(QDataStream& out, int index, scene_pieces* pieces) const;
    // All tabs with their pictures left out, for the compressor.
    void write_all_tabs(QDataStream& out, scene_pieces* pieces) const;
    scene_compressor scene_parts;
    void set_add_actions_enabled(bool enabled);
    void make_menus();
    QAction* menu_action(QMenu* menu, const QString& text, const QString& keys, const char* slot,
                         bool window_key = true);
};
