#pragma once

#include "ports/desktop.h"
#include "ports/time.h"

#include <cstdint>

namespace voltmere {

/// A time of day, as the snooze alert's last row offers it.
struct ClockTime {
    int hour;   ///< 0 to 23
    int minute; ///< 0 to 59

    bool operator==(const ClockTime&) const = default;
};

/// A person chooses among every fifth minute.
inline constexpr int minuteStep = 5;

/// The hours of a day in two digits, `present` selected.
PopUp<std::int64_t> hourPopUp(std::int64_t present);

/// Every fifth minute of an hour in two digits, `present` selected.
PopUp<std::int64_t> minutePopUp(std::int64_t present);

/// The row's initial time: one hour from now, the minute rounded down to a step.
ClockTime preselectedTime(Instant now, const Calendar& calendar);

/// The time from `now` until the clock next shows `time`: today when `time` lies ahead,
/// else tomorrow. One hour when the calendar has no such time.
Seconds untilNext(const ClockTime& time, Instant now, const Calendar& calendar);

} // namespace voltmere
