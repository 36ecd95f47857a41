#pragma once
// One tab: a canvas of buttons over an optional background picture.
#include "document/picker_button.h"
#include "document/picture_bytes.h"

#include <QDataStream>
#include <QList>
#include <QPixmap>
#include <QPoint>
#include <QPointer>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QUndoStack>
#include <QVector>
#include <QWidget>
#include <vector>

class picker_window;
class picker_overlay;
class picker_mouse_cmd;
class QAction;
class QMenu;
class QCursor;

class picker_view : public QWidget {
    Q_OBJECT
public:
    explicit picker_view(picker_window* window);
    ~picker_view() override;

    // --- document ---
    QPixmap background;
    QString background_id; // decimal cache key of the picture, or empty
    // The picture's stream form, made once while `background` stays the same picture.
    mutable picture_bytes background_bytes;
    QPointer<picker_window> window; // null once the tab was closed
    QString file_path;              // the .pkr this tab came from or went to last
    QList<picker_button*> buttons;  // owned; the order is the z-order
    picker_button* pressed_button = nullptr;
    QUndoStack undo_stack;

    // --- view transform: picker point (0, 0) lies at widget pixel `offset` ---
    QPoint offset;
    double zoom = 1.0;
    QTimer zoom_timer;
    float anim_t = 0;
    float anim_from_zoom = 1;
    QPoint anim_from_offset;
    float anim_to_zoom = 1;
    QPoint anim_to_offset;

    QRect to_widget(const QRect& picker_rect) const;
    QRect rect_to_picker(const QRect& widget_rect) const;
    QPoint to_picker(const QPoint& widget_point) const;
    void set_offset(const QPoint& new_offset);
    void zoom_at(float new_zoom, const QPoint& anchor);
    void frame_rect(const QRect& picker_rect, bool keep_zoom);
    QRect content_bounds(bool selected_only) const;

    // Painted above all buttons, in widget pixels: the marquee, then the banner.
    std::vector<picker_overlay*> overlays;

    // --- the mouse: one gesture at most, from a press to its release ---
    picker_mouse_cmd* gesture = nullptr;
    QPoint press_pos;
    QPoint hover_pos;
    QString tooltip_text;
    QCursor* edit_cursor;
    QCursor* add_cursor;
    int cursor_state = 0;
    void update_cursor(bool force);
    // Keys the window's own actions left: every enabled action of this view with the key
    // fires. Only the current view answers.
    bool handle_shortcut(QKeyEvent* event);
    void propagate_selection();
    bool select_in_rect(const QRect& widget_rect, bool additive);
    void run_button_script(const picker_button* button);

    // --- records ---
    int add_button_record(const picker_button_data& data, int index);
    void remove_button_record(int index);
    void set_button_width(picker_button* button, int w);
    void set_button_height(picker_button* button, int h);
    void set_button_size(picker_button* button, int w, int h);
    void set_button_label(picker_button* button, const QString& text);
    void set_button_position(picker_button* button, const QPoint& point);
    void update_button_geometry(picker_button* button);
    void set_background_image(const QString& id, const QPixmap& pixmap);

    // Take out and put back buttons by index, for the undo commands; each ends with a
    // repaint, changed() and the toolbox.
    void remove_buttons(QVector<int> indices);
    void restore_buttons(const QVector<int>& indices, const QList<picker_button_data>& saved);

    // --- selection state ---
    bool mark_selected(picker_button* button, bool flags_only);
    bool mark_deselected(picker_button* button, bool flags_only);
    bool deselect_all();
    void select_indices(const QVector<int>& indices, bool flags_only);
    bool any_selected() const;
    QList<picker_button_data> selected_data() const;
    QList<picker_button_data> selected_indices_and_data(QVector<int>& indices) const;
    bool match_selection(const QStringList& names);
    bool match_selection(const QSet<QString>& names);
    bool refresh_highlights();

    // --- lookups ---
    // The first button in list order whose widget rectangle holds the point, edges included.
    picker_button* button_at(const QPoint& point) const;
    int button_index_at(const QPoint& point) const; // 0 also when nothing is hit
    picker_button* button_by_label(const QString& text) const;
    int button_index_by_label(const QString& text) const;
    picker_button* button_by_target(const QString& name) const;

    // --- namespaces ---
    void collect_namespaces(QStringList& list) const;
    void rebind_namespaces(QStringList scene_list, bool always);
    void update_namespace(const QString& to);

    // --- streams ---
    void write_buttons(QDataStream& out) const;
    void read_buttons(QDataStream& in, int version);

    void refresh_toolbox();
    // False once the tab was closed. A handler that waited in one of the picker's event
    // loops tests it when the loop returns, and drops what it was doing.
    bool in_window() const { return !window.isNull(); }

    // --- painting ---
    void paint_command_button(QPainter* painter, const picker_button* button);
    void paint_selection_button(QPainter* painter, const picker_button* button);
    void paint_label(QPainter* painter, const picker_button* button, const QPointF& centre);

    // The right button's menu; its actions carry the view's keys too.
    QMenu* context_menu;
    QAction* add_one_action;
    QAction* add_many_action;
    QAction* update_action;
    QAction* delete_action;
    QAction* add_command_action;
    QAction* reset_action;
    QAction* frame_action;
    QAction* align_h_action;
    QAction* align_v_action;
    QAction* distribute_h_action;
    QAction* distribute_v_action;
    QAction* increase_action;
    QAction* decrease_action;
    QAction* nudge_left_action;
    QAction* nudge_right_action;
    QAction* nudge_up_action;
    QAction* nudge_down_action;

signals:
    void changed();

public slots:
    void align_horizontal();
    void align_vertical();
    void distribute_horizontal();
    void distribute_vertical();
    void adjust_size_up();
    void adjust_size_down();
    void nudge_left();
    void nudge_right();
    void nudge_up();
    void nudge_down();
    void add_one_button();
    void add_many_buttons();
    void update_button();
    void delete_button();
    void add_command_button();
    void change_background();
    void resize_background();
    void reset_view();
    void frame_view();
    void animate_zoom();

protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void clear_buttons();
    void make_cursors();
    void make_actions();
    void context_press(QMouseEvent* event);
    void adjust_size(int delta);
    void nudge(const QPoint& delta);
    void left_press(QMouseEvent* event);
    void start_gesture(picker_mouse_cmd* next);
    void hover(const QPoint& pos);
};
