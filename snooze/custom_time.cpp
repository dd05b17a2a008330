#include "snooze/custom_time.h"

namespace voltmere {

ClockTime preselectedTime(Instant now, const Calendar& calendar)
{
    const LocalTime later = calendar.localTime(now + std::chrono::hours(1));
    return {later.hour, later.minute / minuteStep * minuteStep};
}

Seconds untilNext(const ClockTime& time, Instant now, const Calendar& calendar)
{
    LocalTime wanted = calendar.localTime(now);
    wanted.hour = time.hour;
    wanted.minute = time.minute;
    Instant target = calendar.instantOf(wanted).value_or(now + std::chrono::hours(1));
    if (target <= now) {
        target = calendar.addingOneDay(target).value_or(target);
    }
    return target - now;
}

} // namespace voltmere
