#pragma once

#include "ports/log.h"
#include "ports/notifications.h"

#include <memory>

namespace voltmere {

/// The notification centre of macOS. It knows programs by their bundle: in a process without one
/// the log says so once, and nothing is posted.
class UserNotifications : public NotificationCentre {
public:
    explicit UserNotifications(SystemLog& log);
    ~UserNotifications() override;

    void requestAuthorisation(std::uint32_t options) override;
    void setDelegate(NotificationCentreDelegate* delegate) override;
    void setCategories(std::vector<NotificationCategory> categories) override;
    void add(NotificationRequest request) override;

private:
    struct Cocoa;
    std::unique_ptr<Cocoa> cocoa;
};

} // namespace voltmere
