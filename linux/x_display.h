#pragma once

namespace voltmere {

/// Whether the X display that $DISPLAY names accepts this program.
bool canOpenXDisplay();

/// The X selection that a tray owns. Source: System Tray Protocol Specification 0.3 (XEmbed).
inline constexpr const char* xTraySelection = "_NET_SYSTEM_TRAY_S0";

/// Whether that display has a tray of that kind.
bool hasXTray();

} // namespace voltmere
