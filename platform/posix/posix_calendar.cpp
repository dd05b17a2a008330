#include "platform/posix/posix_calendar.h"

#include <time.h> // NOLINT(modernize-deprecated-headers): POSIX declares tzset here only

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

std::optional<Instant> made(std::tm time)
{
    ::tzset();
    time.tm_isdst = -1;
    // The result -1 is also a valid second, so only a day of the week that mktime filled in tells.
    time.tm_wday = -1;
    const std::time_t seconds = std::mktime(&time);
    if (time.tm_wday < 0) {
        return std::nullopt;
    }
    return std::chrono::system_clock::from_time_t(seconds);
}

} // namespace

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
