#pragma once

#include "ports/notifications.h"
#include "ports/settings.h"

namespace voltmere {

/// Finishes the start of the program.
class AppDelegate {
public:
    AppDelegate(const DefaultsStore& defaults, NotificationCentre& notifications,
                NotificationCentreDelegate& notificationDelegate);

    /// Reads the language again, registers the notification categories, and lets reminders appear.
    void applicationDidFinishLaunching();

private:
    const DefaultsStore& defaults;
    NotificationCentre& notifications;
    NotificationCentreDelegate& notificationDelegate;
};

} // namespace voltmere
