#include "linux/reminder_store.h"

#include "fakes/recording_log.h"
#include "linux/obstructed_file_system.h"
#include "posix/temporary_directory.h"

#include <gmock/gmock.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>
#include <unistd.h>

#include <chrono>

namespace voltmere {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

const Instant dueTime = Instant(std::chrono::sys_days(std::chrono::year(2026) / 3 / 2)) +
    std::chrono::milliseconds(37'815'250);

Reminder sample(const std::string& identifier = "snooze-1")
{
    return {{identifier, {"Title", "Body", true, ""}, Seconds(1200)}, dueTime};
}

const std::string sampleEntry = R"({"identifier": "snooze-1", "title": "Title", "body": "Body",
    "sound": true, "category": "", "delay": 1200, "due": "2026-03-02T10:30:15.250Z"})";

std::string document(const std::string& entries)
{
    return "{\"reminders\": [" + entries + "]}";
}

class ReminderStoreTest : public testing::Test {
protected:
    ReminderStore store() { return {QString::fromStdString(path.string()), log}; }

    std::vector<Reminder> load() { return store().load(); }

    std::vector<Reminder> loadFrom(const std::string& content)
    {
        writeFile(path, content);
        return load();
    }

    /// The names of the damaged files that were kept.
    std::vector<std::string> damagedCopies() const
    {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path.parent_path())) {
            const std::string name = entry.path().filename();
            if (name.starts_with("reminders.json.damaged-")) {
                names.push_back(name);
            }
        }
        return names;
    }

    static mode_t modeOf(const std::filesystem::path& file)
    {
        struct stat status { };
        EXPECT_EQ(::stat(file.c_str(), &status), 0) << file;
        return status.st_mode & 07777;
    }

    TemporaryDirectory directory;
    std::filesystem::path path = directory / "state" / "voltmere" / "reminders.json";
    RecordingLog log;
};

