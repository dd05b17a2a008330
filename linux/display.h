#pragma once

#include <cstdlib>
#include <memory>

class QApplication;

namespace voltmere {

/// Makes the application of Qt that windows need. Where Qt finds no display, or no plugin for it,
/// the process ends with one line on standard error and `exitStatus::cannotRun`: by itself Qt would
/// abort. `argc` must outlive the application.
std::unique_ptr<QApplication> startQt(int& argc, char** argv);

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
