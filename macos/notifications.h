#pragma once

#include "ports/log.h"
#include "ports/notifications.h"

#import <UserNotifications/UserNotifications.h>

@class VoltmereNotificationDelegate;

namespace voltmere {

/// The notification centre of macOS. It knows programs by their bundle: in a process without one
/// the log says so once, and nothing is posted. The system keeps delayed notifications, so they
/// survive the program's end.
class UserNotifications : public NotificationCentre {
public:
    explicit UserNotifications(SystemLog& log);
    ~UserNotifications() override;

    void requestAuthorisation(std::uint32_t options) override;
    void setDelegate(NotificationCentreDelegate* delegate) override;
    void setCategories(std::vector<NotificationCategory> categories) override;
    void add(NotificationRequest request) override;

private:
    UNUserNotificationCenter* centre;       ///< nil where the system has none for this process
    VoltmereNotificationDelegate* delegate; ///< the centre holds it weakly
};

} // namespace voltmere
