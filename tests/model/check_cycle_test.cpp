#include "model/check_cycle_fixture.h"

#include "fakes/sample_devices.h"
#include "fakes/time_zones.h"
#include "posix/calendar.h"

#include <gmock/gmock.h>

namespace voltmere {
namespace {

using std::chrono::days;
using std::chrono::hours;
using std::chrono::minutes;
using std::chrono::seconds;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;
using testing::SizeIs;

TEST_F(CheckCycleTest, TheDevicesAreNeverReadOnTheMainThread)
{
    BatteryModel& model = world.start();
    model.checkNow();
    model.refresh(true);
    model.refresh(false);

    EXPECT_EQ(readings(), 0);
    EXPECT_THAT(world.runLoop.background, SizeIs(4));
}

TEST_F(CheckCycleTest, TheResultReachesTheModelOnTheMainThread)
{
    world.setLevels({{803, 80}});
    const BatteryModel& model = world.start();

    finishReading(0);
    EXPECT_THAT(model.devices.get(), IsEmpty());
    EXPECT_EQ(model.status.get(), "Waiting for check");

    world.runLoop.settle();
    EXPECT_THAT(model.devices.get(), ElementsAre(mouse(80)));
    EXPECT_EQ(model.status.get(), "Battery level is fine");
}

TEST_F(CheckCycleTest, AQuietRefreshComesEveryFifthTick)
{
    startWithLowMouse();

    advance(seconds(299));
    EXPECT_EQ(readings(), 1);
    advance(seconds(1));
    EXPECT_EQ(readings(), 2);
    advance(seconds(299));
    EXPECT_EQ(readings(), 2);
    advance(seconds(1));
    EXPECT_EQ(readings(), 3);
    EXPECT_EQ(fullChecks(), 1);
}

TEST_F(CheckCycleTest, WithTheDailyCheckOffTicksNeverCheckButStillRefreshEveryFifthTick)
{
    BatteryModel& model = startWithLowMouse();
    model.enabled = false;

    advance(days(1));

    EXPECT_EQ(fullChecks(), 1);
    EXPECT_EQ(quietRefreshes(), 288);
}

TEST_F(CheckCycleTest, ATickAt223040ChecksAndTheNextRefreshComesFiveTicksLater)
{
    world.setClock(22, 27, 40);
    startWithLowMouse();

    advance(seconds(179));
    EXPECT_EQ(readings(), 1);
    advance(seconds(1));
    EXPECT_EQ(readings(), 2);
    EXPECT_EQ(fullChecks(), 2);

    advance(seconds(299));
    EXPECT_EQ(readings(), 2);
    advance(seconds(1));
    EXPECT_EQ(readings(), 3);
    EXPECT_EQ(fullChecks(), 2);
}

TEST_F(CheckCycleTest, AFullCheckTakesThePlaceOfARefreshThatIsDue)
{
    world.setClock(22, 25);
    startWithLowMouse();

    advance(minutes(5));

    EXPECT_EQ(readings(), 2);
    EXPECT_EQ(fullChecks(), 2);
}

TEST_F(CheckCycleTest, ChangingTheHourOrMinuteOrSwitchOrAssigningTheSameRestartsTheTimerAndTheCount)
{
    BatteryModel& model = startWithLowMouse();

    for (const auto& change : std::vector<std::function<void()>>{
             [&] { model.checkHour = 21; }, [&] { model.checkHour = 21; },
             [&] { model.checkMinute = 0; }, [&] { model.enabled = false; }}) {
        const int before = readings();
        advance(seconds(4 * 60 + 30));
        change();
        advance(seconds(299));
        EXPECT_EQ(readings(), before);
        advance(seconds(1));
        EXPECT_EQ(readings(), before + 1);
    }
}

TEST_F(CheckCycleTest, ChangingAnotherSettingLeavesTheTimerAndTheCount)
{
    BatteryModel& model = startWithLowMouse();

    advance(minutes(4));
    model.threshold = 30;
    model.instantEnabled = true;
    model.language = "zh";
    advance(minutes(1));

    EXPECT_EQ(readings(), 2);
}

TEST_F(CheckCycleTest, TwoTicksInTheChosenMinuteCheckTwice)
{
    world.setClock(22, 29, 0);
    startWithLowMouse();

    advance(seconds(60));
    EXPECT_EQ(fullChecks(), 2);

    // A time server takes one second back: the next tick is at 22:30:59.
    world.clock.present -= seconds(1);
    advance(seconds(60));
    EXPECT_EQ(fullChecks(), 3);
    EXPECT_EQ(quietRefreshes(), 0);
}

TEST_F(CheckCycleTest, ATickDelayedPastTheChosenMinuteMissesThatDaysCheck)
{
    world.setClock(22, 28, 30);
    startWithLowMouse();

    advance(seconds(60));
    world.runLoop.sleepFor(seconds(100));
    // 22:31:10
    EXPECT_EQ(fullChecks(), 1);

    advance(hours(23) + minutes(58));
    EXPECT_EQ(fullChecks(), 1);
    advance(minutes(2));
    EXPECT_EQ(fullChecks(), 2);
}

TEST_F(CheckCycleTest, AfterASleepTheTimerTicksOnceNotOncePerMissedMinute)
{
    startWithLowMouse();

    world.runLoop.sleepFor(hours(8));
    EXPECT_EQ(readings(), 1);

    advance(minutes(3));
    EXPECT_EQ(readings(), 1);
    advance(minutes(1));
    EXPECT_EQ(readings(), 2);
    EXPECT_EQ(fullChecks(), 1);
}

TEST_F(CheckCycleTest, ASleepThatEndsInTheChosenMinuteChecksOnce)
{
    startWithLowMouse();

    world.runLoop.sleepFor(hours(12) + minutes(30) + seconds(20));

    EXPECT_EQ(readings(), 2);
    EXPECT_EQ(fullChecks(), 2);
}

TEST_F(CheckCycleTest, AClockSetBackChecksAgain)
{
    world.setClock(22, 29);
    startWithLowMouse();
    advance(minutes(1));
    EXPECT_EQ(fullChecks(), 2);

    world.setClock(22, 20);
    advance(minutes(9));
    EXPECT_EQ(fullChecks(), 2);
    advance(minutes(1));
    EXPECT_EQ(fullChecks(), 3);
}

TEST_F(CheckCycleTest, AClockChangeLeavesTheTicksSixtySecondsApart)
{
    startWithLowMouse();
    advance(minutes(2));

    world.setClock(3, 0);
    advance(seconds(179));
    EXPECT_EQ(readings(), 1);
    advance(seconds(1));
    EXPECT_EQ(readings(), 2);
}

TEST_F(CheckCycleTest, AChangeOfZoneMovesTheDailyCheckAtOnce)
{
    startWithLowMouse();

    // 10:00 becomes 22:00.
    world.calendar.offset = hours(12);
    advance(minutes(29));
    EXPECT_EQ(fullChecks(), 1);
    advance(minutes(1));
    EXPECT_EQ(fullChecks(), 2);

    // Back home the clock comes to 22:30 once more on the same day.
    world.calendar.offset = hours(0);
    advance(hours(12));
    EXPECT_EQ(fullChecks(), 3);
}

/// The same with the C library's calendar, on the days when the clock changes.
class CheckCycleSummerTimeTest : public CheckCycleTest {
protected:
    /// Starts at midnight of the zone with a check time of 2:30.
    void startAt(Instant midnight)
    {
        world.clock.present = midnight;
        world.setLevels({{803, 10}});
        world.model = std::make_unique<BatteryModel>(
            ModelServices{world.defaults, world.runLoop, world.clock, calendar, world.loginItems,
                          world.notifications, world.notificationDelegate, world.alerts, world.log,
                          world.reader});
        world.model->checkHour = 2;
        world.model->checkMinute = 30;
        world.runLoop.settle();
    }

