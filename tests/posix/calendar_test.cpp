#include "posix/calendar.h"

#include "fakes/time_zones.h"

#include <gmock/gmock.h>

#include <limits>
#include <tuple>
#include <vector>

namespace voltmere {
namespace {

using std::chrono::hours;
using std::chrono::milliseconds;
using std::chrono::seconds;
using testing::Optional;

auto fields(const LocalTime& time)
{
    return std::tuple(time.year, time.month, time.day, time.hour, time.minute);
}

/// An instant, and what the clock shows then.
struct Shown {
    const char* zone;
    Instant instant;
    LocalTime time;
};

/// An instant, and the one a day later by the clock.
struct NextDay {
    const char* zone;
    Instant instant;
    Instant next;
};

class PosixCalendarTest : public testing::Test {
protected:
    /// What the clock shows, as year, month, day, hour and minute.
    auto shownAt(Instant instant) const { return fields(calendar.localTime(instant)); }

    ZoneGuard zone{zones::universal};
    PosixCalendar calendar;
};

TEST_F(PosixCalendarTest, ShowsTheTimeOfTheZoneAndFindsItsInstant)
{
    const std::vector<Shown> cases{
        {zones::universal, universalTime(2026, 3, 2, 14, 37), {2026, 3, 2, 14, 37}},
        {zones::universal, universalTime(2026, 1, 1), {2026, 1, 1, 0, 0}},
        {zones::universal, universalTime(2026, 12, 31, 23, 59), {2026, 12, 31, 23, 59}},
        {zones::universal, universalTime(1969, 12, 31, 23, 59), {1969, 12, 31, 23, 59}},
        {zones::universal, universalTime(1900, 2, 28, 12, 0), {1900, 2, 28, 12, 0}},
        {zones::nepal, universalTime(2026, 12, 31, 20, 0), {2027, 1, 1, 1, 45}},
        {zones::easternAmerica, universalTime(2027, 1, 1, 4, 59), {2026, 12, 31, 23, 59}},
        {zones::centralEurope, universalTime(2026, 3, 29, 0, 59), {2026, 3, 29, 1, 59}},
        {zones::centralEurope, universalTime(2026, 3, 29, 1, 0), {2026, 3, 29, 3, 0}},
        {zones::centralEurope, universalTime(2026, 10, 25, 0, 59), {2026, 10, 25, 2, 59}},
        {zones::centralEurope, universalTime(2100, 7, 1, 12), {2100, 7, 1, 14, 0}},
        {zones::centralEurope, universalTime(2100, 1, 1), {2100, 1, 1, 1, 0}},
        // The C library returns -1 for this second and for a failure.
        {"<+000001>-0:00:01", Instant(seconds(-1)), {1970, 1, 1, 0, 0}},
    };
    for (const Shown& one : cases) {
        SCOPED_TRACE(testing::PrintToString(fields(one.time)) + one.zone);
        ZoneGuard::set(one.zone);
        EXPECT_EQ(shownAt(one.instant), fields(one.time));
        EXPECT_THAT(calendar.instantOf(one.time), Optional(one.instant));
    }
}

TEST_F(PosixCalendarTest, SeesAChangeOfZoneAtOnce)
{
    const Instant noon = universalTime(2026, 7, 1, 12, 0);
    EXPECT_EQ(shownAt(noon), std::tuple(2026, 7, 1, 12, 0));

    // Only the variable changes here: the calendar itself must ask for the zone anew.
    ::setenv("TZ", zones::centralEurope, 1);
    EXPECT_EQ(shownAt(noon), std::tuple(2026, 7, 1, 14, 0));

    ::setenv("TZ", zones::nepal, 1);
    EXPECT_THAT(calendar.instantOf({2026, 7, 1, 12, 0}),
                Optional(universalTime(2026, 7, 1, 6, 15)));

    ::setenv("TZ", zones::centralEurope, 1);
    EXPECT_THAT(calendar.addingOneDay(universalTime(2026, 3, 28, 12, 0)),
                Optional(universalTime(2026, 3, 29, 11, 0)));
}

TEST_F(PosixCalendarTest, SecondsAndTheirFractionsNeverRoundUp)
{
    EXPECT_EQ(shownAt(universalTime(2026, 3, 2, 23, 59, 59) + milliseconds(999)),
              std::tuple(2026, 3, 2, 23, 59));
    EXPECT_EQ(shownAt(Instant(milliseconds(-1))), std::tuple(1969, 12, 31, 23, 59));
}

TEST_F(PosixCalendarTest, ATimeBeyondTheCalendarYieldsNothing)
{
    constexpr int most = std::numeric_limits<int>::max();

    EXPECT_EQ(calendar.instantOf({most, most, 1, 0, 0}), std::nullopt);
}

TEST_F(PosixCalendarTest, InstantOfAndLocalTimeAreInverse)
{
    for (const char* name : {zones::universal, zones::centralEurope, zones::easternAmerica,
                             zones::lordHowe, zones::ireland, zones::nepal}) {
        ZoneGuard::set(name);
        for (Instant instant = universalTime(2026, 1, 1); instant < universalTime(2028, 4, 1);
             instant += hours(7)) {
            const LocalTime shown = calendar.localTime(instant);
            const auto back = calendar.instantOf(shown);
            ASSERT_TRUE(back.has_value());
            ASSERT_EQ(shownAt(*back), fields(shown)) << name;
        }
    }
}

TEST_F(PosixCalendarTest, ATimeThatSummerTimeSkipsMovesByTheSkippedSpanAndOneThatComesTwiceIsFirst)
{
    const std::vector<Shown> cases{
        {zones::centralEurope, universalTime(2026, 3, 29, 1, 0), {2026, 3, 29, 2, 0}},
        {zones::centralEurope, universalTime(2026, 3, 29, 1, 30), {2026, 3, 29, 2, 30}},
        {zones::easternAmerica, universalTime(2026, 3, 8, 7, 30), {2026, 3, 8, 2, 30}},
        {zones::lordHowe, universalTime(2026, 10, 3, 15, 45), {2026, 10, 4, 2, 15}},
        {zones::centralEurope, universalTime(2026, 10, 25, 0, 30), {2026, 10, 25, 2, 30}},
        {zones::lordHowe, universalTime(2026, 4, 4, 14, 45), {2026, 4, 5, 1, 45}},
        {zones::ireland, universalTime(2026, 10, 25, 0, 30), {2026, 10, 25, 1, 30}},
    };
    for (const Shown& one : cases) {
        ZoneGuard::set(one.zone);
        EXPECT_THAT(calendar.instantOf(one.time), Optional(one.instant)) << one.zone;
    }
    ZoneGuard::set(zones::centralEurope);
    EXPECT_EQ(shownAt(universalTime(2026, 10, 25, 1, 0)), std::tuple(2026, 10, 25, 2, 0));
}

TEST_F(PosixCalendarTest, ATimeThatComesTwiceIsTheSameOneWhateverWasAskedBefore)
{
    ZoneGuard::set(zones::centralEurope);

    calendar.instantOf({2026, 1, 15, 12, 0});
    const auto afterWinter = calendar.instantOf({2026, 10, 25, 2, 30});
    calendar.instantOf({2026, 7, 15, 12, 0});
    const auto afterSummer = calendar.instantOf({2026, 10, 25, 2, 30});

    EXPECT_EQ(afterWinter, afterSummer);
}

TEST_F(PosixCalendarTest, OneDayLaterIsTheNextDayAtTheSameTimeOfTheClock)
{
    const std::vector<NextDay> cases{
        {zones::universal, universalTime(2026, 3, 2, 9, 10, 25),
         universalTime(2026, 3, 3, 9, 10, 25)},
        {zones::universal, universalTime(2026, 4, 30, 22, 0), universalTime(2026, 5, 1, 22, 0)},
        {zones::universal, universalTime(2026, 12, 31, 22, 0), universalTime(2027, 1, 1, 22, 0)},
        {zones::universal, universalTime(2028, 2, 28, 22, 0), universalTime(2028, 2, 29, 22, 0)},
        {zones::universal, universalTime(2028, 2, 29, 22, 0), universalTime(2028, 3, 1, 22, 0)},
        {zones::universal, universalTime(2100, 2, 28, 22, 0), universalTime(2100, 3, 1, 22, 0)},
        {zones::centralEurope, universalTime(2026, 3, 28, 11, 0),
         universalTime(2026, 3, 29, 10, 0)},
        {zones::centralEurope, universalTime(2026, 10, 24, 10, 0),
         universalTime(2026, 10, 25, 11, 0)},
        {zones::lordHowe, universalTime(2026, 10, 3, 1, 30), universalTime(2026, 10, 4, 1, 0)},
        // The next day's summer time skips this time of the clock.
        {zones::centralEurope, universalTime(2026, 3, 28, 1, 30),
         universalTime(2026, 3, 29, 1, 30)},
    };
    for (const NextDay& one : cases) {
        ZoneGuard::set(one.zone);
        EXPECT_THAT(calendar.addingOneDay(one.instant), Optional(one.next)) << one.zone;
    }
}

TEST_F(PosixCalendarTest, AZoneWhoseFileIsMissingCountsAsUniversalTime)
{
    for (const char* const missing : {":/nonexistent/zone", "Nowhere/City", ":"}) {
        ZoneGuard::set(missing);
        EXPECT_EQ(shownAt(universalTime(2026, 7, 1, 12, 34)), std::tuple(2026, 7, 1, 12, 34))
            << missing;
        EXPECT_THAT(calendar.instantOf({2026, 7, 1, 12, 34}),
                    Optional(universalTime(2026, 7, 1, 12, 34)));
    }
}

} // namespace
} // namespace voltmere
