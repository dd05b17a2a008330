#include "alerting/check_result.h"

#include "fakes/fake_preferred_languages.h"
#include "fakes/sample_devices.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <limits>
#include <ostream>
#include <tuple>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int64_t mouseID = 803;
constexpr std::int64_t keyboardID = 805;
constexpr std::int64_t trackpadID = 804;

using Devices = std::vector<BatteryDevice>;
using IDs = std::set<std::int64_t>;

constexpr CheckRules fullCheck{20, true, true, true};
constexpr CheckRules quietRefresh{20, false, true, true};
constexpr CheckRules panelRefresh{20, false, false, true};
constexpr CheckRules quietRefreshInstantOff{20, false, true, false};
constexpr CheckRules fullCheckInstantOff{20, true, true, false};

/// One reading: what was known, what is read, and what must come of it.
struct Transition {
    const char* name;
    IDs alertedBefore;
    Devices reading;
    CheckRules rules;
    IDs alertedAfter;
    Devices toAlert;
    bool logs;
};

void PrintTo(const Transition& transition, std::ostream* out)
{
    *out << transition.name;
}

class CheckResultStateTest : public testing::TestWithParam<Transition> { };

TEST_P(CheckResultStateTest, FollowsTheTable)
{
    const Transition& row = GetParam();

    const CheckVerdict verdict = evaluateCheck(row.reading, row.alertedBefore, row.rules);

    EXPECT_EQ(verdict.alertedIDs, row.alertedAfter);
    EXPECT_EQ(verdict.toAlert, row.toAlert);
    EXPECT_EQ(verdict.logsAlert, row.logs);
}

const Transition stateTable[]{
    {"FullCheckAlertsOfALowDevice", {}, {mouse(10)}, fullCheck, {mouseID}, {mouse(10)}, false},
    {"QuietRefreshAlertsOfANewlyLowDeviceAndLogs",
     {},
     {mouse(10)},
     quietRefresh,
     {mouseID},
     {mouse(10)},
     true},
    {"FullCheckReleasesAChargedDevice", {mouseID}, {mouse(21)}, fullCheck, {}, {}, false},
    {"QuietRefreshReleasesAChargedDevice", {mouseID}, {mouse(21)}, quietRefresh, {}, {}, false},
    {"PanelRefreshReleasesAChargedDevice", {mouseID}, {mouse(21)}, panelRefresh, {}, {}, false},
    {"InstantOffStillReleasesAChargedDevice",
     {mouseID},
     {mouse(21)},
     quietRefreshInstantOff,
     {},
     {},
     false},
    {"FullCheckAlertsAgainOfADeviceStillLow",
     {mouseID},
     {mouse(10)},
     fullCheck,
     {mouseID},
     {mouse(10)},
     false},
    {"QuietRefreshKeepsSilentAboutADeviceStillLow",
     {mouseID},
     {mouse(10)},
     quietRefresh,
     {mouseID},
     {},
     false},
    {"EmptyReadingKeepsAnAlertedDevice", {mouseID}, {}, quietRefresh, {mouseID}, {}, false},
    {"EmptyFullCheckKeepsAnAlertedDevice", {mouseID}, {}, fullCheck, {mouseID}, {}, false},
    {"EmptyReadingKeepsTheSetEmpty", {}, {}, fullCheck, {}, {}, false},
    {"MissingDeviceKeepsItsState", {mouseID}, {keyboard(80)}, quietRefresh, {mouseID}, {}, false},
    {"MissingDeviceIsNotAlertedByAFullCheck",
     {mouseID},
     {keyboard(80)},
     fullCheck,
     {mouseID},
     {},
     false},
    {"DeviceAtTheThresholdIsLow", {}, {mouse(20)}, quietRefresh, {mouseID}, {mouse(20)}, true},
    {"DeviceAtTheThresholdIsNotReleased",
     {mouseID},
     {mouse(20)},
     quietRefresh,
     {mouseID},
     {},
     false},
    {"DeviceOneAboveTheThresholdIsNotLow", {}, {mouse(21)}, fullCheck, {}, {}, false},
    {"FullCheckListsAllLowDevicesOldAndNew",
     {keyboardID},
     {mouse(5), keyboard(9), trackpad(60)},
     fullCheck,
     {mouseID, keyboardID},
     {mouse(5), keyboard(9)},
     false},
    {"QuietRefreshListsOnlyTheNewlyLow",
     {keyboardID},
     {mouse(5), keyboard(9), trackpad(20)},
     quietRefresh,
     {mouseID, keyboardID, trackpadID},
     {mouse(5), trackpad(20)},
     true},
    {"OneReadingReleasesOneAndAlertsOfAnother",
     {mouseID},
     {mouse(100), keyboard(9)},
     quietRefresh,
     {keyboardID},
     {keyboard(9)},
     true},
    {"FullCheckWithNothingLowShowsNothing",
     {},
     {mouse(80), keyboard(64)},
     fullCheck,
     {},
     {},
     false},
    {"FullCheckAlertsWithInstantAlertsOff",
     {},
     {mouse(10)},
     fullCheckInstantOff,
     {mouseID},
     {mouse(10)},
     false},
    {"InstantOffShowsNothingAndLogsNothing",
     {},
     {mouse(10)},
     quietRefreshInstantOff,
     {},
     {},
     false},
    {"PanelRefreshShowsNothingAndLogsNothing", {}, {mouse(10)}, panelRefresh, {}, {}, false},
    {"TheReadingsOrderIsKept",
     {},
     {trackpad(3), mouse(1), keyboard(2)},
     quietRefresh,
     {mouseID, keyboardID, trackpadID},
     {trackpad(3), mouse(1), keyboard(2)},
     true},
};

