#pragma once
#include <QIcon>

namespace sandbox {

// The shelf icon of the picker: a few coloured buttons on a dark tile.
QIcon picker_icon();

} // namespace sandbox
