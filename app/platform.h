#pragma once

#include "ports/desktop.h"
#include "ports/log.h"
#include "ports/login_item.h"
#include "ports/notifications.h"
#include "ports/peripherals.h"
#include "ports/settings.h"
#include "ports/time.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

// What a system provides. Each of these functions has one body for each system, in
// linux/platform.cpp and macos/platform.mm; CMake chooses the file.

namespace voltmere {

struct CommandLine;

/// The run loop of the main thread. The functions below need one.
class MainLoop : public RunLoop {
public:
    /// Runs until `stop`. Returns the exit status that `stop` was given.
    virtual int run() = 0;
    virtual void stop(int status) = 0;

    /// Whether background work is under way. It cannot be interrupted, so a process that ends
    /// meanwhile must end without destroying what the work uses.
    virtual bool isBusy() const = 0;
};

std::unique_ptr<MainLoop> makeMainLoop();

/// Shows the icon and the panel, or draws the pictures, as the command line asks. `words` are those
/// of the command line, which end with a null pointer. Returns the exit status.
int runFrontEnd(const CommandLine& commandLine, char** words);

/// The system's log.
std::unique_ptr<SystemLog> makeSystemLog();

/// The languages that the user prefers.
std::unique_ptr<PreferredLanguages> makePreferredLanguages();

/// The user's settings. `log` must outlive them, and is told what is wrong with their file.
std::unique_ptr<DefaultsStore> openUserSettings(SettingsUse use, SystemLog& log);

/// Launch at login for the installed program.
std::unique_ptr<LoginItemService> makeLoginItemService();

/// The desktop's notifications under the program's own name, with the user's delayed notifications,
/// which it takes up at once. What it is given must outlive it.
std::unique_ptr<NotificationCentre> makeNotificationCentre(RunLoop& runLoop, const Clock& clock,
                                                           SystemLog& log);

/// What the system itself tells of the peripherals where its tools are missing.
struct SystemSources {
    std::string label; ///< empty on a system that has nothing but its tools
    std::unique_ptr<BatterySource> batteries;
    std::unique_ptr<NameSource> names;
};

/// `root` stands where the kernel's file system of devices normally does.
SystemSources makeSystemSources(const std::filesystem::path& root);

/// The directory of the tools that simulate peripherals.
std::string demoToolsDirectory();

/// A subject of a diagnosis, and what was found.
struct Finding {
    std::string subject;
    std::string text;
};

/// The versions of the system and its libraries, the settings file, and the services of the
/// desktop. `verbose` tells whether paths, which may hold the user's name, are shown in full.
std::vector<Finding> describeSystem(bool verbose);

/// Calls `action` on the main thread when nobody reads the standard output any more. The watching
/// ends with the returned object.
std::shared_ptr<void> watchForClosedOutput(std::function<void()> action);

} // namespace voltmere
