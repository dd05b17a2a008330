#include "snooze/custom_time.h"

#include "texts/l10n.h"

namespace voltmere {

namespace {

PopUp<std::int64_t> twoDigitPopUp(std::string_view nameKey, int step, int end, std::int64_t present)
{
    PopUp<std::int64_t> popUp;
    popUp.name = L10n::own(nameKey);
    for (int number = 0; number < end; number += step) {
        popUp.add((number < 10 ? "0" : "") + std::to_string(number), number, present);
    }
    return popUp;
}

} // namespace

PopUp<std::int64_t> hourPopUp(std::int64_t present)
{
    constexpr int hoursPerDay = 24;
    return twoDigitPopUp("name.hour", 1, hoursPerDay, present);
}

PopUp<std::int64_t> minutePopUp(std::int64_t present)
{
    constexpr int minutesPerHour = 60;
    return twoDigitPopUp("name.minute", minuteStep, minutesPerHour, present);
}

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
