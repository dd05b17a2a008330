#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace voltmere {

/// What a desktop session's environment says about the programs that it starts.
struct AutostartSession {
    /// Where the user's entries are, if that can be told.
    std::optional<std::filesystem::path> userDirectory;

    /// Where the system's entries are, the most important directory first.
    std::vector<std::filesystem::path> systemDirectories;

    /// The names of the current desktop, the most specific one first.
    std::vector<std::string> desktops;

    /// Where programs without a path are looked for.
    std::vector<std::filesystem::path> programDirectories;
};

/// Reads $XDG_CONFIG_HOME, $HOME, $XDG_CONFIG_DIRS, $XDG_CURRENT_DESKTOP and $PATH. What is not an
/// absolute path is ignored.
///
/// Sources: Desktop Application Autostart Specification 0.5, "Autostart Directories"; XDG Base
/// Directory Specification 0.8.
AutostartSession readAutostartSession();

/// The file that starts this program: the running executable, or the AppImage that holds it, which
/// is mounted at another place each time. Empty when it cannot be told.
///
/// Source: AppImage documentation, "Environment variables".
std::string runningProgram();

/// The same from the values of $APPIMAGE and $APPDIR. These are handed down to every program that
/// is started from inside an AppImage, so an image that does not hold `executable` is somebody
/// else's.
std::string programFile(const std::filesystem::path& executable, const std::string& appImage,
                        const std::string& appDirectory);

} // namespace voltmere