    void TearDown() override { world.model.reset(); }

    ZoneGuard zone{zones::centralEurope};
    PosixCalendar calendar;
};

TEST_F(CheckCycleSummerTimeTest, ACheckTimeThatSummerTimeSkipsIsMissedThatDay)
{
    startAt(universalTime(2026, 3, 28, 23));

    advance(hours(23));
    EXPECT_EQ(fullChecks(), 1);
    advance(hours(24));
    EXPECT_EQ(fullChecks(), 2);
}

TEST_F(CheckCycleSummerTimeTest, ACheckTimeThatComesTwiceChecksTwice)
{
    startAt(universalTime(2026, 10, 24, 22));

    advance(hours(25));

    EXPECT_EQ(fullChecks(), 3);
}

TEST_F(CheckCycleTest, ThePanelsRefreshLeavesTheTickCount)
{
    BatteryModel& model = startWithLowMouse();
    advance(minutes(4));
    model.refresh(false);
    world.runLoop.settle();
    EXPECT_EQ(readings(), 2);

    advance(minutes(1));
    EXPECT_EQ(readings(), 3);
}

TEST_F(CheckCycleTest, GoesOnWhereTheClockStandsAt1970OrAt2100)
{
    for (const int year : {1970, 2100}) {
        SCOPED_TRACE(year);
        ModelWorld odd;
        odd.clock.present = universalTime(year, 1, 1, 22, 20);
        odd.setLevels({{803, 50}});
        BatteryModel& model = odd.start();
        odd.runLoop.settle();
        EXPECT_THAT(model.lastChecked.get(), Optional(universalTime(year, 1, 1, 22, 20)));

        odd.setLevels({{803, 10}});
        odd.runLoop.advance(minutes(20));
        ASSERT_THAT(odd.alerts.shown, SizeIs(1));
        odd.alerts.shown[0]->actions.chooseTime(7, 45);
        odd.runLoop.advance(hours(9));
        EXPECT_THAT(odd.alerts.shown, SizeIs(1));
        odd.runLoop.advance(minutes(30));
        EXPECT_THAT(odd.alerts.shown, SizeIs(2));
        odd.model.reset();
    }
}

TEST_F(CheckCycleTest, AClockThatJumpsFrom1970To2100KeepsTicking)
{
    world.clock.present = universalTime(1970, 1, 1);
    world.setLevels({{803, 50}});
    const BatteryModel& model = world.start();
    world.runLoop.advance(minutes(5));
    const int readings = world.batteries.readings;

    world.clock.present = universalTime(2100, 1, 1);
    world.runLoop.advance(minutes(5));

    EXPECT_EQ(world.batteries.readings, readings + 1);
    EXPECT_THAT(model.lastChecked.get(), Optional(universalTime(2100, 1, 1, 0, 5)));
}

} // namespace
} // namespace voltmere
