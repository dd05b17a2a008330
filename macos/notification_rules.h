#pragma once

#include "ports/notifications.h"

#include <optional>

namespace voltmere {

/// The interval in seconds of the trigger that delays a notification; nothing for one that is
/// posted at once. A time-interval trigger takes no interval of zero or below: it throws.
/// Source: UserNotifications, UNTimeIntervalNotificationTrigger.
inline std::optional<double> triggerInterval(const NotificationRequest& request)
{
    if (!request.delay || !(*request.delay > Seconds::zero())) {
        return std::nullopt;
    }
    return request.delay->count();
}

} // namespace voltmere
