#include "texts/plain_text.h"

#include <gtest/gtest.h>

namespace voltmere {
namespace {

TEST(PlainTextTest, OrdinaryTextStaysAsItIs)
{
    for (const char* const text :
         {"", " ", "Magic Mouse", "Ann\u2019s \"mouse\" #1", "Magic Keyboard 数字键盘版",
          "\u00A0\u00E9", "\u2027\u202F\u2030", "\u2065\u206A", "\u2000\u3000", "a\u0301"}) {
        EXPECT_EQ(plainText(text), text);
        EXPECT_EQ(escapedJson(text), text);
    }
}

TEST(PlainTextTest, WhatScriptsAndEmojiNeedStays)
{
    for (const char* const text : {"a\u200Cb", "👩\u200D💻", "\U0001F5B1\uFE0F"}) {
        EXPECT_EQ(plainText(text), text);
        EXPECT_EQ(escapedJson(text), text);
    }
}

TEST(PlainTextTest, ControlCharactersAndLineEndsBecomeABlank)
{
    for (int code = 0; code < 0x20; ++code) {
        EXPECT_EQ(plainText(std::string{'a', static_cast<char>(code), 'b'}), "a b") << code;
    }
    for (int code = 0x80; code < 0xA0; ++code) {
        EXPECT_EQ(plainText(std::string{'a', '\xC2', static_cast<char>(code), 'b'}), "a b") << code;
    }
    for (const char* const end : {"\x7F", "\u2028", "\u2029"}) {
        EXPECT_EQ(plainText("a" + std::string(end) + "b"), "a b");
    }
}

TEST(PlainTextTest, SeveralInARowBecomeOneBlank)
{
    EXPECT_EQ(plainText("\x1B[31mred\r\n\u0085"), " [31mred ");
    EXPECT_EQ(plainText("a\n\u200B\nb"), "a b");
    EXPECT_EQ(plainText("a\nb\n\xFF\nc \n"), "a b \uFFFD c  ");
}

TEST(PlainTextTest, MarksThatNobodySeesAreLeftOut)
{
    for (const char* const mark :
         {"\u00AD", "\u061C", "\u200B", "\u200E", "\u200F", "\u202A", "\u202B", "\u202C", "\u202D",
          "\u202E", "\u2060", "\u2066", "\u2067", "\u2068", "\u2069", "\uFEFF", "\U000E0000",
          "\U000E0041", "\U000E007F"}) {
        EXPECT_EQ(plainText("a" + std::string(mark) + "b"), "ab");
    }
}

TEST(PlainTextTest, TheirNeighboursStay)
{
    for (const char* const text : {"\u00AC", "\u00AE", "\u061B", "\u061D", "\u2010", "\u2065",
                                   "\u206A", "\uFEFE", "\U000DFFFF", "\U000E0080"}) {
        EXPECT_EQ(plainText(text), text);
    }
}

TEST(PlainTextTest, BytesThatAreNoUtf8AreReplaced)
{
    EXPECT_EQ(plainText("a\xFF"), "a\uFFFD");
    EXPECT_EQ(plainText("a\xC2"), "a\uFFFD");
    EXPECT_EQ(plainText("a\xE2\x80"), "a\uFFFD\uFFFD");
}

TEST(PlainTextTest, EscapesInJsonNameTheCharacter)
{
    EXPECT_EQ(escapedJson("\"a\x7F"
                          "b\""),
              "\"a\\u007fb\"");
    EXPECT_EQ(escapedJson("\"\xC2\x80 \xC2\x9B \xC2\x9F\""), "\"\\u0080 \\u009b \\u009f\"");
    EXPECT_EQ(escapedJson("\"\u2028\u202E\u2069\u200B\""), "\"\\u2028\\u202e\\u2069\\u200b\"");
    EXPECT_EQ(escapedJson("\U000E0041"), "\\udb40\\udc41");
    EXPECT_EQ(escapedJson("\x1B"), "\\u001b");
    EXPECT_EQ(escapedJson("a\xE2\x81"), "a\xE2\x81");
}

} // namespace
} // namespace voltmere
