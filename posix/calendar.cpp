#include "posix/calendar.h"

#include <time.h> // NOLINT(modernize-deprecated-headers): POSIX declares tzset here only

#include <algorithm>

namespace voltmere {

namespace {

constexpr int tmYearBase = 1900;

std::tm brokenDown(Instant instant)
{
    ::tzset();
    const std::time_t seconds =
        std::chrono::system_clock::to_time_t(std::chrono::floor<std::chrono::seconds>(instant));
    std::tm time{};
    ::localtime_r(&seconds, &time);
    return time;
}

/// The second that `time` names when summer time counts as `summerTime` says (1 yes, 0 no, -1
/// unknown); nothing when there is no such second. Normalises the fields of `time`.
std::optional<std::time_t> secondOf(std::tm& time, int summerTime)
{
    time.tm_isdst = summerTime;
    // The result -1 is also a valid second; only the day of the week shows whether mktime failed.
    time.tm_wday = -1;
    const std::time_t second = std::mktime(&time);
    return time.tm_wday < 0 ? std::nullopt : std::optional(second);
}

/// The second at which the clock shows `wanted` while summer time counts as `summerTime` says.
std::optional<std::time_t> secondShowing(const std::tm& wanted, int summerTime)
{
    std::tm time = wanted;
    const auto second = secondOf(time, summerTime);
    const bool shown = time.tm_isdst == summerTime && time.tm_hour == wanted.tm_hour;
    return shown ? second : std::nullopt;
}

/// The instant of a local time. Where the clock is set back, a time comes twice, and mktime's
/// choice depends on its earlier calls; this always takes the first.
std::optional<Instant> made(const std::tm& wanted)
{
    std::tm moved = wanted;
    const auto winter = secondShowing(wanted, 0);
    const auto summer = secondShowing(wanted, 1);
    const auto second = winter && summer ? std::min(*winter, *summer) : secondOf(moved, -1);
    return second ? std::optional(std::chrono::system_clock::from_time_t(*second)) : std::nullopt;
}

} // namespace

Instant SystemClock::now() const
{
    return std::chrono::system_clock::now();
}

LocalTime PosixCalendar::localTime(Instant instant) const
{
    const std::tm time = brokenDown(instant);
    return {time.tm_year + tmYearBase, time.tm_mon + 1, time.tm_mday, time.tm_hour, time.tm_min};
}

std::optional<Instant> PosixCalendar::instantOf(const LocalTime& time) const
{
    std::tm wanted{};
    wanted.tm_year = time.year - tmYearBase;
    wanted.tm_mon = time.month - 1;
    wanted.tm_mday = time.day;
    wanted.tm_hour = time.hour;
    wanted.tm_min = time.minute;
    return made(wanted);
}

std::optional<Instant> PosixCalendar::addingOneDay(Instant instant) const
{
    std::tm time = brokenDown(instant);
    ++time.tm_mday;
    return made(time);
}

} // namespace voltmere
