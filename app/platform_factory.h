#pragma once

#include "platform/appearance.h"
#include "platform/clock.h"
#include "platform/login_item_service.h"
#include "platform/notification_centre.h"
#include "platform/run_loop.h"
#include "platform/system_log.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

class QObject;

namespace voltmere {

// What differs between the platforms. Each function has one implementation for each platform, in
// platform_factory_<platform>.cpp; CMake chooses the file.

/// Why windows cannot be shown, and what to do about it; nothing when they can. Needs no
/// application object: Qt ends the process where it finds no display.
std::optional<std::string> displayProblem();

/// Whether the desktop is dark or light. Needs an application object.
std::unique_ptr<Appearance> makeAppearance();

/// The desktop's notifications under the program's own name, with the user's pending reminders,
/// which it takes up at once. What it is given must outlive it.
std::unique_ptr<NotificationCentre> makeNotificationCentre(RunLoop& runLoop, const Clock& clock,
                                                           SystemLog& log);

/// The start of the program that runs now at the user's login.
std::unique_ptr<LoginItemService> makeLoginItemService();

/// Calls `available` once, as soon as there is a place for the program's icon. The watching ends
/// with the returned object.
std::unique_ptr<QObject> watchForTrayHost(std::function<void()> available);

} // namespace voltmere
