#pragma once

#include "ports/time.h"

namespace voltmere {

/// The system's wall clock.
class SystemClock : public Clock {
public:
    Instant now() const override;
};

/// The calendar and zone of the C library, read anew at each call to notice a change of zone.
class PosixCalendar : public Calendar {
public:
    LocalTime localTime(Instant instant) const override;
    std::optional<Instant> instantOf(const LocalTime& time) const override;
    std::optional<Instant> addingOneDay(Instant instant) const override;
};

} // namespace voltmere
