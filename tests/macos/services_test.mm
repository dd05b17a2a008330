// The services of macOS: macos/ but for its windows. First what these tests take for granted of
// their runtime.

#include "app/platform.h"
#include "mac_test.h"
#include "macos/text.h"

#include "fakes/recording_log.h"
#include "posix/calendar.h"

#include <cmath>
#include <limits>

@interface NSObject (Test)
- (int)unknown;
@end

namespace voltmere {
namespace {

using ObjectiveC = MacTest;

TEST_F(ObjectiveC, EndsTheProcessForADeadObjectOrAnUnknownMethod)
{
    __unsafe_unretained NSObject* dead = nil;
    @autoreleasepool {
        NSObject* const shortLived = [[NSObject alloc] init];
        dead = shortLived;
    }
    EXPECT_DEATH((void)[dead unknown], "destroyed object: \\[NSObject unknown\\]");
    EXPECT_DEATH((void)[[[NSObject alloc] init] unknown], "unknown method: \\[NSObject unknown\\]");
}

struct MacServices : MacTest {
    RecordingLog log;
};

TEST_F(MacServices, ATextKeepsItsBytesAndIsEmptyOtherwise)
{
    EXPECT_EQ(utf8Text(cocoaText(std::string_view("鼠标 12 %!").substr(0, 11))), "鼠标 12 %");
    EXPECT_EQ(text(cocoaText("\xff")), "");
    EXPECT_EQ(utf8Text(nil), "");
    mac.languages = {@"fr-FR", @"zh-Hans-CN"};
    EXPECT_EQ(makePreferredLanguages()->tags(), (Lines{"fr-FR", "zh-Hans-CN"}));
    makeSystemLog()->write("Voltmere: 100 %@ %n\nfailed");
    EXPECT_EQ(calls(), (Lines{"NSLog Voltmere: 100 %@ %n failed"})) << "a text is no format";
}

TEST_F(MacServices, TheLoginItemTellsItsStateAndItsFailures)
{
    const auto service = makeLoginItemService();
    for (mac.loginItem = 0; mac.loginItem < 5; ++mac.loginItem) { // a later system may have more
        EXPECT_EQ(service->isEnabled(), mac.loginItem == SMAppServiceStatusEnabled);
    }
    EXPECT_EQ(calls(), Lines());
    EXPECT_EQ(service->registerItem(), std::nullopt);
    EXPECT_TRUE(service->isEnabled());
    EXPECT_EQ(service->unregisterItem(), std::nullopt);
    EXPECT_FALSE(service->isEnabled());
    mac.loginItemFailure = "Operation not permitted";
    EXPECT_EQ(service->registerItem(), "Operation not permitted");
    EXPECT_EQ(service->unregisterItem(), "Operation not permitted");
}

TEST_F(MacServices, ASettingOfAnyTypeConvertsExactlyOrNotAtAll)
{
    constexpr auto lowest = std::numeric_limits<std::int64_t>::min();
    struct Row {
        id object;
        std::optional<std::int64_t> integer;
        std::optional<bool> boolean = std::nullopt;
        std::optional<std::string> text = std::nullopt;
    };
    const Row rows[]{
        {nil, {}},     {@"30", {}, {}, "30"}, {@"", {}, {}, ""}, {@30, 30},     {@-1, -1},
        {@1, 1, true}, {@0, 0, false},        {@YES, 1, true},   {@250.0, 250}, {@2.5, {}},
        {@1e300, {}},  {@(lowest), lowest},   {@ [@1], {}},      {@{}, {}}};
    const auto settings = openUserSettings(SettingsUse::readAndWrite, log);
    for (const Row& row : rows) {
        mac.defaults.clear();
        if (row.object != nil) {
            mac.defaults["key"] = row.object;
        }
        EXPECT_EQ(settings->integer("key"), row.integer) << &row - rows;
        EXPECT_EQ(settings->boolean("key"), row.boolean) << &row - rows;
        EXPECT_EQ(settings->text("key"), row.text) << &row - rows;
    }
    EXPECT_EQ(calls(), Lines()) << "reading writes nothing";
    settings->setInteger("threshold", -5000000000);
    settings->setBoolean("instant", false);
    EXPECT_EQ(calls(),
              (Lines{"NSUserDefaults threshold = -5000000000", "NSUserDefaults instant = NO"}));
}

TEST_F(MacServices, AnIntervalThatTheSystemRefusesMeansAtOnce)
{
    const auto loop = makeMainLoop();
    const auto notifications = makeNotificationCentre(*loop, SystemClock(), log);
    notifications->add({"x", {"T", "", false, ""}, {}});
    EXPECT_EQ(calls(), (Lines{"UNUserNotificationCenter add x|T||silent||at once"}));
    for (const double refused : {0.0, -1.0, std::nan("")}) {
        notifications->add({"x", {"T", "电", true, "C"}, Seconds(refused)});
        EXPECT_EQ(calls(), (Lines{"UNUserNotificationCenter add x|T|电|sound|C|at once"}));
    }
}

// The run loop

struct MacTime : MacTest {
    std::function<void()> fire(const std::string& name)
    {
        return [this, name] { fired.push_back(name); };
    }

