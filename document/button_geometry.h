#pragma once
// Building a button's derived part: its rectangle and its rendered label.
#include "document/picker_button.h"

#include <QFont>
#include <QPoint>

// Geometry far outside any screen is held at the edge of one range: positions within
// plus or minus 2^24 picker units, sizes of at most 2^24. That is well past the largest
// canvas at any zoom, and keeps every rectangle, zoom, frame and paste computed from it
// inside int. Values within the range stay as they are; only damaged or hostile data and
// scripts reach beyond it.
constexpr int picker_geometry_limit = 1 << 24;
int held_coordinate(double v);
QPoint held_position(const QPoint& p);
// A size keeps its sign: some setters allow sizes below 1.
int held_size(int v);

// "Tahoma", 11 pixels, not antialiased, fully hinted: the one font of button labels.
const QFont& label_font();

// A new record from stored data: sizes raised to 1, `size` follows `width`, the derived
// part rebuilt, nothing selected.
picker_button* make_button_record(const picker_button_data& data);

// `rect` and `label_pixmap` from label, width, height, label_color and position.
void update_button_geometry(picker_button& button);

// For an empty label: a width by height rectangle centred on the position.
void reset_button_rect(picker_button& button);
