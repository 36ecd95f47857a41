#pragma once
namespace sandbox {

// Makes Tahoma known to Qt, as it is on the machines Maya runs on, so that button labels
// measure there as here. Debian ships it with Wine's fonts, off the usual font path.
void register_host_fonts();

} // namespace sandbox
