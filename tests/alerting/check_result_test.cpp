#include "alerting/check_result.h"

#include "fakes/fake_preferred_languages.h"
#include "fakes/sample_devices.h"

#include <gmock/gmock.h>

#include <cstdint>
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

const IDs nobody;
const IDs theMouse{mouseID};

constexpr CheckRules fullCheck{20, true, true, true};
constexpr CheckRules refresh{20, false, true, true};
constexpr CheckRules panelRefresh{20, false, false, true};
constexpr CheckRules instantOff{20, false, true, false};

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
    {"FullCheckAlertsOfALowDevice", nobody, {mouse(10)}, fullCheck, theMouse, {mouse(10)}, false},
    {"RefreshAlertsOfANewlyLowAndLogs", nobody, {mouse(10)}, refresh, theMouse, {mouse(10)}, true},
    {"FullCheckAlertsAgain", theMouse, {mouse(10)}, fullCheck, theMouse, {mouse(10)}, false},
    {"RefreshIsSilentAboutOneStillLow", theMouse, {mouse(10)}, refresh, theMouse, {}, false},
    {"EmptyRefreshKeepsAnAlertedDevice", theMouse, {}, refresh, theMouse, {}, false},
    {"EmptyFullCheckKeepsAnAlertedDevice", theMouse, {}, fullCheck, theMouse, {}, false},
    {"MissingDeviceKeepsItsState", theMouse, {keyboard(80)}, fullCheck, theMouse, {}, false},
    {"DeviceAtTheThresholdIsLow", nobody, {mouse(20)}, refresh, theMouse, {mouse(20)}, true},
    {"DeviceAtTheThresholdIsNotReleased", theMouse, {mouse(20)}, refresh, theMouse, {}, false},
    {"DeviceOneAboveTheThresholdIsNotLow", nobody, {mouse(21)}, fullCheck, nobody, {}, false},
    {"FullCheckListsAllLowDevicesOldAndNew",
     {keyboardID},
     {mouse(5), keyboard(9), trackpad(60)},
     fullCheck,
     {mouseID, keyboardID},
     {mouse(5), keyboard(9)},
     false},
    {"RefreshListsOnlyTheNewlyLowInTheirOrder",
     {keyboardID},
     {trackpad(20), keyboard(9), mouse(5)},
     refresh,
     {mouseID, keyboardID, trackpadID},
     {trackpad(20), mouse(5)},
     true},
    {"OneReadingReleasesOneAndAlertsOfAnother",
     theMouse,
     {mouse(100), keyboard(9)},
     refresh,
     {keyboardID},
     {keyboard(9)},
     true},
    {"InstantOffShowsAndLogsNothing", nobody, {mouse(10)}, instantOff, nobody, {}, false},
    {"PanelRefreshShowsAndLogsNothing", nobody, {mouse(10)}, panelRefresh, nobody, {}, false},
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

TEST(CheckResultTest, ADeviceChargedAboveTheThresholdIsAlertedAgainWhenItFalls)
{
    CheckVerdict verdict = evaluateCheck({mouse(15)}, {}, refresh);
    verdict = evaluateCheck({mouse(21)}, verdict.alertedIDs, refresh);
    EXPECT_THAT(verdict.alertedIDs, IsEmpty());
    verdict = evaluateCheck({mouse(20)}, verdict.alertedIDs, refresh);
    EXPECT_THAT(verdict.toAlert, ElementsAre(mouse(20)));
}

TEST(InstantAlertLogLineTest, NamesEachDeviceWithItsLevelTheSameInEveryLanguage)
{
    const LanguageGuard chinese("zh");
    BatteryDevice device = mouse(-3);
    device.name = "100%s %@ %n";

    EXPECT_EQ(instantAlertLogLine({device, keyboard(9)}),
              "Voltmere: 立即提醒 100%s %@ %n -3%, Magic Keyboard 9%");
}

TEST(AlertPayloadTest, IsTheOneLowDeviceOfThreeOrAllWhenNoneIsLowOrEmpty)
{
    const Devices all{mouse(80), keyboard(20), trackpad(64)};

    EXPECT_EQ(makeAlertPayload(all, 20), (AlertPayload{{keyboard(20)}, true}));
    EXPECT_EQ(makeAlertPayload(all, 19), (AlertPayload{all, false}));
    EXPECT_EQ(makeAlertPayload({}, 20), (AlertPayload{{}, false}));
}

void expectStatus(const char* english, const char* chinese, const Devices& devices,
                  std::int64_t threshold = 20)
{
    const LanguageGuard language("en");
    EXPECT_EQ(statusText(devices, threshold), english);
    L10n::setting = "zh";
    EXPECT_EQ(statusText(devices, threshold), chinese);
}

TEST(StatusText, SaysThatThereIsNoDeviceOrThatNoneIsLow)
{
    expectStatus("No peripherals found", "未检测到外设", {});
    expectStatus("Battery level is fine", "电量正常", {mouse(21), keyboard(100)});
}

TEST(StatusText, NamesADeviceAtExactlyTheThresholdAndNoneAboveIt)
{
    expectStatus("Low battery: Magic Keyboard 20%", "电量偏低：Magic Keyboard 20%",
                 {mouse(90), keyboard(20), trackpad(21)});
    expectStatus("Low battery: Magic Mouse -3%", "电量偏低：Magic Mouse -3%", {mouse(-3)}, 0);
}

TEST(StatusText, ThreeLowDevicesAreSeparatedByTheLanguagesOwnSign)
{
    expectStatus("Low battery: Magic Trackpad 3%, Magic Mouse 1%, Magic Keyboard 2%",
                 "电量偏低：Magic Trackpad 3%、Magic Mouse 1%、Magic Keyboard 2%",
                 {trackpad(3), mouse(1), keyboard(2)});
}

TEST(StatusText, ANameThatLooksLikeAFormatIsPlainText)
{
    BatteryDevice device = mouse(5);
    device.name = "%@ %1$d %% %s";
    expectStatus("Low battery: %@ %1$d %% %s 5%", "电量偏低：%@ %1$d %% %s 5%", {device});
}

} // namespace
} // namespace voltmere
