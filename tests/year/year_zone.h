#pragma once

#include <cstdint>

namespace voltmere::year {

/// Milliseconds since 1970-01-01 00:00 universal time, or a span of them.
using Millis = std::int64_t;

inline constexpr Millis second = 1000;
inline constexpr Millis minute = 60 * second;
inline constexpr Millis hour = 60 * minute;
inline constexpr Millis day = 24 * hour;

/// The Sunday of a month at which a zone changes its clocks: 1 to 4, or 5 for the last one.
struct ClockChange {
    unsigned month;
    unsigned sunday;
    Millis localTime;
};

/// A time zone by its rules.
struct Zone {
    const char* name; ///< in the form that the C library takes
    Millis standard;  ///< what local time is ahead of universal time
    Millis saving;    ///< what summer time adds; 0 for none
    ClockChange begin;
    ClockChange end;
};

/// A local date and time.
struct Local {
    Millis dayNumber; ///< days since 1970-01-01
    int hour;
    int minute;
};

/// What local time is ahead of universal time.
Millis offsetAt(const Zone& zone, Millis instant);

Local localAt(const Zone& zone, Millis instant);

/// The instant at which the local clock shows a time that is given as if the zone were universal
/// time: the first one where it comes twice, moved on by the skipped span where it never comes.
Millis instantOf(const Zone& zone, Millis local);

/// The wait until the local clock next shows hour:minute:00, tomorrow if it shows it right now.
Millis untilNext(const Zone& zone, Millis now, int hour, int minute);

} // namespace voltmere::year
