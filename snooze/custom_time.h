#pragma once

#include "ports/time.h"

namespace voltmere {

/// A time of day, as the reminder's last row offers it.
struct ClockTime {
    int hour;   ///< 0 to 23
    int minute; ///< 0 to 59

    bool operator==(const ClockTime&) const = default;
};

// The hours and minutes that a person can choose.
inline constexpr int hoursPerDay = 24;
inline constexpr int hourStep = 1;
inline constexpr int minutesPerHour = 60;
inline constexpr int minuteStep = 5;

/// What the row shows at first: one hour from now, the minute rounded down to a step.
ClockTime preselectedTime(Instant now, const Calendar& calendar);

/// The time from `now` until the clock next shows `time`: today when that lies ahead, else
/// tomorrow. One hour when the calendar has no such time.
Seconds untilNext(const ClockTime& time, Instant now, const Calendar& calendar);

} // namespace voltmere