TEST_F(ReminderStoreTest, AMissingFileHoldsNothingAndIsNotMade)
{
    EXPECT_THAT(load(), IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(path.parent_path()));
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(ReminderStoreTest, WhatWasSavedIsLoadedAgain)
{
    Reminder other = sample("snooze-2");
    other.request.content = {"电量提醒", "a\n\"b\" <c> 🔋 100%s", false, "CHOICE"};
    other.request.delay = Seconds(0.5);
    store().save({sample(), other});

    EXPECT_THAT(load(), ElementsAre(sample(), other));
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(ReminderStoreTest, TheFileSaysWhenEachFallsDueInUniversalTime)
{
    store().save({sample()});

    EXPECT_THAT(readFile(path), HasSubstr("\"due\": \"2026-03-02T10:30:15.250Z\""));
    EXPECT_THAT(loadFrom(document(sampleEntry)), ElementsAre(sample()));
}

TEST_F(ReminderStoreTest, TheFileAndItsDirectoryBelongToTheUserAlone)
{
    store().save({sample()});

    EXPECT_EQ(modeOf(path), 0600U);
    EXPECT_EQ(modeOf(path.parent_path()), 0700U);
    std::filesystem::permissions(path, std::filesystem::perms{0644});
    store().save({});
    EXPECT_EQ(modeOf(path), 0600U);
}

TEST_F(ReminderStoreTest, SavingLeavesNoOtherFileBeside)
{
    store().save({sample()});
    store().save({});

    EXPECT_THAT(load(), IsEmpty());
    EXPECT_EQ(QDir(QString::fromStdString(path.parent_path().string()))
                  .entryList(QDir::Files | QDir::Hidden),
              QStringList("reminders.json"));
}

TEST_F(ReminderStoreTest, AnEmptyFileIsNoDamage)
{
    for (const char* const content : {"", " \n\t", "{\"reminders\": []}"}) {
        EXPECT_THAT(loadFrom(content), IsEmpty());
    }
    EXPECT_THAT(log.lines, IsEmpty());
    EXPECT_THAT(damagedCopies(), IsEmpty());
}

class DamagedRemindersTest : public ReminderStoreTest,
                             public testing::WithParamInterface<std::string> { };

TEST_P(DamagedRemindersTest, AreSetAsideByteForByteWithOneLineInTheLog)
{
    EXPECT_THAT(loadFrom(GetParam()), IsEmpty());

    ASSERT_THAT(damagedCopies(), SizeIs(1));
    EXPECT_EQ(readFile(path.parent_path() / damagedCopies()[0]), GetParam());
    EXPECT_THAT(log.lines,
                ElementsAre(AllOf(StartsWith("Voltmere: "), HasSubstr(path.string()),
                                  HasSubstr(damagedCopies()[0]))));
    store().save({sample()});
    EXPECT_THAT(load(), ElementsAre(sample()));
    EXPECT_THAT(damagedCopies(), SizeIs(1));
}

INSTANTIATE_TEST_SUITE_P(ReminderStoreTest, DamagedRemindersTest,
                         testing::Values(document(sampleEntry).substr(0, 90), "[]",
                                         "{\"reminders\": {}}", "{}", "100%s %n",
                                         std::string("\x00\x01\xFF{}", 5), std::string(4096, '\0'),
                                         document(std::string(2 << 20, ' '))));

TEST_F(ReminderStoreTest, APipeInThePlaceOfTheFileBlocksNothing)
{
    std::filesystem::create_directories(path.parent_path());
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);

    EXPECT_THAT(load(), IsEmpty());
    EXPECT_THAT(damagedCopies(), SizeIs(1));
    EXPECT_THAT(log.lines, SizeIs(1));
}

TEST_F(ReminderStoreTest, ADirectoryInThePlaceOfTheFileIsSetAside)
{
    std::filesystem::create_directories(path / "inside");

    EXPECT_THAT(load(), IsEmpty());
    EXPECT_THAT(damagedCopies(), SizeIs(1));
    store().save({sample()});
    EXPECT_THAT(load(), ElementsAre(sample()));
}

TEST_F(ReminderStoreTest, DamageThatCannotBeSetAsideIsNotOverwritten)
{
    // The name is as long as a name can be with the ending that an atomic write gives it for a
    // moment, so that no longer name can be had for the copy.
    path = directory / (std::string(240, 'n') + ".json");
    writeFile(path, "{damaged");
    ReminderStore damaged = store();

    EXPECT_THAT(damaged.load(), IsEmpty());
    damaged.save({sample()});

    EXPECT_EQ(readFile(path), "{damaged");
    EXPECT_THAT(log.lines, ElementsAre(HasSubstr("cannot be moved")));
}

class StrangeEntryTest : public ReminderStoreTest,
                         public testing::WithParamInterface<std::string> { };

TEST_P(StrangeEntryTest, IsLeftOutAndTheRestSurvives)
{
    std::string other = sampleEntry;
    other.replace(other.find("snooze-1"), 8, "snooze-2");

    EXPECT_THAT(loadFrom(document(sampleEntry + "," + GetParam() + "," + other)),
                ElementsAre(sample("snooze-1"), sample("snooze-2")));
    EXPECT_THAT(damagedCopies(), IsEmpty());
    EXPECT_THAT(
        log.lines,
        ElementsAre(AllOf(HasSubstr("not understood"), HasSubstr("1 in " + path.string()))));
}

std::string changed(const std::string& from, const std::string& to)
{
    std::string entry = sampleEntry;
    entry.replace(entry.find("snooze-1"), 8, "snooze-3");
    return entry.replace(entry.find(from), from.size(), to);
}

INSTANTIATE_TEST_SUITE_P(
    ReminderStoreTest, StrangeEntryTest,
    testing::Values("null", "17", "\"text\"", "[]", "{}", sampleEntry, changed("snooze-3", ""),
                    changed("\"snooze-3\"", "3"), changed("\"Title\"", "null"),
                    changed("\"body\"", "\"text\""), changed("2026-03-02", "yesterday"),
                    changed("\"2026-03-02T10:30:15.250Z\"", "1772447415"),
                    changed("2026-", "1500-"), changed("2026-", "9999-"), changed("1200", "-1"),
                    changed("1200", "1e300"), changed("1200", "\"1200\"")));

TEST_F(ReminderStoreTest, NoMoreThanTheAllowedNumberIsTaken)
{
    std::string entries = sampleEntry;
    for (int i = 0; i < 1000; ++i) {
        entries += "," + changed("snooze-3", "extra-" + std::to_string(i));
    }

    EXPECT_THAT(loadFrom(document(entries)), SizeIs(mostReminders));
    EXPECT_THAT(log.lines, ElementsAre(HasSubstr("937 in ")));
}

TEST_F(ReminderStoreTest, APlaceThatCannotBeWrittenIsLoggedOnce)
{
    writeFile(directory / "state", "not a directory");
    ReminderStore unwritable = store();
    unwritable.save({sample()});
    unwritable.save({sample()});

    EXPECT_THAT(log.lines,
                ElementsAre(AllOf(StartsWith("Voltmere: reminders cannot be saved"),
                                  HasSubstr(path.string()))));
    EXPECT_EQ(readFile(directory / "state"), "not a directory");
}

class UserRemindersPathTest : public testing::Test {
protected:
    void SetUp() override { qputenv("HOME", "/home/ann"); }

    ~UserRemindersPathTest() override
    {
        qputenv("HOME", home);
        qunsetenv("XDG_STATE_HOME");
    }

    const QByteArray home = qgetenv("HOME");
};

TEST_F(UserRemindersPathTest, IsInTheStateDirectory)
{
    qputenv("XDG_STATE_HOME", "/somewhere/state");

    EXPECT_EQ(userRemindersPath(), "/somewhere/state/voltmere/reminders.json");
}

TEST_F(UserRemindersPathTest, IsInTheUsualStateDirectoryWithoutAnAbsolutePath)
{
    for (const char* const value : {"", "relative/state"}) {
        qputenv("XDG_STATE_HOME", value);
        EXPECT_EQ(userRemindersPath(), "/home/ann/.local/state/voltmere/reminders.json");
    }
    qunsetenv("XDG_STATE_HOME");
    EXPECT_EQ(userRemindersPath(), "/home/ann/.local/state/voltmere/reminders.json");
}

TEST_F(ReminderStoreTest, AFullDiskLeavesTheOldFile)
{
    store().save({sample()});
    {
        const FileSizeLimit fullDisk(16);
        store().save({});
    }
    EXPECT_THAT(load(), ElementsAre(sample()));
    EXPECT_THAT(log.lines, SizeIs(1));
}

} // namespace
} // namespace voltmere
