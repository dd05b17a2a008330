#pragma once

#include "app/platform.h"

#include <cstdlib>
#include <memory>
#include <vector>

namespace voltmere {

/// The X selection that a tray owns. Source: System Tray Protocol Specification 0.3 (XEmbed).
inline constexpr const char* xTraySelection = "_NET_SYSTEM_TRAY_S0";

/// Whether the display of $DISPLAY has an XEmbed tray. Needs no application object.
bool hasXTray();

/// Owns a reply of the X server, which XCB allocates and its caller frees.
template<typename Reply>
std::unique_ptr<Reply, decltype(&std::free)> owned(Reply* reply)
{
    return {reply, &std::free};
}

/// The desktop's services that the program uses and whether each is there, for diagnosis. Waits for
/// their answers, a second at most for each.
std::vector<Finding> describeDesktopServices();

} // namespace voltmere
