#include "fakes/model_world.h"

#include <gmock/gmock.h>

#include <ostream>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

namespace voltmere {
namespace {

using std::chrono::hours;
using std::chrono::minutes;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

using Events = std::vector<std::string>;

/// Notes each read and each write of a setting.
class NotingDefaults : public DefaultsStore {
public:
    explicit NotingDefaults(Events& events)
        : events(events)
    {
    }

    std::optional<std::int64_t> integer(std::string_view key) const override
    {
        note("read integer ", key);
        return stored.integer(key);
    }

    std::optional<bool> boolean(std::string_view key) const override
    {
        note("read boolean ", key);
        return stored.boolean(key);
    }

    std::optional<std::string> text(std::string_view key) const override
    {
        note("read text ", key);
        return stored.text(key);
    }

    void setInteger(std::string_view key, std::int64_t value) override
    {
        noteWrite(std::string(key) + ' ' + std::to_string(value));
        stored.setInteger(key, value);
    }

    void setBoolean(std::string_view key, bool value) override
    {
        noteWrite(std::string(key) + (value ? " true" : " false"));
        stored.setBoolean(key, value);
    }

    MemoryDefaults stored;
    std::vector<std::string> languagesAtWrites; ///< of the process, at each write

private:
    void noteWrite(const std::string& setting)
    {
        languagesAtWrites.push_back(L10n::setting);
        note("write ", setting);
    }

    void note(const char* what, std::string_view key) const
    {
        events.push_back(what + std::string(key));
    }

    Events& events;
};

/// Notes when the model starts a timer or work in the background.
class NotingRunLoop : public FakeRunLoop {
public:
    NotingRunLoop(FakeClock& wallClock, Events& events)
        : FakeRunLoop(wallClock)
        , events(events)
    {
    }

    std::unique_ptr<Timer> scheduleRepeating(Seconds interval, Action action) override
    {
        events.emplace_back("start timer");
        return FakeRunLoop::scheduleRepeating(interval, std::move(action));
    }

    void runInBackground(Action work) override
    {
        events.emplace_back("read devices");
        FakeRunLoop::runInBackground(std::move(work));
    }

private:
    Events& events;
};

/// Notes when the model asks for the login item's status.
class NotingLoginItems : public FakeLoginItems {
public:
    explicit NotingLoginItems(Events& events)
        : events(events)
    {
    }

    bool isEnabled() const override
    {
        events.push_back("login item, language " + L10n::setting);
        return FakeLoginItems::isEnabled();
    }

private:
    Events& events;
};

/// Notes when the model turns to the notification centre.
class NotingCentre : public FakeNotificationCentre {
public:
    explicit NotingCentre(Events& events)
        : events(events)
    {
    }

    void requestAuthorisation(std::uint32_t options) override
    {
        events.emplace_back("ask to notify");
        FakeNotificationCentre::requestAuthorisation(options);
    }

    void setCategories(std::vector<NotificationCategory> newCategories) override
    {
        events.push_back("register categories, language " + L10n::setting);
        FakeNotificationCentre::setCategories(std::move(newCategories));
    }

private:
    Events& events;
};

/// Threshold, hour, minute, daily check, instant alerts and language.
auto settingsOf(const BatteryModel& model)
{
    return std::tuple(model.threshold.get(), model.checkHour.get(), model.checkMinute.get(),
                      model.enabled.get(), model.instantEnabled.get(), model.language.get());
}

/// Notes each look at the user's languages, which a text in the language "system" needs.
class NotingLanguages : public PreferredLanguages {
public:
    explicit NotingLanguages(Events& events)
        : events(events)
    {
    }

    std::vector<std::string> tags() const override
    {
        events.emplace_back("look up a text");
        return {"en"};
    }

private:
    Events& events;
};

/// A model whose dealings with the outside are noted in order.
class BatteryModelSettingsTest : public testing::Test {
protected:
    BatteryModelSettingsTest() { defaults.stored.set("language", std::string("en")); }

