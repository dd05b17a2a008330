#include "fakes/model_world.h"
#include "fakes/sample_devices.h"
#include "snooze/snooze_alert.h"

#include <gmock/gmock.h>

namespace voltmere {
namespace {

using std::chrono::hours;
using std::chrono::minutes;
using std::chrono::seconds;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::size_t in20 = 0;
constexpr std::size_t in30 = 1;
constexpr std::size_t in60 = 2;
constexpr std::size_t in120 = 3;

class SnoozeOperationsTest : public testing::Test {
protected:
    /// Starts the model with a mouse at 12 %, whose alert is then on screen. Immediate alerts
    /// and the daily check are off, so that nothing but a snooze brings another.
    BatteryModel& startWithAlert()
    {
        world.setLevels({{803, 12}});
        BatteryModel& model = world.start();
        model.instantEnabled = false;
        model.enabled = false;
        world.runLoop.settle();
        return model;
    }

    FakeAlertPresenter::Shown& alert() { return *world.alerts.shown.back(); }

    std::size_t alertCount() const { return world.alerts.shown.size(); }

    void advance(Seconds span) { world.runLoop.advance(span); }

    void showAgain() { world.model->showSnoozeAlert({mouse(12)}, true); }

    ModelWorld world;
};

TEST_F(SnoozeOperationsTest, AnAlertShowsTheDevicesItIsGivenAndThePreselectedTime)
{
    world.setClock(14, 37);
    BatteryModel& model = world.start();
    world.runLoop.settle();

    model.showSnoozeAlert({mouse(12), keyboard(8)}, true);

    ASSERT_EQ(alertCount(), 1U);
    EXPECT_EQ(alert().content, makeAlertContent({mouse(12), keyboard(8)}, true, {15, 35}));
    EXPECT_TRUE(alert().visible);
    EXPECT_EQ(alert().broughtToFront, 0);
}

TEST_F(SnoozeOperationsTest, ThePreselectedTimeIsTakenFromTheClockNotFromTheLastChoice)
{
    world.setClock(23, 58);
    BatteryModel& model = startWithAlert();
    EXPECT_EQ(alert().content.hour.selected, 0U);
    EXPECT_EQ(alert().content.minute.selected, 11U);

    alert().actions.chooseTime(7, 45);
    model.showSnoozeAlert({mouse(12)}, true);
    EXPECT_EQ(alert().content.hour.selected, 0U);
    EXPECT_EQ(alert().content.minute.selected, 11U);
}

TEST_F(SnoozeOperationsTest, TheTestButtonWithNothingLowShowsTheAllGoodForm)
{
    world.setLevels({{803, 80}, {805, 64}});
    BatteryModel& model = world.start();
    world.runLoop.settle();

    const AlertPayload payload = model.alertPayload();
    model.showSnoozeAlert(payload.devices, payload.isLow);

    ASSERT_EQ(alertCount(), 1U);
    EXPECT_EQ(alert().content.title.whole(), "Peripheral battery");
    EXPECT_EQ(alert().content.detail, "All good: Mouse80%, Keyboard64%");
    EXPECT_FALSE(alert().content.detailIsRed);
}

TEST_F(SnoozeOperationsTest, AVisibleAlertIsBroughtToTheFrontAndStillShowsTheFirstDevices)
{
    BatteryModel& model = startWithAlert();
    const AlertContent first = alert().content;

    model.showSnoozeAlert({keyboard(3)}, true);
    model.showSnoozeAlert({}, false);

    EXPECT_EQ(alertCount(), 1U);
    EXPECT_EQ(alert().broughtToFront, 2);
    EXPECT_EQ(alert().content, first);
    EXPECT_TRUE(alert().visible);
}

TEST_F(SnoozeOperationsTest, CancelHidesTheAlertSchedulesNothingAndALaterAlertIsBuiltAnew)
{
    BatteryModel& model = startWithAlert();
    const std::size_t timersBefore = world.runLoop.timerCount();

    alert().actions.cancel();

    EXPECT_FALSE(alert().visible);
    EXPECT_EQ(world.runLoop.timerCount(), timersBefore);
    advance(hours(48));
    EXPECT_EQ(alertCount(), 1U);

    model.showSnoozeAlert({keyboard(3)}, true);
    ASSERT_EQ(alertCount(), 2U);
    EXPECT_TRUE(alert().visible);
    EXPECT_EQ(alert().content.title.whole(), "Magic Keyboard battery alert");
    EXPECT_EQ(world.alerts.shown.front()->broughtToFront, 0);
}

/// Index of the option, and its delay in seconds.
class SnoozeOptionChoiceTest : public SnoozeOperationsTest,
                               public testing::WithParamInterface<std::pair<std::size_t, int>> { };

TEST_P(SnoozeOptionChoiceTest, HidesTheAlertAndBringsAFreshOneAfterItsDelay)
{
    const auto [option, delay] = GetParam();
    startWithAlert();

    alert().actions.chooseOption(option);
    EXPECT_FALSE(alert().visible);

    advance(seconds(delay - 1));
    EXPECT_EQ(alertCount(), 1U);
    advance(seconds(1));
    ASSERT_EQ(alertCount(), 2U);
    EXPECT_TRUE(alert().visible);

    alert().actions.cancel();
    advance(hours(24));
    EXPECT_EQ(alertCount(), 2U);
}

INSTANTIATE_TEST_SUITE_P(Options, SnoozeOptionChoiceTest,
                         testing::Values(std::pair(in20, 1200), std::pair(in30, 1800),
                                         std::pair(in60, 3600), std::pair(in120, 7200)));

TEST_F(SnoozeOperationsTest, AnOptionHidesTheAlertBeforeItSchedules)
{
    startWithAlert();
    const std::size_t timersBefore = world.runLoop.timerCount();
    std::vector<std::size_t> timersAtHiding;
    alert().whileOrderingOut = [&] { timersAtHiding.push_back(world.runLoop.timerCount()); };

    alert().actions.chooseOption(in20);

    EXPECT_THAT(timersAtHiding, ElementsAre(timersBefore));
    EXPECT_EQ(world.runLoop.timerCount(), timersBefore + 1);
}

TEST_F(SnoozeOperationsTest, ANewerSnoozeReplacesThePendingOne)
{
    startWithAlert();
    alert().actions.chooseOption(in30);
    const std::size_t timers = world.runLoop.timerCount();
    advance(minutes(10));
    showAgain();

    alert().actions.chooseOption(in120);

    EXPECT_EQ(world.runLoop.timerCount(), timers);
    advance(seconds(7199));
    EXPECT_EQ(alertCount(), 2U);
    advance(seconds(1));
    EXPECT_EQ(alertCount(), 3U);
}

TEST_F(SnoozeOperationsTest, CancelDoesNotCancelAPendingSnooze)
{
    startWithAlert();
    alert().actions.chooseOption(in30);
    advance(minutes(10));
    showAgain();

    alert().actions.cancel();

    advance(seconds(1199));
    EXPECT_EQ(alertCount(), 2U);
    advance(seconds(1));
    EXPECT_EQ(alertCount(), 3U);
}

TEST_F(SnoozeOperationsTest, ANewAlertDoesNotCancelAPendingSnoozeWhichThenBringsItToTheFront)
{
    startWithAlert();
    alert().actions.chooseOption(in30);
    advance(minutes(10));
    showAgain();

    advance(minutes(20));

    EXPECT_EQ(alertCount(), 2U);
    EXPECT_EQ(alert().broughtToFront, 1);
}

TEST_F(SnoozeOperationsTest, ASnoozeShowsWhatIsLowThenNotWhatWasLowWhenItWasChosen)
{
    startWithAlert();
    alert().actions.chooseOption(in30);
    world.setLevels({{803, 100}, {805, 8}});

    advance(minutes(30));

    ASSERT_EQ(alertCount(), 2U);
    EXPECT_EQ(alert().content.title.whole(), "Magic Keyboard battery alert");
    EXPECT_EQ(alert().content.detail, "Battery at 8%. Please charge.");
}

TEST_F(SnoozeOperationsTest, ASnoozeJudgesByTheThresholdAndSpeaksTheLanguageOfItsMoment)
{
    BatteryModel& model = startWithAlert();
    alert().actions.chooseOption(in30);
    model.threshold = 11;
    model.language = "zh";

    advance(minutes(30));

    ASSERT_EQ(alertCount(), 2U);
    EXPECT_EQ(alert().content.title.whole(), "外设电量");
    EXPECT_EQ(alert().content.detail, "电量正常：鼠标12%");
    EXPECT_FALSE(alert().content.detailIsRed);
}

TEST_F(SnoozeOperationsTest, ASnoozeReadsNothingAndPostsNothing)
{
    startWithAlert();
    advance(seconds(30));
    alert().actions.chooseOption(in20);
    advance(seconds(1199));
    const int readings = world.batteries.readings;

    advance(seconds(1));

    EXPECT_EQ(alertCount(), 2U);
    EXPECT_EQ(world.batteries.readings, readings);
    EXPECT_THAT(world.runLoop.background, IsEmpty());
    EXPECT_THAT(world.notifications.requests, IsEmpty());
    EXPECT_THAT(world.log.lines, IsEmpty());
}

TEST_F(SnoozeOperationsTest, ASnoozeDoesNotCountAsHavingAlerted)
{
    BatteryModel& model = startWithAlert();
    alert().actions.chooseOption(in20);
    world.setLevels({{803, 100}, {805, 8}});
    advance(minutes(20));
    ASSERT_EQ(alertCount(), 2U);
    alert().actions.cancel();

    model.instantEnabled = true;
    advance(minutes(5));

    EXPECT_EQ(alertCount(), 3U);
    EXPECT_THAT(world.log.lines, ElementsAre("Voltmere: 立即提醒 Magic Keyboard 8%"));
}

TEST_F(SnoozeOperationsTest, ChoosingALaterTimeTodayAlertsThenLessTheSecondsElapsed)
{
    world.setClock(9, 10, 25);
    startWithAlert();

    alert().actions.chooseTime(9, 30);
    EXPECT_FALSE(alert().visible);

    advance(seconds(1174));
    EXPECT_EQ(alertCount(), 1U);
    advance(seconds(1));
    EXPECT_EQ(alertCount(), 2U);
}

TEST_F(SnoozeOperationsTest, ChoosingATimeHidesThenSetsHourThenMinuteThenSchedules)
{
    BatteryModel& model = startWithAlert();
    const std::size_t timersBefore = world.runLoop.timerCount();
    std::vector<std::string> events;
    const Subscription subscription = model.objectWillChange.subscribe([&] {
        events.push_back(std::to_string(model.customHour.get()) + ':' +
                         std::to_string(model.customMinute.get()) +
                         (alert().visible ? " visible" : " hidden"));
        EXPECT_EQ(world.runLoop.timerCount(), timersBefore);
    });

    alert().actions.chooseTime(7, 45);

    EXPECT_THAT(events, ElementsAre("10:0 hidden", "7:0 hidden"));
    EXPECT_EQ(model.customHour.get(), 7);
    EXPECT_EQ(model.customMinute.get(), 45);
    EXPECT_EQ(world.runLoop.timerCount(), timersBefore + 1);
}

TEST_F(SnoozeOperationsTest, AChosenTimeReplacesAPendingSnoozeAndIsReplacedByOne)
{
    world.setClock(9, 10);
    startWithAlert();
    alert().actions.chooseOption(in20);
    showAgain();
    alert().actions.chooseTime(9, 45);
    advance(minutes(34));
    EXPECT_EQ(alertCount(), 2U);
    advance(minutes(1));
    ASSERT_EQ(alertCount(), 3U);

    alert().actions.chooseTime(10, 0);
    showAgain();
    alert().actions.chooseOption(in60);
    advance(minutes(59));
    EXPECT_EQ(alertCount(), 4U);
    advance(minutes(1));
    EXPECT_EQ(alertCount(), 5U);
}

TEST_F(SnoozeOperationsTest, AChoiceOfAnAlertThatIsHiddenAlreadyStillSchedules)
{
    startWithAlert();
    const AlertActions actions = alert().actions;
    actions.cancel();

    actions.chooseOption(in20);

    advance(seconds(1200));
    EXPECT_EQ(alertCount(), 2U);
}

TEST_F(SnoozeOperationsTest, APendingSnoozeAndActionsThatOutliveTheModelDoNothing)
{
    startWithAlert();
    const AlertActions actions = alert().actions;
    actions.chooseOption(in30);
    world.model.reset();
    const std::size_t timersBefore = world.runLoop.timerCount();

    actions.cancel();
    actions.chooseOption(in20);
    actions.chooseTime(7, 45);

    EXPECT_EQ(world.runLoop.timerCount(), timersBefore);
    advance(hours(48));
    EXPECT_EQ(alertCount(), 1U);
}

} // namespace
} // namespace voltmere
