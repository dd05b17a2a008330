#pragma once

#include "app/single_instance.h"
#include "linux/ui/icon.h"
#include "model/battery_model.h"
#include "ports/desktop.h"
#include "ports/log.h"
#include "ports/login_item.h"
#include "ports/notifications.h"
#include "ports/time.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

class QObject;
class QRect;

namespace voltmere {

// What differs between the platforms. Each function has one implementation for each platform, in
// platform_factory_<platform>.cpp; CMake chooses the file.

/// Why windows cannot be shown, and what to do about it; nothing when they can. Needs no
/// application object: Qt ends the process where it finds no display.
std::optional<std::string> displayProblem();

/// `log`, which must outlive it, is told what does not work without it.
std::unique_ptr<SingleInstance> makeSingleInstance(SystemLog& log);

/// Whether the desktop is dark or light. Needs an application object.
std::unique_ptr<Appearance> makeAppearance();

/// What brings the program to the front. Needs an application object.
std::unique_ptr<Application> makeApplication();

/// The languages that the user prefers.
std::unique_ptr<PreferredLanguages> makePreferredLanguages();

/// The system's log.
std::unique_ptr<SystemLog> makeSystemLog();

/// The desktop's notifications under the program's own name, with the user's pending reminders,
/// which it takes up at once. What it is given must outlive it.
std::unique_ptr<NotificationCentre> makeNotificationCentre(RunLoop& runLoop, const Clock& clock,
                                                           SystemLog& log);

/// Launch at login for the program file that is running.
std::unique_ptr<LoginItemService> makeLoginItemService();

/// Calls `available` once, as soon as there is a place for the program's icon. The watching ends
/// with the returned object.
std::unique_ptr<QObject> watchForTrayHost(std::function<void()> available);

/// What the program's icon does. `icon` is its place on the desktop, empty where that is not known.
struct IconActions {
    std::function<void(const QRect& icon)> toggle; ///< a click
    std::function<void(const QRect& icon)> open;
    std::function<void()> quit;
};

/// The program's icon in the menu bar or tray, which must be there. It follows the model.
std::unique_ptr<StatusLabel> makeIcon(BatteryModel& model, const Appearance& appearance,
                                      IconActions actions);

} // namespace voltmere
