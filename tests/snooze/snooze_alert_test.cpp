#include "snooze/snooze_alert.h"

#include "fakes/fake_preferred_languages.h"
#include "fakes/sample_devices.h"

#include <gmock/gmock.h>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::Field;

constexpr ClockTime anyTime{11, 0};

AlertContent lowContent(const std::vector<BatteryDevice>& devices)
{
    return makeAlertContent(devices, true, anyTime);
}

AlertContent normalContent(const std::vector<BatteryDevice>& devices)
{
    return makeAlertContent(devices, false, anyTime);
}

BatteryDevice deviceOfUnknownOrder(std::int64_t order)
{
    return {999, "Pencil Case", 7, "pencil", order};
}

void expectContent(const char* language, const AlertContent& content, const char* title,
                   const char* detail, bool red)
{
    EXPECT_EQ(content.title.whole(), title) << language;
    EXPECT_EQ(content.detail, detail) << language;
    EXPECT_EQ(content.detailIsRed, red) << language;
}

void expectLow(const char* language, const std::vector<BatteryDevice>& devices, const char* title,
               const char* detail)
{
    const LanguageGuard guard(language);
    expectContent(language, lowContent(devices), title, detail, true);
}

void expectNormal(const char* language, const std::vector<BatteryDevice>& devices,
                  const char* detail)
{
    const LanguageGuard guard(language);
    const bool english = std::string_view(language) == "en";
    expectContent(language, normalContent(devices), english ? "Peripheral battery" : "外设电量",
                  detail, false);
}

TEST(SnoozeAlertTest, OneLowDeviceIsNamedInTheTitleAndItsLevelInRed)
{
    expectLow("en", {mouse(12)}, "Magic Mouse battery alert", "Battery at 12%. Please charge.");
    expectLow("zh", {mouse(12)}, "Magic Mouse 电量提醒", "当前电量12%，请及时充电。");
}

TEST(SnoozeAlertTest, TwoLowDevicesAreListedInRedWithoutBlanksInTheGivenOrder)
{
    expectLow("en", {mouse(12), keyboard(8)}, "Peripheral battery alert",
              "Mouse12%, Keyboard8%. Please charge.");
    expectLow("zh", {mouse(12), keyboard(8)}, "外设电量提醒", "鼠标12%、键盘8%，请及时充电。");
    expectLow("zh", {trackpad(3), mouse(-5), mouse(250)}, "外设电量提醒",
              "触控板3%、鼠标-5%、鼠标250%，请及时充电。");
}

TEST(SnoozeAlertTest, LowWithoutADeviceIsTheSuffixAlone)
{
    expectLow("en", {}, "Peripheral battery alert", ". Please charge.");
}

TEST(SnoozeAlertTest, NothingLowListsAllDevicesInTheLabelColour)
{
    expectNormal("en", {mouse(80), keyboard(64)}, "All good: Mouse80%, Keyboard64%");
    expectNormal("zh", {mouse(80), keyboard(64)}, "电量正常：鼠标80%、键盘64%");
    expectNormal("en", {trackpad(55)}, "All good: Trackpad55%");
}

TEST(SnoozeAlertTest, NoDeviceAtAllSaysSo)
{
    expectNormal("en", {}, "No peripherals found");
    expectNormal("zh", {}, "未检测到外设");
}

TEST(SnoozeAlertTest, ADeviceOfUnknownOrderIsListedByItsName)
{
    expectNormal("en", {deviceOfUnknownOrder(3), mouse(80)}, "All good: Pencil Case7%, Mouse80%");
    expectNormal("en", {deviceOfUnknownOrder(-1)}, "All good: Pencil Case7%");
}

class SnoozeAlertEnglishTest : public testing::Test {
    LanguageGuard language{"en"};
};

