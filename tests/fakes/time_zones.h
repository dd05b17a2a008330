#pragma once

#include "ports/time.h"

#include <cstdlib>
#include <optional>
#include <string>
#include <time.h> // NOLINT(modernize-deprecated-headers): POSIX declares tzset here only

namespace voltmere {

/// Zones whose rules are written out, so that no zone database is needed.
namespace zones {
inline constexpr const char* universal = "UTC0";
/// Summer time from the last Sunday in March, 2:00, to the last Sunday in October, 3:00.
inline constexpr const char* centralEurope = "CET-1CEST,M3.5.0,M10.5.0/3";
/// Summer time from the second Sunday in March to the first Sunday in November, each at 2:00.
inline constexpr const char* easternAmerica = "EST5EDT,M3.2.0,M11.1.0";
/// Standard time in summer: what the zone calls summer time is an hour less, in winter.
inline constexpr const char* ireland = "IST-1GMT0,M10.5.0,M3.5.0/1";
/// Half an hour of summer time, from the first Sunday in October to the first Sunday in April.
inline constexpr const char* lordHowe = "<+1030>-10:30<+11>-11,M10.1.0,M4.1.0";
/// Five hours and three quarters ahead, the whole year.
inline constexpr const char* nepal = "<+0545>-5:45";
} // namespace zones

/// Sets the zone of the C library for one test and puts back what was there.
class ZoneGuard {
public:
    explicit ZoneGuard(const char* zone)
    {
        if (const char* present = std::getenv("TZ")) {
            previous = present;
        }
        set(zone);
    }

    ~ZoneGuard()
    {
        if (previous) {
            set(previous->c_str());
        } else {
            ::unsetenv("TZ");
            ::tzset();
        }
    }

    ZoneGuard(const ZoneGuard&) = delete;
    ZoneGuard& operator=(const ZoneGuard&) = delete;

    /// Changes the zone while the guard lasts, as a traveller would.
    static void set(const char* zone)
    {
        ::setenv("TZ", zone, 1);
        ::tzset();
    }

private:
    std::optional<std::string> previous;
};

/// An instant by its universal time.
inline Instant universalTime(int year, unsigned month, unsigned day, int hour = 0, int minute = 0,
                             int second = 0)
{
    using namespace std::chrono;
    return sys_days(year_month_day(std::chrono::year(year), std::chrono::month(month),
                                   std::chrono::day(day))) +
        hours(hour) + minutes(minute) + seconds(second);
}

} // namespace voltmere
