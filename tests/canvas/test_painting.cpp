// What a view paints, read back from pixels; and the banner's layout.
#include "canvas/banner_overlay.h"
#include "canvas/marquee_overlay.h"
#include "canvas/picker_view.h"
#include "shown_window.h"
#include "window/picker_window.h"

#include <QtTest>

class test_painting : public QObject, shown_window {
    Q_OBJECT

    picker_button* add(QPoint centre, QStringList targets, QString label = {}, int kind = 0) {
        picker_button_data data;
        data.position = centre;
        data.width = 40;
        data.height = 30;
        data.color = 0x2060c0;
        data.label_color = 0xffffff;
        data.kind = kind;
        data.label = label;
        data.targets = targets;
        return view->buttons[view->add_button_record(data, -1)];
    }
    QImage shot() { return view->grab().toImage(); }
    static QColor at(const QImage& image, QPoint p) { return image.pixelColor(p); }

private slots:
    void init() { open_window(QSize(420, 360)); }
    void cleanup() { close_window(); }

    void an_empty_view_shows_the_backdrop_and_the_banner() {
        const QImage image = shot();
        QCOMPARE(at(image, QPoint(5, 5)), QColor(51, 51, 51));
        // The banner's grey strip along the bottom edge, right of the logo.
        QCOMPARE(at(image, QPoint(view->width() - 3, view->height() - 3)), QColor(146, 146, 146));
    }

    void selection_buttons_take_their_fill_from_their_state() {
        picker_button* b = add(QPoint(60, 60), {"a"});
        QCOMPARE(at(shot(), QPoint(60, 60)), QColor(0x20, 0x60, 0xc0));
        b->selected = 1;
        QCOMPARE(at(shot(), QPoint(60, 60)), QColor(224, 224, 224));
        b->selected = 2;
        QCOMPARE(at(shot(), QPoint(60, 60)), QColor(128, 128, 128));
    }

    void shapes_follow_targets_and_label() {
        add(QPoint(60, 60), {"a"});             // box
        add(QPoint(160, 60), {"a", "b"});       // ellipse
        add(QPoint(260, 60), {"a", "b"}, "Lb"); // rounded box
        const QImage image = shot();
        const QColor fill(0x20, 0x60, 0xc0);
        QCOMPARE(at(image, QPoint(41, 46)), fill);                // a box fills its corner
        QCOMPARE(at(image, QPoint(141, 46)), QColor(51, 51, 51)); // an ellipse does not
        QCOMPARE(at(image, QPoint(160, 60)), fill);
        QCOMPARE(at(image, QPoint(241, 46)), QColor(51, 51, 51));
        QCOMPARE(at(image, QPoint(245, 60)), fill);
    }

    void a_light_label_on_a_selected_button_is_punched_through() {
        picker_button* light = add(QPoint(60, 60), {"a"}, "MMMM");
        picker_button* dark = add(QPoint(160, 60), {"b"}, "MMMM");
        dark->label_color = 0x7f7f7f;
        view->update_button_geometry(dark);
        light->selected = dark->selected = 1;
        const QImage image = shot();
        auto colours_in = [&](const picker_button* b) {
            QSet<QRgb> seen;
            const QRect r = view->to_widget(b->rect).adjusted(2, 2, -2, -2);
            for (int y = r.top(); y <= r.bottom(); ++y)
                for (int x = r.left(); x <= r.right(); ++x)
                    seen.insert(image.pixel(x, y) & 0xffffff);
            return seen;
        };
        QVERIFY(colours_in(dark).contains(0x7f7f7f));
        QVERIFY(!colours_in(light).contains(0xffffff)); // no white label on white
        QVERIFY(colours_in(light).size() > 1);
    }

    void a_command_button_leaves_its_pen_to_the_shapes_after_it() {
        picker_button* oval = add(QPoint(160, 60), {"a", "b"});
        oval->color = 0xe0e0e0;
        const QRect edge = view->to_widget(oval->rect);
        const QPoint probe(edge.left(), edge.center().y());
        const int alone = at(shot(), probe).lightness();
        // The same oval drawn after a command button gets that button's black outline.
        picker_button_data command = oval->data();
        command.kind = 1;
        command.position = QPoint(60, 60);
        view->add_button_record(command, 0);
        QVERIFY(at(shot(), probe).lightness() < alone);
    }

    void command_buttons_are_lit_at_the_top() {
        add(QPoint(60, 60), {"print 1;"}, {}, 1);
        const QImage image = shot();
        const QColor top = at(image, QPoint(60, 47));
        const QColor middle = at(image, QPoint(60, 60));
        const QColor bottom = at(image, QPoint(60, 73));
        QCOMPARE(middle, QColor(0x20, 0x60, 0xc0));
        QVERIFY(top.lightness() > middle.lightness());
        QVERIFY(bottom.lightness() < middle.lightness());
    }

    void later_buttons_lie_on_top_and_zoom_scales_all() {
        add(QPoint(60, 60), {"a"});
        picker_button* top = add(QPoint(70, 60), {"b"});
        top->color = 0xc02020;
        QCOMPARE(at(shot(), QPoint(65, 60)), QColor(0xc0, 0x20, 0x20));
        view->zoom = 2.0;
        QCOMPARE(at(shot(), QPoint(170, 120)), QColor(0xc0, 0x20, 0x20));
    }

    void the_marquee_is_a_veil_with_a_border() {
        auto* marquee = static_cast<marquee_overlay*>(view->overlays[0]);
        marquee->start = QPoint(100, 100);
        marquee->end = QPoint(20, 30); // dragged left and up
        QCOMPARE(marquee->marquee_rect(), QRect(20, 30, 80, 70));
        const QImage image = shot();
        const QColor veil = at(image, QPoint(60, 60));
        QVERIFY(veil.red() > 51 && veil.red() < 120);
        QVERIFY(at(image, QPoint(20, 60)).red() > veil.red() + 40); // the border
        marquee->end = QPoint(180, 100);                            // no height: nothing
        QCOMPARE(at(shot(), QPoint(140, 100)), QColor(51, 51, 51));
    }

    void the_banner_spreads_its_links_and_takes_presses_on_them() {
        auto* banner = static_cast<banner_overlay*>(view->overlays[1]);
        banner->layout(1200, 400);
        const int logo = banner_logo().width();
        int total = logo;
        for (const banner_link& link : banner->links)
            total += link.hot_rect.width();
        const int gap = int((1200.0f - float(total)) / 5.25f);
        QCOMPARE(banner->links[0].hot_rect.left(), logo + gap);
        QCOMPARE(banner->links[0].hot_rect.top(), 400 - 22);
        QCOMPARE(banner->link_at(banner->links[2].hot_rect.center()), 2);
        QCOMPARE(banner->link_at(QPoint(logo / 2, 395)), -1); // the logo is no link
        QCOMPARE(banner->link_at(QPoint(logo + gap / 2, 395)), -1);
        QCOMPARE(banner->link_at(QPoint(banner->links[2].hot_rect.center().x(), 360)), -1);

        banner->layout(100, 400); // too narrow: a gap of 10, links run off the edge
        QCOMPARE(banner->links[0].hot_rect.left(), logo + 10);
        QVERIFY(banner->links[3].hot_rect.left() > 100);
    }
};

QTEST_MAIN(test_painting)
#include "test_painting.moc"
