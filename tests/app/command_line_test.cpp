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

TEST(CommandLineTest, EachActionHasItsWordsAndHelpWinsOverWhatIsOnlyMisplaced)
{
    const std::vector<std::pair<Words, Action>> cases{
        {{}, Action::menuBar},
        {{"--demo"}, Action::menuBar},
        {{"--panel"}, Action::menuBar},
        {{"--list"}, Action::list},
        {{"--demo", "--list"}, Action::list},
        {{"--watch"}, Action::watch},
        {{"--diagnose"}, Action::diagnose},
        {{"--screenshots", "some dir"}, Action::screenshots},
        {{"--help"}, Action::showHelp},
        {{"-h"}, Action::showHelp},
        {{"--version"}, Action::showVersion},
        {{"-v"}, Action::showVersion},
        {{"--list", "--help"}, Action::showHelp},
        {{"--help", "--version"}, Action::showHelp},
        {{"--help", "--json"}, Action::showHelp},
        {{"--help", "word"}, Action::showHelp},
        {{"--version", "--demo", "--tools", "x"}, Action::showVersion},
    };
    for (const auto& [words, action] : cases) {
        EXPECT_EQ(accepted(words).action, action) << testing::PrintToString(words);
    }
}

TEST(CommandLineTest, AnOptionThatIsNotGivenIsOff)
{
    EXPECT_TRUE(accepted({}) == CommandLine());
}

TEST(CommandLineTest, EachOptionHasItsEffectInAnyOrder)
{
    EXPECT_TRUE(accepted({"--list", "--json"}).json);
    EXPECT_TRUE(accepted({"--json", "--list"}).json);
    EXPECT_TRUE(accepted({"--verbose", "--diagnose"}).verbose);
    EXPECT_TRUE(accepted({"--demo", "--panel"}).openPanel);
    EXPECT_TRUE(accepted({"--screenshots=x", "--demo"}).demo);
    EXPECT_EQ(accepted({"--watch", "--format", "waybar"}).format, CommandLine::Format::waybar);
    EXPECT_EQ(accepted({"--format=waybar", "--watch"}).format, CommandLine::Format::waybar);
}

TEST(CommandLineTest, AValueIsTheNextWordOrBehindAnEqualsSignAndTheLastOneCounts)
{
    EXPECT_EQ(accepted({"--tools", "with blank/数字"}).toolsDirectory, "with blank/数字");
    EXPECT_EQ(accepted({"--tools=/some/dir"}).toolsDirectory, "/some/dir");
    EXPECT_EQ(accepted({"--list", "--sysfs", "/some/dir"}).sysfsRoot, "/some/dir");
    EXPECT_EQ(accepted({"--screenshots", "some dir"}).screenshotsDirectory, "some dir");
    EXPECT_EQ(accepted({"--tools", "a", "--tools=b"}).toolsDirectory, "b");
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

TEST(CommandLineTest, WrongUsageIsExplained)
{
    const std::string places = "Only one of --demo, --tools and --sysfs can say where to read.";
    const std::vector<std::pair<Words, std::string>> cases{
        {{"--lists"}, "Unknown option '--lists'."},
        {{"-x"}, "Unknown option '-x'."},
        {{"-hx"}, "Unknown option '-x'."},
        {{"--help", "--bogus"}, "Unknown option '--bogus'."},
        {{"word", "--bogus=x"}, "Unknown option '--bogus=x'."},
        {{"--LIST"}, "Unknown option '--LIST'."},
        {{"list"}, "Unexpected argument 'list'."},
        {{"--list", "extra"}, "Unexpected argument 'extra'."},
        {{"--", "--list"}, "Unexpected argument '--list'."},
        {{"--json", "--demo"}, "--json goes with --list."},
        {{"--watch", "--json"}, "--json goes with --list."},
        {{"--verbose"}, "--verbose goes with --diagnose."},
        {{"--list", "--format", "waybar"}, "--format goes with --watch."},
        {{"--watch", "--format", "polybar"}, "--format knows only 'waybar'."},
        {{"--watch", "--format", ""}, "--format knows only 'waybar'."},
        {{"--demo", "--tools", "a"}, places},
        {{"--demo", "--sysfs", "a"}, places},
        {{"--list", "--tools", "a", "--sysfs", "b"}, places},
        {{"--tools"}, "--tools needs a value."},
        {{"--watch", "--format"}, "--format needs a value."},
        {{"--screenshots"}, "--screenshots needs a value."},
        {{"--tools", ""}, "--tools needs a directory."},
        {{"--sysfs="}, "--sysfs needs a directory."},
        {{"--screenshots", ""}, "--screenshots needs a directory."},
        {{"--list=yes"}, "'--list=yes': --list takes no value."},
    };
    for (const auto& [words, complaint] : cases) {
        EXPECT_EQ(rejected(words), complaint);
    }
}

TEST(CommandLineTest, TheUsageTextNamesEveryOption)
{
    const std::string usage = usageText();

    for (const char* const option : {"--list", "--json", "--watch", "--format <bar>", "--diagnose",
                                     "--verbose", "--panel", "--screenshots <dir>", "--demo",
                                     "--tools <dir>", "--sysfs <dir>", "--help", "--version"}) {
        EXPECT_THAT(usage, testing::HasSubstr(option));
    }
    EXPECT_THAT(usage, testing::Not(testing::ContainsRegex("[^ -~\n]")));
}

} // namespace
} // namespace voltmere
