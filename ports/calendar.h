#pragma once

#include "ports/clock.h"

#include <optional>

namespace voltmere {

/// An instant as the user's calendar and wall clock show it.
struct LocalTime {
    int year = 1970;
    int month = 1; ///< 1 to 12
    int day = 1;   ///< 1 to 31
    int hour = 0;
    int minute = 0;
};

/// The user's calendar in the user's time zone, which may change at any moment.
class Calendar {
public:
    virtual ~Calendar() = default;

    virtual LocalTime localTime(Instant instant) const = 0;

    /// The instant at which the clock shows `time`, at second 0. A time that summer time skips is
    /// moved by the skipped span, and one that comes twice is the first of the two; nothing when
    /// the calendar has no such instant.
    virtual std::optional<Instant> instantOf(const LocalTime& time) const = 0;

    /// The same clock time on the next day.
    virtual std::optional<Instant> addingOneDay(Instant instant) const = 0;
};

} // namespace voltmere
