#include "posix/calendar.h"

#include "fakes/time_zones.h"

#include <gmock/gmock.h>

#include <limits>
#include <tuple>

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

class PosixCalendarTest : public testing::Test {
protected:
    /// What the clock shows, as year, month, day, hour and minute.
    auto shownAt(Instant instant) const { return fields(calendar.localTime(instant)); }

    ZoneGuard zone{zones::universal};
    PosixCalendar calendar;
};

TEST_F(PosixCalendarTest, ShowsUniversalTime)
{
    EXPECT_EQ(shownAt(universalTime(2026, 3, 2, 14, 37, 59)), std::tuple(2026, 3, 2, 14, 37));
    EXPECT_EQ(shownAt(universalTime(2026, 1, 1)), std::tuple(2026, 1, 1, 0, 0));
    EXPECT_EQ(shownAt(universalTime(2026, 12, 31, 23, 59, 59)), std::tuple(2026, 12, 31, 23, 59));
}

TEST_F(PosixCalendarTest, ShowsTheTimeOfAZoneAheadAndOfOneBehind)
{
    ZoneGuard::set(zones::nepal);
    EXPECT_EQ(shownAt(universalTime(2026, 12, 31, 20, 0)), std::tuple(2027, 1, 1, 1, 45));

    ZoneGuard::set(zones::easternAmerica);
    EXPECT_EQ(shownAt(universalTime(2027, 1, 1, 4, 59)), std::tuple(2026, 12, 31, 23, 59));
}