TEST_F(SnoozeAlertEnglishTest, ANameIsNeverReadAsAFormat)
{
    BatteryDevice device = mouse(12);
    device.name = "%@ %1$d 100%%";
    EXPECT_EQ(lowContent({device}).title.whole(), "%@ %1$d 100%% battery alert");

    BatteryDevice unknown = deviceOfUnknownOrder(5);
    unknown.name = "%@";
    EXPECT_EQ(normalContent({unknown}).detail, "All good: %@7%");
}

TEST_F(SnoozeAlertEnglishTest, TheFixedTextsAreEnglish)
{
    const AlertContent content = lowContent({mouse(12)});

    EXPECT_EQ(content.applicationName, "Cellsentry");
    EXPECT_EQ(content.prompt, "Remind me again");
    EXPECT_THAT(content.options,
                ElementsAre("In 20 minutes", "In 30 minutes", "In 1 hour", "In 2 hours"));
    EXPECT_EQ(content.customTimeCaption, "At a time");
    EXPECT_EQ(content.confirmTitle, "OK");
    EXPECT_EQ(content.cancelTitle, "Cancel");
}

TEST(SnoozeAlertChineseTest, TheFixedTextsAreChinese)
{
    const LanguageGuard language("zh");
    const AlertContent content = lowContent({mouse(12)});

    EXPECT_EQ(content.applicationName, "续航哨兵");
    EXPECT_EQ(content.prompt, "选择再次提醒时间");
    EXPECT_THAT(content.options, ElementsAre("20 分钟后", "30 分钟后", "1 小时后", "2 小时后"));
    EXPECT_EQ(content.customTimeCaption, "指定时间");
    EXPECT_EQ(content.confirmTitle, "确定");
    EXPECT_EQ(content.cancelTitle, "取消");
}

TEST_F(SnoozeAlertEnglishTest, ANameIsFitToBeShown)
{
    const std::vector<std::pair<std::string, std::string>> names{
        {"a\nb\r\tc\x1b[31m\u2028d", "a b c [31m d"},
        {"\u202egpj\u2066.mouse\u2069", "gpj.mouse"},
        {"a\xff", "a\uFFFD"},
        {"", "Magic Mouse"},
    };
    for (const auto& [name, shown] : names) {
        BatteryDevice device = mouse(12);
        device.name = name;
        EXPECT_EQ(lowContent({device}).title.name, shown);
    }
    BatteryDevice unknown = deviceOfUnknownOrder(5);
    unknown.name = "a\nb";
    EXPECT_EQ(normalContent({unknown}).detail, "All good: a b7%");
}

TEST_F(SnoozeAlertEnglishTest, ATitleSaysWhereItHoldsAName)
{
    EXPECT_EQ(lowContent({mouse(12)}).title, (NamedText{"", "Magic Mouse", " battery alert"}));
    EXPECT_EQ(lowContent({}).title, (NamedText{"Peripheral battery alert", "", ""}));
}

TEST_F(SnoozeAlertEnglishTest, TheClockTimeIsThePreselectedOne)
{
    const AlertContent content = makeAlertContent({}, false, {23, 55});

    EXPECT_EQ(content.hour.selected, 23U);
    EXPECT_EQ(content.minute.selected, 11U);
}

TEST(SnoozeOptionsTest, OfferTwentyAndThirtyMinutesOneHourAndTwo)
{
    const auto option = [](std::string_view key, int seconds) {
        return testing::AllOf(Field(&SnoozeOption::labelKey, key),
                              Field(&SnoozeOption::delay, Seconds(seconds)));
    };

    EXPECT_THAT(snoozeOptions,
                ElementsAre(option("alert.in20", 1200), option("alert.in30", 1800),
                            option("alert.in60", 3600), option("alert.in120", 7200)));
}

TEST(AlertGeometryTest, NineRowsMake237By252Points)
{
    EXPECT_EQ(alertGeometry::width, 237);
    EXPECT_EQ(alertGeometry::height(), 252);
    EXPECT_THAT(alertGeometry::rowHeights, ElementsAre(16, 16, 16, 16, 28, 28, 28, 28, 28));
    EXPECT_EQ(alertGeometry::spacing, 6);
}

} // namespace
} // namespace voltmere
