// The colour popup and the flow layout on their own: the swatch tables, where a popup opens,
// how a press and release pick, and how the layout wraps and stretches its eighth item.
#include "window/FlowLayout.h"
#include "window/picker_colorMenu.h"

#include <QPointer>
#include <QSignalSpy>
#include <QSpacerItem>
#include <QWindow>
#include <QtTest>

class test_widgets : public QObject {
    Q_OBJECT

    // The centre of a swatch, in popup pixels.
    static QPoint centre(const picker_colorMenu* menu, int index) {
        const int step = menu->cell_size + menu->gap;
        const int half = menu->cell_size / 2;
        return QPoint(menu->gap + (index % menu->columns) * step + half,
                      menu->gap + (index / menu->columns) * step + half);
    }
    static picker_colorMenu* shown_menu() {
        auto* menu = new picker_colorMenu(color_swatches(), 12, 17);
        menu->setAttribute(Qt::WA_DeleteOnClose);
        menu->move(100, 100);
        menu->show();
        return menu;
    }
    static QPoint framed_pos(const QWidget* window) {
        const QMargins frame = window->windowHandle()->frameMargins();
        return window->pos() - QPoint(frame.left(), frame.top());
    }
    static void settle() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

private slots:
    void initTestCase() { qRegisterMetaType<QRgb>("QRgb"); }

    void tables_and_sizes() {
        const QVector<QRgb> colors = color_swatches();
        QCOMPARE(colors.size(), 72);
        for (QRgb c : colors)
            QCOMPARE(qAlpha(c), 255);
        QCOMPARE(colors[24], QRgb(0xffff0000)); // full red starts the third row
        QCOMPARE(colors[28], QRgb(0xff00ff00)); // a third of the way round
        QCOMPARE(colors[32], QRgb(0xff0000ff));
        QCOMPARE(colors[60], QRgb(0xff000000)); // greys, black to white
        QCOMPARE(colors[71], QRgb(0xffffffff));
        QVERIFY(qGray(colors[65]) > qGray(colors[64]));

        picker_colorMenu fills(colors, 12, 17);
        QCOMPARE(fills.size(), QSize(230, 116));
        QCOMPARE(fills.rows, 6);
        picker_colorMenu labels(label_color_swatches(), 1, 17);
        QCOMPARE(labels.size(), QSize(21, 40));
        QCOMPARE(labels.colors, QVector<QRgb>({0xff000000, 0xffffffff}));
    }

    void nearest_ignores_alpha_and_keeps_ties_low() {
        picker_colorMenu menu({0xff102030, 0xffffffff, 0xff102030}, 3, 17);
        QCOMPARE(menu.nearest_index(QColor(0x10, 0x20, 0x30, 0)), 0);
        QCOMPARE(menu.nearest_index(QColor(250, 250, 250)), 1);
        picker_colorMenu labels(label_color_swatches(), 1, 17);
        QCOMPARE(labels.nearest_index(QColor(127, 127, 127)), 0);
        QCOMPARE(labels.nearest_index(QColor(128, 128, 128)), 1);
    }

    void opens_with_the_nearest_swatch_under_the_point() {
        const QPoint point(400, 300);
        QPointer<picker_colorMenu> menu =
            open_color_menu(point, QColor(0xb22222), this, SLOT(take(QRgb)));
        // No swatch is 0xb22222; the darker red of the fourth row is the closest.
        QCOMPARE(menu->nearest_index(QColor(0xb22222)), 36);
        QCOMPARE(menu->hover, 36);
        QVERIFY(menu->isVisible());
        QVERIFY(menu->parent() == nullptr);
        // x: 400 - (0 * 19 + 8); y: 300 - (3 * 19 + 2 + 8), the gap on y only. Some
        // platforms count a frame even around a popup: the move is where that frame goes.
        QCOMPARE(framed_pos(menu), QPoint(392, 233));
        QCOMPARE(menu->index_at(menu->mapFromGlobal(point)), 36);

        QPointer<picker_colorMenu> labels =
            open_label_color_menu(point, QColor(Qt::white), this, SLOT(take(QRgb)));
        QCOMPARE(labels->hover, 1);
        QCOMPARE(framed_pos(labels), QPoint(392, 300 - (19 + 2 + 8)));
        labels->close();
        menu->close();
        settle();
        QVERIFY(!menu && !labels); // each opening's popup goes once closed
        QVERIFY(picked.isEmpty());
    }

