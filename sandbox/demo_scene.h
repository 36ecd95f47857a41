#pragma once
#include <QString>

namespace sandbox {

// Opens the built-in demo character ("hero:" with a few dozen controls) as a new,
// untitled scene, so that Save asks where to put it.
bool open_demo_scene(QString* error);

} // namespace sandbox
