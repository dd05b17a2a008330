#include "app/terminal.h"

#include "tests/fakes/fake_preferred_languages.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>

#include <cstdint>

namespace voltmere {
namespace {

using testing::HasSubstr;
using testing::Not;

using Json = nlohmann::json;

const BatteryDevice mouse{803, "Magic Mouse", 37, "magicmouse", 0};
const BatteryDevice keypadKeyboard{619, "Magic Keyboard 数字键盘版", 100, "keyboard", 1};
const BatteryDevice trackpad{804, "Trackpad", 5, "rectangle.and.hand.point.up.left", 2};

BatteryDevice named(std::string name)
{
    BatteryDevice device = mouse;
    device.name = std::move(name);
    return device;
}

class ReportTest : public testing::Test {
protected:
    static Json parsed(const Reading& reading) { return Json::parse(readingJson(reading)); }

    LanguageGuard english{"en"};
};

TEST_F(ReportTest, TheColumnsOfATableStandBelowOneAnotherWhateverTheNames)
{
    EXPECT_EQ(readingTable({"tools", {mouse, keypadKeyboard, trackpad}, 20}),
              "LEVEL  STATE  NAME\n"
              "  37%  ok     Magic Mouse\n"
              " 100%  ok     Magic Keyboard 数字键盘版\n"
              "   5%  low    Trackpad\n");
    EXPECT_EQ(readingTable({"tools", {}, 20}), "No peripherals found\n");
}

TEST_F(ReportTest, TheThresholdItselfIsLow)
{
    EXPECT_THAT(readingTable({"tools", {mouse}, 37}), HasSubstr("37%  low "));
    EXPECT_THAT(readingTable({"tools", {mouse}, 36}), HasSubstr("37%  ok "));
}

TEST_F(ReportTest, ControlCharactersOfANameDoNotReachTheTerminal)
{
    const std::string table =
        readingTable({"tools", {named("\x1B[2J\nfake\r\t\x7F\u009B\u202E")}, 20});

    EXPECT_EQ(table,
              "LEVEL  STATE  NAME\n"
              "  37%  ok      [2J fake \n");
}

TEST_F(ReportTest, JsonHasTheKeysAndTypesThatScriptsRelyOn)
{
    EXPECT_EQ(parsed({"sysfs", {mouse, trackpad}, 20}), Json::parse(R"({
        "source": "sysfs",
        "threshold": 20,
        "status": "Low battery: Trackpad 5%",
        "devices": [
            {"id": 803, "name": "Magic Mouse", "level": 37, "symbol": "magicmouse", "order": 0,
             "low": false},
            {"id": 804, "name": "Trackpad", "level": 5,
             "symbol": "rectangle.and.hand.point.up.left", "order": 2, "low": true}
        ]
    })"));
}

TEST_F(ReportTest, JsonWithoutDevices)
{
    EXPECT_EQ(parsed({"tools", {}, 35}), Json::parse(R"({
        "source": "tools", "threshold": 35, "status": "No peripherals found", "devices": []
    })"));
}

TEST_F(ReportTest, JsonIsOneLineInTheOrderOfTheReading)
{
    const std::string json = readingJson({"tools", {trackpad, keypadKeyboard, mouse}, 20});

    EXPECT_THAT(json, Not(HasSubstr("\n")));
    EXPECT_LT(json.find("\"id\":804"), json.find("\"id\":619"));
    EXPECT_LT(json.find("\"id\":619"), json.find("\"id\":803"));
    EXPECT_THAT(json, HasSubstr("Magic Keyboard 数字键盘版"));
}

TEST_F(ReportTest, TheStatusOfTheJsonIsInTheUsersLanguage)
{
    const LanguageGuard chinese("zh");

    EXPECT_EQ(parsed({"tools", {mouse}, 20}).at("status"), "电量正常");
    EXPECT_EQ(parsed({"tools", {mouse, trackpad}, 40}).at("status"),
              "电量偏低：Magic Mouse 37%、Trackpad 5%");
}

TEST_F(ReportTest, TheLargestLevelIsExact)
{
    BatteryDevice device = mouse;
    device.level = INT64_MAX;
    const Reading reading{"tools", {device}, INT64_MIN};

    EXPECT_THAT(readingTable(reading), HasSubstr("\n9223372036854775807%  ok     Magic Mouse\n"));
    EXPECT_THAT(readingJson(reading), HasSubstr("\"level\":9223372036854775807"));
    EXPECT_THAT(readingJson(reading), HasSubstr("\"threshold\":-9223372036854775808"));
}

TEST_F(ReportTest, NamesMeanTheSameInJsonWhateverTheyHold)
{
    for (const std::string name : {"\x1B[2J\n\r\t",
                                   "a\x7F"
                                   "b",
                                   "\u0080\u009B\u009F", "\u2028\u202E\u2069",
                                   "\"quoted\" \\back\\ /", "数字 \U0001F5B1", ""}) {
        const Reading reading{"tools", {named(name)}, 20};

        EXPECT_EQ(parsed(reading).at("devices").at(0).at("name"), name);
    }
    EXPECT_EQ(parsed({"tools", {named("a\xFFz")}, 20}).at("devices").at(0).at("name"), "a\uFFFDz");
}

TEST_F(ReportTest, ABarGetsTheLowestLevelAndEveryNameWithoutMarkup)
{
    const Json bar =
        Json::parse(readingWaybar({"tools", {named("<b>\"Ann\" & co</b>"), trackpad}, 20}));

    EXPECT_EQ(bar, Json::parse(R"({
        "text": "5%", "alt": "low", "class": "low", "percentage": 5,
        "tooltip": "Low battery: Trackpad 5%\n&lt;b&gt;&quot;Ann&quot; &amp; co&lt;/b&gt; 37%\nTrackpad 5%"
    })"));
}

TEST_F(ReportTest, ControlCharactersAreEscapedInJson)
{
    const std::string json = readingJson({"tools", {named("\x1B\x7F\u009B\u202E")}, 50});

    EXPECT_THAT(json, HasSubstr("\"name\":\"\\u001b\\u007f\\u009b\\u202e\""));
    EXPECT_THAT(json, HasSubstr("Low battery: \\u001b\\u007f\\u009b\\u202e 37%"));
    EXPECT_THAT(json, Not(HasSubstr("\x7F")));
    EXPECT_THAT(json, Not(HasSubstr("\u009B")));
}

} // namespace
} // namespace voltmere