INSTANTIATE_TEST_SUITE_P(Transitions, CheckResultStateTest, testing::ValuesIn(stateTable),
                         [](const auto& row) { return std::string(row.param.name); });

/// Flags in the order: alert, allowInstantAlert, instantEnabled.
class ReleasePassTest : public testing::TestWithParam<std::tuple<bool, bool, bool>> { };

TEST_P(ReleasePassTest, RunsWhateverTheFlagsSay)
{
    const auto [alert, allowInstantAlert, instantEnabled] = GetParam();
    const CheckRules rules{20, alert, allowInstantAlert, instantEnabled};

    const CheckVerdict verdict =
        evaluateCheck({mouse(21), keyboard(20)}, {mouseID, keyboardID, trackpadID}, rules);

    EXPECT_THAT(verdict.alertedIDs, ElementsAre(trackpadID, keyboardID));
}

INSTANTIATE_TEST_SUITE_P(AllFlags, ReleasePassTest,
                         testing::Combine(testing::Bool(), testing::Bool(), testing::Bool()));

/// Takes readings one after the other, as the model does.
class CheckResultSequenceTest : public testing::Test {
protected:
    CheckVerdict read(const Devices& reading, const CheckRules& rules)
    {
        CheckVerdict verdict = evaluateCheck(reading, alertedIDs, rules);
        alertedIDs = verdict.alertedIDs;
        return verdict;
    }

    IDs alertedIDs;
};

TEST_F(CheckResultSequenceTest, TwoRefreshesThatFindTheSameLowMouseAlertOnce)
{
    EXPECT_THAT(read({mouse(10)}, quietRefresh).toAlert, ElementsAre(mouse(10)));

    const CheckVerdict second = read({mouse(10)}, quietRefresh);
    EXPECT_THAT(second.toAlert, IsEmpty());
    EXPECT_FALSE(second.logsAlert);
}

TEST_F(CheckResultSequenceTest, ADeviceChargedAboveTheThresholdIsAlertedAgainWhenItFalls)
{
    read({mouse(15)}, quietRefresh);

    EXPECT_THAT(read({mouse(21)}, quietRefresh).alertedIDs, IsEmpty());
    EXPECT_THAT(read({mouse(20)}, quietRefresh).toAlert, ElementsAre(mouse(20)));
}

TEST_F(CheckResultSequenceTest, ADeviceChargedOnlyToTheThresholdIsNotAlertedAgain)
{
    read({mouse(15)}, quietRefresh);

    EXPECT_THAT(read({mouse(20)}, quietRefresh).alertedIDs, ElementsAre(mouseID));
    EXPECT_THAT(read({mouse(19)}, quietRefresh).toAlert, IsEmpty());
}

