#include "linux/autostart_rules.h"

#include "posix/process_runner.h"

#include <algorithm>

namespace voltmere {

namespace {

namespace fs = std::filesystem;

bool contains(const std::vector<std::string>& names, const std::string& name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// The first name of the current desktop that either key knows decides. An entry that none of them
/// concerns is for every desktop, unless it names those it is for.
bool isForDesktop(const DesktopEntry& entry, const std::vector<std::string>& desktops)
{
    const auto only = entry.list("OnlyShowIn");
    const auto never = entry.list("NotShowIn");
    for (const std::string& desktop : desktops) {
        if (contains(only, desktop)) {
            return true;
        }
        if (contains(never, desktop)) {
            return false;
        }
    }
    return !entry.value("OnlyShowIn");
}

bool canRun(const fs::path& program, const std::vector<fs::path>& directories)
{
    if (program.is_absolute()) {
        return isExecutableFile(program);
    }
    return std::any_of(directories.begin(), directories.end(), [&](const fs::path& directory) {
        return isExecutableFile(directory / program);
    });
}

bool isSwitchedOff(const DesktopEntry& entry)
{
    return entry.isTrue("Hidden") ||
        (entry.value(autostartEnabledKey) && !entry.isTrue(autostartEnabledKey));
}

} // namespace

std::optional<std::string> autostartObstacle(const DesktopEntry& entry,
                                             const AutostartSession& session)
{
    if (!entry.isSound()) {
        return "it is not a desktop entry";
    }
    if (isSwitchedOff(entry)) {
        return "it is switched off";
    }
    if (entry.value("Type") != "Application" || entry.value("Exec").value_or("").empty()) {
        return "it does not say which program to start";
    }
    if (!isForDesktop(entry, session.desktops)) {
        return "it is not for this desktop (OnlyShowIn, NotShowIn)";
    }
    const std::string program = entry.value("TryExec").value_or("");
    if (!program.empty() && !canRun(program, session.programDirectories)) {
        return "the program " + program + " is not there (TryExec)";
    }
    return std::nullopt;
}

} // namespace voltmere
