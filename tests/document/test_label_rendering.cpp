// Button labels are rendered once into a picture as large as their ink box, rounded up, with
// the text centred by its advance. Every glyph of a rig's labels must show whole in it.
#include "document/button_geometry.h"
#include "host_fonts.h"

#include <QFontInfo>
#include <QGlyphRun>
#include <QPainter>
#include <QTextLayout>
#include <QtTest>
#include <memory>

namespace {

// The ink of `image` alone, cropped to its bounding box: white where anything was drawn.
QImage ink(const QImage& image) {
    QRect box;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) != 0)
                box |= QRect(x, y, 1, 1);
        }
    }
    QImage out(box.size(), QImage::Format_ARGB32);
    out.fill(0);
    for (int y = 0; y < box.height(); ++y) {
        for (int x = 0; x < box.width(); ++x) {
            if (qAlpha(image.pixel(box.left() + x, box.top() + y)) != 0)
                out.setPixel(x, y, 0xffffffff);
        }
    }
    return out;
}

// Each glyph of the label drawn on its own at its place in the line, as a glyph looks whole.
QImage glyph_by_glyph(const QString& label) {
    QTextLayout layout(label, label_font());
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    QImage image(QSize(200, 40), QImage::Format_ARGB32);
    image.fill(0);
    QPainter painter(&image);
    painter.setPen(Qt::white);
    for (const QGlyphRun& run : layout.glyphRuns()) {
        for (int i = 0; i < run.glyphIndexes().size(); ++i) {
            QGlyphRun one;
            one.setRawFont(run.rawFont());
            one.setGlyphIndexes({run.glyphIndexes()[i]});
            one.setPositions({QPointF()});
            painter.drawGlyphRun(run.positions()[i] + QPointF(20, 10), one);
        }
    }
    return image;
}

} // namespace

class test_label_rendering : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        sandbox::register_host_fonts(); // Tahoma, where the machine has it
        if (QFile::exists("/usr/share/wine/fonts/tahoma.ttf"))
            QCOMPARE(QFontInfo(label_font()).family(), QString("Tahoma"));
    }

    void rig_labels_show_every_column_of_their_glyphs_data() {
        QTest::addColumn<QString>("label");
        const QString labels =
            "L Arm|R Arm|L Hip|R Hip|L Leg|R Leg|L Foot|R Foot|Head|Neck|COG|Chest|Spine|Hips|"
            "Root|World|Jaw|Eyes|L Index 1|L Index 2|R Thumb 3|R Pinky 1|L Knee IK|R Elbow FK|"
            "IK|FK|IK/FK|0|1|2|3|4|5|6|7|8|9|10|123|l arm|r_hip|jaw|eye_L|fx|tail 04|W|M|T|j|y|"
            "ff|(L)|[R]|All|None|Mouth Corner L|Brow In R";
        for (const QString& label : labels.split('|'))
            QTest::newRow(qPrintable(label)) << label;
    }
    void rig_labels_show_every_column_of_their_glyphs() {
        QFETCH(QString, label);
        picker_button_data data;
        data.label = label;
        data.label_color = 0xffffff;
        const std::unique_ptr<picker_button> button(make_button_record(data));
        const QImage picture = button->label_pixmap.toImage();
        const QImage shown = ink(picture);
        const QImage whole = ink(glyph_by_glyph(label));
        // Nothing of the line is cut off at either side, and no stem is lost inside it.
        QCOMPARE(shown.width(), whole.width());
        QCOMPARE(shown, whole);
        QVERIFY(shown.width() <= picture.width());
    }
};

QTEST_MAIN(test_label_rendering)
#include "test_label_rendering.moc"