    BatteryModel& start()
    {
        world.model = std::make_unique<BatteryModel>(
            ModelServices{defaults, runLoop, world.clock, world.calendar, loginItems, notifications,
                          world.notificationDelegate, world.alerts, world.log, world.reader});
        return *world.model;
    }

    /// Starts the model and forgets what construction did.
    BatteryModel& started()
    {
        BatteryModel& model = start();
        events.clear();
        return model;
    }

    Events events;
    ModelWorld world;
    NotingDefaults defaults{events};
    NotingRunLoop runLoop{world.clock, events};
    NotingLoginItems loginItems{events};
    NotingCentre notifications{events};

    /// The model goes first: it uses the services above.
    void TearDown() override { world.model.reset(); }
};

TEST_F(BatteryModelSettingsTest, ConstructionReadsEachSettingOnceInOrderAndWritesNone)
{
    start();

    EXPECT_THAT(events,
                ElementsAre("read integer threshold", "read integer hour", "read integer minute",
                            "read boolean enabled", "read boolean instant", "read text language",
                            "login item, language en", "ask to notify", "read devices",
                            "start timer"));
}

TEST_F(BatteryModelSettingsTest, ConstructionAsksForPermissionOnceTheFirstStatusIsSet)
{
    const NotingLanguages languages(events);
    const LanguageGuard guard("system", &languages);
    defaults.stored.set("language", std::string("system"));
    start();

    std::erase_if(events, [](const std::string& event) { return event.starts_with("read "); });
    EXPECT_THAT(events,
                ElementsAre("login item, language system", "look up a text", "ask to notify",
                            "start timer"));
}

TEST_F(BatteryModelSettingsTest, AChangeOfLanguageTakesEffectAfterTheSettingsAreSaved)
{
    BatteryModel& model = started();

    model.language = "zh";

    EXPECT_THAT(defaults.languagesAtWrites, ElementsAre("en", "en", "en", "en", "en"));
    EXPECT_EQ(L10n::setting, "zh");
}

TEST_F(BatteryModelSettingsTest, AnEmptyStoreYieldsTheDefaults)
{
    defaults.stored = MemoryDefaults();

    EXPECT_EQ(settingsOf(start()), std::tuple(20, 22, 30, true, true, "system"));
    EXPECT_EQ(L10n::setting, "system");
}

TEST_F(BatteryModelSettingsTest, StoredSettingsAreTaken)
{
    defaults.stored.set("threshold", std::int64_t{35});
    defaults.stored.set("hour", std::int64_t{8});
    defaults.stored.set("minute", std::int64_t{5});
    defaults.stored.set("enabled", false);
    defaults.stored.set("instant", false);
    defaults.stored.set("language", std::string("zh"));

    EXPECT_EQ(settingsOf(start()), std::tuple(35, 8, 5, false, false, "zh"));
    EXPECT_EQ(L10n::setting, "zh");
    EXPECT_EQ(world.model->status.get(), "等待检查");
}

TEST_F(BatteryModelSettingsTest, AValueOfTheWrongTypeYieldsTheDefaultForItsKeyOnly)
{
    defaults.stored.set("threshold", std::string("35"));
    defaults.stored.set("hour", 8.5);
    defaults.stored.set("minute", std::int64_t{5});
    defaults.stored.set("enabled", std::string("false"));
    defaults.stored.set("instant", std::int64_t{2});
    defaults.stored.set("language", std::int64_t{1});

    EXPECT_EQ(settingsOf(start()), std::tuple(20, 22, 5, true, true, "system"));
}

TEST_F(BatteryModelSettingsTest, AValueOfTheWrongTypeIsNotWrittenBackUntilASettingChanges)
{
    defaults.stored.set("threshold", std::string("35"));
    BatteryModel& model = start();
    runLoop.advance(hours(1));
    EXPECT_EQ(defaults.stored.text("threshold"), "35");

    model.checkHour = 9;
    EXPECT_EQ(defaults.stored.integer("threshold"), 20);
}

TEST_F(BatteryModelSettingsTest, AStoredThresholdOf250AndAnHourOf99AreUsedUnchanged)
{
    defaults.stored.set("threshold", std::int64_t{250});
    defaults.stored.set("hour", std::int64_t{99});
    defaults.stored.set("minute", std::int64_t{-1});
    world.setLevels({{803, 100}});
    BatteryModel& model = start();
    runLoop.settle();

    EXPECT_EQ(model.checkHour.get(), 99);
    EXPECT_EQ(model.checkMinute.get(), -1);
    EXPECT_EQ(model.status.get(), "Low battery: Magic Mouse 100%");

    events.clear();
    model.instantEnabled = true;
    EXPECT_THAT(events,
                ElementsAre("write threshold 250", "write hour 99", "write minute -1",
                            "write enabled true", "write instant true"));
}

TEST_F(BatteryModelSettingsTest, ConstructionStartsWithNothingReadAndTheWaitingStatus)
{
    const BatteryModel& model = start();

    EXPECT_THAT(model.devices.get(), IsEmpty());
    EXPECT_EQ(model.lastChecked.get(), std::nullopt);
    EXPECT_EQ(model.status.get(), "Waiting for check");
    EXPECT_FALSE(model.launchAtLogin);
    EXPECT_THAT(world.alerts.shown, IsEmpty());
    EXPECT_THAT(world.log.lines, IsEmpty());
}

TEST_F(BatteryModelSettingsTest, TheCustomTimeStartsAsTheCurrentTimeInTheUsersZone)
{
    world.setClock(14, 37, 59);
    world.calendar.offset = minutes(345);
    BatteryModel& model = start();
    EXPECT_EQ(model.customHour.get(), 20);
    EXPECT_EQ(model.customMinute.get(), 22);

    runLoop.advance(hours(2));
    EXPECT_EQ(model.customHour.get(), 20);

    events.clear();
    model.customHour = 7;
    model.customMinute = 45;
    EXPECT_THAT(events, IsEmpty());
}

/// One change of a setting, and what the five keys hold after it.
struct Change {
    const char* name;
    void (*make)(BatteryModel& model);
    const char* values;
    bool restartsTimer;
};

void PrintTo(const Change& change, std::ostream* out)
{
    *out << change.name;
}

class SettingChangeTest : public BatteryModelSettingsTest,
                          public testing::WithParamInterface<Change> { };

TEST_P(SettingChangeTest, WritesAllFiveKeysInOrderAndNoLanguageThenRestartsTheTimerIfItMust)
{
    BatteryModel& model = started();
    Events expected;
    std::istringstream values(GetParam().values);
    for (const char* const key : {"threshold", "hour", "minute", "enabled", "instant"}) {
        std::string value;
        values >> value;
        expected.push_back(std::string("write ") + key + ' ' + value);
    }
    if (GetParam().restartsTimer) {
        expected.emplace_back("start timer");
    }

    GetParam().make(model);

    EXPECT_EQ(events, expected);
    EXPECT_EQ(runLoop.timerCount(), 1U);
}

const Change changes[]{
    {"Threshold", [](BatteryModel& it) { it.threshold = 35; }, "35 22 30 true true", false},
    {"Hour", [](BatteryModel& it) { it.checkHour = 8; }, "20 8 30 true true", true},
    {"Minute", [](BatteryModel& it) { it.checkMinute = 5; }, "20 22 5 true true", true},
    {"DailyCheck", [](BatteryModel& it) { it.enabled = false; }, "20 22 30 false true", true},
    {"Instant", [](BatteryModel& it) { it.instantEnabled = false; }, "20 22 30 true false", false},
    {"OutOfRange", [](BatteryModel& it) { it.threshold = -40; }, "-40 22 30 true true", false},
    {"SameThreshold", [](BatteryModel& it) { it.threshold = 20; }, "20 22 30 true true", false},
    {"SameHour", [](BatteryModel& it) { it.checkHour = 22; }, "20 22 30 true true", true},
    {"SameMinute", [](BatteryModel& it) { it.checkMinute = 30; }, "20 22 30 true true", true},
    {"SameDailyCheck", [](BatteryModel& it) { it.enabled = true; }, "20 22 30 true true", true},
    {"SameInstant", [](BatteryModel& it) { it.instantEnabled = true; }, "20 22 30 true true",
     false},
};

INSTANTIATE_TEST_SUITE_P(Settings, SettingChangeTest, testing::ValuesIn(changes),
                         [](const auto& change) { return std::string(change.param.name); });

TEST_F(BatteryModelSettingsTest, ChangingTheLanguageWritesTheFiveKeysAndNotLanguage)
{
    BatteryModel& model = started();

    model.language = "zh";

    EXPECT_THAT(events,
                ElementsAre("write threshold 20", "write hour 22", "write minute 30",
                            "write enabled true", "write instant true",
                            "register categories, language zh"));
    EXPECT_EQ(defaults.stored.text("language"), "en");
}

TEST_F(BatteryModelSettingsTest, TheLanguageIsNeverWrittenSoTheNextLaunchStartsFromTheStoredOne)
{
    BatteryModel& model = start();
    model.language = "zh";
    model.threshold = 35;
    runLoop.advance(hours(48));

    EXPECT_THAT(events, Each(Not(StartsWith("write language"))));
    EXPECT_EQ(settingsOf(start()), std::tuple(35, 22, 30, true, true, "en"));
    EXPECT_EQ(L10n::setting, "en");
}

TEST_F(BatteryModelSettingsTest, ALanguageChangeTranslatesTheCategoriesAndTheStatusAtOnce)
{
    world.setLevels({{803, 15}, {805, 9}});
    BatteryModel& model = start();
    runLoop.settle();
    EXPECT_EQ(model.status.get(), "Low battery: Magic Mouse 15%, Magic Keyboard 9%");

    model.language = "zh";

    EXPECT_EQ(model.status.get(), "电量偏低：Magic Mouse 15%、Magic Keyboard 9%");
    ASSERT_THAT(notifications.categories, SizeIs(1));
    EXPECT_EQ(notifications.categories.front().actions.front().title, "20 分钟后");
}

TEST_F(BatteryModelSettingsTest, ALanguageChangeWithNoDevicesLeavesTheStatusInTheOldLanguage)
{
    BatteryModel& model = start();

    model.language = "zh";
    EXPECT_EQ(model.status.get(), "Waiting for check");

    world.setLevels({{803, 80}});
    runLoop.settle();
    EXPECT_EQ(model.status.get(), "电量正常");
}

TEST_F(BatteryModelSettingsTest, AChangeIsAnnouncedThenStoredThenObservedThenSaved)
{
    BatteryModel& model = started();
    const Subscription subscription = model.objectWillChange.subscribe(
        [&] { events.push_back("announce at hour " + std::to_string(model.checkHour.get())); });

    model.checkHour = 8;

    EXPECT_THAT(events,
                ElementsAre("announce at hour 22", "write threshold 20", "write hour 8",
                            "write minute 30", "write enabled true", "write instant true",
                            "start timer"));
}

TEST_F(BatteryModelSettingsTest, EveryPublishedPropertyAnnouncesItself)
{
    BatteryModel& model = start();
    int announcements = 0;
    const Subscription subscription =
        model.objectWillChange.subscribe([&announcements] { ++announcements; });

    model.devices = BatteryModel::DeviceList{};
    model.threshold = 20;
    model.checkHour = 22;
    model.checkMinute = 30;
    model.enabled = true;
    model.instantEnabled = true;
    model.lastChecked = std::nullopt;
    model.status = "";
    model.customHour = 0;
    model.customMinute = 0;
    EXPECT_EQ(announcements, 10);

    // Neither of these writes another property here.
    model.language = "en";
    model.launchAtLogin = false;
    EXPECT_EQ(announcements, 12);
}

TEST_F(BatteryModelSettingsTest, NeitherAReadingNorTheEndSavesAnything)
{
    world.setLevels({{803, 10}});
    started();

    runLoop.advance(hours(48));
    world.model.reset();

    EXPECT_THAT(events, Each("read devices"));
}

} // namespace
} // namespace voltmere
