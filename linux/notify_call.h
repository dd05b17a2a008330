#pragma once

#include "ports/notifications.h"

#include <QDBusMessage>
#include <QStringList>

#include <string>
#include <vector>

namespace voltmere {

/// One notification as it is handed to the desktop's daemon. All texts are plain UTF-8.
struct DesktopNotification {
    std::string applicationName; ///< as people read it
    std::string icon;            ///< its name in the icon theme
    std::string summary;
    std::string body;
    bool sound = false;
    std::vector<NotificationAction> actions; ///< offered where the daemon has buttons
};

/// The key of the action that a click on the notification itself means.
inline constexpr const char* defaultActionKey = "default";

/// The call that shows `notification`, for a daemon with the given unique name and capabilities.
/// Source: Desktop Notifications Specification 1.2, org.freedesktop.Notifications.Notify.
QDBusMessage notifyCall(const QString& daemon, const QStringList& capabilities,
                        const DesktopNotification& notification);

} // namespace voltmere
