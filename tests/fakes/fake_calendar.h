#pragma once

#include "ports/time.h"

namespace voltmere {

/// The Gregorian calendar at a fixed distance from universal time, which a test may change.
class FakeCalendar : public Calendar {
public:
    LocalTime localTime(Instant instant) const override
    {
        const auto local = std::chrono::floor<std::chrono::minutes>(instant + offset);
        const auto day = std::chrono::floor<std::chrono::days>(local);
        const std::chrono::year_month_day date(day);
        const std::chrono::hh_mm_ss time(local - day);
        return {static_cast<int>(date.year()),
                static_cast<int>(static_cast<unsigned>(date.month())),
                static_cast<int>(static_cast<unsigned>(date.day())),
                static_cast<int>(time.hours().count()), static_cast<int>(time.minutes().count())};
    }

    std::optional<Instant> instantOf(const LocalTime& time) const override
    {
        using namespace std::chrono;
        if (hasNoInstants) {
            return std::nullopt;
        }
        const year_month_day date(std::chrono::year(time.year),
                                  month(static_cast<unsigned>(time.month)),
                                  day(static_cast<unsigned>(time.day)));
        return sys_days(date) + hours(time.hour) + minutes(time.minute) - offset;
    }

    std::optional<Instant> addingOneDay(Instant instant) const override
    {
        return hasNoInstants ? std::nullopt : std::optional(instant + std::chrono::days(1));
    }

    std::chrono::minutes offset{0};
    bool hasNoInstants = false; ///< a calendar that cannot make an instant of anything
};

} // namespace voltmere
