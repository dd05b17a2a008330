#include "linux/ui/display_problem.h"

#include "linux/environment.h"
#include "linux/wayland_display.h"
#include "linux/x_display.h"

namespace voltmere {

namespace {

/// `platform` names one or several of Qt's platforms (qpa), of which the first that works is taken.
std::optional<std::string> problemOfChosenPlatform(const std::string& platform)
{
    const bool mayBeX = platform.find("xcb") != std::string::npos;
    const bool mayBeWayland = platform.find("wayland") != std::string::npos;
    if ((!mayBeX && !mayBeWayland) || (mayBeWayland && canReachWaylandDisplay()) ||
        (mayBeX && canOpenXDisplay())) {
        return std::nullopt;
    }
    return "no display can be reached of the kind that QT_QPA_PLATFORM ('" + platform +
        "') asks for; unset it, or check DISPLAY and WAYLAND_DISPLAY, or use --list";
}

} // namespace

std::optional<std::string> displayProblem()
{
    const std::string compositor = environmentVariable("WAYLAND_DISPLAY");
    const std::string display = environmentVariable("DISPLAY");
    if (const std::string platform = environmentVariable("QT_QPA_PLATFORM"); !platform.empty()) {
        return problemOfChosenPlatform(platform);
    }
    if (!compositor.empty() && canReachWaylandDisplay()) {
        return std::nullopt;
    }
    if (display.empty() && !compositor.empty()) {
        return "the display '" + compositor +
            "' cannot be reached; check WAYLAND_DISPLAY and XDG_RUNTIME_DIR, or use --list";
    }
    if (display.empty()) {
        return "there is no display (neither WAYLAND_DISPLAY nor DISPLAY is set); start it in a "
               "desktop session, or use --list";
    }
    if (!canOpenXDisplay()) {
        return "the display '" + display +
            "' cannot be opened; check DISPLAY and XAUTHORITY, or use --list";
    }
    return std::nullopt;
}

} // namespace voltmere
