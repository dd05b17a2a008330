#pragma once

#include <cstdlib>
#include <memory>

namespace voltmere {

/// The X selection that a tray owns. Source: System Tray Protocol Specification 0.3 (XEmbed).
inline constexpr const char* xTraySelection = "_NET_SYSTEM_TRAY_S0";

/// Whether the display that $DISPLAY names has a tray of that kind. Needs no application object.
bool hasXTray();

/// Owns a reply of the X server, which XCB allocates and its caller frees.
template<typename Reply>
std::unique_ptr<Reply, decltype(&std::free)> owned(Reply* reply)
{
    return {reply, &std::free};
}

} // namespace voltmere
