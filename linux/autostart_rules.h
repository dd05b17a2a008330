#pragma once

#include "linux/autostart_session.h"
#include "linux/desktop_entry.h"

#include <optional>
#include <string>
#include <string_view>

namespace voltmere {

/// The key by which several desktops switch an entry off and on.
inline constexpr std::string_view autostartEnabledKey = "X-GNOME-Autostart-enabled";

/// Why a session manager would not start an entry at login, in one clause; nothing when it would.
///
/// Sources: Desktop Application Autostart Specification 0.5, "Autostart File Keys"; Desktop Entry
/// Specification 1.5, "Recognized desktop entry keys"; X-GNOME-Autostart-enabled as the settings
/// programs of several desktops write it.
std::optional<std::string> autostartObstacle(const DesktopEntry& entry,
                                             const AutostartSession& session);

} // namespace voltmere
