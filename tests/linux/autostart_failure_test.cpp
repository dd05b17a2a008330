#include "linux/autostart_fixture.h"
#include "linux/obstructed_file_system.h"

#include <gmock/gmock.h>

namespace voltmere {
namespace {

namespace fs = std::filesystem;

/// What stands in the way is named by its path, in the system's own words, and nothing is lost.
class AutostartFailureTest : public AutostartFixture {
protected:
    /// How many files are in the autostart directory, temporary ones too.
    std::ptrdiff_t fileCount() const
    {
        return std::distance(fs::directory_iterator(userDirectory), {});
    }
};

TEST_F(AutostartFailureTest, AReadOnlyDirectoryRefusesANewEntry)
{
    fs::create_directories(userDirectory);
    {
        const ReadOnlyDirectory readOnly(userDirectory);
        EXPECT_EQ(item().registerItem(), atUserEntry("Permission denied"));
        EXPECT_FALSE(isOn());
    }
    EXPECT_EQ(fileCount(), 0);
}

TEST_F(AutostartFailureTest, AReadOnlyDirectoryKeepsItsEntry)
{
    const std::string changed = ownEntry("Comment=mine\n");
    for (const std::string& text : {ownEntry(), changed}) {
        writeFile(userEntry, text);
        {
            const ReadOnlyDirectory readOnly(userDirectory);
            EXPECT_EQ(item().unregisterItem(), atUserEntry("Permission denied"));
            EXPECT_TRUE(isOn());
        }
        EXPECT_EQ(readFile(userEntry), text);
        EXPECT_EQ(fileCount(), 1);
    }
}

TEST_F(AutostartFailureTest, AReadOnlyHomeRefusesTheDirectory)
{
    fs::create_directories(userDirectory.parent_path());
    const ReadOnlyDirectory readOnly(userDirectory.parent_path());

    EXPECT_EQ(item().registerItem(), userDirectory.string() + ": Permission denied");
}

TEST_F(AutostartFailureTest, ADirectoryWhereTheEntryShouldBeStays)
{
    writeFile(userEntry / "below", "kept");

    EXPECT_EQ(item().registerItem(), atUserEntry("Is a directory"));
    EXPECT_EQ(item().unregisterItem(), atUserEntry("Is a directory"));

    EXPECT_FALSE(isOn());
    EXPECT_EQ(readFile(userEntry / "below"), "kept");
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(AutostartFailureTest, AFileWhereTheDirectoryShouldBeStays)
{
    writeFile(userDirectory, "kept");

    EXPECT_EQ(item().registerItem(), userDirectory.string() + ": Not a directory");

    EXPECT_FALSE(isOn());
    EXPECT_EQ(readFile(userDirectory), "kept");
}

TEST_F(AutostartFailureTest, AFileWhereTheDirectoryShouldBeKeepsASystemEntryOn)
{
    writeFile(userDirectory, "kept");
    writeFile(systemEntry, entryFor("/bin/sh"));

    EXPECT_EQ(item().unregisterItem(), userDirectory.string() + ": Not a directory");

    EXPECT_TRUE(isOn());
}

TEST_F(AutostartFailureTest, AFullDiskLeavesNoHalfEntry)
{
    for (const rlim_t room : {0, 1, 100}) {
        std::optional<std::string> failure;
        {
            const FileSizeLimit limit(room);
            failure = item().registerItem();
        }
        EXPECT_EQ(failure, atUserEntry("File too large")) << room;
        EXPECT_FALSE(isOn());
        EXPECT_EQ(fileCount(), 0);
    }
}

TEST_F(AutostartFailureTest, AFullDiskLeavesWhatTheUserWrote)
{
    const std::string hidden = ownEntry("Comment=mine\nHidden=true\n");
    const std::string shown = ownEntry("Comment=mine\n");
    std::optional<std::string> failure;

    writeFile(userEntry, hidden);
    {
        const FileSizeLimit limit(10);
        failure = item().registerItem();
    }
    EXPECT_EQ(failure, atUserEntry("File too large"));
    EXPECT_EQ(readFile(userEntry), hidden);

    writeFile(userEntry, shown);
    {
        const FileSizeLimit limit(10);
        failure = item().unregisterItem();
    }
    EXPECT_EQ(failure, atUserEntry("File too large"));
    EXPECT_EQ(readFile(userEntry), shown);
    EXPECT_EQ(fileCount(), 1);
}

TEST_F(AutostartFailureTest, WithoutAHomeThereIsNoPlaceForTheEntry)
{
    session.userDirectory.reset();
    const std::string expected =
        "There is no place for a start-up entry: neither XDG_CONFIG_HOME nor HOME is set";

    EXPECT_EQ(item().registerItem(), expected);
    EXPECT_EQ(item().unregisterItem(), expected);
}

TEST_F(AutostartFailureTest, AnUnknownProgramIsNotRegistered)
{
    program.file.clear();

    EXPECT_EQ(item().registerItem(),
              atUserEntry("the path of this program cannot be written there"));

    EXPECT_FALSE(fs::exists(userDirectory));
}

TEST_F(AutostartFailureTest, ATextThatIsNoDesktopEntryIsLeftToTheUser)
{
    for (const std::string text : {"stray words", "[Desktop Entry]\nstray words\n"}) {
        writeFile(userEntry, text);

        EXPECT_EQ(item().registerItem(),
                  atUserEntry("it is not a desktop entry; correct it or remove it"));

        EXPECT_EQ(readFile(userEntry), text);
    }
}

TEST_F(AutostartFailureTest, AConditionOfTheUsersThatKeepsItFromStartingIsReportedAndKept)
{
    const std::string mine = ownEntry("OnlyShowIn=KDE;\n");
    writeFile(userEntry, mine + "Hidden=true\n");

    EXPECT_EQ(item().registerItem(),
              atUserEntry("it is not for this desktop (OnlyShowIn, NotShowIn)"));

    EXPECT_FALSE(isOn());
    EXPECT_EQ(readFile(userEntry), mine);
}

TEST_F(AutostartFailureTest, AMissingProgramOfTheUsersIsReportedAndKept)
{
    const std::string mine = "[Desktop Entry]\nType=Application\nName=x\nExec=wrapper voltmere\n"
                             "TryExec=/nonexistent/wrapper\n";
    writeFile(userEntry, mine);

    EXPECT_EQ(item().registerItem(),
              atUserEntry("the program /nonexistent/wrapper is not there (TryExec)"));

    EXPECT_EQ(readFile(userEntry), mine);
}

} // namespace
} // namespace voltmere
