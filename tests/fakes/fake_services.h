#pragma once

#include "ports/desktop.h"
#include "ports/login_item.h"
#include "ports/notifications.h"

#include <utility>

namespace voltmere {

/// A login-item service that does as the test says and counts what it is asked.
class FakeLoginItems : public LoginItemService {
public:
    bool isEnabled() const override { return enabled; }

    std::optional<std::string> registerItem() override
    {
        ++registrations;
        if (!failure) {
            enabled = enabledAfterRegistration;
        }
        return failure;
    }

    std::optional<std::string> unregisterItem() override
    {
        ++unregistrations;
        if (!failure) {
            enabled = false;
        }
        return failure;
    }

    bool enabled = false;
    bool enabledAfterRegistration = true;
    std::optional<std::string> failure; ///< what both operations fail with
    int registrations = 0;
    int unregistrations = 0;
};

/// Counts how often it is brought to the front.
class FakeApplication : public Application {
public:
    void activate() override { ++activations; }

    int activations = 0;
};

/// A notification centre that keeps what it is told.
class FakeNotificationCentre : public NotificationCentre {
public:
    void requestAuthorisation(std::uint32_t options) override
    {
        authorisationRequests.push_back(options);
    }

    void setDelegate(NotificationCentreDelegate* newDelegate) override { delegate = newDelegate; }

    void setCategories(std::vector<NotificationCategory> newCategories) override
    {
        ++registrations;
        categories = std::move(newCategories);
    }

    void add(NotificationRequest request) override { requests.push_back(std::move(request)); }

    std::vector<std::uint32_t> authorisationRequests;
    std::vector<NotificationCategory> categories;
    std::vector<NotificationRequest> requests;
    NotificationCentreDelegate* delegate = nullptr;
    int registrations = 0;
};

} // namespace voltmere
