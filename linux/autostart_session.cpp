#include "linux/autostart_session.h"

#include "linux/environment.h"
#include "linux/installation.h"

#include <algorithm>
#include <string_view>
#include <system_error>
#include <utility>

namespace voltmere {

namespace {

namespace fs = std::filesystem;

std::string variableOr(const char* name, std::string_view substitute)
{
    std::string value = environmentVariable(name);
    return value.empty() ? std::string(substitute) : std::move(value);
}

std::vector<std::string> partsOf(std::string_view list)
{
    std::vector<std::string> parts;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(':'), list.size());
        if (end > 0) {
            parts.emplace_back(list.substr(0, end));
        }
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return parts;
}

std::vector<fs::path> absolutePathsIn(std::string_view list)
{
    std::vector<fs::path> paths;
    for (const std::string& part : partsOf(list)) {
        if (fs::path path(part); path.is_absolute()) {
            paths.push_back(std::move(path));
        }
    }
    return paths;
}

std::optional<fs::path> userConfiguration()
{
    if (fs::path chosen(environmentVariable("XDG_CONFIG_HOME")); chosen.is_absolute()) {
        return chosen;
    }
    if (const fs::path home(environmentVariable("HOME")); home.is_absolute()) {
        return home / ".config";
    }
    return std::nullopt;
}

bool isBelow(const fs::path& file, const fs::path& directory)
{
    std::error_code error;
    const fs::path resolved = fs::weakly_canonical(directory, error);
    const auto [end, unused] =
        std::mismatch(resolved.begin(), resolved.end(), file.begin(), file.end());
    return !error && end == resolved.end();
}

} // namespace

AutostartSession readAutostartSession()
{
    AutostartSession session;
    if (const auto configuration = userConfiguration()) {
        session.userDirectory = *configuration / "autostart";
    }
    session.systemDirectories = absolutePathsIn(variableOr("XDG_CONFIG_DIRS", "/etc/xdg"));
    for (fs::path& directory : session.systemDirectories) {
        directory /= "autostart";
    }
    session.desktops = partsOf(environmentVariable("XDG_CURRENT_DESKTOP"));
    session.programDirectories = absolutePathsIn(variableOr("PATH", "/usr/bin:/bin"));
    return session;
}

std::string runningProgram()
{
    return programFile(terminalProgram(), environmentVariable("APPIMAGE"),
                       environmentVariable("APPDIR"));
}

std::string programFile(const fs::path& executable, const std::string& appImage,
                        const std::string& appDirectory)
{
    const bool isOurs = appDirectory.empty() || isBelow(executable, appDirectory);
    if (fs::path(appImage).is_absolute() && isOurs) {
        return appImage;
    }
    return executable.string();
}

} // namespace voltmere
