#pragma once

#include <array>
#include <string_view>

namespace voltmere {

/// The category of notifications that offer to remind again.
inline constexpr const char* lowBatteryCategory = "LOW_BATTERY";

/// A choice that a notification offers, and the delay after which it reminds again.
struct TimedSnoozeAction {
    std::string_view identifier;
    std::string_view titleKey;
    double delay; ///< seconds
};

inline constexpr std::array<TimedSnoozeAction, 4> timedSnoozeActions{{
    {"SNOOZE_20", "alert.in20", 1200},
    {"SNOOZE_30", "alert.in30", 1800},
    {"SNOOZE_60", "alert.in60", 3600},
    {"SNOOZE_120", "alert.in120", 7200},
}};

/// The choice that only brings the program to the front.
inline constexpr const char* customSnoozeAction = "SNOOZE_CUSTOM";

} // namespace voltmere
