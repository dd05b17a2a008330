#include "app/command_line.h"

#include <gmock/gmock.h>

namespace voltmere {
namespace {

using Action = CommandLine::Action;

std::variant<CommandLine, UsageError> parse(const QStringList& words)
{
    return parseCommandLine(QStringList("voltmere") + words);
}

/// What the words ask for; the test fails when they are wrong usage.
CommandLine accepted(const QStringList& words)
{
    const auto parsed = parse(words);
    if (const auto* error = std::get_if<UsageError>(&parsed)) {
        ADD_FAILURE() << words.join(' ').toStdString() << ": " << error->message.toStdString();
        return {};
    }
    return std::get<CommandLine>(parsed);
}

/// What is wrong with the words; the test fails when they are right.
std::string rejected(const QStringList& words)
{
    const auto parsed = parse(words);
    const auto* error = std::get_if<UsageError>(&parsed);
    EXPECT_NE(error, nullptr) << words.join(' ').toStdString();
    return error == nullptr ? std::string() : error->message.toStdString();
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
    for (const QStringList& words :
         {QStringList{"--list", "--json"}, QStringList{"--json", "--list"}}) {
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
    EXPECT_THAT(rejected({"--lists"}), testing::HasSubstr("lists"));
    EXPECT_THAT(rejected({"-x"}), testing::HasSubstr("x"));
    EXPECT_THAT(rejected({"--help", "--bogus"}), testing::HasSubstr("bogus"));
    EXPECT_NE(rejected({"--LIST"}), "");
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
    EXPECT_THAT(rejected({"--tools"}), testing::HasSubstr("tools"));
    EXPECT_THAT(rejected({"--list", "--sysfs"}), testing::HasSubstr("sysfs"));
}

TEST(CommandLineTest, AnEmptyValueIsWrong)
{
    EXPECT_EQ(rejected({"--tools", ""}), "--tools needs a directory.");
    EXPECT_EQ(rejected({"--sysfs", ""}), "--sysfs needs a directory.");
    EXPECT_EQ(rejected({"--sysfs="}), "--sysfs needs a directory.");
}

TEST(CommandLineTest, AValueForAnOptionThatTakesNoneIsWrong)
{
    EXPECT_THAT(rejected({"--list=yes"}), testing::HasSubstr("list"));
}

TEST(CommandLineTest, TheUsageTextNamesEveryOption)
{
    const std::string usage = usageText().toStdString();

    for (const char* const option :
         {"--list", "--json", "--demo", "--tools <dir>", "--sysfs <dir>", "--help", "--version"}) {
        EXPECT_THAT(usage, testing::HasSubstr(option));
    }
}

} // namespace
} // namespace voltmere
