#pragma once

#include "ports/desktop.h"
#include "ports/notifications.h"
#include "ports/time.h"
#include "snooze/snooze_alert.h"

#include <array>
#include <string>
#include <string_view>

namespace voltmere {

/// The category of notifications that offer a snooze. The program itself posts none of it yet.
inline constexpr const char* lowBatteryCategory = "LOW_BATTERY";

/// A choice that a notification offers: another notification after a delay.
struct TimedSnoozeAction {
    std::string_view identifier;
    SnoozeOption option;
};

inline constexpr std::array<TimedSnoozeAction, snoozeOptions.size()> timedSnoozeActions{{
    {"SNOOZE_20", snoozeOptions[0]},
    {"SNOOZE_30", snoozeOptions[1]},
    {"SNOOZE_60", snoozeOptions[2]},
    {"SNOOZE_120", snoozeOptions[3]},
}};

/// The choice that only brings the program to the front.
inline constexpr const char* customSnoozeAction = "SNOOZE_CUSTOM";

/// A new random UUID (RFC 9562, version 4) in upper case with hyphens, 36 characters. May be called
/// on any thread.
std::string randomUuid();

/// How the program introduces itself to the notification centre.
class NotificationSetup {
public:
    /// Installs the delegate and replaces the registered categories by the program's one, with
    /// titles in the current language.
    static void registerCategories(NotificationCentre& centre,
                                   NotificationCentreDelegate& delegate);
};

/// Answers the notification centre for the program, which has one delegate. It has no state: the
/// notification centre keeps the delayed notifications that it schedules.
class NotificationDelegate : public NotificationCentreDelegate {
public:
    NotificationDelegate(RunLoop& runLoop, Application& application);

    void willPresent(std::function<void(std::uint32_t presentation)> completion) override;
    void didReceive(NotificationCentre& centre, const std::string& actionIdentifier,
                    std::function<void()> completion) override;

private:
    RunLoop& runLoop;
    Application& application;
};

} // namespace voltmere