    const std::unique_ptr<MainLoop> loop = makeMainLoop();
    Lines fired;
};

TEST_F(MacTime, TimersFireWhenTheyAreDueAndKeepTheProgramAwake)
{
    mac.isTracking = true; // a menu is open
    auto once = loop->scheduleOnce(Seconds(2.5), fire("once"));
    auto often = loop->scheduleRepeating(Seconds(1), fire("often"));
    advance(0.99);
    EXPECT_EQ(fired, Lines());
    advance(2.5);
    EXPECT_EQ(fired, (Lines{"often", "often", "once", "often"}));
    EXPECT_EQ(mac.activities.size(), 2U);
    often.reset();
    often = loop->scheduleRepeating(Seconds(1), [&] {
        fired.push_back("last");
        often.reset();
    });
    once = loop->scheduleOnce(Seconds(1), fire("never"));
    once.reset();
    advance(5);
    sleepFor(5);
    EXPECT_EQ(fired.size(), 5U);
    EXPECT_EQ(fired.back(), "last") << "a timer may end itself";
    EXPECT_TRUE(mac.activities.empty());
    mac.isTracking = false;
}

TEST_F(MacTime, TheTimeAsleepCounts)
{
    const auto half = loop->scheduleOnce(Seconds(1800), fire("half an hour"));
    advance(300);
    sleepFor(1200);
    advance(299);
    EXPECT_EQ(fired, Lines());
    advance(2);
    EXPECT_EQ(fired, (Lines{"half an hour"}));
    advance(3600);
    sleepFor(3600);
    const auto once = loop->scheduleOnce(Seconds(60), fire("once"));
    const auto often = loop->scheduleRepeating(Seconds(60), fire("often"));
    sleepFor(630);
    advance(0.01);
    EXPECT_EQ(fired.size(), 3U) << "what fell due asleep fires once right after";
    advance(28);
    EXPECT_EQ(fired.size(), 3U) << "the old rhythm goes on, and missed periods are not made up";
    advance(3);
    EXPECT_EQ(fired.size(), 4U);
}

TEST_F(MacTime, WorkGoesToItsQueue)
{
    loop->postToMain(fire("main"));
    loop->runInBackground(fire("background"));
    EXPECT_EQ(drainMainQueue(), 1);
    EXPECT_EQ(fired, (Lines{"main"}));
    EXPECT_TRUE(loop->isBusy());
    settle();
    EXPECT_FALSE(loop->isBusy());
    EXPECT_EQ(fired, (Lines{"main", "background"}));
}

TEST_F(MacTime, TheLoopRunsUntilItIsStopped)
{
    loop->postToMain(fire("posted"));
    const auto timer = loop->scheduleRepeating(Seconds(7), [&] {
        fired.push_back("tick");
        loop->stop(9);
    });
    EXPECT_EQ(loop->run(), 9);
    const std::size_t once = fired.size();
    EXPECT_EQ(loop->run(), 9);
    EXPECT_GT(fired.size(), once) << "it can run again";
    EXPECT_EQ(fired.front(), "posted");
    (void)NSApplication.sharedApplication;
    mac.whileRunning = [&] { loop->stop(4); };
    EXPECT_EQ(loop->run(), 4);
    EXPECT_EQ(calls(), (Lines{"NSApplication run"}));
}

// The terminal

TEST_F(MacServices, ADiagnosisTellsWhatTheSystemSays)
{
    EXPECT_EQ(describeSystem(false)[0].text, "macOS Version 14.5 (Build 23F79)");
    EXPECT_EQ(describeSystem(false)[1].text, "Voltmere.app");
    EXPECT_EQ(describeSystem(true)[1].text, "/Applications/Voltmere.app");
    mac.hasBundle = false;
    EXPECT_THAT(describeSystem(false)[1].text, StartsWith("none"));
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
    ::dup2(own, STDOUT_FILENO);
    ::close(own);
}

} // namespace
} // namespace voltmere
