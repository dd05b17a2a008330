#include "linux/autostart_rules.h"

#include "posix/temporary_directory.h"

#include <gmock/gmock.h>

namespace voltmere {
namespace {

class AutostartRulesTest : public testing::Test {
protected:
    /// Whether an entry with these lines starts on a desktop whose names are ubuntu and GNOME.
    bool starts(const std::string& lines) const
    {
        const DesktopEntry entry("[Desktop Entry]\nType=Application\nExec=voltmere\n" + lines);
        return !autostartObstacle(entry, session);
    }

    TemporaryDirectory directory;
    AutostartSession session{.userDirectory = {},
                             .systemDirectories = {},
                             .desktops = {"ubuntu", "GNOME"},
                             .programDirectories = {directory / "first", directory / "second"}};
};

TEST_F(AutostartRulesTest, APlainEntryStarts)
{
    EXPECT_TRUE(starts(""));
    EXPECT_TRUE(starts("NoDisplay=true\nTerminal=true\n[Desktop Action x]\nHidden=true\n"));
}

TEST_F(AutostartRulesTest, WhatIsNoDesktopEntryDoesNotStart)
{
    for (const char* const text :
         {"", "[Other]\nType=Application\nExec=x\n", "Type=Application\nExec=x\n",
          "[Desktop Entry]\nType=Application\nExec=x\nstray words\n"}) {
        EXPECT_EQ(autostartObstacle(DesktopEntry(text), session), "it is not a desktop entry");
    }
}

TEST_F(AutostartRulesTest, OnlyAnApplicationWithACommandStarts)
{
    for (const char* const text :
         {"[Desktop Entry]\n", "[Desktop Entry]\nType=Application\n",
          "[Desktop Entry]\nExec=voltmere\n", "[Desktop Entry]\nType=Application\nExec=\n",
          "[Desktop Entry]\nType=Link\nExec=voltmere\n",
          "[Desktop Entry]\nType=application\nExec=voltmere\n"}) {
        EXPECT_EQ(autostartObstacle(DesktopEntry(text), session),
                  "it does not say which program to start")
            << text;
    }
}

TEST_F(AutostartRulesTest, AHiddenEntryDoesNotStart)
{
    EXPECT_FALSE(starts("Hidden=true\n"));
    EXPECT_TRUE(starts("Hidden=false\n"));
    EXPECT_TRUE(starts("Hidden=\n"));
}

TEST_F(AutostartRulesTest, AnEntryThatADesktopsSettingsSwitchedOffDoesNotStart)
{
    EXPECT_TRUE(starts("X-GNOME-Autostart-enabled=true\n"));
    EXPECT_FALSE(starts("X-GNOME-Autostart-enabled=false\n"));
    EXPECT_FALSE(starts("X-GNOME-Autostart-enabled=maybe\n"));
}

TEST_F(AutostartRulesTest, OnlyShowInNamesTheDesktopsItStartsOn)
{
    EXPECT_TRUE(starts("OnlyShowIn=KDE;GNOME;\n"));
    EXPECT_TRUE(starts("OnlyShowIn=ubuntu\n"));
    EXPECT_FALSE(starts("OnlyShowIn=KDE;XFCE;\n"));
    EXPECT_FALSE(starts("OnlyShowIn=gnome;GNOME2;\n"));
    EXPECT_FALSE(starts("OnlyShowIn=\n"));
}

TEST_F(AutostartRulesTest, NotShowInNamesTheDesktopsItDoesNotStartOn)
{
    EXPECT_FALSE(starts("NotShowIn=KDE;GNOME;\n"));
    EXPECT_FALSE(starts("NotShowIn=ubuntu\n"));
    EXPECT_TRUE(starts("NotShowIn=KDE;XFCE;\n"));
    EXPECT_TRUE(starts("NotShowIn=\n"));
}

TEST_F(AutostartRulesTest, TheMoreSpecificNameOfTheDesktopDecides)
{
    EXPECT_TRUE(starts("OnlyShowIn=ubuntu;\nNotShowIn=GNOME;\n"));
    EXPECT_FALSE(starts("OnlyShowIn=GNOME;\nNotShowIn=ubuntu;\n"));
}

TEST_F(AutostartRulesTest, WithoutADesktopsNameOnlyShowInKeepsItFromStarting)
{
    session.desktops.clear();

    EXPECT_FALSE(starts("OnlyShowIn=GNOME;\n"));
    EXPECT_TRUE(starts("NotShowIn=GNOME;\n"));
    EXPECT_TRUE(starts(""));
}

TEST_F(AutostartRulesTest, TryExecNamesAProgramThatMustBeThere)
{
    const std::string program = directory / "with blank" / "program";
    EXPECT_FALSE(starts("TryExec=" + program + "\n"));

    writeFile(program, "text");
    EXPECT_FALSE(starts("TryExec=" + program + "\n"));

    writeProgram(program, "#!/bin/sh\n");
    EXPECT_TRUE(starts("TryExec=" + program + "\n"));

    EXPECT_FALSE(starts("TryExec=" + directory.path().string() + "\n"));
    EXPECT_TRUE(starts("TryExec=\n"));
}

TEST_F(AutostartRulesTest, TryExecWithoutAPathIsSearchedFor)
{
    EXPECT_FALSE(starts("TryExec=program\n"));

    writeFile(directory / "first" / "program", "text");
    EXPECT_FALSE(starts("TryExec=program\n"));

    writeProgram(directory / "second" / "program", "#!/bin/sh\n");
    EXPECT_TRUE(starts("TryExec=program\n"));

    session.programDirectories.clear();
    EXPECT_FALSE(starts("TryExec=program\n"));
}

TEST_F(AutostartRulesTest, AMissingProgramInExecAloneIsTheSessionManagersToFind)
{
    EXPECT_TRUE(starts("Exec=/nonexistent/voltmere\n"));
}

} // namespace
} // namespace voltmere
