#pragma once

#include "platform/alert_presenter.h"
#include "platform/login_item_service.h"
#include "platform/notification_centre.h"

namespace voltmere {

// What the program cannot do yet. Each of these keeps its promise to its callers and does nothing.

/// Reports that the program does not start at login, and cannot change that.
class PendingLoginItems : public LoginItemService {
public:
    Status status() const override { return Status::notRegistered; }
    std::optional<std::string> registerItem() override { return std::nullopt; }
    std::optional<std::string> unregisterItem() override { return std::nullopt; }
};

/// Posts no notification.
class PendingNotifications : public NotificationCentre {
public:
    void requestAuthorisation(std::uint32_t /*options*/) override { }
    void setDelegate(NotificationCentreDelegate* /*delegate*/) override { }
    void setCategories(std::vector<NotificationCategory> /*categories*/) override { }
    void add(NotificationRequest /*request*/) override { }
};

/// Shows no reminder.
class PendingAlerts : public AlertPresenter {
public:
    std::unique_ptr<Alert> present(AlertContent /*content*/, AlertActions /*actions*/) override
    {
        return nullptr;
    }
};

} // namespace voltmere
