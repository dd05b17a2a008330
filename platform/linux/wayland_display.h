#pragma once

namespace voltmere {

/// Whether a compositor listens where $WAYLAND_DISPLAY says. Source: wl_display_connect(3).
bool canReachWaylandDisplay();

} // namespace voltmere