TEST_F(PosixCalendarTest, ShowsSummerTimeAndStandardTime)
{
    ZoneGuard::set(zones::centralEurope);

    EXPECT_EQ(shownAt(universalTime(2026, 3, 29, 0, 59)), std::tuple(2026, 3, 29, 1, 59));
    EXPECT_EQ(shownAt(universalTime(2026, 3, 29, 1, 0)), std::tuple(2026, 3, 29, 3, 0));
    EXPECT_EQ(shownAt(universalTime(2026, 10, 25, 0, 59)), std::tuple(2026, 10, 25, 2, 59));
    EXPECT_EQ(shownAt(universalTime(2026, 10, 25, 1, 0)), std::tuple(2026, 10, 25, 2, 0));
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

TEST_F(PosixCalendarTest, FractionsOfASecondNeverRoundUp)
{
    EXPECT_EQ(shownAt(universalTime(2026, 3, 2, 23, 59, 59) + milliseconds(999)),
              std::tuple(2026, 3, 2, 23, 59));
}

TEST_F(PosixCalendarTest, ShowsInstantsBefore1970)
{
    EXPECT_EQ(shownAt(universalTime(1969, 12, 31, 23, 59, 59)), std::tuple(1969, 12, 31, 23, 59));
    EXPECT_EQ(shownAt(Instant(milliseconds(-1))), std::tuple(1969, 12, 31, 23, 59));
    EXPECT_EQ(shownAt(universalTime(1900, 2, 28, 12, 0)), std::tuple(1900, 2, 28, 12, 0));
}

TEST_F(PosixCalendarTest, AnInstantIsAtSecondZero)
{
    EXPECT_THAT(calendar.instantOf({2026, 3, 2, 7, 45}),
                Optional(universalTime(2026, 3, 2, 7, 45, 0)));
}

TEST_F(PosixCalendarTest, AnInstantCountsInTheZone)
{
    ZoneGuard::set(zones::nepal);
    EXPECT_THAT(calendar.instantOf({2026, 3, 2, 7, 45}), Optional(universalTime(2026, 3, 2, 2, 0)));

    ZoneGuard::set(zones::centralEurope);
    EXPECT_THAT(calendar.instantOf({2026, 1, 15, 7, 45}),
                Optional(universalTime(2026, 1, 15, 6, 45)));
    EXPECT_THAT(calendar.instantOf({2026, 7, 15, 7, 45}),
                Optional(universalTime(2026, 7, 15, 5, 45)));
}

TEST_F(PosixCalendarTest, TheSecondBefore1970IsAnInstantLikeAnyOther)
{
    // The C library returns -1 for this second and for a failure.
    ZoneGuard::set("<+000001>-0:00:01");

    EXPECT_THAT(calendar.instantOf({1970, 1, 1, 0, 0}), Optional(Instant(seconds(-1))));
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

TEST_F(PosixCalendarTest, ATimeThatSummerTimeSkipsMovesByTheSkippedSpan)
{
    ZoneGuard::set(zones::centralEurope);
    EXPECT_THAT(calendar.instantOf({2026, 3, 29, 2, 0}),
                Optional(universalTime(2026, 3, 29, 1, 0)));
    EXPECT_THAT(calendar.instantOf({2026, 3, 29, 2, 30}),
                Optional(universalTime(2026, 3, 29, 1, 30)));

    ZoneGuard::set(zones::easternAmerica);
    EXPECT_THAT(calendar.instantOf({2026, 3, 8, 2, 30}),
                Optional(universalTime(2026, 3, 8, 7, 30)));

    ZoneGuard::set(zones::lordHowe);
    EXPECT_THAT(calendar.instantOf({2026, 10, 4, 2, 15}),
                Optional(universalTime(2026, 10, 3, 15, 45)));
}

TEST_F(PosixCalendarTest, ATimeThatComesTwiceIsTheFirstOfTheTwo)
{
    ZoneGuard::set(zones::centralEurope);
    EXPECT_THAT(calendar.instantOf({2026, 10, 25, 2, 30}),
                Optional(universalTime(2026, 10, 25, 0, 30)));

    ZoneGuard::set(zones::lordHowe);
    EXPECT_THAT(calendar.instantOf({2026, 4, 5, 1, 45}),
                Optional(universalTime(2026, 4, 4, 14, 45)));
}

TEST_F(PosixCalendarTest, ATimeThatComesTwiceIsTheFirstAlsoWhereSummerTimeIsInWinter)
{
    ZoneGuard::set(zones::ireland);

    EXPECT_THAT(calendar.instantOf({2026, 10, 25, 1, 30}),
                Optional(universalTime(2026, 10, 25, 0, 30)));
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

TEST_F(PosixCalendarTest, OneDayLaterIsTheNextDayAtTheSameSecond)
{
    EXPECT_THAT(calendar.addingOneDay(universalTime(2026, 3, 2, 9, 10, 25)),
                Optional(universalTime(2026, 3, 3, 9, 10, 25)));
}

TEST_F(PosixCalendarTest, OneDayLaterCrossesTheEndOfMonthAndYear)
{
    EXPECT_THAT(calendar.addingOneDay(universalTime(2026, 4, 30, 22, 0)),
                Optional(universalTime(2026, 5, 1, 22, 0)));
    EXPECT_THAT(calendar.addingOneDay(universalTime(2026, 12, 31, 22, 0)),
                Optional(universalTime(2027, 1, 1, 22, 0)));
}

TEST_F(PosixCalendarTest, OneDayLaterKnowsLeapYears)
{
    EXPECT_THAT(calendar.addingOneDay(universalTime(2028, 2, 28, 22, 0)),
                Optional(universalTime(2028, 2, 29, 22, 0)));
    EXPECT_THAT(calendar.addingOneDay(universalTime(2028, 2, 29, 22, 0)),
                Optional(universalTime(2028, 3, 1, 22, 0)));
    EXPECT_THAT(calendar.addingOneDay(universalTime(2027, 2, 28, 22, 0)),
                Optional(universalTime(2027, 3, 1, 22, 0)));
    EXPECT_THAT(calendar.addingOneDay(universalTime(2100, 2, 28, 22, 0)),
                Optional(universalTime(2100, 3, 1, 22, 0)));
}

TEST_F(PosixCalendarTest, OneDayLaterKeepsTheClockTimeAcrossSummerTime)
{
    ZoneGuard::set(zones::centralEurope);
    EXPECT_THAT(calendar.addingOneDay(universalTime(2026, 3, 28, 11, 0)),
                Optional(universalTime(2026, 3, 29, 10, 0)));
    EXPECT_THAT(calendar.addingOneDay(universalTime(2026, 10, 24, 10, 0)),
                Optional(universalTime(2026, 10, 25, 11, 0)));

    ZoneGuard::set(zones::lordHowe);
    EXPECT_THAT(calendar.addingOneDay(universalTime(2026, 10, 3, 1, 30)),
                Optional(universalTime(2026, 10, 4, 1, 0)));
}

TEST_F(PosixCalendarTest, OneDayLaterMovesAClockTimeThatSummerTimeSkips)
{
    ZoneGuard::set(zones::centralEurope);

    EXPECT_THAT(calendar.addingOneDay(universalTime(2026, 3, 28, 1, 30)),
                Optional(universalTime(2026, 3, 29, 1, 30)));
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

TEST_F(PosixCalendarTest, KnowsSummerTimeInTheYear2100)
{
    ZoneGuard::set(zones::centralEurope);
    EXPECT_EQ(shownAt(universalTime(2100, 7, 1, 12)), std::tuple(2100, 7, 1, 14, 0));
    EXPECT_THAT(calendar.instantOf({2100, 1, 1, 1, 0}), Optional(universalTime(2100, 1, 1)));
}

} // namespace
} // namespace voltmere
