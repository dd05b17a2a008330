// The services of macOS: macos/ but for its windows.

#include "mac_test.h"
#include "macos/notifications.h"
#include "macos/run_loop.h"
#include "macos/settings.h"
#include "macos/single_instance.h"
#include "macos/text.h"

#include "fakes/recording_log.h"
#include "posix/temporary_directory.h"

#include <unistd.h>

#include <limits>

namespace voltmere {
namespace {

using MacServices = MacTest;

TEST_F(MacServices, ATextKeepsItsBytesAndIsEmptyOtherwise)
{
    EXPECT_EQ(utf8Text(cocoaText("鼠标 12 %")), "鼠标 12 %");
    EXPECT_EQ(utf8Text(cocoaText(std::string_view("abc").substr(0, 2))), "ab");
    EXPECT_EQ(text(cocoaText("\xff")), "");
    EXPECT_EQ(utf8Text(nil), "");
}

TEST_F(MacServices, TheLogTakesALineAsATextAndNotAsAFormat)
{
    makeSystemLog()->write("Voltmere: 100 %@ %n\nfailed");
    EXPECT_EQ(mac.log, (Lines{"Voltmere: 100 %@ %n failed"}));
}

TEST_F(MacServices, TheUsersLanguagesKeepTheirOrder)
{
    mac.languages = {"fr-FR", "zh-Hans-CN"};
    EXPECT_EQ(makePreferredLanguages()->tags(), mac.languages);
}

TEST_F(MacServices, EachStatusOfTheLoginItemHasItsMeaning)
{
    using Status = LoginItemService::Status;
    const auto service = makeLoginItemService();
    const std::pair<SMAppServiceStatus, Status> meanings[]{
        {0, Status::notRegistered}, {1, Status::enabled},  {2, Status::requiresApproval},
        {3, Status::notFound},      {4, Status::notFound}, {-1, Status::notFound}};
    for (const auto& [status, meaning] : meanings) {
        mac.loginItem = status;
        EXPECT_EQ(service->status(), meaning) << status;
    }
    EXPECT_EQ(calls(), Lines());
}

TEST_F(MacServices, TheLoginItemIsRegisteredAndUnregistered)
{
    const auto service = makeLoginItemService();
    EXPECT_EQ(service->registerItem(), std::nullopt);
    EXPECT_EQ(service->status(), LoginItemService::Status::enabled);
    EXPECT_EQ(service->unregisterItem(), std::nullopt);
    EXPECT_EQ(service->status(), LoginItemService::Status::notRegistered);
    mac.loginItemFailure = "Operation not permitted";
    EXPECT_EQ(service->registerItem(), "Operation not permitted");
    EXPECT_EQ(service->unregisterItem(), "Operation not permitted");
    EXPECT_EQ(calls(),
              (Lines{"SMAppService register", "SMAppService unregister", "SMAppService register",
                     "SMAppService unregister"}));
}

TEST_F(MacServices, ASettingOfAnyTypeConvertsExactlyOrNotAtAll)
{
    struct Row {
        id object;
        std::optional<std::int64_t> integer;
        std::optional<bool> boolean;
        std::optional<std::string> text;
    };
    const Row rows[]{
        {nil, {}, {}, {}},
        {@"30", {}, {}, "30"},
        {@"", {}, {}, ""},
        {@30, 30, {}, {}},
        {@-1, -1, {}, {}},
        {@1, 1, true, {}},
        {@0, 0, false, {}},
        {@YES, 1, true, {}},
        {@250.0, 250, {}, {}},
        {@2.5, {}, {}, {}},
        {@1e300, {}, {}, {}},
        {@(std::numeric_limits<long long>::min()),
         std::numeric_limits<std::int64_t>::min(),
         {},
         {}},
        {@ [@1], {}, {}, {}},
        {@{}, {}, {}, {}},
    };
    const UserDefaults settings;
    for (const Row& row : rows) {
        mac.defaults.clear();
        if (row.object != nil) {
            mac.defaults["key"] = row.object;
        }
        const auto index = &row - rows;
        EXPECT_EQ(settings.integer("key"), row.integer) << index;
        EXPECT_EQ(settings.boolean("key"), row.boolean) << index;
        EXPECT_EQ(settings.text("key"), row.text) << index;
    }
    EXPECT_EQ(calls(), Lines()) << "reading writes nothing";
}

TEST_F(MacServices, SettingsAreStoredWithTheirTypes)
{
    UserDefaults settings;
    settings.setInteger("threshold", -5000000000);
    settings.setBoolean("enabled", true);
    settings.setBoolean("instant", false);
    EXPECT_EQ(calls(),
              (Lines{"NSUserDefaults threshold = -5000000000", "NSUserDefaults enabled = YES",
                     "NSUserDefaults instant = NO"}));
    EXPECT_EQ(settings.integer("threshold"), -5000000000);
    EXPECT_EQ(settings.boolean("enabled"), true);
    EXPECT_EQ(settings.boolean("instant"), false);
}

// Notifications

struct Receiver : NotificationCentreDelegate {
    void willPresent(std::function<void(std::uint32_t)> completion) override
    {
        heard.push_back("will present");
        completion(18);
    }
    void didReceive(NotificationCentre& centre, const std::string& action,
                    std::function<void()> completion) override
    {
        heard.push_back(action);
        from = &centre;
        completion();
    }

