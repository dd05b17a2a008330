#pragma once

#include "ports/time.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace voltmere {

/// One choice that a notification offers.
struct NotificationAction {
    std::string identifier;
    std::string title;
    bool foreground = false; ///< choosing it brings the program to the front

    bool operator==(const NotificationAction&) const = default;
};

/// A kind of notification and the choices that each of that kind offers.
struct NotificationCategory {
    std::string identifier;
    std::vector<NotificationAction> actions;

    bool operator==(const NotificationCategory&) const = default;
};

/// The content of a notification.
struct NotificationContent {
    std::string title;
    std::string body;
    bool defaultSound = false;
    std::string category; ///< identifier of its category; empty without one

    bool operator==(const NotificationContent&) const = default;
};

/// A notification to post, at once or once after `delay`; zero or less is at once. The identifier
/// must differ from those of all pending ones.
struct NotificationRequest {
    std::string identifier;
    NotificationContent content;
    std::optional<Seconds> delay;

    bool operator==(const NotificationRequest&) const = default;
};

/// The permissions to ask for, as bits.
namespace authorisation {
inline constexpr std::uint32_t sound = 2;
inline constexpr std::uint32_t alert = 4;
} // namespace authorisation

/// How a notification is shown while the program is in front, as bits.
namespace presentation {
inline constexpr std::uint32_t sound = 2;
inline constexpr std::uint32_t banner = 16;
} // namespace presentation

/// The action of a response where the user chose no action of the notification. UserNotifications
/// defines the values; a delegate sees the same ones on every platform.
namespace standardAction {
inline constexpr const char* open = "com.apple.UNNotificationDefaultActionIdentifier";
inline constexpr const char* dismiss = "com.apple.UNNotificationDismissActionIdentifier";
} // namespace standardAction

class NotificationCentre;

/// Answers the notification centre, on the main thread. Each completion must be called exactly
/// once.
class NotificationCentreDelegate {
public:
    virtual ~NotificationCentreDelegate() = default;

    /// A notification is about to be shown while the program is in front.
    virtual void willPresent(std::function<void(std::uint32_t presentation)> completion) = 0;

    /// The user responded to a notification: chose an action, or tapped or dismissed it
    /// (`standardAction`).
    virtual void didReceive(NotificationCentre& centre, const std::string& actionIdentifier,
                            std::function<void()> completion) = 0;
};

/// The desktop's notifications. The centre handles failures itself and reports nothing back.
class NotificationCentre {
public:
    virtual ~NotificationCentre() = default;

    /// Asks the user, once, for permission to notify in the ways of `options`.
    virtual void requestAuthorisation(std::uint32_t options) = 0;

    /// `delegate` must live until it is replaced or the centre is destroyed; null removes it.
    virtual void setDelegate(NotificationCentreDelegate* delegate) = 0;

    /// Replaces every registered category.
    virtual void setCategories(std::vector<NotificationCategory> categories) = 0;

    /// Posts or schedules `request`. A delayed one outlives the program; it is shown late rather
    /// than never.
    virtual void add(NotificationRequest request) = 0;
};

} // namespace voltmere
