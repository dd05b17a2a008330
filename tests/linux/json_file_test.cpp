#include "linux/json_file.h"

#include "fakes/recording_log.h"
#include "posix/temporary_directory.h"

#include <gmock/gmock.h>

#include <sys/stat.h>

#include <cstdint>

namespace voltmere {
namespace {

namespace fs = std::filesystem;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

const std::string halfObject = "{\"threshold\": 35, \"langu";
const std::string onlyKey = "{\n    \"key\": true\n}\n";

class JsonFileTest : public testing::Test {
protected:
    JsonFile open(SettingsUse use = SettingsUse::readAndWrite)
    {
        return JsonFile(path, "settings", use, log);
    }

    /// What is read for the JSON text of one value.
    JsonEntry entryFor(const std::string& json) const
    {
        writeFile(path, "{\"key\": " + json + '}');
        const JsonContent content = readJsonFile(path);
        EXPECT_EQ(content.problem, "") << json;
        return content.entries.at("key");
    }

    /// The one file that was set aside.
    fs::path damagedCopy() const
    {
        EXPECT_THAT(directory.files(), ElementsAre("file.json", StartsWith("file.json.damaged-")));
        return directory / directory.files().back();
    }

    TemporaryDirectory directory;
    fs::path path = directory / "file.json";
    RecordingLog log;
};

TEST_F(JsonFileTest, PlainValuesKeepTheirKind)
{
    EXPECT_EQ(entryFor("true"), JsonEntry(JsonValue(true)));
    EXPECT_EQ(entryFor("35"), JsonEntry(JsonValue(std::int64_t{35})));
    EXPECT_EQ(entryFor("-7"), JsonEntry(JsonValue(std::int64_t{-7})));
    EXPECT_EQ(entryFor("9223372036854775807"), JsonEntry(JsonValue(std::int64_t{INT64_MAX})));
    EXPECT_EQ(entryFor("-9223372036854775808"), JsonEntry(JsonValue(std::int64_t{INT64_MIN})));
    EXPECT_EQ(entryFor("9223372036854775808"), JsonEntry(JsonValue(9223372036854775808.0)));
    EXPECT_EQ(entryFor("3.5e1"), JsonEntry(JsonValue(35.0)));
    EXPECT_EQ(entryFor("\"数字\\n\\u0000x\""), JsonEntry(JsonValue(std::string("数字\n\0x", 9))));
}

TEST_F(JsonFileTest, OfAListItsObjectsCountWithTheirPlainValuesAndOfAllElseNothing)
{
    EXPECT_EQ(entryFor(R"([{"a": 1, "b": [2], "c": null}, 3, {}])"),
              JsonEntry(std::vector<JsonRecord>{{{"a", std::int64_t{1}}}, {}}));
    for (const char* const json : {"null", "{\"value\": 35}", "[]"}) {
        EXPECT_EQ(entryFor(json), JsonEntry(std::vector<JsonRecord>())) << json;
    }
}

TEST_F(JsonFileTest, AMissingOrEmptyFileIsNoDamageAndReadingCreatesNothing)
{
    EXPECT_THAT(open().load().entries, IsEmpty());
    EXPECT_THAT(directory.files(), IsEmpty());
    for (const char* const content : {"", " \n\t\r\n "}) {
        writeFile(path, content);
        EXPECT_THAT(open().load().entries, IsEmpty());
    }
    EXPECT_THAT(log.lines, IsEmpty());
    EXPECT_THAT(directory.files(), ElementsAre("file.json"));
}

TEST_F(JsonFileTest, AWriteKeepsAllElseInItsOrderWithItsNumbersAndNesting)
{
    writeFile(path, R"({"window": {"z": [1, "two", null, {"y": 1.5}], "a": {}}, "key": 20,
                        "a/b": -1, "big": 18446744073709551615, "数字": "x"})");

    open().set("key", JsonValue(std::int64_t{40}));

    EXPECT_EQ(readFile(path), R"({
    "window": {
        "z": [
            1,
            "two",
            null,
            {
                "y": 1.5
            }
        ],
        "a": {}
    },
    "key": 40,
    "a/b": -1,
    "big": 18446744073709551615,
    "数字": "x"
}
)");
}

TEST_F(JsonFileTest, WhatAnotherWriterAddedSinceIsKept)
{
    writeFile(path, R"({"key": 20})");
    JsonFile file = open();
    file.load();
    writeFile(path, R"({"key": 20, "language": "en"})");

    file.set("key", JsonValue(true));

    EXPECT_EQ(readFile(path), "{\n    \"key\": true,\n    \"language\": \"en\"\n}\n");
}

TEST_F(JsonFileTest, WhatIsWrittenIsReadBackWithBytesThatAreNoTextReplaced)
{
    const std::vector<JsonRecord> records{
        {{"title", std::string("数字 \"x\"\n")}, {"delay", 0.125}, {"sound", true}},
        {{"due", std::int64_t{1772445600}}}};

    open().set("delayed", records);
    open().set("title", JsonValue("a\xFFz"));

    EXPECT_EQ(open().load().entries.at("delayed"), JsonEntry(records));
    EXPECT_EQ(open().load().entries.at("title"), JsonEntry(JsonValue("a\uFFFDz")));
}

