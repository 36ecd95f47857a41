#pragma once
// The button record: the stored part travels (files, scene, clipboard, undo); the derived
// part is rebuilt whenever a button enters a view.
#include <QPixmap>
#include <QPoint>
#include <QRect>
#include <QRgb>
#include <QString>
#include <QStringList>
#include <QVector>

struct picker_button_data {
    QPoint position;  // centre, in picker coordinates
    int size = 10;    // the single size of the oldest files; kept equal to width
    int width = 10;   // requested width, at least 1
    int height = 10;  // requested height, at least 1
    int kind = 0;     // 0 selection button, 1 command button
    int language = 0; // 0 MEL, 1 Python; command buttons only
    QRgb color = 0xb22222;
    QRgb label_color = 0;
    QString label;
    QStringList targets; // scene objects, or the one command text

    bool operator==(const picker_button_data& o) const {
        return position == o.position && size == o.size && width == o.width && height == o.height &&
               kind == o.kind && language == o.language && color == o.color &&
               label_color == o.label_color && label == o.label && targets == o.targets;
    }
    bool operator!=(const picker_button_data& o) const { return !(*this == o); }
};

struct picker_button : picker_button_data {
    QRect rect;           // the real rectangle, in picker coordinates
    QPixmap label_pixmap; // the label rendered once; null for an empty label
    quint16 selected = 0; // 0 none, 1 all, 2 some of the targets selected
    QVector<bool> target_selected;

    const picker_button_data& data() const { return *this; }
};
