#include "canvas/picker_view.h"

#include "document/picker_stream.h"

void picker_view::write_buttons(QDataStream& out) const {
    write_button_block(out, buttons);
}

void picker_view::read_buttons(QDataStream& in, int version) {
    // A view that had buttons loses its history with them; an empty one keeps it.
    if (!buttons.isEmpty()) {
        undo_stack.clear();
        clear_buttons();
    }
    for (const picker_button_data& data : read_button_block(in, version))
        add_button_record(data, -1);
}
