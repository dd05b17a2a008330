#pragma once

namespace voltmere {

/// Whether a compositor listens where $WAYLAND_DISPLAY says, or at "wayland-0" where it is not set.
/// Source: wl_display_connect(3).
bool canReachWaylandDisplay();

} // namespace voltmere
