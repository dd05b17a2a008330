#include "snooze/custom_time.h"

#include "fakes/fake_calendar.h"
#include "fakes/time_zones.h"
#include "posix/calendar.h"

#include <gmock/gmock.h>

#include <ostream>

namespace voltmere {

void PrintTo(const ClockTime& time, std::ostream* out)
{
    *out << time.hour << ':' << time.minute;
}

namespace {

using std::chrono::hours;
using std::chrono::milliseconds;
using std::chrono::minutes;
using std::chrono::seconds;
using testing::AnyOf;
using testing::SizeIs;

/// A calendar that knows every day but the next one.
class CalendarWithoutTomorrow : public FakeCalendar {
public:
    std::optional<Instant> addingOneDay(Instant /*instant*/) const override { return std::nullopt; }
};

ClockTime preselectedAt(int hour, int minute, int second = 0)
{
    return preselectedTime(universalTime(2026, 3, 2, hour, minute, second), FakeCalendar());
}

Seconds untilNextFrom(int hour, int minute, int second, const ClockTime& time)
{
    return untilNext(time, universalTime(2026, 3, 2, hour, minute, second), FakeCalendar());
}

/// The instant that `untilNext` finds, in the C library's present zone.
Instant nextInstant(const ClockTime& time, Instant now)
{
    return now + std::chrono::round<Instant::duration>(untilNext(time, now, PosixCalendar()));
}

ClockTime clockAt(Instant instant)
{
    const LocalTime time = PosixCalendar().localTime(instant);
    return {time.hour, time.minute};
}

TEST(PreselectedTimeTest, At2230ItIs2330AndAt2358ItIs0055)
{
    EXPECT_EQ(preselectedAt(22, 30), (ClockTime{23, 30}));
    EXPECT_EQ(preselectedAt(23, 58), (ClockTime{0, 55}));
    EXPECT_EQ(preselectedAt(14, 39, 59), (ClockTime{15, 35}));
}

TEST(PreselectedTimeTest, EveryMinuteOfTheDayYieldsAnOfferedTime)
{
    for (int minute = 0; minute < 24 * 60; ++minute) {
        const ClockTime time = preselectedAt(0, minute);
        EXPECT_EQ(time.hour, (minute / 60 + 1) % 24);
        EXPECT_EQ(time.minute, minute % 60 / 5 * 5);
    }
}

TEST(PreselectedTimeTest, UsesTheCalendarsZone)
{
    FakeCalendar calendar;
    calendar.offset = minutes(345);

    EXPECT_EQ(preselectedTime(universalTime(2026, 3, 2, 10, 0), calendar), (ClockTime{16, 45}));
}

TEST(PreselectedTimeTest, OneHourAheadIsAnHourOfTimeWhenTheClockJumps)
{
    const ZoneGuard zone(zones::centralEurope);
    const PosixCalendar calendar;

    // 1:37 before the clock jumps from 2:00 to 3:00.
    EXPECT_EQ(preselectedTime(universalTime(2026, 3, 29, 0, 37), calendar), (ClockTime{3, 35}));
    // 2:37 before the clock goes back from 3:00 to 2:00.
    EXPECT_EQ(preselectedTime(universalTime(2026, 10, 25, 0, 37), calendar), (ClockTime{2, 35}));
}

TEST(UntilNextTest, At910ATimeOf930IsTodayLessTheSecondsElapsed)
{
    EXPECT_EQ(untilNextFrom(9, 10, 0, {9, 30}), seconds(1200));
    EXPECT_EQ(untilNextFrom(9, 10, 25, {9, 30}), seconds(1175));
    EXPECT_EQ(untilNext({9, 30}, universalTime(2026, 3, 2, 9, 29, 59) + milliseconds(250),
                        FakeCalendar()),
              milliseconds(750));
}

TEST(UntilNextTest, At910ATimeOf910OrAnEarlierOneIsTomorrow)
{
    EXPECT_EQ(untilNextFrom(9, 10, 0, {9, 10}), hours(24));
    EXPECT_EQ(untilNextFrom(9, 10, 59, {9, 10}), hours(24) - seconds(59));
    EXPECT_EQ(untilNextFrom(9, 10, 0, {8, 0}), hours(22) + minutes(50));
}

TEST(UntilNextTest, TodayIsTheDayInTheUsersZone)
{
    FakeCalendar calendar;
    calendar.offset = hours(9);

    // 1:00 of the next day, by the user's clock.
    EXPECT_EQ(untilNext({7, 45}, universalTime(2026, 3, 2, 16, 0), calendar),
              hours(6) + minutes(45));
}

TEST(UntilNextTest, ACalendarThatYieldsNoInstantMeansOneHour)
{
    FakeCalendar calendar;
    calendar.hasNoInstants = true;

    EXPECT_EQ(untilNext({8, 0}, universalTime(2026, 3, 2, 9, 10, 25), calendar), seconds(3600));
}

TEST(UntilNextTest, ACalendarWithoutTomorrowKeepsTheTargetOfToday)
{
    const CalendarWithoutTomorrow calendar;

    EXPECT_EQ(untilNext({9, 10}, universalTime(2026, 3, 2, 9, 10), calendar), seconds(0));
    EXPECT_EQ(untilNext({8, 0}, universalTime(2026, 3, 2, 9, 10), calendar), -minutes(70));
    EXPECT_EQ(untilNext({9, 30}, universalTime(2026, 3, 2, 9, 10), calendar), minutes(20));
}

class UntilNextPosixTest : public testing::Test {
    ZoneGuard zone{zones::universal};
};

TEST_F(UntilNextPosixTest, CrossesTheEndOfAMonthAndAYearAndKnowsTheLeapDay)
{
    EXPECT_EQ(nextInstant({0, 55}, universalTime(2026, 12, 31, 23, 58, 30)),
              universalTime(2027, 1, 1, 0, 55));
    EXPECT_EQ(nextInstant({7, 45}, universalTime(2028, 2, 28, 22, 0)),
              universalTime(2028, 2, 29, 7, 45));
    EXPECT_EQ(nextInstant({7, 45}, universalTime(2028, 2, 29, 22, 0)),
              universalTime(2028, 3, 1, 7, 45));
    EXPECT_EQ(nextInstant({7, 45}, universalTime(2027, 2, 28, 22, 0)),
              universalTime(2027, 3, 1, 7, 45));
}

TEST_F(UntilNextPosixTest, TheNightIntoSummerTimeIsAnHourShorterAndTheNightOutOfItLonger)
{
    ZoneGuard::set(zones::centralEurope);

    // From 21:00 to 7:45.
    EXPECT_EQ(untilNext({7, 45}, universalTime(2026, 3, 28, 20, 0), PosixCalendar()),
              hours(9) + minutes(45));
    EXPECT_EQ(untilNext({7, 45}, universalTime(2026, 10, 24, 19, 0), PosixCalendar()),
              hours(11) + minutes(45));
}

TEST_F(UntilNextPosixTest, ATimeThatSummerTimeSkipsComesAnHourLaterByTheClock)
{
    ZoneGuard::set(zones::centralEurope);

    // Half past one on the day itself, and ten in the evening before.
    const Instant moved = universalTime(2026, 3, 29, 1, 30);
    EXPECT_EQ(nextInstant({2, 30}, universalTime(2026, 3, 29, 0, 30)), moved);
    EXPECT_EQ(nextInstant({2, 30}, universalTime(2026, 3, 28, 21, 0)), moved);
    EXPECT_EQ(clockAt(moved), (ClockTime{3, 30}));
}

TEST_F(UntilNextPosixTest, ATimeThatComesTwiceIsTheFirstOfTheTwo)
{
    ZoneGuard::set(zones::centralEurope);

    // Ten past one, summer time.
    EXPECT_EQ(nextInstant({2, 30}, universalTime(2026, 10, 24, 23, 10)),
              universalTime(2026, 10, 25, 0, 30));
}

/// Days around a change of the clock in one zone, and the hour that the change skips, if any.
struct ClockChange {
    const char* name;
    const char* zone;
    Instant begin;
    ClockTime skippedFrom; ///< equal to `skippedTo` when the clock goes back or does not change
    ClockTime skippedTo;
};

void PrintTo(const ClockChange& change, std::ostream* out)
{
    *out << change.name;
}

int minuteOfDay(const ClockTime& time)
{
    return time.hour * 60 + time.minute;
}

class ClockChangeTest : public testing::TestWithParam<ClockChange> { };

TEST_P(ClockChangeTest, EveryOfferedTimeLiesAheadAndIsWhatTheClockThenShows)
{
    const ClockChange& change = GetParam();
    const ZoneGuard zone(change.zone);
    const int skippedFrom = minuteOfDay(change.skippedFrom);
    const int skippedTo = minuteOfDay(change.skippedTo);

    for (Instant now = change.begin; now < change.begin + hours(72); now += minutes(37)) {
        for (int offered = 0; offered < 24 * 60; offered += minuteStep) {
            const Instant next = nextInstant({offered / 60, offered % 60}, now);
            const int shown = minuteOfDay(clockAt(next));
            ASSERT_GT(next, now);
            ASSERT_LE(next, now + hours(25));
            if (offered >= skippedFrom && offered < skippedTo) {
                ASSERT_THAT(shown, AnyOf(offered, offered + skippedTo - skippedFrom));
            } else {
                ASSERT_EQ(shown, offered);
            }
        }
    }
}

const ClockChange clockChanges[]{
    {"EuropeIntoSummer", zones::centralEurope, universalTime(2026, 3, 27, 22, 7), {2, 0}, {3, 0}},
    {"EuropeOutOfSummer", zones::centralEurope, universalTime(2026, 10, 23, 22, 7), {}, {}},
    {"AmericaIntoSummer", zones::easternAmerica, universalTime(2026, 3, 7, 4, 7), {2, 0}, {3, 0}},
    {"AmericaOutOfSummer", zones::easternAmerica, universalTime(2026, 10, 31, 4, 7), {}, {}},
    {"HalfAnHourIntoSummer", zones::lordHowe, universalTime(2026, 10, 2, 13, 7), {2, 0}, {2, 30}},
    {"HalfAnHourOutOfSummer", zones::lordHowe, universalTime(2026, 4, 3, 13, 7), {}, {}},
    {"NoSummerTime", zones::nepal, universalTime(2026, 3, 27, 18, 7), {}, {}},
};

INSTANTIATE_TEST_SUITE_P(Zones, ClockChangeTest, testing::ValuesIn(clockChanges),
                         [](const auto& change) { return std::string(change.param.name); });

TEST(TimePopUpsTest, TheHoursAreTwentyFourTwoDigitNumbersTheLast23)
{
    const PopUp<std::int64_t> popUp = hourPopUp(9);
    EXPECT_THAT(popUp.titles, SizeIs(24));
    EXPECT_EQ(popUp.titles.front(), "00");
    EXPECT_EQ(popUp.titles.at(9), "09");
    EXPECT_EQ(popUp.titles.back(), "23");
    EXPECT_EQ(popUp.values.at(23), 23);
    EXPECT_EQ(popUp.selected, 9U);
    EXPECT_EQ(hourPopUp(24).selected, std::nullopt);
}

TEST(TimePopUpsTest, TheMinutesAreTwelveTheLast55)
{
    const PopUp<std::int64_t> popUp = minutePopUp(55);
    EXPECT_THAT(popUp.titles,
                testing::ElementsAre("00", "05", "10", "15", "20", "25", "30", "35", "40", "45",
                                     "50", "55"));
    EXPECT_THAT(popUp.values, testing::ElementsAre(0, 5, 10, 15, 20, 25, 30, 35, 40, 45, 50, 55));
    EXPECT_EQ(popUp.selected, 11U);
    EXPECT_EQ(minutePopUp(7).selected, std::nullopt);
}

} // namespace
} // namespace voltmere
