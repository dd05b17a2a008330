#include "fakes/model_world.h"
#include "linux/autostart_fixture.h"

#include <gmock/gmock.h>

namespace voltmere {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

/// The model's switch over real entries in a directory.
class AutostartSwitchTest : public AutostartFixture {
protected:
    BatteryModel& start()
    {
        model = std::make_unique<BatteryModel>(
            ModelServices{world.defaults, world.runLoop, world.clock, world.calendar, service,
                          world.notifications, world.notificationDelegate, world.alerts, world.log,
                          world.reader});
        return *model;
    }

    std::string logLine(const std::string& reason) const
    {
        return "Voltmere: 设置开机启动失败 " + atUserEntry(reason);
    }

    ModelWorld world;
    AutostartLoginItem service{program, session};
    std::unique_ptr<BatteryModel> model;
};

TEST_F(AutostartSwitchTest, AStartUpWithTheItemRegisteredShowsOnAndLeavesTheEntryAlone)
{
    const std::string text = entryFor("/bin/sh");
    writeFile(userEntry, text);
    const auto written = fs::last_write_time(userEntry);

    EXPECT_TRUE(start().launchAtLogin);

    EXPECT_EQ(readFile(userEntry), text);
    EXPECT_EQ(fs::last_write_time(userEntry), written);
}

TEST_F(AutostartSwitchTest, AStartUpWithoutTheItemShowsOffAndWritesNothing)
{
    EXPECT_FALSE(start().launchAtLogin);

    EXPECT_FALSE(fs::exists(userDirectory));
}

TEST_F(AutostartSwitchTest, TheSwitchAddsTheEntryAndTakesItAway)
{
    BatteryModel& switched = start();

    switched.launchAtLogin = true;
    EXPECT_TRUE(switched.launchAtLogin);
    EXPECT_EQ(readFile(userEntry), ownEntry());

    switched.launchAtLogin = false;
    EXPECT_FALSE(switched.launchAtLogin);
    EXPECT_FALSE(fs::exists(userEntry));
    EXPECT_THAT(world.log.lines, IsEmpty());
    EXPECT_THAT(world.notifications.requests, IsEmpty());
}

TEST_F(AutostartSwitchTest, AFailedRegistrationLogsNotifiesAndLeavesTheSwitchOff)
{
    fs::create_directories(userEntry);
    BatteryModel& switched = start();

    switched.launchAtLogin = true;

    EXPECT_FALSE(switched.launchAtLogin);
    EXPECT_THAT(world.log.lines, ElementsAre(logLine("Is a directory")));
    ASSERT_EQ(world.notifications.requests.size(), 1U);
    const NotificationRequest& request = world.notifications.requests[0];
    EXPECT_THAT(request.identifier, StartsWith("launch-fail-"));
    EXPECT_EQ(request.content.title, "Launch at login");
    EXPECT_EQ(request.content.body, atUserEntry("Is a directory"));
    EXPECT_EQ(request.content.category, "");
    EXPECT_FALSE(request.content.defaultSound);
    EXPECT_EQ(request.delay, std::nullopt);
}

TEST_F(AutostartSwitchTest, TwoFailuresInARowPostTwoNotifications)
{
    fs::create_directories(userEntry);
    BatteryModel& switched = start();

    switched.launchAtLogin = true;
    switched.launchAtLogin = true;

    ASSERT_EQ(world.notifications.requests.size(), 2U);
    EXPECT_NE(world.notifications.requests[0].identifier,
              world.notifications.requests[1].identifier);
}

TEST_F(AutostartSwitchTest, AFailedUnregistrationLogsNotifiesAndLeavesTheSwitchOn)
{
    writeFile(systemEntry, entryFor("/bin/sh"));
    BatteryModel& switched = start();
    ASSERT_TRUE(switched.launchAtLogin);
    writeFile(userDirectory, "a file in the directory's place");

    switched.launchAtLogin = false;

    EXPECT_TRUE(switched.launchAtLogin);
    const std::string description = userDirectory.string() + ": Not a directory";
    EXPECT_THAT(world.log.lines, ElementsAre("Voltmere: 设置开机启动失败 " + description));
    ASSERT_EQ(world.notifications.requests.size(), 1U);
    EXPECT_EQ(world.notifications.requests[0].content.body, description);
}

TEST_F(AutostartSwitchTest, ShowingThePanelSeesWhatAnotherProgramSwitchedOff)
{
    writeFile(userEntry, ownEntry());
    BatteryModel& switched = start();
    ASSERT_TRUE(switched.launchAtLogin);
    const std::string off = ownEntry("Hidden=true\n");
    writeFile(userEntry, off);

    switched.refreshLaunchAtLogin();

    EXPECT_FALSE(switched.launchAtLogin);
    EXPECT_EQ(readFile(userEntry), off);
}

} // namespace
} // namespace voltmere
