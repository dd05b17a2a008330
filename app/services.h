#pragma once

#include "alerting/notifications.h"
#include "app/command_line.h"
#include "app/platform.h"
#include "devices/device_reader.h"
#include "devices/peripheral_tools.h"
#include "model/battery_model.h"
#include "posix/calendar.h"
#include "posix/process_runner.h"

#include <memory>
#include <string>

namespace voltmere {

/// The tools that "--demo" needs and that are not in `demoToolsDirectory()`, as a list in words.
std::string missingDemoTools();

/// Where this run reads the peripherals: as the command line says, else as the system has it.
class Peripherals {
public:
    /// `systemTools` is the directory of this system's tools.
    Peripherals(const CommandLine& commandLine, SystemLog& log,
                const std::string& systemTools = systemToolsDirectory);

    /// The sources for one reading. A place named on the command line is the only one. Without it
    /// the tools count where the registry tool can be run, else the system's own sources.
    PeripheralSources choose();

private:
    bool usesTools() const;

    bool toolsOnly;
    bool systemOnly;
    PosixProcessRunner processes;
    RegistryToolSource registry;
    ProfilerToolSource profiler;
    SystemSources system;
};

/// The model's ports. A reading may still use them when the program ends; the process must then end
/// without destroying them.
class Services {
public:
    /// How far the model may act.
    enum class Reach {
        everything, ///< the program with its icon; "--demo" limits it to the windows
        settings,   ///< reads the user's settings, and changes nothing
        nothing,    ///< the initial settings, in memory
    };

    /// Without windows: no snooze alert is shown.
    Services(const CommandLine& commandLine, Reach reach, MainLoop& mainLoop);

    Services(const CommandLine& commandLine, Reach reach, MainLoop& mainLoop,
             Application& application, AlertPresenter& alerts);

    ModelServices forModel();

    /// The settings as they are stored now. `log` gets a line for each fault of their file.
    std::unique_ptr<DefaultsStore> openSettings(SystemLog& log) const;

    /// Runs the main loop, and returns its exit status. Ends the process itself, without destroying
    /// anything, while a reading is under way. Settings are saved when they are changed, so nothing
    /// is lost.
    int runMainLoop() const;

    const CommandLine commandLine;
    const Reach reach;
    MainLoop& mainLoop;
    SystemClock clock;
    PosixCalendar calendar;
    std::unique_ptr<SystemLog> log;      ///< the services'
    std::unique_ptr<SystemLog> modelLog; ///< silent for `settings`, which shows no alert to log
    std::unique_ptr<PreferredLanguages> languages;
    std::unique_ptr<DefaultsStore> defaults;
    std::unique_ptr<LoginItemService> loginItems;
    NotificationDelegate notificationDelegate;
    std::unique_ptr<NotificationCentre> notifications;
    AlertPresenter& alerts;
    Peripherals peripherals;
    std::shared_ptr<DeviceReader> reader;
};

} // namespace voltmere
