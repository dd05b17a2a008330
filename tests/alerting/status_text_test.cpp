#include "alerting/check_result.h"

#include "fakes/fake_preferred_languages.h"

#include <gmock/gmock.h>

#include <limits>

namespace voltmere {
namespace {

BatteryDevice mouse(std::int64_t level, std::string name = "Magic Mouse")
{
    return {803, std::move(name), level, "magicmouse", 0};
}

BatteryDevice keyboard(std::int64_t level)
{
    return {805, "Magic Keyboard", level, "keyboard", 1};
}

BatteryDevice trackpad(std::int64_t level)
{
    return {804, "Magic Trackpad", level, "rectangle.and.hand.point.up.left", 2};
}

TEST(StatusText, WithoutDevicesSaysSo)
{
    const LanguageGuard english("en");
    EXPECT_EQ(statusText({}, 20), "No peripherals found");
    L10n::setting = "zh";
    EXPECT_EQ(statusText({}, 20), "未检测到外设");
}

TEST(StatusText, WithNoDeviceLowSaysThatAllIsFine)
{
    const LanguageGuard english("en");
    EXPECT_EQ(statusText({mouse(21), keyboard(100)}, 20), "Battery level is fine");
    L10n::setting = "zh";
    EXPECT_EQ(statusText({mouse(21), keyboard(100)}, 20), "电量正常");
}

TEST(StatusText, AMouseAndAKeyboardThatAreLowAreNamedWithTheirLevels)
{
    const LanguageGuard english("en");
    EXPECT_EQ(statusText({mouse(15), keyboard(9)}, 20),
              "Low battery: Magic Mouse 15%, Magic Keyboard 9%");
    L10n::setting = "zh";
    EXPECT_EQ(statusText({mouse(15), keyboard(9)}, 20),
              "电量偏低：Magic Mouse 15%、Magic Keyboard 9%");
}

TEST(StatusText, ADeviceAtExactlyTheThresholdIsNamed)
{
    const LanguageGuard english("en");
    EXPECT_EQ(statusText({mouse(20)}, 20), "Low battery: Magic Mouse 20%");
    EXPECT_EQ(statusText({mouse(21)}, 20), "Battery level is fine");
}

TEST(StatusText, ThreeLowDevicesAreSeparatedByTheLanguagesOwnSign)
{
    const LanguageGuard chinese("zh");
    EXPECT_EQ(statusText({mouse(1), keyboard(2), trackpad(3)}, 20),
              "电量偏低：Magic Mouse 1%、Magic Keyboard 2%、Magic Trackpad 3%");
    L10n::setting = "en";
    EXPECT_EQ(statusText({mouse(1), keyboard(2), trackpad(3)}, 20),
              "Low battery: Magic Mouse 1%, Magic Keyboard 2%, Magic Trackpad 3%");
}

TEST(StatusText, DevicesThatAreNotLowAreNeverNamed)
{
    const LanguageGuard english("en");
    EXPECT_EQ(statusText({mouse(90), keyboard(5), trackpad(21)}, 20),
              "Low battery: Magic Keyboard 5%");
    EXPECT_EQ(statusText({mouse(5), keyboard(90), trackpad(20)}, 20),
              "Low battery: Magic Mouse 5%, Magic Trackpad 20%");
}

TEST(StatusText, LowDevicesKeepTheOrderOfTheList)
{
    const LanguageGuard english("en");
    EXPECT_EQ(statusText({trackpad(9), mouse(10), keyboard(1)}, 20),
              "Low battery: Magic Trackpad 9%, Magic Mouse 10%, Magic Keyboard 1%");
}

TEST(StatusText, AMouseAt40IsFineAt20AndLowOnceReadAt50)
{
    const LanguageGuard english("en");
    EXPECT_EQ(statusText({mouse(40)}, 20), "Battery level is fine");
    EXPECT_EQ(statusText({mouse(40)}, 50), "Low battery: Magic Mouse 40%");
}

TEST(StatusText, LevelsAreShownAsReported)
{
    const LanguageGuard english("en");
    EXPECT_EQ(statusText({mouse(0)}, 0), "Low battery: Magic Mouse 0%");
    EXPECT_EQ(statusText({mouse(-3)}, 0), "Low battery: Magic Mouse -3%");
    EXPECT_EQ(statusText({mouse(101)}, 100), "Battery level is fine");
    EXPECT_EQ(statusText({mouse(1234567)}, std::numeric_limits<std::int64_t>::max()),
              "Low battery: Magic Mouse 1234567%");
}

TEST(StatusText, ANameThatLooksLikeAFormatIsPlainText)
{
    const LanguageGuard english("en");
    EXPECT_EQ(statusText({mouse(5, "%@ %1$d %% %s"), keyboard(6)}, 20),
              "Low battery: %@ %1$d %% %s 5%, Magic Keyboard 6%");
}

TEST(StatusText, ANameMayBeAnything)
{
    const LanguageGuard chinese("zh");
    EXPECT_EQ(statusText({mouse(5, "安的鼠标"), mouse(6, ""), mouse(7, "a、b")}, 20),
              "电量偏低：安的鼠标 5%、 6%、a、b 7%");
}

TEST(StatusText, FollowsTheSystemsLanguage)
{
    const FakePreferredLanguages chineseUser({"zh-Hant-TW"});
    const LanguageGuard system("system", &chineseUser);
    EXPECT_EQ(statusText({mouse(5)}, 20), "电量偏低：Magic Mouse 5%");
}

} // namespace
} // namespace voltmere
