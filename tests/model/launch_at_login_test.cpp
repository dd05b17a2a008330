#include "fakes/model_world.h"

#include <gmock/gmock.h>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::SizeIs;
using Status = LoginItemService::Status;

class LaunchAtLoginTest : public testing::Test {
protected:
    BatteryModel& startRegistered()
    {
        world.loginItems.present = Status::enabled;
        return world.start();
    }

    ModelWorld world;
};

TEST_F(LaunchAtLoginTest, StartUpWithTheItemRegisteredShowsOnWithoutRegistering)
{
    const BatteryModel& model = startRegistered();

    EXPECT_TRUE(model.launchAtLogin);
    EXPECT_EQ(world.loginItems.registrations, 0);
    EXPECT_EQ(world.loginItems.unregistrations, 0);
}

class LaunchAtLoginOffTest : public LaunchAtLoginTest,
                             public testing::WithParamInterface<Status> { };

TEST_P(LaunchAtLoginOffTest, EveryOtherStatusShowsOffWithoutUnregistering)
{
    world.loginItems.present = GetParam();
    const BatteryModel& model = world.start();

    EXPECT_FALSE(model.launchAtLogin);
    EXPECT_EQ(world.loginItems.registrations, 0);
    EXPECT_EQ(world.loginItems.unregistrations, 0);
}

