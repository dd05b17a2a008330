// Runs the built program without a display that it could use.

#include "tests/app/program_fixture.h"

#include <gmock/gmock.h>

namespace voltmere {
namespace {

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
};

TEST_F(DisplayTest, NoDisplay)
{
    EXPECT_THAT(problem(), HasSubstr("there is no display"));
    EXPECT_THAT(problem({"--panel"}), HasSubstr("there is no display"));
    EXPECT_THAT(problem({"--demo"}), HasSubstr("there is no display"));
}

TEST_F(DisplayTest, AnEmptyDisplayIsNone)
{
    variables["DISPLAY"] = "";
    variables["WAYLAND_DISPLAY"] = "";

    EXPECT_THAT(problem(), HasSubstr("there is no display"));
}

TEST_F(DisplayTest, ADisplayThatCannotBeOpened)
{
    for (const char* const display : {":64123", "nonsense", ":64123.0"}) {
        variables["DISPLAY"] = display;
        EXPECT_THAT(problem(), HasSubstr("'" + std::string(display) + "' cannot be opened"));
    }
}

TEST_F(DisplayTest, ACompositorThatCannotBeReached)
{
    variables["XDG_RUNTIME_DIR"] = home();
    for (const std::string& display : {std::string("wayland-7"), (home() / "socket").string(),
                                       std::string(300, 'x'), std::string("/")}) {
        variables["WAYLAND_DISPLAY"] = display;
        EXPECT_THAT(problem(), HasSubstr("'" + display + "' cannot be reached"));
    }
}

TEST_F(DisplayTest, ACompositorThatCannotBeReachedBesideADisplayThatCannotBeOpened)
{
    variables["WAYLAND_DISPLAY"] = "wayland-7";
    variables["DISPLAY"] = ":64123";

    EXPECT_THAT(problem(), HasSubstr("':64123' cannot be opened"));
}

TEST_F(DisplayTest, APlatformOfQtWhoseDisplayCannotBeReached)
{
    for (const char* const platform : {"xcb", "wayland", "wayland;xcb", "xcb:option"}) {
        variables["QT_QPA_PLATFORM"] = platform;
        EXPECT_THAT(problem(), HasSubstr("QT_QPA_PLATFORM ('" + std::string(platform) + "')"));
    }
}

TEST_F(DisplayTest, ControlCharactersDoNotReachTheTerminal)
{
    variables["DISPLAY"] = "\x1B[31m";

    EXPECT_THAT(problem(), testing::Not(HasSubstr("\x1B")));
}

TEST_F(DisplayTest, WithoutASessionBusTheProgramRunsAndSaysWhatDoesNotWork)
{
    variables["QT_QPA_PLATFORM"] = "offscreen";
    QProcess program;
    start(program, {"--sysfs", QString::fromStdString(home())});

    program.setReadChannel(QProcess::StandardError);
    std::string said;
    while (!said.ends_with('\n') && program.waitForReadyRead(60'000)) {
        said += program.readAllStandardError().toStdString();
    }
    EXPECT_THAT(said, HasSubstr("there is no session bus: no notifications"));
    EXPECT_EQ(program.state(), QProcess::Running);
    program.kill();
    EXPECT_TRUE(program.waitForFinished(60'000));
}

TEST_F(DisplayTest, AnswersNeedNone)
{
    for (const char* const word : {"--list", "--help", "--version", "--diagnose"}) {
        EXPECT_EQ(run({word}).status, 0) << word;
    }
}

} // namespace
} // namespace voltmere
