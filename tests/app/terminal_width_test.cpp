#include "app/terminal_width.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>

namespace voltmere {
namespace {

TEST(TerminalWidthTest, AsciiTakesOneColumnEach)
{
    EXPECT_EQ(terminalWidth(""), 0U);
    EXPECT_EQ(terminalWidth("Magic Mouse"), 11U);
}

TEST(TerminalWidthTest, IdeographsTakeTwoColumnsEach)
{
    EXPECT_EQ(terminalWidth("数字键盘版"), 10U);
    EXPECT_EQ(terminalWidth("Magic Keyboard 数字键盘版"), 25U);
    EXPECT_EQ(terminalWidth("\uFF21"), 2U);
}

TEST(TerminalWidthTest, OtherLettersAndMarksTakeOneColumn)
{
    EXPECT_EQ(terminalWidth("Zo\u00EB\u2019s"), 5U);
    EXPECT_EQ(terminalWidth("\uFFFD"), 1U);
}

TEST(TerminalWidthTest, CombiningMarksTakeNone)
{
    EXPECT_EQ(terminalWidth("e\u0301"), 1U);
    EXPECT_EQ(terminalWidth("Zoe\u0308"), 3U);
}

TEST(TerminalWidthTest, BytesThatAreNoUtf8TakeOneColumnEach)
{
    EXPECT_EQ(terminalWidth("a\xFF\xFE"), 3U);
    EXPECT_EQ(terminalWidth("\xE6\x95"), 2U);
}

TEST(TerminalWidthTest, DoesNotDependOnTheLocaleAndLeavesItAlone)
{
    const std::string previous = std::setlocale(LC_ALL, nullptr);
    std::setlocale(LC_ALL, "C");

    EXPECT_EQ(terminalWidth("数字e\u0301"), 5U);

    EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
    std::setlocale(LC_ALL, previous.c_str());
}

} // namespace
} // namespace voltmere
