#include "model/check_cycle_fixture.h"

#include "fakes/sample_devices.h"

#include <gmock/gmock.h>

namespace voltmere {
namespace {

using std::chrono::minutes;
using std::chrono::seconds;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Optional;
using testing::SizeIs;

/// What the model makes of a reading once it is there.
class ReadingResultTest : public CheckCycleTest { };

TEST_F(ReadingResultTest, AFullCheckResolvesNamesAfreshAndAQuietRefreshUsesTheCache)
{
    world.names.names = {{"AA-BB-CC-DD-EE-FF", "Ada's mouse"}};
    world.setClock(22, 22);
    startWithLowMouse();
    EXPECT_EQ(world.names.readings, 1);

    advance(minutes(5));
    EXPECT_EQ(readings(), 2);
    EXPECT_EQ(world.names.readings, 1);

    advance(minutes(3));
    EXPECT_EQ(readings(), 3);
    EXPECT_EQ(world.names.readings, 2);
}

TEST_F(ReadingResultTest, AFullCheckAlertsOfEveryLowDeviceWhateverTheInstantSwitchSays)
{
    BatteryModel& model = startWithLowMouse();
    model.instantEnabled = false;
    dismissAlert();
    world.setLevels({{803, 10}, {805, 9}});

    model.checkNow();
    world.runLoop.settle();

    ASSERT_THAT(world.alerts.shown, SizeIs(2));
    EXPECT_EQ(world.alerts.shown.back()->content.detail, "Mouse10%, Keyboard9%. Please charge.");
    EXPECT_THAT(world.log.lines, IsEmpty());
}

TEST_F(ReadingResultTest, ATicksRefreshAlertsOfANewlyLowDeviceAndLogsIt)
{
    startWithLowMouse();
    dismissAlert();
    world.setLevels({{803, 9}, {805, 20}});

    advance(minutes(5));

    ASSERT_THAT(world.alerts.shown, SizeIs(2));
    EXPECT_EQ(world.alerts.shown.back()->content.title.whole(), "Magic Keyboard battery alert");
    EXPECT_THAT(world.log.lines, ElementsAre("Voltmere: 立即提醒 Magic Keyboard 20%"));
}

TEST_F(ReadingResultTest, AnInstantAlertIsLoggedBeforeItShows)
{
    world.start();
    world.runLoop.settle();
    std::vector<std::size_t> alertsAtLines;
    world.log.whileWriting = [&] { alertsAtLines.push_back(world.alerts.shown.size()); };
    world.setLevels({{803, 10}});

    advance(minutes(5));

    EXPECT_THAT(alertsAtLines, ElementsAre(0U));
    EXPECT_THAT(world.alerts.shown, SizeIs(1));
}

TEST_F(ReadingResultTest, TwoRefreshesThatFindTheMouseLowGiveOneAlertAndOneLogLine)
{
    world.start();
    world.runLoop.settle();
    world.setLevels({{803, 10}});

    advance(minutes(10));

    EXPECT_EQ(readings(), 3);
    ASSERT_THAT(world.alerts.shown, SizeIs(1));
    EXPECT_EQ(world.alerts.shown.front()->broughtToFront, 0);
    EXPECT_THAT(world.log.lines, SizeIs(1));
}

TEST_F(ReadingResultTest, WithInstantAlertsOffARefreshShowsAndLogsNothingButReleases)
{
    BatteryModel& model = startWithLowMouse();
    dismissAlert();
    model.instantEnabled = false;
    world.setLevels({{803, 90}, {805, 9}});
    advance(minutes(5));
    EXPECT_THAT(world.alerts.shown, SizeIs(1));
    EXPECT_THAT(world.log.lines, IsEmpty());

    model.instantEnabled = true;
    world.setLevels({{803, 10}});
    advance(minutes(5));
    EXPECT_THAT(world.log.lines, ElementsAre("Voltmere: 立即提醒 Magic Mouse 10%"));
}

TEST_F(ReadingResultTest, ThePanelsRefreshShowsAndLogsNothingButReleases)
{
    BatteryModel& model = startWithLowMouse();
    dismissAlert();
    world.setLevels({{803, 90}, {805, 9}});
    model.refresh(false);
    world.runLoop.settle();
    EXPECT_THAT(model.devices.get(), ElementsAre(mouse(90), keyboard(9)));
    EXPECT_THAT(world.alerts.shown, SizeIs(1));
    EXPECT_THAT(world.log.lines, IsEmpty());

    world.setLevels({{803, 10}, {805, 9}});
    advance(minutes(5));
    EXPECT_THAT(world.log.lines,
                ElementsAre("Voltmere: 立即提醒 Magic Mouse 10%, Magic Keyboard 9%"));
}

TEST_F(ReadingResultTest, AnEmptyReadingSaysSoClearsTheDevicesStampsTheTimeAndKeepsWhoWasAlerted)
{
    const BatteryModel& model = startWithLowMouse();
    dismissAlert();
    world.setLevels({});
    advance(minutes(5));

    EXPECT_EQ(model.status.get(), "No peripherals found");
    EXPECT_THAT(model.devices.get(), IsEmpty());
    EXPECT_THAT(model.lastChecked.get(), Optional(world.clock.now()));

    world.setLevels({{803, 10}});
    advance(minutes(5));
    EXPECT_THAT(world.alerts.shown, SizeIs(1));
    EXPECT_THAT(world.log.lines, IsEmpty());
}

TEST_F(ReadingResultTest, RaisingTheThresholdLeavesTheStatusUntilTheNextReadingWhichAlerts)
{
    world.setLevels({{803, 40}});
    BatteryModel& model = world.start();
    world.runLoop.settle();

    model.threshold = 50;
    EXPECT_THAT(world.runLoop.background, IsEmpty());
    EXPECT_EQ(model.status.get(), "Battery level is fine");
    EXPECT_THAT(world.alerts.shown, IsEmpty());

    advance(minutes(5));
    EXPECT_EQ(model.status.get(), "Low battery: Magic Mouse 40%");
    EXPECT_THAT(world.log.lines, ElementsAre("Voltmere: 立即提醒 Magic Mouse 40%"));
}

TEST_F(ReadingResultTest, ThePayloadIsAllDevicesWhenNoneIsLowAndFollowsTheThresholdAtOnce)
{
    world.setLevels({{803, 80}, {805, 64}, {804, 50}});
    BatteryModel& model = world.start();
    world.runLoop.settle();
    EXPECT_EQ(model.alertPayload(), (AlertPayload{{mouse(80), keyboard(64), trackpad(50)}, false}));

    model.threshold = 64;
    EXPECT_EQ(model.alertPayload(), (AlertPayload{{keyboard(64), trackpad(50)}, true}));
}

TEST_F(ReadingResultTest, AResultIsJudgedByTheSettingsThatHoldWhenItArrives)
{
    world.setLevels({{803, 40}});
    BatteryModel& model = world.start();
    finishReading(0);

    model.threshold = 50;
    world.runLoop.settle();

    EXPECT_EQ(model.status.get(), "Low battery: Magic Mouse 40%");
    EXPECT_THAT(world.alerts.shown, SizeIs(1));
}

TEST_F(ReadingResultTest, TheTimeIsStampedWhenAResultIsAppliedNotWhenTheReadingStarts)
{
    const BatteryModel& model = world.start();
    finishReading(0);
    EXPECT_EQ(model.lastChecked.get(), std::nullopt);

    world.clock.present += seconds(7);
    world.runLoop.settle();
    EXPECT_THAT(model.lastChecked.get(), Optional(world.clock.now()));
}

TEST_F(ReadingResultTest, AReadingUnderWayChangesNothingThatAPersonSees)
{
    BatteryModel& model = startWithLowMouse();
    int announcements = 0;
    const Subscription subscription =
        model.objectWillChange.subscribe([&announcements] { ++announcements; });

    model.checkNow();
    model.refresh(true);
    model.refresh(false);
    finishReading(0);
    EXPECT_EQ(announcements, 0);

    // The time, the devices and the status, of each reading.
    world.runLoop.settle();
    EXPECT_EQ(announcements, 9);
}

TEST_F(ReadingResultTest, AResultStampsTheTimeThenStoresTheDevicesThenTheStatus)
{
    world.setLevels({{803, 80}});
    BatteryModel& model = world.start();
    std::vector<std::string> events;
    const Subscription subscription = model.objectWillChange.subscribe([&] {
        events.push_back(std::string(model.lastChecked->has_value() ? "stamped" : "unstamped") +
                         ", " + std::to_string(model.devices->size()) + ", " + model.status.get());
    });

    world.runLoop.settle();

    EXPECT_THAT(events,
                ElementsAre("unstamped, 0, Waiting for check", "stamped, 0, Waiting for check",
                            "stamped, 1, Waiting for check"));
}

TEST_F(ReadingResultTest, TwoReadingsThatOverlapAreAppliedInTheOrderInWhichTheyFinish)
{
    BatteryModel& model = world.start();
    model.refresh(false);
    ASSERT_THAT(world.runLoop.background, SizeIs(2));

    world.setLevels({{803, 80}});
    finishReading(1);
    world.setLevels({{803, 79}});
    finishReading(0);
    std::vector<std::int64_t> levels;
    const Subscription subscription = model.objectWillChange.subscribe([&] {
        if (!model.devices->empty()) {
            levels.push_back(model.devices->front().level);
        }
    });
    world.runLoop.settle();

    EXPECT_THAT(model.devices.get(), ElementsAre(mouse(79)));
    // Announced before the first status, the second time, devices and status, in this order.
    EXPECT_THAT(levels, ElementsAre(80, 80, 80, 79));
}

TEST_F(ReadingResultTest, OverlappingReadingsKeepTheirOwnFlags)
{
    BatteryModel& model = world.start();
    model.refresh(false);
    world.setLevels({{803, 10}});

    finishReading(1);
    world.runLoop.posted.front()();
    world.runLoop.posted.pop_front();
    EXPECT_THAT(model.devices.get(), ElementsAre(mouse(10)));
    EXPECT_THAT(world.alerts.shown, IsEmpty());

    finishReading(0);
    world.runLoop.settle();
    EXPECT_THAT(world.alerts.shown, SizeIs(1));
}

TEST_F(ReadingResultTest, AReadingThatOutlivesTheModelDoesNothing)
{
    world.setLevels({{803, 10}});
    world.start();
    world.model.reset();

    advance(minutes(10));

    EXPECT_EQ(readings(), 1);
    EXPECT_THAT(world.alerts.shown, IsEmpty());
    EXPECT_THAT(world.log.lines, IsEmpty());
}

} // namespace
} // namespace voltmere