    void release_arms_and_the_next_press_and_release_pick() {
        picker_colorMenu* menu = shown_menu();
        QSignalSpy spy(menu, SIGNAL(colorChanged(QRgb)));
        const QPoint green = centre(menu, 28);
        QTest::mouseMove(menu, green);
        QCOMPARE(menu->hover, 28);
        QTest::mouseRelease(menu, Qt::LeftButton, {}, green); // the opening press's release
        QVERIFY(menu->isVisible());
        QTest::mousePress(menu, Qt::LeftButton, {}, green); // arms
        QVERIFY(menu->isVisible());
        QCOMPARE(spy.count(), 0);
        QTest::mouseRelease(menu, Qt::LeftButton, {}, green);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy[0][0].value<QRgb>(), QRgb(0xff00ff00));
        settle();
    }

    void outermost_right_pixels_give_the_next_row() {
        picker_colorMenu* menu = shown_menu();
        QSignalSpy spy(menu, SIGNAL(colorChanged(QRgb)));
        QCOMPARE(menu->index_at(QPoint(227, 10)), 11);
        QCOMPARE(menu->index_at(QPoint(231, 10)), -1);
        QTest::mouseMove(menu, QPoint(229, 10));
        QCOMPARE(menu->hover, 12);
        QTest::mousePress(menu, Qt::LeftButton, {}, QPoint(229, 10));
        QTest::mousePress(menu, Qt::LeftButton, {}, QPoint(229, 10)); // a second press picks
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy[0][0].value<QRgb>(), color_swatches()[12]);
        settle();
    }

    void hover_past_the_end_closes_without_a_signal() {
        QPointer<picker_colorMenu> menu = shown_menu();
        QSignalSpy spy(menu, SIGNAL(colorChanged(QRgb)));
        QTest::mouseMove(menu, QPoint(10, 115)); // below the last row
        QCOMPARE(menu->hover, 72);
        QTest::mousePress(menu, Qt::LeftButton, {}, QPoint(10, 115));
        QTest::mouseRelease(menu, Qt::LeftButton, {}, QPoint(10, 115));
        QCOMPARE(spy.count(), 0);
        settle();
        QVERIFY(!menu);
    }

    // Items of 30 by 10 in a 100 pixel wide layout, margins and spacings of 1: three fit a
    // line; the eighth takes the rest of its line less 5 and the spacing.
    void flow_wraps_and_stretches_the_eighth_item() {
        FlowLayout layout(nullptr, 1, 1, 1);
        for (int i = 0; i < 9; ++i)
            layout.addItem(new QSpacerItem(30, 10, QSizePolicy::Fixed, QSizePolicy::Fixed));
        layout.setGeometry(QRect(0, 0, 100, 40));
        auto geometry = [&layout](int n) { return layout.itemAt(n - 1)->geometry(); };
        QCOMPARE(geometry(3), QRect(63, 1, 30, 10));
        QCOMPARE(geometry(4), QRect(1, 12, 30, 10));
        QCOMPARE(geometry(7), QRect(1, 23, 30, 10));
        QCOMPARE(geometry(8), QRect(32, 23, 98 - 5 - 1 - 32, 10));
        // The ninth follows the eighth's preferred width, not its stretched one.
        QCOMPARE(geometry(9), QRect(63, 23, 30, 10));
        QCOMPARE(layout.heightForWidth(100), 34);
        QCOMPARE(layout.minimumSize(), QSize(32, 12));
        QVERIFY(layout.itemAt(9) == nullptr && layout.takeAt(-1) == nullptr);

        // Too narrow for any pair: one item a line, and the eighth gets no width at all.
        layout.setGeometry(QRect(0, 0, 33, 200));
        QCOMPARE(geometry(8), QRect(1, 78, 31 - 5 - 1 - 1, 10));
        layout.setGeometry(QRect(0, 0, 8, 200));
        QVERIFY(geometry(8).width() <= 0);
    }

    void flow_with_fewer_than_eight_items_stretches_nothing() {
        FlowLayout layout(nullptr, 1, 1, 1);
        for (int i = 0; i < 7; ++i)
            layout.addItem(new QSpacerItem(30, 10, QSizePolicy::Fixed, QSizePolicy::Fixed));
        layout.setGeometry(QRect(0, 0, 400, 40));
        for (int i = 0; i < 7; ++i)
            QCOMPARE(layout.itemAt(i)->geometry().size(), QSize(30, 10));
    }

public slots:
    void take(QRgb color) { picked.append(color); }

private:
    QVector<QRgb> picked;
};

QTEST_MAIN(test_widgets)
#include "test_widgets.moc"
