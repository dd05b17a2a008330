#pragma once

#include "ports/desktop.h"
#include "ports/log.h"
#include "ports/login_item.h"
#include "ports/notifications.h"

namespace voltmere {

// An outside that nothing reaches, for a demonstration, for pictures and for the terminal. Each of
// these keeps its promise to its callers and does nothing.

/// Reports that the program does not start at login, and leaves it so.
class NullLoginItems : public LoginItemService {
public:
    Status status() const override { return Status::notRegistered; }
    std::optional<std::string> registerItem() override { return std::nullopt; }
    std::optional<std::string> unregisterItem() override { return std::nullopt; }
};

/// Posts no notification.
class NullNotifications : public NotificationCentre {
public:
    void requestAuthorisation(std::uint32_t /*options*/) override { }
    void setDelegate(NotificationCentreDelegate* /*delegate*/) override { }
    void setCategories(std::vector<NotificationCategory> /*categories*/) override { }
    void add(NotificationRequest /*request*/) override { }
};

/// Shows no reminder.
class NullAlerts : public AlertPresenter {
public:
    std::unique_ptr<Alert> present(AlertContent /*content*/, AlertActions /*actions*/) override
    {
        return nullptr;
    }
};

/// Has no window.
class NullApplication : public Application {
public:
    void activate() override { }
};

/// Forgets what is written to it.
class NullLog : public SystemLog {
public:
    void write(std::string_view /*line*/) override { }
};

} // namespace voltmere
