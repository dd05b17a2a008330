#include "linux/autostart_session.h"

#include "posix/temporary_directory.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <map>

namespace voltmere {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

/// An environment in which only some of the variables are set.
class AutostartSessionTest : public testing::Test {
protected:
    AutostartSessionTest()
    {
        for (const char* const name : names) {
            if (const char* const value = std::getenv(name)) {
                previous[name] = value;
            }
            ::unsetenv(name);
        }
    }

    ~AutostartSessionTest() override
    {
        for (const char* const name : names) {
            ::unsetenv(name);
        }
        for (const auto& [name, value] : previous) {
            set(name, value);
        }
    }

    static void set(const std::string& name, const std::string& value)
    {
        ::setenv(name.c_str(), value.c_str(), 1);
    }

private:
    static constexpr const char* names[] = {
        "XDG_CONFIG_HOME", "HOME",  "XDG_CONFIG_DIRS", "XDG_CURRENT_DESKTOP", "PATH",
        "APPIMAGE",        "APPDIR"};

    std::map<std::string, std::string> previous;
};

TEST_F(AutostartSessionTest, TheDefaultsHoldWhereNothingIsSet)
{
    set("HOME", "/home/ann");

    const AutostartSession session = readAutostartSession();

    EXPECT_EQ(session.userDirectory, "/home/ann/.config/autostart");
    EXPECT_THAT(session.systemDirectories, ElementsAre("/etc/xdg/autostart"));
    EXPECT_THAT(session.desktops, IsEmpty());
    EXPECT_THAT(session.programDirectories, ElementsAre("/usr/bin", "/bin"));
}

TEST_F(AutostartSessionTest, ReadsWhatIsSet)
{
    set("HOME", "/home/ann");
    set("XDG_CONFIG_HOME", "/data/ann's config");
    set("XDG_CONFIG_DIRS", "/etc/xdg/xdg-one:/etc/xdg");
    set("XDG_CURRENT_DESKTOP", "ubuntu:GNOME");
    set("PATH", "/one:/two");

    const AutostartSession session = readAutostartSession();

    EXPECT_EQ(session.userDirectory, "/data/ann's config/autostart");
    EXPECT_THAT(session.systemDirectories,
                ElementsAre("/etc/xdg/xdg-one/autostart", "/etc/xdg/autostart"));
    EXPECT_THAT(session.desktops, ElementsAre("ubuntu", "GNOME"));
    EXPECT_THAT(session.programDirectories, ElementsAre("/one", "/two"));
}

TEST_F(AutostartSessionTest, EmptyAndRelativePathsAreIgnored)
{
    set("HOME", "/home/ann");
    set("XDG_CONFIG_HOME", "relative");
    set("XDG_CONFIG_DIRS", ":relative::/etc/other:");
    set("XDG_CURRENT_DESKTOP", "::KDE:");
    set("PATH", ":.:/one");

    const AutostartSession session = readAutostartSession();

    EXPECT_EQ(session.userDirectory, "/home/ann/.config/autostart");
    EXPECT_THAT(session.systemDirectories, ElementsAre("/etc/other/autostart"));
    EXPECT_THAT(session.desktops, ElementsAre("KDE"));
    EXPECT_THAT(session.programDirectories, ElementsAre("/one"));
}

TEST_F(AutostartSessionTest, WithoutAHomeThereIsNoPlaceForTheUsersEntries)
{
    EXPECT_EQ(readAutostartSession().userDirectory, std::nullopt);
    set("HOME", "");
    EXPECT_EQ(readAutostartSession().userDirectory, std::nullopt);
}

TEST_F(AutostartSessionTest, TheRunningProgramIsThisTest)
{
    EXPECT_EQ(fs::path(runningProgram()).filename(), "linux_test");
    EXPECT_TRUE(fs::path(runningProgram()).is_absolute());
}

TEST_F(AutostartSessionTest, AnAppImageGoesBeforeWhatIsMountedFromIt)
{
    set("APPIMAGE", "/home/ann/Voltmere.AppImage");
    EXPECT_EQ(runningProgram(), "/home/ann/Voltmere.AppImage");

    EXPECT_EQ(programFile("/tmp/.mount_1/usr/bin/voltmere", "/home/ann/Voltmere.AppImage",
                          "/tmp/.mount_1"),
              "/home/ann/Voltmere.AppImage");
}

TEST_F(AutostartSessionTest, AnAppImageThatDoesNotHoldThisProgramIsSomebodyElses)
{
    for (const char* const directory : {"/tmp/.mount_1", "/tmp/.mount_2/usr/bin/volt"}) {
        EXPECT_EQ(
            programFile("/tmp/.mount_2/usr/bin/voltmere", "/home/ann/Terminal.AppImage", directory),
            "/tmp/.mount_2/usr/bin/voltmere");
    }
    set("APPIMAGE", "/home/ann/Terminal.AppImage");
    set("APPDIR", "/tmp/.mount_1");
    EXPECT_EQ(fs::path(runningProgram()).filename(), "linux_test");
}

TEST_F(AutostartSessionTest, TheMountMayBeNamedThroughALink)
{
    const TemporaryDirectory directory;
    writeProgram(directory / "mount" / "voltmere", "");
    fs::create_symlink("mount", directory / "link");

    EXPECT_EQ(programFile(fs::canonical(directory / "mount" / "voltmere"), "/Voltmere.AppImage",
                          directory / "link"),
              "/Voltmere.AppImage");
}

TEST_F(AutostartSessionTest, ARelativeAppImageIsIgnored)
{
    EXPECT_EQ(programFile("/usr/bin/voltmere", "Voltmere.AppImage", ""), "/usr/bin/voltmere");
    EXPECT_EQ(programFile("/usr/bin/voltmere", "", ""), "/usr/bin/voltmere");
    EXPECT_EQ(programFile("", "", ""), "");
}

} // namespace
} // namespace voltmere
