#include "alerting/notifications.h"
#include "fakes/model_world.h"

#include <gmock/gmock.h>

namespace voltmere {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

/// Start-up in its two halves, which the platform may run in either order.
class StartUpTest : public testing::Test {
protected:
    StartUpTest() { BatteryModel::launchSettled = false; }

    /// What the application does once the platform has launched it.
    void finishLaunching()
    {
        L10n::loadSetting(world.defaults);
        NotificationSetup::registerCategories(world.notifications, world.notificationDelegate);
        BatteryModel::launchSettled = true;
    }

    void advance(double seconds) { world.runLoop.advance(Seconds(seconds)); }

    ModelWorld world;
};

TEST(LaunchSettledTest, IsFalseUntilTheApplicationSaysSo)
{
    EXPECT_FALSE(BatteryModel::launchSettled);
}

TEST_F(StartUpTest, ModelFirstALowDeviceShowsNoAlertBeforeLaunchHasFinished)
{
    world.setLevels({{803, 10}});
    const BatteryModel& model = world.start();
    advance(30);

    EXPECT_THAT(model.devices.get(), SizeIs(1));
    EXPECT_THAT(world.alerts.shown, IsEmpty());
}

TEST_F(StartUpTest, ModelFirstTheAlertAppearsOnceLaunchHasFinished)
{
    world.setLevels({{803, 10}});
    world.start();
    advance(0.5);
    finishLaunching();
    EXPECT_THAT(world.alerts.shown, IsEmpty());

    advance(1.2);
    ASSERT_THAT(world.alerts.shown, SizeIs(1));
    EXPECT_EQ(world.alerts.shown.front()->content.title.whole(), "Magic Mouse battery alert");

    advance(60);
    EXPECT_THAT(world.alerts.shown, SizeIs(1));
    EXPECT_EQ(world.alerts.shown.front()->broughtToFront, 0);
}

TEST_F(StartUpTest, DelegateFirstTheAlertAppearsWithTheFirstResult)
{
    world.setLevels({{803, 10}});
    finishLaunching();
    world.start();
    EXPECT_THAT(world.alerts.shown, IsEmpty());

    advance(0);
    EXPECT_THAT(world.alerts.shown, SizeIs(1));
}

TEST_F(StartUpTest, TheRetryComesEvery1200Milliseconds)
{
    world.setLevels({{803, 10}});
    world.start();

    // Retries at 1.2, 2.4 and 3.6 seconds; launch finishes after the second.
    advance(2.5);
    finishLaunching();
    advance(1.05);
    EXPECT_THAT(world.alerts.shown, IsEmpty());
    advance(0.1);
    EXPECT_THAT(world.alerts.shown, SizeIs(1));
}

TEST_F(StartUpTest, OneAlertWaitsAsOneRetryAtATime)
{
    world.setLevels({{803, 10}});
    world.start();
    const std::size_t timersBefore = world.runLoop.timerCount();

    advance(30);

    EXPECT_EQ(world.runLoop.timerCount(), timersBefore + 1);
}

TEST_F(StartUpTest, TheRetryShowsTheDevicesThatItWasAskedFor)
{
    world.setLevels({{803, 10}});
    BatteryModel& model = world.start();
    advance(0.5);
    world.setLevels({{803, 90}});
    model.refresh(false);
    advance(0.1);
    finishLaunching();

    advance(1.2);
    ASSERT_THAT(world.alerts.shown, SizeIs(1));
    EXPECT_EQ(world.alerts.shown.front()->content.detail, "Battery at 10%. Please charge.");
}

TEST_F(StartUpTest, EveryAlertWaitsForLaunchToFinish)
{
    BatteryModel& model = world.start();
    advance(0.5);
    const AlertPayload payload = model.alertPayload();
    model.showSnoozeAlert(payload.devices, payload.isLow);
    EXPECT_THAT(world.alerts.shown, IsEmpty());
    finishLaunching();

    advance(1.2);
    ASSERT_THAT(world.alerts.shown, SizeIs(1));
    EXPECT_EQ(world.alerts.shown.front()->content.detail, "No peripherals found");
}

TEST_F(StartUpTest, TwoAlertsThatWaitedShowTheFirstAndBringItToTheFront)
{
    world.setLevels({{803, 10}});
    BatteryModel& model = world.start();
    advance(0.5);
    model.showSnoozeAlert({}, false);
    finishLaunching();

    advance(5);
    ASSERT_THAT(world.alerts.shown, SizeIs(1));
    EXPECT_EQ(world.alerts.shown.front()->content.detail, "Battery at 10%. Please charge.");
    EXPECT_EQ(world.alerts.shown.front()->broughtToFront, 1);
}

class StartUpOrderTest : public StartUpTest, public testing::WithParamInterface<bool> { };

TEST_P(StartUpOrderTest, TheStoredLanguageHoldsAtOnceAndAfterwards)
{
    world.defaults.set("language", std::string("zh"));
    for (const bool modelsTurn : {GetParam(), !GetParam()}) {
        if (modelsTurn) {
            EXPECT_EQ(world.start().status.get(), "等待检查");
        } else {
            finishLaunching();
            ASSERT_THAT(world.notifications.categories, SizeIs(1));
            EXPECT_EQ(world.notifications.categories.front().actions.front().title, "20 分钟后");
        }
        EXPECT_EQ(L10n::setting, "zh");
    }
}

INSTANTIATE_TEST_SUITE_P(ModelOrDelegateFirst, StartUpOrderTest, testing::Bool());

TEST_F(StartUpTest, AModelThatIsGoneRetriesNoMore)
{
    world.setLevels({{803, 10}});
    world.start();
    advance(0.5);
    world.model.reset();
    finishLaunching();

    advance(60);
    EXPECT_THAT(world.alerts.shown, IsEmpty());
}

} // namespace
} // namespace voltmere