TEST_F(CheckResultSequenceTest, AnEmptyReadingInBetweenDoesNotAlertAgain)
{
    read({mouse(15)}, quietRefresh);
    read({}, quietRefresh);

    EXPECT_THAT(read({mouse(15)}, quietRefresh).toAlert, IsEmpty());
}

TEST_F(CheckResultSequenceTest, ARefreshDoesNotRepeatWhatAFullCheckHasAlertedOf)
{
    read({mouse(15)}, fullCheck);

    EXPECT_THAT(read({mouse(14)}, quietRefresh).toAlert, IsEmpty());
}

TEST_F(CheckResultSequenceTest, ADeviceThatASilentReadingFoundLowIsStillNewlyLow)
{
    read({mouse(15)}, panelRefresh);
    read({mouse(15)}, quietRefreshInstantOff);

    EXPECT_THAT(read({mouse(15)}, quietRefresh).toAlert, ElementsAre(mouse(15)));
}

TEST_F(CheckResultSequenceTest, ALowerThresholdReleasesAtTheNextReading)
{
    read({mouse(15)}, quietRefresh);
    CheckRules lower = quietRefresh;
    lower.threshold = 10;

    EXPECT_THAT(read({mouse(15)}, lower).alertedIDs, IsEmpty());
}

TEST(CheckResultTest, ComparesSignedWholeNumbersOfAnySize)
{
    constexpr std::int64_t least = std::numeric_limits<std::int64_t>::min();
    constexpr std::int64_t most = std::numeric_limits<std::int64_t>::max();
    CheckRules rules = fullCheck;

    rules.threshold = -1;
    EXPECT_THAT(evaluateCheck({mouse(0), keyboard(least)}, {}, rules).toAlert,
                ElementsAre(keyboard(least)));
    rules.threshold = 250;
    EXPECT_THAT(evaluateCheck({mouse(100), keyboard(251)}, {}, rules).toAlert,
                ElementsAre(mouse(100)));
    rules.threshold = most;
    EXPECT_THAT(evaluateCheck({mouse(most)}, {}, rules).toAlert, ElementsAre(mouse(most)));
}

TEST(InstantAlertLogLineTest, NamesEachDeviceWithItsLevel)
{
    EXPECT_EQ(instantAlertLogLine({mouse(15), keyboard(9)}),
              "Voltmere: 立即提醒 Magic Mouse 15%, Magic Keyboard 9%");
    EXPECT_EQ(instantAlertLogLine({mouse(-3)}), "Voltmere: 立即提醒 Magic Mouse -3%");
}

TEST(InstantAlertLogLineTest, IsTheSameInEveryLanguage)
{
    const LanguageGuard chinese("zh");

    EXPECT_EQ(instantAlertLogLine({mouse(15), keyboard(9)}),
              "Voltmere: 立即提醒 Magic Mouse 15%, Magic Keyboard 9%");
}

TEST(InstantAlertLogLineTest, TakesANameAsPlainText)
{
    BatteryDevice device = mouse(15);
    device.name = "100%s %@ %n";

    EXPECT_EQ(instantAlertLogLine({device}), "Voltmere: 立即提醒 100%s %@ %n 15%");
}

TEST(AlertPayloadTest, OneLowDeviceOfThreeIsTheOnlyOne)
{
    const AlertPayload payload = makeAlertPayload({mouse(80), keyboard(15), trackpad(64)}, 20);

    EXPECT_EQ(payload, (AlertPayload{{keyboard(15)}, true}));
}

TEST(AlertPayloadTest, WithNoneLowItIsAllOfThem)
{
    const Devices all{mouse(80), keyboard(21), trackpad(64)};

    EXPECT_EQ(makeAlertPayload(all, 20), (AlertPayload{all, false}));
}

TEST(AlertPayloadTest, WithNoDeviceItIsEmpty)
{
    EXPECT_EQ(makeAlertPayload({}, 20), (AlertPayload{{}, false}));
}

TEST(AlertPayloadTest, ADeviceAtTheThresholdIsLow)
{
    EXPECT_EQ(makeAlertPayload({mouse(20), keyboard(20), trackpad(21)}, 20),
              (AlertPayload{{mouse(20), keyboard(20)}, true}));
}

} // namespace
} // namespace voltmere
