#include "app/reading_report.h"

#include "tests/fakes/fake_preferred_languages.h"

#include <gmock/gmock.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdint>

namespace voltmere {
namespace {

using testing::HasSubstr;
using testing::Not;

const BatteryDevice mouse{803, "Magic Mouse", 37, "magicmouse", 0};
const BatteryDevice keypadKeyboard{619, "Magic Keyboard 数字键盘版", 100, "keyboard", 1};
const BatteryDevice trackpad{804, "Trackpad", 5, "rectangle.and.hand.point.up.left", 2};

BatteryDevice named(std::string name)
{
    BatteryDevice device = mouse;
    device.name = std::move(name);
    return device;
}

class ReadingReportTest : public testing::Test {
protected:
    static QJsonObject parsed(const Reading& reading)
    {
        QJsonParseError error;
        const QJsonDocument document =
            QJsonDocument::fromJson(QByteArray::fromStdString(readingJson(reading)), &error);
        EXPECT_EQ(error.error, QJsonParseError::NoError) << readingJson(reading);
        EXPECT_TRUE(document.isObject());
        return document.object();
    }

    static QString parsedName(const Reading& reading)
    {
        return parsed(reading).value("devices").toArray().at(0).toObject().value("name").toString();
    }

    LanguageGuard english{"en"};
};

TEST_F(ReadingReportTest, ATableWithoutDevices)
{
    EXPECT_EQ(readingTable({"tools", {}, 20}), "No peripherals found\n");
}

TEST_F(ReadingReportTest, TheColumnsOfATableStandBelowOneAnother)
{
    EXPECT_EQ(readingTable({"tools", {mouse, trackpad}, 20}),
              "NAME         LEVEL  STATE\n"
              "Magic Mouse    37%  ok\n"
              "Trackpad        5%  low\n");
}

TEST_F(ReadingReportTest, IdeographsCountAsTwoColumns)
{
    EXPECT_EQ(readingTable({"tools", {mouse, keypadKeyboard}, 20}),
              "NAME                       LEVEL  STATE\n"
              "Magic Mouse                  37%  ok\n"
              "Magic Keyboard 数字键盘版   100%  ok\n");
}

TEST_F(ReadingReportTest, AShortNameLeavesTheHeadingItsRoom)
{
    EXPECT_EQ(readingTable({"tools", {named("鼠")}, 20}),
              "NAME  LEVEL  STATE\n"
              "鼠      37%  ok\n");
}

TEST_F(ReadingReportTest, TheThresholdItselfIsLow)
{
    EXPECT_THAT(readingTable({"tools", {mouse}, 37}), HasSubstr("37%  low\n"));
    EXPECT_THAT(readingTable({"tools", {mouse}, 36}), HasSubstr("37%  ok\n"));
}

TEST_F(ReadingReportTest, ALevelWiderThanItsColumnIsPrintedWhole)
{
    BatteryDevice device = mouse;
    device.level = INT64_MAX;

    EXPECT_THAT(readingTable({"tools", {device}, 20}),
                HasSubstr("Magic Mouse  9223372036854775807%  ok\n"));
}

TEST_F(ReadingReportTest, ControlCharactersOfANameDoNotReachTheTerminal)
{
    const std::string table =
        readingTable({"tools", {named("\x1B[2J\nfake\r\t\x7F\u009B\u202E")}, 20});

    EXPECT_EQ(table,
              "NAME        LEVEL  STATE\n"
              " [2J fake     37%  ok\n");
}

TEST_F(ReadingReportTest, JsonHasTheKeysAndTypesThatScriptsRelyOn)
{
    const Reading reading{"sysfs", {mouse, trackpad}, 20};
    const QJsonObject object = parsed(reading);

    EXPECT_EQ(object.keys(), (QStringList{"devices", "source", "status", "threshold"}));
    EXPECT_EQ(object.value("source"), QJsonValue("sysfs"));
    EXPECT_EQ(object.value("threshold"), QJsonValue(20));
    EXPECT_EQ(object.value("status"), QJsonValue("Low battery: Trackpad 5%"));
    EXPECT_EQ(object.value("devices").toArray(),
              (QJsonArray{QJsonObject{{"id", 803},
                                      {"name", "Magic Mouse"},
                                      {"level", 37},
                                      {"symbol", "magicmouse"},
                                      {"order", 0},
                                      {"low", false}},
                          QJsonObject{{"id", 804},
                                      {"name", "Trackpad"},
                                      {"level", 5},
                                      {"symbol", "rectangle.and.hand.point.up.left"},
                                      {"order", 2},
                                      {"low", true}}}));
}

TEST_F(ReadingReportTest, JsonWithoutDevices)
{
    const QJsonObject object = parsed({"tools", {}, 35});

    EXPECT_EQ(object.value("devices"), QJsonValue(QJsonArray()));
    EXPECT_EQ(object.value("threshold"), QJsonValue(35));
    EXPECT_EQ(object.value("status"), QJsonValue("No peripherals found"));
}

TEST_F(ReadingReportTest, JsonIsOneLineInTheOrderOfTheReading)
{
    const std::string json = readingJson({"tools", {trackpad, keypadKeyboard, mouse}, 20});

    EXPECT_THAT(json, Not(HasSubstr("\n")));
    EXPECT_LT(json.find("\"id\":804"), json.find("\"id\":619"));
    EXPECT_LT(json.find("\"id\":619"), json.find("\"id\":803"));
    EXPECT_THAT(json, HasSubstr("Magic Keyboard 数字键盘版"));
}

TEST_F(ReadingReportTest, TheStatusOfTheJsonIsInTheUsersLanguage)
{
    const LanguageGuard chinese("zh");

    EXPECT_EQ(parsed({"tools", {mouse}, 20}).value("status"), QJsonValue("电量正常"));
    EXPECT_EQ(parsed({"tools", {mouse, trackpad}, 40}).value("status"),
              QJsonValue("电量偏低：Magic Mouse 37%、Trackpad 5%"));
}

TEST_F(ReadingReportTest, TheLargestLevelIsExactInJson)
{
    BatteryDevice device = mouse;
    device.level = INT64_MAX;
    const Reading reading{"tools", {device}, INT64_MIN};

    EXPECT_THAT(readingJson(reading), HasSubstr("\"level\":9223372036854775807"));
    EXPECT_THAT(readingJson(reading), HasSubstr("\"threshold\":-9223372036854775808"));
}

TEST_F(ReadingReportTest, NamesMeanTheSameInJsonWhateverTheyHold)
{
    for (const std::string name : {"\x1B[2J\n\r\t",
                                   "a\x7F"
                                   "b",
                                   "\u0080\u009B\u009F", "\u2028\u202E\u2069",
                                   "\"quoted\" \\back\\ /", "数字 \U0001F5B1", ""}) {
        const Reading reading{"tools", {named(name)}, 20};

        EXPECT_EQ(parsedName(reading).toStdString(), name);
    }
}

TEST_F(ReadingReportTest, ControlCharactersAreEscapedInJson)
{
    const std::string json = readingJson({"tools", {named("\x1B\x7F\u009B\u202E")}, 50});

    EXPECT_THAT(json, HasSubstr("\"name\":\"\\u001b\\u007f\\u009b\\u202e\""));
    EXPECT_THAT(json, HasSubstr("Low battery: \\u001b\\u007f\\u009b\\u202e 37%"));
    EXPECT_THAT(json, Not(HasSubstr("\x7F")));
    EXPECT_THAT(json, Not(HasSubstr("\u009B")));
}

} // namespace
} // namespace voltmere
