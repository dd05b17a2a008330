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

class SnoozeAlertEnglishTest : public testing::Test {
    LanguageGuard language{"en"};
};

class SnoozeAlertChineseTest : public testing::Test {
    LanguageGuard language{"zh"};
};

TEST_F(SnoozeAlertEnglishTest, OneLowDeviceIsNamedInTheTitleAndItsLevelInRed)
{
    const AlertContent content = lowContent({mouse(12)});

    EXPECT_EQ(content.title.whole(), "Magic Mouse battery alert");
    EXPECT_EQ(content.detail, "Battery at 12%. Please charge.");
    EXPECT_TRUE(content.detailIsRed);
}

TEST_F(SnoozeAlertChineseTest, OneLowDeviceIsNamedInTheTitleAndItsLevelInRed)
{
    const AlertContent content = lowContent({mouse(12)});

    EXPECT_EQ(content.title.whole(), "Magic Mouse 电量提醒");
    EXPECT_EQ(content.detail, "当前电量12%，请及时充电。");
    EXPECT_TRUE(content.detailIsRed);
}

TEST_F(SnoozeAlertEnglishTest, TwoLowDevicesAreListedInRed)
{
    const AlertContent content = lowContent({mouse(12), keyboard(8)});

    EXPECT_EQ(content.title.whole(), "Peripheral battery alert");
    EXPECT_EQ(content.detail, "Mouse12%, Keyboard8%. Please charge.");
    EXPECT_TRUE(content.detailIsRed);
}

TEST_F(SnoozeAlertChineseTest, TwoLowDevicesAreListedInRed)
{
    const AlertContent content = lowContent({mouse(12), keyboard(8)});

    EXPECT_EQ(content.title.whole(), "外设电量提醒");
    EXPECT_EQ(content.detail, "鼠标12%、键盘8%，请及时充电。");
    EXPECT_TRUE(content.detailIsRed);
}

TEST_F(SnoozeAlertEnglishTest, LowWithoutADeviceIsTheSuffixAlone)
{
    const AlertContent content = lowContent({});

    EXPECT_EQ(content.title.whole(), "Peripheral battery alert");
    EXPECT_EQ(content.detail, ". Please charge.");
    EXPECT_TRUE(content.detailIsRed);
}

TEST_F(SnoozeAlertChineseTest, LowWithoutADeviceIsTheSuffixAlone)
{
    const AlertContent content = lowContent({});

    EXPECT_EQ(content.title.whole(), "外设电量提醒");
    EXPECT_EQ(content.detail, "，请及时充电。");
}

TEST_F(SnoozeAlertEnglishTest, NothingLowListsAllDevicesInTheLabelColour)
{
    const AlertContent content = normalContent({mouse(80), keyboard(64)});

    EXPECT_EQ(content.title.whole(), "Peripheral battery");
    EXPECT_EQ(content.detail, "All good: Mouse80%, Keyboard64%");
    EXPECT_FALSE(content.detailIsRed);
}

TEST_F(SnoozeAlertChineseTest, NothingLowListsAllDevicesInTheLabelColour)
{
    const AlertContent content = normalContent({mouse(80), keyboard(64)});

    EXPECT_EQ(content.title.whole(), "外设电量");
    EXPECT_EQ(content.detail, "电量正常：鼠标80%、键盘64%");
    EXPECT_FALSE(content.detailIsRed);
}

TEST_F(SnoozeAlertEnglishTest, NothingLowWithOneDeviceStillUsesTheGeneralTitle)
{
    const AlertContent content = normalContent({trackpad(55)});

    EXPECT_EQ(content.title.whole(), "Peripheral battery");
    EXPECT_EQ(content.detail, "All good: Trackpad55%");
}

TEST_F(SnoozeAlertEnglishTest, NoDeviceAtAllSaysSo)
{
    const AlertContent content = normalContent({});

    EXPECT_EQ(content.title.whole(), "Peripheral battery");
    EXPECT_EQ(content.detail, "No peripherals found");
    EXPECT_FALSE(content.detailIsRed);
}

TEST_F(SnoozeAlertChineseTest, NoDeviceAtAllSaysSo)
{
    EXPECT_EQ(normalContent({}).detail, "未检测到外设");
}

TEST_F(SnoozeAlertEnglishTest, TheListHasNoBlanksAndKeepsTheGivenOrder)
{
    EXPECT_EQ(lowContent({trackpad(3), mouse(0), keyboard(20)}).detail,
              "Trackpad3%, Mouse0%, Keyboard20%. Please charge.");
}

TEST_F(SnoozeAlertChineseTest, TheListHasNoBlanksAndKeepsTheGivenOrder)
{
    EXPECT_EQ(lowContent({trackpad(3), mouse(0), keyboard(20)}).detail,
              "触控板3%、鼠标0%、键盘20%，请及时充电。");
}

TEST_F(SnoozeAlertEnglishTest, ADeviceOfUnknownOrderIsListedByItsName)
{
    EXPECT_EQ(normalContent({deviceOfUnknownOrder(3), mouse(80)}).detail,
              "All good: Pencil Case7%, Mouse80%");
    EXPECT_EQ(normalContent({deviceOfUnknownOrder(-1)}).detail, "All good: Pencil Case7%");
}

TEST_F(SnoozeAlertEnglishTest, TwoDevicesOfOneKindAreBothListed)
{
    const BatteryDevice otherMouse{617, "Magic Mouse 2", 9, "magicmouse", 0};

    EXPECT_EQ(lowContent({mouse(12), otherMouse}).detail, "Mouse12%, Mouse9%. Please charge.");
}

TEST_F(SnoozeAlertEnglishTest, ANameIsNeverReadAsAFormat)
{
    BatteryDevice device = mouse(12);
    device.name = "%@ %1$d 100%%";
    EXPECT_EQ(lowContent({device}).title.whole(), "%@ %1$d 100%% battery alert");

    BatteryDevice unknown = deviceOfUnknownOrder(5);
    unknown.name = "%@";
    EXPECT_EQ(normalContent({unknown}).detail, "All good: %@7%");
}

TEST_F(SnoozeAlertEnglishTest, AnUnusualLevelStandsAsReported)
{
    EXPECT_EQ(lowContent({mouse(-5)}).detail, "Battery at -5%. Please charge.");
    EXPECT_EQ(normalContent({mouse(250)}).detail, "All good: Mouse250%");
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

TEST_F(SnoozeAlertChineseTest, TheFixedTextsAreChinese)
{
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
