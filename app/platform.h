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

// The services, front end and run loop that a system provides. Each system has one file with the
// bodies, such as linux/platform.cpp; CMake chooses it.

namespace voltmere {

struct CommandLine;

/// The run loop of the main thread. The functions below need one.
class MainLoop : public RunLoop {
public:
    /// Runs until `stop`. Returns the exit status that was passed to `stop`.
    virtual int run() = 0;
    virtual void stop(int status) = 0;

    /// Whether background work is under way. It cannot be interrupted, so a process that ends
    /// meanwhile must end without destroying what the work uses.
    virtual bool isBusy() const = 0;
};

/// The main run loop; one at a time.
std::unique_ptr<MainLoop> makeMainLoop();

/// Shows the icon and the panel, or draws the pictures, as the command line asks. `words` is the
/// command line, which ends with a null pointer. Returns the exit status; on Linux only for a
/// failure, since voltmere-desktop replaces the process.
int runFrontEnd(const CommandLine& commandLine, char** words);

/// The system's log.
std::unique_ptr<SystemLog> makeSystemLog();

/// The languages that the user prefers.
std::unique_ptr<PreferredLanguages> makePreferredLanguages();

/// The user's settings. `log` must outlive them, and gets a line for each fault of their file.
std::unique_ptr<DefaultsStore> openUserSettings(SettingsUse use, SystemLog& log);

/// Launch at login for the installed program.
std::unique_ptr<LoginItemService> makeLoginItemService();

/// The desktop's notifications under the program's own name. Schedules the delayed notifications
/// of earlier runs at once. The arguments must outlive the result.
std::unique_ptr<NotificationCentre> makeNotificationCentre(RunLoop& runLoop, const Clock& clock,
                                                           SystemLog& log);

/// The system's own sources of peripherals, for a system without the tools.
struct SystemSources {
    std::string label; ///< empty on a system that has the tools only
    std::unique_ptr<BatterySource> batteries;
    std::unique_ptr<NameSource> names;
};

/// `root` stands in place of /sys.
SystemSources makeSystemSources(const std::filesystem::path& root);

/// The directory of the tools that simulate peripherals.
std::string demoToolsDirectory();

/// A subject of a diagnosis with its finding.
struct Finding {
    std::string subject;
    std::string text;
};

/// The versions of the system and its libraries, the settings file, and the services of the
/// desktop. With `verbose` it shows paths in full, which may hold the user's name.
std::vector<Finding> describeSystem(bool verbose);

/// Calls `action` on the main thread when nobody reads the standard output any more. Destroying the
/// returned object ends the watching.
std::shared_ptr<void> watchForClosedOutput(std::function<void()> action);

} // namespace voltmere
