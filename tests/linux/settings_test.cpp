#include "linux/settings.h"

#include "fakes/recording_log.h"
#include "posix/temporary_directory.h"

#include <gmock/gmock.h>

#include <cstdint>

namespace voltmere {
namespace {

using testing::HasSubstr;
using testing::Optional;
using testing::SizeIs;

class SettingsTest : public testing::Test {
protected:
    std::filesystem::path path() const { return directory / "voltmere" / "settings.json"; }

    JsonSettings open(SettingsUse use = SettingsUse::readAndWrite)
    {
        return JsonSettings(path(), use, log);
    }

    TemporaryDirectory directory;
    RecordingLog log;
};

TEST_F(SettingsTest, PlainValuesAreReadAndAllElseIsAsIfAbsent)
{
    writeFile(path(), R"({"whole": 35.0, "truth": true, "text": "35", "nothing": null,
                          "list": [35], "object": {"value": 35}})");
    const JsonSettings settings = open();

    EXPECT_THAT(settings.integer("whole"), Optional(35));
    EXPECT_THAT(settings.boolean("truth"), Optional(true));
    EXPECT_THAT(settings.text("text"), Optional(std::string("35")));
    for (const char* const key : {"nothing", "list", "object", "absent", "WHOLE"}) {
        EXPECT_EQ(settings.integer(key), std::nullopt) << key;
    }
}

TEST_F(SettingsTest, AChangeIsSavedAtOnceWithItsType)
{
    JsonSettings settings = open();

    settings.setInteger("threshold", INT64_MAX);
    EXPECT_EQ(readFile(path()), "{\n    \"threshold\": 9223372036854775807\n}\n");
    settings.setBoolean("enabled", false);
    EXPECT_EQ(readFile(path()),
              "{\n    \"threshold\": 9223372036854775807,\n    \"enabled\": false\n}\n");

    EXPECT_THAT(open().integer("threshold"), Optional(INT64_MAX));
    EXPECT_THAT(open().boolean("enabled"), Optional(false));
}

TEST_F(SettingsTest, AProgramThatOnlyReadsChangesNoFile)
{
    const std::string content = "{ \"threshold\":35.0,\n\n \"language\" : \"zh\" }";
    writeFile(path(), content);

    open(SettingsUse::readOnly).setInteger("threshold", 40);

    EXPECT_EQ(readFile(path()), content);
}

TEST_F(SettingsTest, AChangeThatCannotBeSavedLastsAsLongAsTheProgram)
{
    writeFile(directory / "voltmere", "not a directory");
    JsonSettings settings = open();
    EXPECT_EQ(settings.integer("threshold"), std::nullopt);

    settings.setInteger("threshold", 45);
    settings.setBoolean("enabled", false);

    EXPECT_THAT(settings.integer("threshold"), Optional(45));
    EXPECT_THAT(settings.boolean("enabled"), Optional(false));
    EXPECT_EQ(readFile(directory / "voltmere"), "not a directory");
    EXPECT_THAT(log.lines, SizeIs(1));
}

TEST_F(SettingsTest, TheDescriptionSaysWhyAFileIsNotInForce)
{
    EXPECT_EQ(describeSettingsFile(path()), "not there, defaults are used");
    writeFile(path(), "{\"threshold\": 3");
    EXPECT_EQ(describeSettingsFile(path()),
              "15 bytes, not a JSON object: defaults are used, and a start sets it aside");
    writeFile(path(), "{}");
    EXPECT_EQ(describeSettingsFile(path()), "2 bytes");
    std::filesystem::remove(path());
    std::filesystem::create_directory(path());
    EXPECT_EQ(describeSettingsFile(path()), "cannot be read (Is a directory), defaults are used");
}

TEST_F(SettingsTest, TheDescriptionNamesSettingsWithoutAUsableValue)
{
    writeFile(path(), R"({"threshold": "30", "hour": 8, "minute": 0.5, "enabled": null,
                          "instant": 2, "language": "fr", "other": []})");
    EXPECT_THAT(describeSettingsFile(path()),
                HasSubstr(" bytes, no usable value, so the default: threshold, minute, enabled, "
                          "instant, language"));

    const std::string usable = R"({"threshold": 35.0, "hour": true, "language": "zh"})";
    writeFile(path(), usable);
    EXPECT_EQ(describeSettingsFile(path()), std::to_string(usable.size()) + " bytes");
}

} // namespace
} // namespace voltmere
