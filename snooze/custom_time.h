#pragma once

#include "platform/calendar.h"
#include "platform/clock.h"
#include "platform/run_loop.h"

namespace voltmere {

/// A time of day, as the reminder's last row offers it.
struct ClockTime {
    int hour = 0;   ///< 0 to 23
    int minute = 0; ///< 0 to 59

    bool operator==(const ClockTime&) const = default;
};

/// The steps in which the row offers minutes.
inline constexpr int minuteStep = 5;

/// What the row shows at first: one hour from now, the minute rounded down to a step.
ClockTime preselectedTime(Instant now, const Calendar& calendar);

/// The time from `now` until the clock next shows `time`: today when that lies ahead, else
/// tomorrow. One hour when the calendar has no such time.
Seconds untilNext(const ClockTime& time, Instant now, const Calendar& calendar);

} // namespace voltmere