TEST_F(JsonFileTest, AValueThatIsThereAlreadyWritesNothing)
{
    const std::string content = "{ \"key\":35,\n\n \"language\" : \"zh\" }";
    writeFile(path, content);

    open().set("key", JsonValue(std::int64_t{35}));

    EXPECT_EQ(readFile(path), content);
}

TEST_F(JsonFileTest, ANewFileAndItsDirectoryBelongToTheUserAlone)
{
    const mode_t previous = ::umask(0);
    const fs::path nested = directory / "voltmere" / "file.json";
    JsonFile(nested, "settings", SettingsUse::readAndWrite, log).set("key", JsonValue(true));
    ::umask(previous);

    EXPECT_EQ(fs::status(nested).permissions(), fs::perms{0600});
    EXPECT_EQ(fs::status(nested.parent_path()).permissions(), fs::perms{0700});
}

class DamagedJsonFileTest : public JsonFileTest,
                            public testing::WithParamInterface<std::string> { };

TEST_P(DamagedJsonFileTest, IsSetAsideByteForByteWithOneLineInTheLog)
{
    writeFile(path, GetParam());
    JsonFile file = open();

    EXPECT_THAT(file.load().entries, IsEmpty());
    file.set("key", JsonValue(true));

    EXPECT_EQ(readFile(path), onlyKey);
    EXPECT_EQ(readFile(damagedCopy()), GetParam());
    EXPECT_THAT(damagedCopy().filename().string(),
                MatchesRegex("file.json.damaged-[0-9]+T[0-9]+Z"));
    EXPECT_THAT(log.lines,
                ElementsAre(AllOf(StartsWith("Voltmere: the settings file " + path.string()),
                                  HasSubstr("damaged"), HasSubstr(damagedCopy().string()),
                                  Not(HasSubstr("\n")))));
}

TEST_P(DamagedJsonFileTest, IsLeftToItsUserByWhoOnlyReads)
{
    writeFile(path, GetParam());
    JsonFile file = open(SettingsUse::readOnly);

    EXPECT_THAT(file.load().entries, IsEmpty());
    file.load();
    file.set("key", JsonValue(false));

    EXPECT_EQ(readFile(path), GetParam());
    EXPECT_THAT(directory.files(), ElementsAre("file.json"));
    EXPECT_THAT(log.lines,
                ElementsAre("Voltmere: the settings file " + path.string() +
                            " is damaged and counts as empty (not a JSON object)"));
}

INSTANTIATE_TEST_SUITE_P(JsonFileTest, DamagedJsonFileTest,
                         testing::Values(halfObject, "[{\"threshold\": 35}]",
                                         std::string("\x00\x01\xFF\xFE\x7F{}\n", 8), "\"35\"",
                                         "threshold=35\n", "{\"threshold\": 35} {}",
                                         "{\"threshold\": 035}", "{\"threshold\": 1e999}",
                                         "{\"name\": \"\xC3\"}", std::string(4096, '\0')));

TEST_F(JsonFileTest, DamageThatComesBetweenReadingAndWritingIsSetAsideToo)
{
    writeFile(path, R"({"key": 20})");
    JsonFile file = open();
    file.load();
    writeFile(path, halfObject);

    file.set("key", JsonValue(true));

    EXPECT_EQ(readFile(damagedCopy()), halfObject);
    EXPECT_EQ(readFile(path), onlyKey);
    EXPECT_THAT(log.lines, SizeIs(1));
}

TEST_F(JsonFileTest, DamageThatCannotBeSetAsideIsNotOverwritten)
{
    // As long as a name can be with the ending that an atomic write gives it for a moment.
    path = directory / (std::string(235, 'n') + ".json");
    writeFile(path, halfObject);
    JsonFile file = open();

    EXPECT_THAT(file.load().entries, IsEmpty());
    file.set("key", JsonValue(true));
    file.set("key", JsonValue(false));

    EXPECT_EQ(readFile(path), halfObject);
    EXPECT_THAT(directory.files(), SizeIs(1));
    EXPECT_THAT(log.lines, ElementsAre(HasSubstr("changes end with the program")));
}

TEST_F(JsonFileTest, WhatCannotBeReadIsNeitherMovedNorOverwritten)
{
    writeFile(path / "below", "kept");
    JsonFile file = open();

    EXPECT_THAT(file.load().entries, IsEmpty());
    file.set("key", JsonValue(true));

    EXPECT_EQ(readFile(path / "below"), "kept");
    EXPECT_THAT(directory.files(), ElementsAre("file.json"));
    EXPECT_THAT(log.lines,
                ElementsAre(AllOf(HasSubstr("cannot be read"), EndsWith("(Is a directory)"))));
}

TEST_F(JsonFileTest, APlaceThatCannotBeWrittenIsLoggedOnce)
{
    writeFile(path, "not a directory");
    JsonFile file(path / "file.json", "settings", SettingsUse::readAndWrite, log);

    file.set("key", JsonValue(true));
    file.set("key", JsonValue(false));

    EXPECT_EQ(readFile(path), "not a directory");
    EXPECT_THAT(log.lines,
                ElementsAre(AllOf(StartsWith("Voltmere: the settings cannot be saved"),
                                  HasSubstr(path.string()))));
}

} // namespace
} // namespace voltmere
