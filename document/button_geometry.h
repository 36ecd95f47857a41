#pragma once
// Building a button's derived part: its rectangle and its rendered label.
#include "document/picker_button.h"

#include <QFont>

// "Tahoma", 11 pixels, not antialiased, fully hinted: the one font of button labels.
const QFont& label_font();

// A new record from stored data: sizes raised to 1, `size` follows `width`, the derived
// part rebuilt, nothing selected.
picker_button* make_button_record(const picker_button_data& data);

// `rect` and `label_pixmap` from label, width, height, label_color and position.
void update_button_geometry(picker_button& button);

// For an empty label: a width by height rectangle centred on the position.
void reset_button_rect(picker_button& button);
