// The front door of the canvas: what each press starts, how a gesture is fed and ended,
// what the hover shows and which cursor stands.
#include "canvas/banner_overlay.h"
#include "canvas/picker_view.h"
#include "canvas/select_button_cmd.h"
#include "canvas/track_commands.h"
#include "editing/add_manybuttons_cmd.h"
#include "window/picker_window.h"

#include <QBitmap>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>

namespace {

// A 32 by 32 cursor from rows of bits, least significant bit leftmost.
QCursor* bitmap_cursor(const quint32 (&bits)[16], const quint32 (&mask)[16], int hot_x, int hot_y) {
    uchar bitmap_bytes[32 * 4] = {};
    uchar mask_bytes[32 * 4] = {};
    for (int row = 0; row < 16; ++row) {
        for (int b = 0; b < 4; ++b) {
            bitmap_bytes[row * 4 + b] = uchar(bits[row] >> (8 * b));
            mask_bytes[row * 4 + b] = uchar(mask[row] >> (8 * b));
        }
    }
    return new QCursor(QBitmap::fromData(QSize(32, 32), bitmap_bytes, QImage::Format_MonoLSB),
                       QBitmap::fromData(QSize(32, 32), mask_bytes, QImage::Format_MonoLSB), hot_x,
                       hot_y);
}

} // namespace

void picker_view::make_cursors() {
    static const quint32 edit_bits[16] = {0,   2,   6,    10, 18, 34, 66, 130,
                                          258, 514, 2018, 18, 10, 6,  2,  0};
    static const quint32 edit_mask[16] = {7,    15,   31,   63,   127, 255, 511, 1023,
                                          2047, 4095, 4095, 4095, 63,  31,  15,  7};
    static const quint32 add_bits[16] = {0,   1026, 1030, 7950, 1054, 1086, 126, 254,
                                         510, 1022, 2046, 30,   14,   6,    2,   0};
    static const quint32 add_mask[16] = {3587, 3591, 16271, 16287, 16319, 3711, 3839, 511,
                                         1023, 2047, 4095,  4095,  31,    15,   7,    3};
    edit_cursor = bitmap_cursor(edit_bits, edit_mask, 1, 1);
    add_cursor = bitmap_cursor(add_bits, add_mask, 7, 1);
}

void picker_view::update_cursor(bool force) {
    const Qt::KeyboardModifiers keys = QGuiApplication::keyboardModifiers();
    const int state = (keys & Qt::ControlModifier ? 1 : 0) | (keys & Qt::ShiftModifier ? 2 : 0);
    if (state == cursor_state && !force)
        return;
    cursor_state = state;
    // The picker edits for as long as Ctrl is held, and says so.
    if (state & 1)
        setCursor(*edit_cursor);
    else if (dynamic_cast<add_manybuttons_cmd*>(gesture))
        setCursor(*add_cursor);
    else
        setCursor(QCursor(Qt::ArrowCursor));
}

void picker_view::start_gesture(picker_mouse_cmd* next) {
    gesture = next;
}

void picker_view::mousePressEvent(QMouseEvent* event) {
    press_pos = event->pos();
    pressed_button = nullptr;
    update_cursor(false);
    if (auto* adding = dynamic_cast<add_manybuttons_cmd*>(gesture)) {
        adding->armed = true;
        adding->move_to(event->pos(), event->modifiers());
        event->accept();
        return;
    }
    if (gesture) {
        // A lost release: the old gesture ends here, without a last move.
        picker_mouse_cmd* old = gesture;
        gesture = nullptr;
        old->finish();
        delete old;
    }
    const Qt::KeyboardModifiers modifiers = event->modifiers();
    const Qt::MouseButtons held = event->buttons();
    if (modifiers & Qt::AltModifier) {
        if (held == Qt::RightButton || held == (Qt::LeftButton | Qt::MiddleButton))
            start_gesture(new zoom_picker_cmd(this, event->pos()));
        else if (held == Qt::MiddleButton)
            start_gesture(new shift_picker_cmd(this, event->pos()));
        return;
    }
    window->setFocus(Qt::ActiveWindowFocusReason);
    if (held == Qt::LeftButton) {
        left_press(event);
    } else if (held == Qt::RightButton) {
        context_press(event);
    } else if (held == Qt::MiddleButton) {
        start_gesture(new shift_picker_cmd(this, event->pos()));
    } else {
        event->ignore();
    }
}

void picker_view::left_press(QMouseEvent* event) {
    event->accept();
    if (static_cast<banner_overlay*>(overlays[1])->press(event->pos()))
        return;
    pressed_button = button_at(event->pos());
    if (pressed_button && event->modifiers() != Qt::ControlModifier && pressed_button->kind != 0)
        start_gesture(new track_button_cmd(this, pressed_button, event->pos()));
    else
        start_gesture(new select_button_cmd(this, event->pos(), event->modifiers()));
}

void picker_view::mouseMoveEvent(QMouseEvent* event) {
    if (gesture) {
        gesture->move_to(event->pos(), event->modifiers());
        event->accept();
        return;
    }
    event->ignore();
    hover(event->pos());
}

// A selection button tells its targets; command buttons and the canvas tell nothing.
void picker_view::hover(const QPoint& pos) {
    if (pos == hover_pos)
        return;
    hover_pos = pos;
    const picker_button* button = button_at(hover_pos);
    if (!button || button->kind != 0) {
        if (tooltip_text.isEmpty())
            return;
        tooltip_text.clear();
        setToolTip(tooltip_text);
        return;
    }
    const QStringList& targets = button->targets;
    if (targets.size() >= 5)
        tooltip_text = targets.mid(0, 3).join(QLatin1Char('\n')) + QLatin1Char('\n') +
                       QStringLiteral("...and %1 more").arg(targets.size() - 3);
    else
        tooltip_text = targets.join(QLatin1Char('\n'));
    if (toolTip() != tooltip_text)
        setToolTip(tooltip_text);
}

void picker_view::mouseReleaseEvent(QMouseEvent* event) {
    if (!gesture) {
        event->ignore();
        return;
    }
    picker_mouse_cmd* ending = gesture;
    gesture = nullptr;
    ending->move_to(event->pos(), event->modifiers());
    ending->finish();
    delete ending;
    event->accept();
}

void picker_view::keyPressEvent(QKeyEvent* event) {
    update_cursor(false);
    QWidget::keyPressEvent(event);
}

void picker_view::keyReleaseEvent(QKeyEvent* event) {
    update_cursor(false);
    QWidget::keyReleaseEvent(event);
}