    Lines heard;
    NotificationCentre* from = nullptr;
};

struct MacNotifications : MacTest {
    /// The user's response, as the system tells it on any thread. Returns how often it is answered.
    static std::shared_ptr<int> respond(const std::string& action)
    {
        const auto answers = std::make_shared<int>(0);
        UNUserNotificationCenter* const centre =
            [UNUserNotificationCenter currentNotificationCenter];
        [centre.delegate userNotificationCenter:centre
                 didReceiveNotificationResponse:made(UNNotificationResponse.class, action)
                          withCompletionHandler:^{ ++*answers; }];
        return answers;
    }

    RecordingLog log;
    Receiver receiver;
};

TEST_F(MacNotifications, TheCentreIsAskedAndTold)
{
    UserNotifications notifications(log);
    notifications.requestAuthorisation(authorisation::alert | authorisation::sound);
    notifications.setCategories(
        {{"LOW_BATTERY", {{"SNOOZE_20", "20 分钟后", false}, {"SNOOZE_CUSTOM", "At…", true}}}});
    notifications.add({"snooze-1", {"T", "电", true, ""}, Seconds(1200)});
    notifications.add({"launch-fail-1", {"T", "B", false, "C"}, std::nullopt});
    EXPECT_EQ(calls(),
              (Lines{"UNUserNotificationCenter authorise 6",
                     "UNUserNotificationCenter categories LOW_BATTERY, SNOOZE_20=20 分钟后/0, "
                     "SNOOZE_CUSTOM=At…/4",
                     "UNUserNotificationCenter add snooze-1|T|电|sound||in 1200",
                     "UNUserNotificationCenter add launch-fail-1|T|B|silent|C|at once"}));
    EXPECT_EQ(log.lines, Lines());
}

TEST_F(MacNotifications, AnIntervalThatTheSystemRefusesMeansAtOnce)
{
    UserNotifications notifications(log);
    for (const double delay : {0.0, -1.0, std::nan("")}) {
        notifications.add({"x", {"T", "B", false, ""}, Seconds(delay)});
        EXPECT_EQ(calls(), (Lines{"UNUserNotificationCenter add x|T|B|silent||at once"}));
    }
}

TEST_F(MacNotifications, EachCallIsAnsweredOnceAndOnTheMainQueue)
{
    UserNotifications notifications(log);
    notifications.setDelegate(&receiver);
    UNUserNotificationCenter* const centre = [UNUserNotificationCenter currentNotificationCenter];
    __block std::vector<UNNotificationPresentationOptions> shown;
    [centre.delegate userNotificationCenter:centre
                    willPresentNotification:(UNNotification*)@""
                      withCompletionHandler:^(UNNotificationPresentationOptions options) {
                          shown.push_back(options);
                      }];
    const auto answers = respond("SNOOZE_60");
    EXPECT_EQ(receiver.heard, Lines()) << "not on the thread of the system";
    EXPECT_EQ(drainMainQueue(), 2);
    EXPECT_EQ(receiver.heard, (Lines{"will present", "SNOOZE_60"}));
    EXPECT_EQ(receiver.from, &notifications);
    EXPECT_EQ(shown, (std::vector<UNNotificationPresentationOptions>{18}));
    EXPECT_EQ(*answers, 1);
}

TEST_F(MacNotifications, ACallIsAnsweredAfterTheEndToo)
{
    auto notifications = std::make_unique<UserNotifications>(log);
    notifications->setDelegate(&receiver);
    UNUserNotificationCenter* const centre = [UNUserNotificationCenter currentNotificationCenter];
    const auto answers = respond("SNOOZE_60");
    __block std::vector<UNNotificationPresentationOptions> shown;
    [centre.delegate userNotificationCenter:centre
                    willPresentNotification:(UNNotification*)@""
                      withCompletionHandler:^(UNNotificationPresentationOptions options) {
                          shown.push_back(options);
                      }];
    notifications.reset();
    EXPECT_EQ(centre.delegate, nil);
    drainMainQueue();
    EXPECT_EQ(*answers, 1);
    EXPECT_EQ(shown.size(), 1U);
    EXPECT_EQ(receiver.heard, Lines());
}

TEST_F(MacNotifications, TheDelegateCanBeTakenAway)
{
    UserNotifications notifications(log);
    notifications.setDelegate(&receiver);
    EXPECT_NE([UNUserNotificationCenter currentNotificationCenter].delegate, nil);
    notifications.setDelegate(nullptr);
    EXPECT_EQ([UNUserNotificationCenter currentNotificationCenter].delegate, nil);
}

TEST_F(MacNotifications, AProcessWithoutABundleSaysSoOnceAndGoesOn)
{
    mac.hasBundle = false;
    UserNotifications notifications(log);
    notifications.requestAuthorisation(6);
    notifications.setDelegate(&receiver);
    notifications.setCategories({{"LOW_BATTERY", {}}});
    notifications.add({"x", {"T", "B", false, ""}, Seconds(1)});
    EXPECT_EQ(calls(), Lines());
    ASSERT_EQ(log.lines.size(), 1U);
    EXPECT_EQ(log.lines.front().rfind("Voltmere: ", 0), 0U);
    EXPECT_NE(log.lines.front().find("bundleProxyForCurrentProcess is nil"), std::string::npos);
}

// The run loop

struct MacTime : MacTest {
    std::function<void()> fire(const std::string& name)
    {
        return [this, name] { fired.push_back(name); };
    }

