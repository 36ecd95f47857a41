#pragma once
// The host's look: a dark grey Fusion palette, as Maya's own, so that the picker is seen
// against the colours it meets there.
namespace sandbox {

void apply_host_style();

} // namespace sandbox