TEST_P(LaunchAtLoginOffTest, ASuccessThatEndsInAnotherStatusTurnsBackOffInSilence)
{
    world.loginItems.afterRegistration = GetParam();
    BatteryModel& model = world.start();

    model.launchAtLogin = true;

    EXPECT_FALSE(model.launchAtLogin);
    EXPECT_EQ(world.loginItems.registrations, 1);
    EXPECT_EQ(world.loginItems.unregistrations, 0);
    EXPECT_THAT(world.log.lines, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Statuses, LaunchAtLoginOffTest,
                         testing::Values(Status::notRegistered, Status::requiresApproval,
                                         Status::notFound));

TEST_F(LaunchAtLoginTest, TurningOnRegistersOnce)
{
    BatteryModel& model = world.start();

    model.launchAtLogin = true;

    EXPECT_TRUE(model.launchAtLogin);
    EXPECT_EQ(world.loginItems.registrations, 1);
    EXPECT_EQ(world.loginItems.unregistrations, 0);
    EXPECT_THAT(world.log.lines, IsEmpty());
}

TEST_F(LaunchAtLoginTest, TurningOffUnregistersOnce)
{
    BatteryModel& model = startRegistered();

    model.launchAtLogin = false;

    EXPECT_FALSE(model.launchAtLogin);
    EXPECT_EQ(world.loginItems.registrations, 0);
    EXPECT_EQ(world.loginItems.unregistrations, 1);
    EXPECT_THAT(world.log.lines, IsEmpty());
}

TEST_F(LaunchAtLoginTest, AssigningTheSameValueAsksTheServiceAgain)
{
    BatteryModel& model = startRegistered();

    model.launchAtLogin = true;
    model.launchAtLogin = true;

    EXPECT_EQ(world.loginItems.registrations, 2);
}

TEST_F(LaunchAtLoginTest, AFailedRegistrationLogsTheLineAndLeavesTheSwitchOff)
{
    world.loginItems.failure = "Operation not permitted";
    BatteryModel& model = world.start();

    model.launchAtLogin = true;

    EXPECT_FALSE(model.launchAtLogin);
    EXPECT_EQ(world.loginItems.registrations, 1);
    EXPECT_EQ(world.loginItems.unregistrations, 0);
    EXPECT_THAT(world.log.lines, ElementsAre("Voltmere: 设置开机启动失败 Operation not permitted"));
}

TEST_F(LaunchAtLoginTest, AFailedUnregistrationLogsTheLineAndLeavesTheSwitchOn)
{
    BatteryModel& model = startRegistered();
    world.loginItems.failure = "Disk full";

    model.launchAtLogin = false;

    EXPECT_TRUE(model.launchAtLogin);
    EXPECT_EQ(world.loginItems.registrations, 0);
    EXPECT_EQ(world.loginItems.unregistrations, 1);
    EXPECT_THAT(world.log.lines, ElementsAre("Voltmere: 设置开机启动失败 Disk full"));
}

TEST_F(LaunchAtLoginTest, AFailureWhoseOutcomeIsEnabledAllTheSameLeavesTheSwitchOn)
{
    BatteryModel& model = world.start();
    world.loginItems.failure = "Already registered";
    world.loginItems.present = Status::enabled;

    model.launchAtLogin = true;

    EXPECT_TRUE(model.launchAtLogin);
    EXPECT_EQ(world.log.lines.size(), 1U);
}

TEST_F(LaunchAtLoginTest, TwoFailuresInARowLogTwoLinesAndNothingIsRetried)
{
    world.loginItems.failure = "Operation not permitted";
    BatteryModel& model = world.start();

    model.launchAtLogin = true;
    model.launchAtLogin = true;
    world.runLoop.advance(std::chrono::hours(1));

    EXPECT_EQ(world.log.lines.size(), 2U);
    EXPECT_EQ(world.loginItems.registrations, 2);
}

TEST_F(LaunchAtLoginTest, TheLogLineIsTheSameInChinese)
{
    world.defaults.set("language", std::string("zh"));
    world.loginItems.failure = "Operation not permitted";
    BatteryModel& model = world.start();

    model.launchAtLogin = true;

    EXPECT_THAT(world.log.lines, ElementsAre("Voltmere: 设置开机启动失败 Operation not permitted"));
}

TEST_F(LaunchAtLoginTest, TheDescriptionIsLoggedAsPlainText)
{
    world.loginItems.failure = "100%s %@ %n {}";
    BatteryModel& model = world.start();

    model.launchAtLogin = true;

    EXPECT_THAT(world.log.lines, ElementsAre("Voltmere: 设置开机启动失败 100%s %@ %n {}"));
}

TEST_F(LaunchAtLoginTest, AnEmptyDescriptionIsAFailureToo)
{
    world.loginItems.failure = "";
    BatteryModel& model = world.start();

    model.launchAtLogin = true;

    EXPECT_FALSE(model.launchAtLogin);
    EXPECT_THAT(world.log.lines, ElementsAre("Voltmere: 设置开机启动失败 "));
}

TEST_F(LaunchAtLoginTest, ObserversSeeTheSwitchGoOnAndSnapBack)
{
    world.loginItems.failure = "Operation not permitted";
    BatteryModel& model = world.start();
    std::vector<bool> valuesBefore;
    const Subscription subscription =
        model.objectWillChange.subscribe([&] { valuesBefore.push_back(model.launchAtLogin); });

    model.launchAtLogin = true;

    EXPECT_THAT(valuesBefore, ElementsAre(false, true));
    EXPECT_FALSE(model.launchAtLogin);
}

TEST_F(LaunchAtLoginTest, RefreshFollowsTheServiceWithoutChangingIt)
{
    BatteryModel& model = world.start();

    world.loginItems.present = Status::enabled;
    model.refreshLaunchAtLogin();
    EXPECT_TRUE(model.launchAtLogin);

    world.loginItems.present = Status::requiresApproval;
    model.refreshLaunchAtLogin();
    EXPECT_FALSE(model.launchAtLogin);

    EXPECT_EQ(world.loginItems.registrations, 0);
    EXPECT_EQ(world.loginItems.unregistrations, 0);
}

TEST_F(LaunchAtLoginTest, RefreshAnnouncesNothingWhenTheFlagAlreadyAgrees)
{
    BatteryModel& model = startRegistered();
    int announcements = 0;
    const Subscription subscription =
        model.objectWillChange.subscribe([&announcements] { ++announcements; });

    model.refreshLaunchAtLogin();
    EXPECT_EQ(announcements, 0);

    world.loginItems.present = Status::notFound;
    model.refreshLaunchAtLogin();
    EXPECT_EQ(announcements, 1);
}

TEST_F(LaunchAtLoginTest, SettingItWhileTheModelSyncsChangesThePublishedValueOnly)
{
    BatteryModel& model = world.start();
    std::vector<bool> valuesAfter;
    bool nested = false;
    const Subscription subscription = model.objectWillChange.subscribe([&] {
        if (!nested) {
            nested = true;
            model.launchAtLogin = true;
            valuesAfter.push_back(model.launchAtLogin);
        }
    });

    world.loginItems.present = Status::enabled;
    model.refreshLaunchAtLogin();

    EXPECT_THAT(valuesAfter, ElementsAre(true));
    EXPECT_EQ(world.loginItems.registrations, 0);
    EXPECT_EQ(world.loginItems.unregistrations, 0);
}

TEST_F(LaunchAtLoginTest, AfterASyncTheSwitchWorksAgain)
{
    BatteryModel& model = startRegistered();
    world.loginItems.present = Status::notRegistered;
    model.refreshLaunchAtLogin();

    model.launchAtLogin = true;

    EXPECT_EQ(world.loginItems.registrations, 1);
    EXPECT_TRUE(model.launchAtLogin);
}

TEST_F(LaunchAtLoginTest, AFailedRegistrationPostsANotificationAtOnceAndLeavesTheSwitchOff)
{
    world.loginItems.failure = "Operation not permitted";
    BatteryModel& model = world.start();

    model.launchAtLogin = true;

    ASSERT_THAT(world.notifications.requests, SizeIs(1));
    const NotificationRequest& request = world.notifications.requests[0];
    EXPECT_THAT(request.identifier, MatchesRegex("launch-fail-[0-9A-F-]{36}"));
    EXPECT_EQ(request.content,
              (NotificationContent{"Launch at login", "Operation not permitted", false, ""}));
    EXPECT_EQ(request.delay, std::nullopt);
    EXPECT_FALSE(model.launchAtLogin);
}

TEST_F(LaunchAtLoginTest, AFailureIsLoggedBeforeItsNotificationIsPosted)
{
    world.loginItems.failure = "Operation not permitted";
    BatteryModel& model = world.start();
    std::vector<std::size_t> notificationsAtLines;
    world.log.whileWriting = [&] {
        notificationsAtLines.push_back(world.notifications.requests.size());
    };

    model.launchAtLogin = true;

    EXPECT_THAT(notificationsAtLines, ElementsAre(0U));
    EXPECT_THAT(world.notifications.requests, SizeIs(1));
}

TEST_F(LaunchAtLoginTest, AFailedUnregistrationPostsANotificationToo)
{
    BatteryModel& model = startRegistered();
    world.loginItems.failure = "Disk full";

    model.launchAtLogin = false;

    ASSERT_THAT(world.notifications.requests, SizeIs(1));
    EXPECT_EQ(world.notifications.requests[0].content.body, "Disk full");
}

TEST_F(LaunchAtLoginTest, TwoFailuresInARowPostTwoNotificationsWithDifferentIdentifiers)
{
    world.loginItems.failure = "Operation not permitted";
    BatteryModel& model = world.start();

    model.launchAtLogin = true;
    model.launchAtLogin = true;

    ASSERT_THAT(world.notifications.requests, SizeIs(2));
    EXPECT_NE(world.notifications.requests[0].identifier,
              world.notifications.requests[1].identifier);
}

TEST_F(LaunchAtLoginTest, TheNotificationOfAFailureIsTitledInTheLanguageOfTheMoment)
{
    world.loginItems.failure = "100%s %@ %n {}";
    BatteryModel& model = world.start();
    model.language = "zh";

    model.launchAtLogin = true;

    EXPECT_EQ(world.notifications.requests.at(0).content.title, "开机自动启动");
    EXPECT_EQ(world.notifications.requests.at(0).content.body, "100%s %@ %n {}");
}

TEST_F(LaunchAtLoginTest, ASuccessPostsNoNotification)
{
    world.loginItems.afterRegistration = Status::requiresApproval;
    BatteryModel& model = world.start();

    model.launchAtLogin = true;
    model.launchAtLogin = false;

    EXPECT_THAT(world.notifications.requests, IsEmpty());
}

TEST_F(LaunchAtLoginTest, TheSwitchIsNotASetting)
{
    BatteryModel& model = world.start();

    model.launchAtLogin = true;

    EXPECT_EQ(world.defaults.boolean("launchAtLogin"), std::nullopt);
    EXPECT_EQ(world.defaults.integer("threshold"), std::nullopt);
}

} // namespace
} // namespace voltmere
