#include "linux/autostart_login_item.h"

#include "linux/autostart_fixture.h"

#include <gmock/gmock.h>

namespace voltmere {
namespace {

namespace fs = std::filesystem;

class AutostartLoginItemTest : public AutostartFixture { };

TEST_F(AutostartLoginItemTest, WithoutAnEntryItIsOff)
{
    EXPECT_EQ(item().status(), LoginItemService::Status::notRegistered);
    EXPECT_FALSE(fs::exists(userDirectory));
}

TEST_F(AutostartLoginItemTest, TheUsersEntryGoesBeforeTheSystems)
{
    writeFile(systemEntry, entryFor("/bin/sh"));
    EXPECT_TRUE(isOn());

    writeFile(userEntry, "[Desktop Entry]\nHidden=true\n");
    EXPECT_FALSE(isOn());

    writeFile(systemEntry, entryFor("/bin/sh", "Hidden=true\n"));
    writeFile(userEntry, ownEntry());
    EXPECT_TRUE(isOn());
}

TEST_F(AutostartLoginItemTest, TheMoreImportantSystemDirectoryGoesBeforeTheOther)
{
    writeFile(systemEntry, entryFor("/bin/sh"));
    writeFile(session.systemDirectories[0] / entryName, entryFor("/bin/sh", "Hidden=true\n"));
    EXPECT_FALSE(isOn());

    fs::remove(session.systemDirectories[0] / entryName);
    EXPECT_TRUE(isOn());
}

TEST_F(AutostartLoginItemTest, AnEntryThatIsEmptyOrCannotBeReadIsOffAndGoesBeforeTheSystems)
{
    writeFile(systemEntry, entryFor("/bin/sh"));
    fs::create_directories(userDirectory);

    writeFile(userEntry, "");
    EXPECT_FALSE(isOn());

    fs::remove(userEntry);
    fs::create_symlink("/dev/null", userEntry);
    EXPECT_FALSE(isOn());

    fs::remove(userEntry);
    fs::create_directory(userEntry);
    EXPECT_FALSE(isOn());
}

TEST_F(AutostartLoginItemTest, WithoutAHomeTheSystemsEntryStillCounts)
{
    session.userDirectory.reset();
    EXPECT_FALSE(isOn());

    writeFile(systemEntry, entryFor("/bin/sh"));
    EXPECT_TRUE(isOn());
}

TEST_F(AutostartLoginItemTest, AnEntryWhoseProgramIsGoneIsOff)
{
    writeFile(userEntry, ownEntry());
    EXPECT_TRUE(isOn());

    fs::remove(program.file);
    EXPECT_FALSE(isOn());
}

TEST_F(AutostartLoginItemTest, RegisteringWritesTheEntry)
{
    EXPECT_EQ(item().registerItem(), std::nullopt);

    EXPECT_TRUE(isOn());
    EXPECT_EQ(readFile(userEntry), ownEntry());
    EXPECT_EQ(fs::status(userEntry).permissions(), fs::perms{0644});
    EXPECT_EQ(fs::status(userDirectory).permissions(), fs::perms{0700});
    EXPECT_EQ(std::distance(fs::directory_iterator(userDirectory), {}), 1);
}

TEST_F(AutostartLoginItemTest, AnAwkwardPathIsQuotedInExecAndEscapedInTryExec)
{
    program.file = directory / "50% off \"$HOME\"\\续" / "volt mere";
    writeProgram(program.file, "");

    EXPECT_EQ(item().registerItem(), std::nullopt);

    EXPECT_TRUE(isOn());
    const std::string text = readFile(userEntry);
    EXPECT_THAT(text,
                testing::HasSubstr("\nExec=nice -n 0 \"" + directory.path().string() +
                                   R"(/50%% off \\"\\$HOME\\"\\\\续/volt mere")" + "\n"));
    EXPECT_THAT(text,
                testing::HasSubstr("\nTryExec=" + directory.path().string() +
                                   R"(/50% off "$HOME"\\续/volt mere)" + "\n"));
    EXPECT_EQ(item().unregisterItem(), std::nullopt);
    EXPECT_FALSE(fs::exists(userEntry));
}

TEST_F(AutostartLoginItemTest, RegisteringTwiceLeavesTheFileAlone)
{
    EXPECT_EQ(item().registerItem(), std::nullopt);
    const auto written = fs::last_write_time(userEntry);
    fs::last_write_time(userEntry, written - std::chrono::hours(1));

    EXPECT_EQ(item().registerItem(), std::nullopt);

    EXPECT_EQ(fs::last_write_time(userEntry), written - std::chrono::hours(1));
}

TEST_F(AutostartLoginItemTest, RegisteringAgainFollowsTheProgramToItsNewPlace)
{
    writeFile(userEntry, entryFor("/old/place/voltmere", "Comment=mine\n"));
    EXPECT_FALSE(isOn());

    EXPECT_EQ(item().registerItem(), std::nullopt);

    EXPECT_TRUE(isOn());
    EXPECT_EQ(readFile(userEntry), ownEntry("Comment=mine\n"));
}

TEST_F(AutostartLoginItemTest, RegisteringKeepsWhatTheUserChanged)
{
    const std::string mine = "# mine\n\n[Desktop Entry]\nName = Batteries\nType=Application\n"
                             "Exec=nice -n 5 voltmere --panel\nX-Delay=5\n";
    const std::string end = "\n# the end\n[X-Notes]\nHidden=true\nwhy=because";
    writeFile(userEntry, mine + "Hidden=true\nX-GNOME-Autostart-enabled = false\n" + end);
    fs::permissions(userEntry, fs::perms{0600});

    EXPECT_EQ(item().registerItem(), std::nullopt);

    EXPECT_TRUE(isOn());
    EXPECT_EQ(readFile(userEntry), mine + "X-GNOME-Autostart-enabled=true\n" + end);
    EXPECT_EQ(fs::status(userEntry).permissions(), fs::perms{0600});
}

TEST_F(AutostartLoginItemTest, RegisteringCompletesAnEntryThatOnlyHides)
{
    writeFile(userEntry, "# hidden by the settings\n[Desktop Entry]\nHidden=true\n");

    EXPECT_EQ(item().registerItem(), std::nullopt);

    EXPECT_TRUE(isOn());
    EXPECT_EQ(readFile(userEntry),
              "# hidden by the settings\n[Desktop Entry]\nExec=" + program.file +
                  "\nTryExec=" + program.file + "\nType=Application\nName=Cellsentry\n");
}

TEST_F(AutostartLoginItemTest, RegisteringFillsAnEmptyFileAndReplacesAMask)
{
    writeFile(userEntry, "\n");
    EXPECT_EQ(item().registerItem(), std::nullopt);
    EXPECT_EQ(readFile(userEntry), ownEntry());

    fs::remove(userEntry);
    fs::create_symlink("/dev/null", userEntry);
    EXPECT_EQ(item().registerItem(), std::nullopt);
    EXPECT_EQ(readFile(userEntry), ownEntry());
}

TEST_F(AutostartLoginItemTest, RegisteringWhereTheSystemsEntryStartsItWritesNothing)
{
    writeFile(systemEntry, entryFor("/bin/sh"));

    EXPECT_EQ(item().registerItem(), std::nullopt);

    EXPECT_TRUE(isOn());
    EXPECT_FALSE(fs::exists(userDirectory));
}

TEST_F(AutostartLoginItemTest, RegisteringOverridesASystemEntryThatIsOff)
{
    writeFile(systemEntry, entryFor("/bin/sh", "Hidden=true\n"));

    EXPECT_EQ(item().registerItem(), std::nullopt);

    EXPECT_TRUE(isOn());
    EXPECT_EQ(readFile(userEntry), ownEntry());
}

TEST_F(AutostartLoginItemTest, UnregisteringRemovesTheEntryAsItWasWritten)
{
    ASSERT_EQ(item().registerItem(), std::nullopt);

    EXPECT_EQ(item().unregisterItem(), std::nullopt);

    EXPECT_FALSE(isOn());
    EXPECT_TRUE(fs::is_empty(userDirectory));
}

TEST_F(AutostartLoginItemTest, UnregisteringRemovesAnEntryForAnEarlierPlaceOfTheProgram)
{
    writeFile(userEntry, entryFor("/old/place/voltmere"));

    EXPECT_EQ(item().unregisterItem(), std::nullopt);

    EXPECT_FALSE(fs::exists(userEntry));
}

TEST_F(AutostartLoginItemTest, UnregisteringHidesAnEntryThatTheUserChanged)
{
    for (const std::string& mine :
         {ownEntry("Comment=mine\n"), "# mine\n" + ownEntry(), ownEntry("\n"),
          "[Desktop Entry]\nType=Application\nName=x\nExec=voltmere --panel\n" +
              std::string("TryExec=") + program.file + "\n"}) {
        writeFile(userEntry, mine);
        ASSERT_TRUE(isOn()) << mine;

        EXPECT_EQ(item().unregisterItem(), std::nullopt);
        EXPECT_FALSE(isOn());
        EXPECT_THAT(readFile(userEntry), testing::HasSubstr("\nHidden=true\n"));

        EXPECT_EQ(item().registerItem(), std::nullopt);
        EXPECT_EQ(readFile(userEntry), mine);
    }
}

TEST_F(AutostartLoginItemTest, UnregisteringTurnsAnExplicitHiddenFalseRound)
{
    writeFile(userEntry, "[Desktop Entry]\nHidden=false\nType=Application\nExec=x\n");

    EXPECT_EQ(item().unregisterItem(), std::nullopt);

    EXPECT_EQ(readFile(userEntry), "[Desktop Entry]\nHidden=true\nType=Application\nExec=x\n");
}

TEST_F(AutostartLoginItemTest, UnregisteringHidesWhatStandsBeforeASystemEntry)
{
    writeFile(systemEntry, entryFor("/bin/sh"));
    writeFile(userEntry, ownEntry());

    EXPECT_EQ(item().unregisterItem(), std::nullopt);

    EXPECT_FALSE(isOn());
    EXPECT_EQ(readFile(userEntry), ownEntry("Hidden=true\n"));
}

TEST_F(AutostartLoginItemTest, UnregisteringOverridesAnEntryThatOnlyTheSystemHas)
{
    const std::string systems = entryFor("/bin/sh");
    writeFile(systemEntry, systems);

    EXPECT_EQ(item().unregisterItem(), std::nullopt);
    EXPECT_FALSE(isOn());
    EXPECT_EQ(readFile(userEntry), ownEntry("Hidden=true\n"));
    EXPECT_EQ(readFile(systemEntry), systems);

    EXPECT_EQ(item().registerItem(), std::nullopt);
    EXPECT_TRUE(isOn());
}

TEST_F(AutostartLoginItemTest, UnregisteringHidesTheFileBehindALink)
{
    writeFile(directory / "dotfiles" / "voltmere", ownEntry());
    fs::create_directories(userDirectory);
    fs::create_symlink(directory / "dotfiles" / "voltmere", userEntry);

    EXPECT_EQ(item().unregisterItem(), std::nullopt);

    EXPECT_TRUE(fs::is_symlink(userEntry));
    EXPECT_EQ(readFile(directory / "dotfiles" / "voltmere"), ownEntry("Hidden=true\n"));
}

TEST_F(AutostartLoginItemTest, UnregisteringWhatIsOffAlreadyWritesNothing)
{
    EXPECT_EQ(item().unregisterItem(), std::nullopt);
    EXPECT_FALSE(fs::exists(userDirectory));

    for (const std::string text : {"", "stray words", "[Desktop Entry]\nHidden=1\n"}) {
        writeFile(userEntry, text);
        EXPECT_EQ(item().unregisterItem(), std::nullopt);
        EXPECT_EQ(readFile(userEntry), text);
    }
}

TEST_F(AutostartLoginItemTest, UnregisteringHidesADamagedEntryThatSomeDesktopMightStillStart)
{
    writeFile(userEntry, ownEntry("stray words\n"));

    EXPECT_EQ(item().unregisterItem(), std::nullopt);

    EXPECT_EQ(readFile(userEntry), ownEntry("Hidden=true\nstray words\n"));
}

} // namespace
} // namespace voltmere
