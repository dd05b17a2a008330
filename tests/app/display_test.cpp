// Runs the built program without a display that it could use.

#include "posix/file_descriptor.h"
#include "tests/app/program_fixture.h"

#include <gmock/gmock.h>

#include <QLibraryInfo>

#include <sys/socket.h>
#include <sys/un.h>

#include <filesystem>
#include <string>
#include <vector>

namespace voltmere {
namespace {

using testing::AnyOf;
using testing::HasSubstr;
using testing::MatchesRegex;

class DisplayTest : public ProgramTest {
protected:
    /// The program cannot run, and says so in one line.
    std::string problem(const QStringList& words = {}) const
    {
        const Outcome outcome = run(words);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.output, "");
        EXPECT_THAT(outcome.errors, MatchesRegex("voltmere: [^\n]+; [^\n]+ use --list[^\n]*\n"));
        return outcome.errors;
    }

    /// Something that takes connections, and says nothing.
    static FileDescriptor listenAt(const std::string& path)
    {
        FileDescriptor listening(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        EXPECT_LT(path.copy(address.sun_path, sizeof address.sun_path), sizeof address.sun_path);
        const void* const general = &address;
        EXPECT_EQ(::bind(listening.get(), static_cast<const sockaddr*>(general), sizeof address),
                  0);
        EXPECT_EQ(::listen(listening.get(), 1), 0);
        return listening;
    }

    /// Lets the program run where Qt has these platform plugins and no others.
    void usePluginsOfQt(const std::vector<std::string>& names)
    {
        namespace files = std::filesystem;
        const files::path installed =
            QLibraryInfo::path(QLibraryInfo::PluginsPath).toStdString() + "/platforms";
        files::create_directories(directory / "plugins" / "platforms");
        for (const std::string& name : names) {
            ASSERT_TRUE(files::exists(installed / name)) << installed / name;
            files::create_symlink(installed / name, directory / "plugins" / "platforms" / name);
        }
        const std::string windows = "libexec/voltmere/voltmere-desktop";
        files::create_directories(directory / "libexec" / "voltmere");
        files::copy_file(files::path(executable).parent_path() / windows, directory / windows);
        writeFile(directory / "libexec" / "voltmere" / "qt.conf",
                  "[Paths]\nPrefix=../..\nPlugins=plugins\n");
        files::copy_file(executable, directory / "voltmere");
        executable = directory / "voltmere";
    }
};

TEST_F(DisplayTest, NoDisplay)
{
    EXPECT_THAT(problem(), HasSubstr("there is no display"));
    EXPECT_THAT(problem({"--panel"}), HasSubstr("there is no display"));
    variables["DISPLAY"] = "";
    variables["WAYLAND_DISPLAY"] = "";
    EXPECT_THAT(problem({"--demo"}), HasSubstr("there is no display"));
}

TEST_F(DisplayTest, ADisplayThatCannotBeOpened)
{
    for (const char* const display : {":64123", "nonsense", ":64123.0"}) {
        variables["DISPLAY"] = display;
        EXPECT_THAT(problem(), HasSubstr("connect to display " + std::string(display) + ")"));
    }
}

TEST_F(DisplayTest, ACompositorThatCannotBeReached)
{
    variables["WAYLAND_DISPLAY"] = "wayland-7";
    // The first where Qt has its plugin for Wayland, the second where it has not.
    EXPECT_THAT(problem(),
                AnyOf(HasSubstr("(Failed to create wl_display"),
                      HasSubstr("(Could not find the Qt platform plugin \"wayland\"")));
}

TEST_F(DisplayTest, APlatformOfQtWhoseDisplayIsNotSetOrThatQtDoesNotHave)
{
    variables["QT_QPA_PLATFORM"] = "xcb";
    EXPECT_THAT(problem(), HasSubstr("(could not connect to display)"));
    variables["QT_QPA_PLATFORM"] = "nonsense";
    EXPECT_THAT(problem(), HasSubstr("platform plugin \"nonsense\""));
}

TEST_F(DisplayTest, WhatQtTellsADeveloperIsPrintedAndNotTakenForTheCause)
{
    variables = {{"QT_QPA_PLATFORM", "nonsense"}, {"QT_DEBUG_PLUGINS", "1"}};
    const Outcome outcome = run({});

    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors, HasSubstr("checking directory path"));
    EXPECT_THAT(outcome.errors, HasSubstr("(Could not find the Qt platform plugin \"nonsense\""));
}

TEST_F(DisplayTest, ACompositorForWhichQtHasNoPlugin)
{
    const FileDescriptor compositor = listenAt(runtime() / "wayland-0");
    variables["WAYLAND_DISPLAY"] = "wayland-0";
    variables["XDG_SESSION_TYPE"] = "wayland";
    usePluginsOfQt({"libqoffscreen.so", "libqxcb.so"});

    EXPECT_THAT(problem(), HasSubstr("platform plugin \"wayland\""));
}

TEST_F(DisplayTest, ControlCharactersDoNotReachTheTerminal)
{
    for (const char* const variable : {"DISPLAY", "QT_QPA_PLATFORM"}) {
        variables = {{variable, "\x1B[31m"}};
        EXPECT_THAT(problem(), testing::Not(HasSubstr("\x1B")));
    }
}

TEST_F(DisplayTest, AProgramThatRunsSaysWhatDoesNotWork)
{
    variables["QT_QPA_PLATFORM"] = "nonsense;offscreen";
    QProcess program;
    start(program, {"--sysfs", QString::fromStdString(home())});

    program.setReadChannel(QProcess::StandardError);
    std::string said;
    while (said.find("session bus") == std::string::npos && program.waitForReadyRead(60'000)) {
        said += program.readAllStandardError().toStdString();
    }
    EXPECT_THAT(said, HasSubstr("Could not find the Qt platform plugin \"nonsense\""));
    EXPECT_THAT(said, HasSubstr("Voltmere: there is no session bus: no notifications"));
    EXPECT_EQ(program.state(), QProcess::Running);
    program.terminate();
    EXPECT_TRUE(program.waitForFinished(60'000));
}

TEST_F(DisplayTest, TheProgramWithTheWindowsIsMissing)
{
    std::filesystem::copy_file(executable, directory / "voltmere");
    executable = directory / "voltmere";
    const Outcome outcome = run({});

    EXPECT_EQ(outcome.status, 1);
    EXPECT_THAT(outcome.errors,
                MatchesRegex("voltmere: the windows cannot be started \\(/[^\n]*voltmere-desktop: "
                             "No such file or directory\\); install it again\n"));
}

TEST_F(DisplayTest, AnswersNeedNone)
{
    for (const char* const word : {"--list", "--help", "--version", "--diagnose"}) {
        EXPECT_EQ(run({word}).status, 0) << word;
    }
}

} // namespace
} // namespace voltmere
