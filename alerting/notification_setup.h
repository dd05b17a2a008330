#pragma once

#include "ports/notifications.h"

namespace voltmere {

/// What the program tells the notification centre of itself.
class NotificationSetup {
public:
    /// Installs the delegate and replaces the registered categories by the program's one, with
    /// titles in the current language.
    static void registerCategories(NotificationCentre& centre,
                                   NotificationCentreDelegate& delegate);
};

} // namespace voltmere
