#include "platform/posix/plain_text.h"

#include "platform/posix/posix_system_log.h"

#include <gmock/gmock.h>

namespace voltmere {
namespace {

TEST(PlainTextTest, OrdinaryTextStaysAsItIs)
{
    for (const char* const text :
         {"", "Magic Mouse", "Ann\u2019s \"mouse\" #1", "Magic Keyboard 数字键盘版", "\u00A0\u00E9",
          "\u2027\u202F\u2030", "\u2065\u206A", "\u2000\u3000", "\U0001F5B1\uFE0F", "a\u0301"}) {
        EXPECT_EQ(plainLine(text), text);
        EXPECT_EQ(escapedControls(text), text);
    }
}

TEST(PlainTextTest, ControlCharactersAreReplaced)
{
    for (int code = 0; code < 0x20; ++code) {
        const std::string text{'a', static_cast<char>(code), 'b'};
        EXPECT_EQ(plainLine(text), "a\uFFFDb") << code;
    }
    EXPECT_EQ(plainLine("a\x7F"
                        "b"),
              "a\uFFFDb");
    EXPECT_EQ(plainLine("\x1B[31mred\r\n"), "\uFFFD[31mred\uFFFD\uFFFD");
}

TEST(PlainTextTest, TheSecondSetOfControlCharactersIsReplaced)
{
    for (int code = 0x80; code < 0xA0; ++code) {
        const std::string text{'a', '\xC2', static_cast<char>(code), 'b'};
        EXPECT_EQ(plainLine(text), "a\uFFFDb") << code;
    }
}

TEST(PlainTextTest, SeparatorsAndMarksThatTurnTheDirectionAreReplaced)
{
    for (const char* const mark : {"\u2028", "\u2029", "\u202A", "\u202B", "\u202C", "\u202D",
                                   "\u202E", "\u2066", "\u2067", "\u2068", "\u2069"}) {
        EXPECT_EQ(plainLine("a" + std::string(mark) + "b"), "a\uFFFDb");
    }
}

TEST(PlainTextTest, CharactersThatShareTwoBytesWithReplacedOnesStay)
{
    for (const char* const text :
         {"\u1028\u3028", "\u102E\u302E", "\u1066\u3066", "\u00C0\u00DF"}) {
        EXPECT_EQ(plainLine(text), text);
    }
}

TEST(PlainTextTest, EscapesInJsonNameTheCharacter)
{
    EXPECT_EQ(escapedControls("\"a\x7F"
                              "b\""),
              "\"a\\u007fb\"");
    EXPECT_EQ(escapedControls("\"\xC2\x80 \xC2\x9B \xC2\x9F\""), "\"\\u0080 \\u009b \\u009f\"");
    EXPECT_EQ(escapedControls("\"\u2028\u202E\u2069\""), "\"\\u2028\\u202e\\u2069\"");
    EXPECT_EQ(escapedControls("\x1B"), "\\u001b");
}

TEST(PlainTextTest, TheSystemLogGetsPlainLinesUnderTheProgramsName)
{
    testing::internal::CaptureStderr(); // which the log writes to as well
    PosixSystemLog().write("Mouse \x1B[31m of Ann");
    const std::string written = testing::internal::GetCapturedStderr();

    EXPECT_THAT(written, testing::StartsWith("voltmere"));
    EXPECT_THAT(written, testing::HasSubstr(": Mouse \uFFFD[31m of Ann\n"));
}

TEST(PlainTextTest, ATextThatBreaksOffInsideACharacterDoesNoHarm)
{
    EXPECT_EQ(plainLine("a\xC2"), "a\xC2");
    EXPECT_EQ(plainLine("a\xE2"), "a\xE2");
    EXPECT_EQ(plainLine("a\xE2\x80"), "a\xE2\x80");
    EXPECT_EQ(plainLine("a\xE2\x80(b)"), "a\xE2\x80(b)");
    EXPECT_EQ(escapedControls("\xE2\x81"), "\xE2\x81");
}

} // namespace
} // namespace voltmere
