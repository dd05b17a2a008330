#include "fakes/model_world.h"

#include <gmock/gmock.h>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::SizeIs;

class LaunchAtLoginTest : public testing::Test {
protected:
    BatteryModel& startRegistered()
    {
        world.loginItems.enabled = true;
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

TEST_F(LaunchAtLoginTest, AnyOtherStateShowsOffWithoutUnregistering)
{
    const BatteryModel& model = world.start();

    EXPECT_FALSE(model.launchAtLogin);
    EXPECT_EQ(world.loginItems.registrations, 0);
    EXPECT_EQ(world.loginItems.unregistrations, 0);
}

TEST_F(LaunchAtLoginTest, ASuccessThatStillWantsApprovalTurnsBackOffInSilence)
{
    world.loginItems.enabledAfterRegistration = false;
    BatteryModel& model = world.start();

    model.launchAtLogin = true;

    EXPECT_FALSE(model.launchAtLogin);
    EXPECT_EQ(world.loginItems.registrations, 1);
    EXPECT_EQ(world.loginItems.unregistrations, 0);
    EXPECT_THAT(world.log.lines, IsEmpty());
    EXPECT_THAT(world.notifications.requests, IsEmpty());
}

TEST_F(LaunchAtLoginTest, TurningItOnRegistersAndTurningItOffUnregistersAndNothingIsSaved)
{
    BatteryModel& model = world.start();

    model.launchAtLogin = true;
    EXPECT_TRUE(model.launchAtLogin);
    EXPECT_EQ(world.loginItems.registrations, 1);
    EXPECT_EQ(world.loginItems.unregistrations, 0);

    model.launchAtLogin = false;
    EXPECT_FALSE(model.launchAtLogin);
    EXPECT_EQ(world.loginItems.registrations, 1);
    EXPECT_EQ(world.loginItems.unregistrations, 1);
    EXPECT_THAT(world.log.lines, IsEmpty());
    EXPECT_THAT(world.notifications.requests, IsEmpty());
    EXPECT_EQ(world.defaults.integer("threshold"), std::nullopt);
}

TEST_F(LaunchAtLoginTest, AssigningTheSameValueAsksTheServiceAgain)
{
    BatteryModel& model = startRegistered();

    model.launchAtLogin = true;
    model.launchAtLogin = true;

    EXPECT_EQ(world.loginItems.registrations, 2);
}

TEST_F(LaunchAtLoginTest, AFailedRegistrationLogsTheLineNotifiesAndLeavesTheSwitchOff)
{
    for (const char* const failure : {"Operation not permitted", "100%s %@ %n {}", ""}) {
        ModelWorld other;
        other.loginItems.failure = failure;
        BatteryModel& model = other.start();
        model.language = "zh";

        model.launchAtLogin = true;

        EXPECT_FALSE(model.launchAtLogin);
        EXPECT_EQ(other.loginItems.registrations, 1);
        EXPECT_EQ(other.loginItems.unregistrations, 0);
        EXPECT_THAT(other.log.lines,
                    ElementsAre("Voltmere: 设置开机启动失败 " + std::string(failure)));
        ASSERT_THAT(other.notifications.requests, SizeIs(1));
        const NotificationRequest& request = other.notifications.requests[0];
        EXPECT_THAT(request.identifier, MatchesRegex("launch-fail-[0-9A-F-]{36}"));
        EXPECT_EQ(request.content, (NotificationContent{"开机自动启动", failure, false, ""}));
        EXPECT_EQ(request.delay, std::nullopt);
    }
}

TEST_F(LaunchAtLoginTest, AFailedUnregistrationLogsTheLineNotifiesAndLeavesTheSwitchOn)
{
    BatteryModel& model = startRegistered();
    world.loginItems.failure = "Disk full";

    model.launchAtLogin = false;

    EXPECT_TRUE(model.launchAtLogin);
    EXPECT_EQ(world.loginItems.registrations, 0);
    EXPECT_EQ(world.loginItems.unregistrations, 1);
    EXPECT_THAT(world.log.lines, ElementsAre("Voltmere: 设置开机启动失败 Disk full"));
    ASSERT_THAT(world.notifications.requests, SizeIs(1));
    EXPECT_EQ(world.notifications.requests[0].content.title, "Launch at login");
    EXPECT_EQ(world.notifications.requests[0].content.body, "Disk full");
}

TEST_F(LaunchAtLoginTest, TwoFailuresInARowPostTwoNotificationsWithDifferentIdentifiers)
{
    world.loginItems.failure = "Operation not permitted";
    BatteryModel& model = world.start();

    model.launchAtLogin = true;
    model.launchAtLogin = true;
    world.runLoop.advance(std::chrono::hours(1));

    EXPECT_EQ(world.loginItems.registrations, 2) << "nothing is tried again";
    EXPECT_THAT(world.log.lines, SizeIs(2));
    ASSERT_THAT(world.notifications.requests, SizeIs(2));
    EXPECT_NE(world.notifications.requests[0].identifier,
              world.notifications.requests[1].identifier);
}

TEST_F(LaunchAtLoginTest, AFailureWhoseOutcomeIsEnabledAllTheSameLeavesTheSwitchOn)
{
    BatteryModel& model = world.start();
    world.loginItems.failure = "Already registered";
    world.loginItems.enabled = true;

    model.launchAtLogin = true;

    EXPECT_TRUE(model.launchAtLogin);
    EXPECT_EQ(world.log.lines.size(), 1U);
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

    world.loginItems.enabled = true;
    model.refreshLaunchAtLogin();
    EXPECT_TRUE(model.launchAtLogin);

    world.loginItems.enabled = false;
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

    world.loginItems.enabled = false;
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

    world.loginItems.enabled = true;
    model.refreshLaunchAtLogin();

    EXPECT_THAT(valuesAfter, ElementsAre(true));
    EXPECT_EQ(world.loginItems.registrations, 0);
    EXPECT_EQ(world.loginItems.unregistrations, 0);
}

} // namespace
} // namespace voltmere
