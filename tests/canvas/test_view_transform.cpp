// The mapping between picker and widget coordinates and everything that changes it.
#include "canvas/picker_view.h"
#include "canvas/zoom_step.h"
#include "window/picker_window.h"

#include <QWheelEvent>
#include <QtTest>

class test_view_transform : public QObject {
    Q_OBJECT
    picker_window* window = nullptr;
    picker_view* view = nullptr;

    void wheel(int delta, QPoint at, Qt::MouseButtons held = Qt::NoButton) {
        turn(QPoint(0, delta), at, held);
    }
    void turn(QPoint angle, QPoint at, Qt::MouseButtons held = Qt::NoButton,
              Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QWheelEvent event(QPointF(at), QPointF(view->mapToGlobal(at)), QPoint(), angle, held,
                          modifiers, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view, &event);
    }
    void run_animation() {
        for (int tick = 0; tick < 8; ++tick) {
            QVERIFY(view->zoom_timer.isActive());
            view->animate_zoom();
        }
        QVERIFY(!view->zoom_timer.isActive());
    }
    picker_button* add(QPoint centre, int w, int h) {
        picker_button_data data;
        data.position = centre;
        data.width = w;
        data.height = h;
        data.targets = QStringList{"a"};
        return view->buttons[view->add_button_record(data, -1)];
    }

private slots:
    void init() {
        window = new picker_window(nullptr);
        view = window->current_view();
        view->resize(400, 300);
    }
    void cleanup() { delete window; }

    void rectangles_map_a_pixel_short() {
        QCOMPARE(view->to_widget(QRect(10, 10, 20, 20)), QRect(10, 10, 19, 19));
        view->zoom = 2.0;
        view->offset = QPoint(5, -3);
        QCOMPARE(view->to_widget(QRect(10, 10, 20, 20)), QRect(25, 17, 38, 38));
        QCOMPARE(view->to_picker(QPoint(25, 17)), QPoint(10, 10));
        QCOMPARE(view->to_picker(QPoint(4, -4)), QPoint(0, 0)); // truncation toward zero
        QCOMPARE(view->rect_to_picker(QRect(25, 17, 39, 39)), QRect(10, 10, 19, 19));
        QCOMPARE(view->to_widget(QRect()), QRect(5, -3, -2, -2));
    }

    void the_step_rule_has_a_dead_band() {
        QCOMPARE(zoom_step(1, 1.0f), 1.0f);
        QCOMPARE(zoom_step(0, 1.0f), 1.0f);
        QCOMPARE(zoom_step(-1, 1.0f), 1.0f);
        QCOMPARE(zoom_step(2, 1.0f), 1.0625f);
        QCOMPARE(zoom_step(-2, 1.0f), 0.9375f);
        QCOMPARE(zoom_step(2, zoom_step(-2, 1.0f)), 0.99609375f);
    }

    void the_wheel_zooms_about_the_pointer() {
        wheel(120, QPoint(100, 80));
        QCOMPARE(view->zoom, 1.0625);
        QCOMPARE(view->offset, QPoint(-6, -5));
        wheel(-120, QPoint(100, 80));
        QCOMPARE(view->zoom, double(1.0625f * 0.9375f));
        const double before = view->zoom;
        wheel(60, QPoint(100, 80));
        wheel(-119, QPoint(100, 80));
        wheel(240, QPoint(100, 80), Qt::LeftButton);
        QCOMPARE(view->zoom, before);
        view->zoom = 1.0;
        view->offset = QPoint();
        wheel(240, QPoint(0, 0));
        QCOMPARE(float(view->zoom), zoom_step(4, 1.0f));
    }

    // Alt turns the wheel into a horizontal one, as does a tilt wheel: the larger component
    // counts, the vertical one on a tie.
    void a_sideways_wheel_zooms_as_an_upright_one() {
        turn(QPoint(120, 0), QPoint(100, 80), Qt::NoButton, Qt::AltModifier);
        QCOMPARE(view->zoom, 1.0625);
        QCOMPARE(view->offset, QPoint(-6, -5));
        turn(QPoint(-120, 30), QPoint(100, 80));
        QCOMPARE(view->zoom, double(1.0625f * 0.9375f));
        const double before = view->zoom;
        turn(QPoint(-240, 240), QPoint(100, 80)); // a tie: the vertical 240
        QCOMPARE(float(view->zoom), zoom_step(4, float(before)));
    }

    void zoom_stays_within_its_clamps() {
        view->zoom = 16.0;
        view->offset = QPoint(7, 7);
        wheel(120, QPoint(50, 50));
        QCOMPARE(view->zoom, 16.0);
        QCOMPARE(view->offset, QPoint(7, 7));
        view->zoom_at(0.01f, QPoint(0, 0));
        QCOMPARE(view->zoom, 0.25);
    }

    void framing_animates_in_eight_ticks_to_an_exact_end() {
        view->frame_rect(QRect(0, 0, 100, 100), false);
        QCOMPARE(view->anim_to_zoom, 2.25f);
        run_animation();
        QCOMPARE(view->zoom, 2.25);
        const QPoint centre = view->to_widget(QRect(0, 0, 100, 100)).center();
        QVERIFY(qAbs(centre.x() - 200) <= 1 && qAbs(centre.y() - 150) <= 1);

        // A paste never zooms in, but may still move.
        view->zoom = 1.0;
        view->frame_rect(QRect(500, 500, 10, 10), true);
        QCOMPARE(view->anim_to_zoom, 1.0f);
        run_animation();

        view->reset_view();
        run_animation();
        QCOMPARE(view->zoom, 1.0);
        QCOMPARE(view->offset, QPoint(0, 0));
        view->reset_view(); // at home: no animation
        QVERIFY(!view->zoom_timer.isActive());
    }

    void frame_view_frames_the_selection_or_everything() {
        view->frame_view(); // nothing to frame
        QVERIFY(!view->zoom_timer.isActive());
        add(QPoint(0, 0), 20, 20);
        picker_button* far = add(QPoint(300, 300), 20, 20);
        QCOMPARE(view->content_bounds(false), QRect(-9, -9, 320, 320));
        view->mark_selected(far, true);
        QCOMPARE(view->content_bounds(true), far->rect);
        view->frame_view();
        QCOMPARE(view->anim_to_zoom, 11.25f);
    }

    void hits_go_to_the_first_button_in_list_order() {
        picker_button* lower = add(QPoint(50, 50), 20, 20);
        add(QPoint(55, 50), 20, 20);
        QCOMPARE(view->button_at(QPoint(55, 50)), lower); // drawn below, found first
        QCOMPARE(view->button_index_at(QPoint(200, 200)), 0);
        QVERIFY(!view->button_at(QPoint(200, 200)));
        // The mapped rectangle's edges count, and it is a pixel short.
        QCOMPARE(view->to_widget(lower->rect), QRect(41, 41, 19, 19));
        QCOMPARE(view->button_at(QPoint(41, 41)), lower);
        QCOMPARE(view->button_at(QPoint(59, 59)), lower);
        view->zoom = 2.0;
        QCOMPARE(view->button_at(QPoint(100, 100)), lower);
    }

    void resizing_keeps_the_transform() {
        view->zoom = 3.0;
        view->offset = QPoint(11, 12);
        view->resize(640, 480);
        QResizeEvent event(QSize(640, 480), QSize(400, 300));
        QCoreApplication::sendEvent(view, &event);
        QCOMPARE(view->zoom, 3.0);
        QCOMPARE(view->offset, QPoint(11, 12));
    }
};

QTEST_MAIN(test_view_transform)
#include "test_view_transform.moc"