    MacRunLoop loop;
    Lines fired;
};

TEST_F(MacTime, TimersFireWhenTheyAreDue)
{
    const auto once = loop.scheduleOnce(Seconds(2.5), fire("once"));
    const auto often = loop.scheduleRepeating(Seconds(1), fire("often"));
    advance(0.99);
    EXPECT_EQ(fired, Lines());
    advance(0.02);
    EXPECT_EQ(fired, (Lines{"often"}));
    advance(9.5);
    EXPECT_EQ(std::count(fired.begin(), fired.end(), "often"), 10);
    EXPECT_EQ(std::count(fired.begin(), fired.end(), "once"), 1);
    EXPECT_EQ(fired[2], "once");
}

TEST_F(MacTime, TimersFireWhileAMenuIsOpen)
{
    mac.isTracking = true;
    const auto timer = loop.scheduleRepeating(Seconds(1), fire("tick"));
    advance(2.5);
    EXPECT_EQ(fired, (Lines{"tick", "tick"}));
}

TEST_F(MacTime, ADestroyedTimerFiresNoMore)
{
    auto timer = loop.scheduleOnce(Seconds(1), fire("never"));
    timer.reset();
    timer = loop.scheduleRepeating(Seconds(1), [&] {
        fired.push_back("ends itself");
        timer.reset();
    });
    advance(5);
    sleepFor(5);
    EXPECT_EQ(fired, (Lines{"ends itself"}));
}

TEST_F(MacTime, TheTimeAsleepCounts)
{
    const auto half = loop.scheduleOnce(Seconds(1800), fire("half an hour"));
    advance(300);
    sleepFor(1200);
    EXPECT_EQ(fired, Lines());
    advance(299);
    EXPECT_EQ(fired, Lines());
    advance(2);
    EXPECT_EQ(fired, (Lines{"half an hour"}));
    advance(3600);
    sleepFor(3600);
    EXPECT_EQ(fired.size(), 1U);
}

TEST_F(MacTime, WhatFellDueAsleepFiresOnceRightAfter)
{
    const auto once = loop.scheduleOnce(Seconds(60), fire("once"));
    const auto often = loop.scheduleRepeating(Seconds(60), fire("often"));
    sleepFor(630);
    advance(0.01);
    std::sort(fired.begin(), fired.end());
    EXPECT_EQ(fired, (Lines{"often", "once"}));
    advance(28);
    EXPECT_EQ(fired.size(), 2U) << "the old rhythm goes on, and missed periods are not made up";
    advance(3);
    EXPECT_EQ(fired.size(), 3U);
}

TEST_F(MacTime, AMacWithATimerDoesNotNap)
{
    EXPECT_TRUE(mac.activities.empty());
    auto timer = loop.scheduleRepeating(Seconds(60), fire("tick"));
    EXPECT_FALSE(mac.activities.empty());
    advance(120);
    EXPECT_FALSE(mac.activities.empty());
    timer.reset();
    EXPECT_TRUE(mac.activities.empty());
}

TEST_F(MacTime, WorkGoesToItsQueue)
{
    loop.postLater(Seconds(2), fire("later"));
    loop.postToMain(fire("main"));
    loop.runInBackground(fire("background"));
    EXPECT_TRUE(loop.isBusy());
    EXPECT_EQ(drainMainQueue(), 1);
    EXPECT_EQ(fired, (Lines{"main"}));
    EXPECT_TRUE(loop.isBusy());
    settle();
    EXPECT_FALSE(loop.isBusy());
    advance(3);
    EXPECT_EQ(fired, (Lines{"main", "background", "later"}));
}

TEST_F(MacTime, TheBareLoopRunsUntilItIsStopped)
{
    loop.postToMain(fire("posted"));
    const auto timer = loop.scheduleRepeating(Seconds(7), [&] {
        fired.push_back("tick");
        loop.stop(fired.size() == 4 ? 3 : 9);
    });
    EXPECT_EQ(loop.run(), 9);
    EXPECT_EQ(loop.run(), 9) << "it can run again";
    EXPECT_GT(fired.size(), 2U);
    EXPECT_EQ(fired.front(), "posted");
}

TEST_F(MacTime, TheApplicationsLoopEndsAtOnceWhenItIsStopped)
{
    (void)NSApplication.sharedApplication;
    mac.whileRunning = [&] { loop.stop(4); };
    EXPECT_EQ(loop.run(), 4);
    EXPECT_EQ(calls(), (Lines{"NSApplication run"}));
}

// One instance

struct MacInstance : MacTest {
    TemporaryDirectory directory;
    std::filesystem::path file = directory / "made" / "instance.lock";
    RecordingLog log;
};

TEST_F(MacInstance, ALaterStartAsksTheFirstForItsPanel)
{
    int asked = 0;
    auto first = std::make_unique<LockedInstance>(file, log);
    EXPECT_EQ(first->start(), SingleInstance::Role::first);
    first->onActivation([&] { ++asked; });
    LockedInstance second(file, log);
    EXPECT_EQ(second.start(), SingleInstance::Role::later);
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(calls(), (Lines{"NSDistributedNotificationCenter post at once"}));
    first.reset();
    EXPECT_TRUE(mac.observers.empty());
    LockedInstance third(file, log);
    EXPECT_EQ(third.start(), SingleInstance::Role::first) << "the end frees the lock";
    EXPECT_EQ(log.lines, Lines());
}

TEST_F(MacInstance, AFileThatCannotBeLockedIsLogged)
{
    LockedInstance instance("/dev/null/instance.lock", log);
    EXPECT_EQ(instance.start(), SingleInstance::Role::alone);
    ASSERT_EQ(log.lines.size(), 1U);
    EXPECT_EQ(log.lines.front().rfind("Voltmere: /dev/null/instance.lock", 0), 0U);
    EXPECT_EQ(calls(), Lines());
}

TEST_F(MacInstance, TheFileIsTheUsers)
{
    mac.supportDirectory = "/Users/ann/Library/Application Support";
    EXPECT_EQ(instanceLockPath(),
              "/Users/ann/Library/Application Support/org.voltmere.Voltmere/instance.lock");
}

// What a diagnosis says, and the terminal

std::string finding(const std::string& subject, bool verbose = false)
{
    for (const Finding& one : describeSystem(verbose)) {
        if (one.subject == subject) {
            return one.text;
        }
    }
    return "none";
}

TEST_F(MacServices, ADiagnosisTellsWhatTheSystemSays)
{
    EXPECT_EQ(finding("system").rfind("macOS Version 14.5 (Build 23F79)", 0), 0U);
    EXPECT_EQ(finding("bundle"), "Voltmere.app");
    EXPECT_EQ(finding("bundle", true), "/Applications/Voltmere.app");
    EXPECT_EQ(finding("settings"), "org.voltmere.Voltmere");
    mac.defaults["hour"] = @"ten";
    mac.defaults["threshold"] = @30;
    EXPECT_NE(finding("settings").find(": hour"), std::string::npos);
    EXPECT_EQ(finding("settings").find("threshold"), std::string::npos);
}

TEST_F(MacServices, ADiagnosisWithoutABundleSaysWhatIsMissing)
{
    mac.hasBundle = false;
    EXPECT_EQ(finding("bundle"), "none: no notifications, no launch at login");
    EXPECT_EQ(finding("settings"), "Voltmere");
}

TEST_F(MacServices, SimulatedPeripheralsComeFromTheBundle)
{
    EXPECT_EQ(demoToolsDirectory(), "/Applications/Voltmere.app/Contents/Resources/demo");
    EXPECT_EQ(makeSystemSources("/sys").label, "");
}

TEST_F(MacServices, AClosedOutputIsNoticed)
{
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    const int own = ::dup(STDOUT_FILENO);
    ::dup2(ends[1], STDOUT_FILENO);
    ::close(ends[1]);
    int closed = 0;
    auto watch = watchForClosedOutput([&] { ++closed; });
    advance(30);
    EXPECT_EQ(closed, 0);
    ::close(ends[0]);
    advance(10);
    EXPECT_GE(closed, 1);
    watch.reset();
    closed = 0;
    advance(30);
    EXPECT_EQ(closed, 0);
    ::dup2(own, STDOUT_FILENO);
    ::close(own);
}

} // namespace
} // namespace voltmere
