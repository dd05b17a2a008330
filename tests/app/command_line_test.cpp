#include "app/command_line.h"

#include <gmock/gmock.h>

namespace voltmere {
namespace {

using Action = CommandLine::Action;

using Words = std::vector<std::string>;

Words joined(Words words, const Words& more)
{
    words.insert(words.end(), more.begin(), more.end());
    return words;
}

std::variant<CommandLine, UsageError> parse(const Words& words)
{
    return parseCommandLine(joined({"voltmere"}, words));
}

/// What the words ask for; the test fails when they are wrong usage.
CommandLine accepted(const Words& words)
{
    const auto parsed = parse(words);
    if (const auto* error = std::get_if<UsageError>(&parsed)) {
        ADD_FAILURE() << testing::PrintToString(words) << ": " << error->message;
        return {};
    }
    return std::get<CommandLine>(parsed);
}

/// What is wrong with the words; the test fails when they are right.
std::string rejected(const Words& words)
{
    const auto parsed = parse(words);
    const auto* error = std::get_if<UsageError>(&parsed);
    EXPECT_NE(error, nullptr) << testing::PrintToString(words);
    return error == nullptr ? std::string() : error->message;
}

TEST(CommandLineTest, NoWordsStartInTheMenuBar)
{
    const CommandLine commandLine = accepted({});

    EXPECT_EQ(commandLine.action, Action::menuBar);
    EXPECT_FALSE(commandLine.json);
    EXPECT_FALSE(commandLine.demo);
    EXPECT_EQ(commandLine.toolsDirectory, std::nullopt);
    EXPECT_EQ(commandLine.sysfsRoot, std::nullopt);
}

TEST(CommandLineTest, List)
{
    EXPECT_EQ(accepted({"--list"}).action, Action::list);
    EXPECT_FALSE(accepted({"--list"}).json);
}

TEST(CommandLineTest, ListAsJsonInEitherOrder)
{
    for (const Words& words : {Words{"--list", "--json"}, Words{"--json", "--list"}}) {
        EXPECT_EQ(accepted(words).action, Action::list);
        EXPECT_TRUE(accepted(words).json);
    }
}

TEST(CommandLineTest, Demo)
{
    EXPECT_TRUE(accepted({"--demo"}).demo);
    EXPECT_EQ(accepted({"--demo"}).action, Action::menuBar);
    EXPECT_EQ(accepted({"--demo", "--list"}).action, Action::list);
}

TEST(CommandLineTest, ToolsWithTheDirectoryAsTheNextWordOrBehindAnEqualsSign)
{
    EXPECT_EQ(accepted({"--tools", "/some/dir"}).toolsDirectory, "/some/dir");
    EXPECT_EQ(accepted({"--tools=/some/dir"}).toolsDirectory, "/some/dir");
    EXPECT_EQ(accepted({"--tools", "with blank/数字"}).toolsDirectory, "with blank/数字");
    EXPECT_EQ(accepted({"--tools", "/some/dir"}).sysfsRoot, std::nullopt);
}

TEST(CommandLineTest, SysfsWithTheDirectoryAsTheNextWordOrBehindAnEqualsSign)
{
    EXPECT_EQ(accepted({"--list", "--sysfs", "/some/dir"}).sysfsRoot, "/some/dir");
    EXPECT_EQ(accepted({"--sysfs=/some/dir"}).sysfsRoot, "/some/dir");
    EXPECT_EQ(accepted({"--sysfs", "/some/dir"}).toolsDirectory, std::nullopt);
}

TEST(CommandLineTest, Watch)
{
    EXPECT_EQ(accepted({"--watch"}).action, Action::watch);
    EXPECT_EQ(accepted({"--watch"}).format, CommandLine::Format::voltmere);
    EXPECT_EQ(accepted({"--watch", "--format", "waybar"}).format, CommandLine::Format::waybar);
    EXPECT_EQ(accepted({"--format=waybar", "--watch", "--demo"}).format,
              CommandLine::Format::waybar);
}

TEST(CommandLineTest, AFormatGoesWithWatchAndIsOneThatIsKnown)
{
    EXPECT_EQ(rejected({"--format", "waybar"}), "--format goes with --watch.");
    EXPECT_EQ(rejected({"--list", "--format", "waybar"}), "--format goes with --watch.");
    EXPECT_EQ(rejected({"--watch", "--format", "polybar"}), "--format knows only 'waybar'.");
    EXPECT_EQ(rejected({"--watch", "--format", ""}), "--format knows only 'waybar'.");
    EXPECT_EQ(rejected({"--watch", "--format", "Waybar"}), "--format knows only 'waybar'.");
    EXPECT_THAT(rejected({"--watch", "--format"}), testing::HasSubstr("format"));
    EXPECT_EQ(rejected({"--watch", "--json"}), "--json goes with --list.");
}

TEST(CommandLineTest, Diagnose)
{
    EXPECT_EQ(accepted({"--diagnose"}).action, Action::diagnose);
    EXPECT_FALSE(accepted({"--diagnose"}).verbose);
    EXPECT_TRUE(accepted({"--verbose", "--diagnose"}).verbose);
    EXPECT_EQ(accepted({"--diagnose", "--sysfs", "a"}).sysfsRoot, "a");
    EXPECT_EQ(rejected({"--verbose"}), "--verbose goes with --diagnose.");
    EXPECT_EQ(rejected({"--list", "--verbose"}), "--verbose goes with --diagnose.");
}

TEST(CommandLineTest, Panel)
{
    EXPECT_TRUE(accepted({"--panel"}).openPanel);
    EXPECT_EQ(accepted({"--panel"}).action, Action::menuBar);
    EXPECT_FALSE(accepted({}).openPanel);
    EXPECT_TRUE(accepted({"--demo", "--panel"}).openPanel);
}

TEST(CommandLineTest, Screenshots)
{
    EXPECT_EQ(accepted({"--screenshots", "some dir"}).action, Action::screenshots);
    EXPECT_EQ(accepted({"--screenshots", "some dir"}).screenshotsDirectory, "some dir");
    EXPECT_TRUE(accepted({"--screenshots=x", "--demo"}).demo);
    EXPECT_EQ(rejected({"--screenshots", ""}), "--screenshots needs a directory.");
    EXPECT_THAT(rejected({"--screenshots"}), testing::HasSubstr("screenshots"));
}

TEST(CommandLineTest, OneThingIsDoneAtATime)
{
    const std::vector<Words> actions{
        {"--list"}, {"--watch"}, {"--diagnose"}, {"--panel"}, {"--screenshots", "x"}};
    for (const Words& one : actions) {
        for (const Words& other : actions) {
            if (one != other) {
                EXPECT_EQ(rejected(joined(one, other)),
                          "Only one of --list, --watch, --diagnose, --panel and --screenshots can "
                          "be done at a time.");
            }
        }
    }
}

TEST(CommandLineTest, HelpAndVersion)
{
    EXPECT_EQ(accepted({"--help"}).action, Action::showHelp);
    EXPECT_EQ(accepted({"-h"}).action, Action::showHelp);
    EXPECT_EQ(accepted({"--version"}).action, Action::showVersion);
    EXPECT_EQ(accepted({"-v"}).action, Action::showVersion);
}

TEST(CommandLineTest, HelpWinsOverEverythingThatIsOnlyMisplaced)
{
    EXPECT_EQ(accepted({"--list", "--help"}).action, Action::showHelp);
    EXPECT_EQ(accepted({"--help", "--version"}).action, Action::showHelp);
    EXPECT_EQ(accepted({"--help", "--json"}).action, Action::showHelp);
    EXPECT_EQ(accepted({"--help", "word"}).action, Action::showHelp);
    EXPECT_EQ(accepted({"--version", "--demo", "--tools", "x"}).action, Action::showVersion);
}

TEST(CommandLineTest, AnUnknownOptionIsWrong)
{
    EXPECT_EQ(rejected({"--lists"}), "Unknown option '--lists'.");
    EXPECT_EQ(rejected({"-x"}), "Unknown option '-x'.");
    EXPECT_EQ(rejected({"-hx"}), "Unknown option '-x'.");
    EXPECT_EQ(rejected({"--help", "--bogus"}), "Unknown option '--bogus'.");
    EXPECT_EQ(rejected({"word", "--bogus=x"}), "Unknown option '--bogus=x'.");
    EXPECT_EQ(rejected({"--LIST"}), "Unknown option '--LIST'.");
}

TEST(CommandLineTest, APositionalArgumentIsWrong)
{
    EXPECT_EQ(rejected({"list"}), "Unexpected argument 'list'.");
    EXPECT_EQ(rejected({"--list", "extra"}), "Unexpected argument 'extra'.");
    EXPECT_EQ(rejected({"--", "--list"}), "Unexpected argument '--list'.");
}

TEST(CommandLineTest, JsonWithoutListIsWrong)
{
    EXPECT_EQ(rejected({"--json"}), "--json goes with --list.");
    EXPECT_EQ(rejected({"--json", "--demo"}), "--json goes with --list.");
}

TEST(CommandLineTest, OnlyOneOptionSaysWhereToRead)
{
    const std::string message = "Only one of --demo, --tools and --sysfs can say where to read.";

    EXPECT_EQ(rejected({"--demo", "--tools", "a"}), message);
    EXPECT_EQ(rejected({"--demo", "--sysfs", "a"}), message);
    EXPECT_EQ(rejected({"--list", "--tools", "a", "--sysfs", "b"}), message);
    EXPECT_EQ(rejected({"--demo", "--tools", "a", "--sysfs", "b"}), message);
}

TEST(CommandLineTest, AMissingValueIsWrong)
{
    EXPECT_EQ(rejected({"--tools"}), "--tools needs a value.");
    EXPECT_EQ(rejected({"--list", "--sysfs"}), "--sysfs needs a value.");
}

TEST(CommandLineTest, AnEmptyValueIsWrong)
{
    EXPECT_EQ(rejected({"--tools", ""}), "--tools needs a directory.");
    EXPECT_EQ(rejected({"--sysfs", ""}), "--sysfs needs a directory.");
    EXPECT_EQ(rejected({"--sysfs="}), "--sysfs needs a directory.");
}

TEST(CommandLineTest, AValueForAnOptionThatTakesNoneIsWrong)
{
    EXPECT_EQ(rejected({"--list=yes"}), "'--list=yes': --list takes no value.");
}

TEST(CommandLineTest, OfAnOptionThatIsGivenTwiceTheLastValueCounts)
{
    EXPECT_EQ(accepted({"--tools", "a", "--tools=b"}).toolsDirectory, "b");
}

TEST(CommandLineTest, TheUsageTextNamesEveryOption)
{
    const std::string usage = usageText();

    for (const char* const option : {"--list", "--json", "--watch", "--format <bar>", "--diagnose",
                                     "--verbose", "--panel", "--screenshots <dir>", "--demo",
                                     "--tools <dir>", "--sysfs <dir>", "--help", "--version"}) {
        EXPECT_THAT(usage, testing::HasSubstr(option));
    }
}

} // namespace
} // namespace voltmere
