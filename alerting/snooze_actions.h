#pragma once

#include "snooze/snooze_options.h"

#include <array>
#include <string_view>

namespace voltmere {

/// The category of notifications that offer to remind again.
inline constexpr const char* lowBatteryCategory = "LOW_BATTERY";

/// A choice that a notification offers: to be reminded again after a while.
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

} // namespace voltmere
