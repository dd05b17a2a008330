#include "texts/plain_text.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace voltmere {
namespace {

/// `scalar` in UTF-8, written out by the definition and not by the code under test.
std::string encoded(char32_t scalar)
{
    const auto tail = [scalar](unsigned shift) {
        return static_cast<char>(0x80U | ((scalar >> shift) & 0x3FU));
    };
    if (scalar < 0x80) {
        return {static_cast<char>(scalar)};
    }
    if (scalar < 0x800) {
        return {static_cast<char>(0xC0U | (scalar >> 6U)), tail(0)};
    }
    if (scalar < 0x10000) {
        return {static_cast<char>(0xE0U | (scalar >> 12U)), tail(6), tail(0)};
    }
    return {static_cast<char>(0xF0U | (scalar >> 18U)), tail(12), tail(6), tail(0)};
}

bool isSurrogate(char32_t scalar)
{
    return scalar >= 0xD800 && scalar <= 0xDFFF;
}

TEST(Utf8, EveryScalarIsReadAndNoSurrogateIs)
{
    for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
        const std::string text = encoded(scalar);
        const Utf8Scalar read = firstScalar(text + 'x');
        if (isSurrogate(scalar)) {
            ASSERT_EQ(read.length, 0U) << std::uint32_t{scalar};
            ASSERT_FALSE(isValidUtf8(text)) << std::uint32_t{scalar};
        } else {
            ASSERT_EQ(read.length, text.size()) << std::uint32_t{scalar};
            ASSERT_EQ(read.value, scalar);
            ASSERT_TRUE(isValidUtf8(text)) << std::uint32_t{scalar};
        }
    }
}

struct InvalidText {
    const char* what;
    std::string_view text;
    std::size_t replacements; ///< one for each byte that is no part of valid UTF-8
};

void PrintTo(const InvalidText& invalid, std::ostream* out)
{
    *out << invalid.what;
}

class InvalidUtf8 : public testing::TestWithParam<InvalidText> {
protected:
    std::string replaced() const
    {
        std::string marks;
        for (std::size_t i = 0; i < GetParam().replacements; ++i) {
            marks += "\uFFFD";
        }
        return marks;
    }
};

TEST_P(InvalidUtf8, HasNoFirstScalar)
{
    EXPECT_EQ(firstScalar(GetParam().text).length, 0U);
    EXPECT_EQ(firstScalar(std::string(GetParam().text) + "abcd").length, 0U);
}

TEST_P(InvalidUtf8, IsFoundAtEveryPlaceOfALongerText)
{
    // More places than a machine word has bytes: ASCII may be skipped a word at a time.
    for (std::size_t before = 0; before <= 17; ++before) {
        for (const std::size_t behind : {0U, 1U, 20U}) {
            std::string text(before, 'a');
            text += GetParam().text;
            text.append(behind, 'z');
            EXPECT_FALSE(isValidUtf8(text)) << before << " before, " << behind << " behind";
        }
    }
}

TEST_P(InvalidUtf8, IsReplacedByteByByteAndTheRestKept)
{
    const std::string text(GetParam().text);
    EXPECT_EQ(toValidUtf8(text), replaced());
    EXPECT_EQ(toValidUtf8("鼠a" + text + "z😀"), "鼠a" + replaced() + "z😀");
    EXPECT_TRUE(isValidUtf8(toValidUtf8("鼠a" + text + "z😀")));
}

INSTANTIATE_TEST_SUITE_P(
    Kinds, InvalidUtf8,
    testing::Values(InvalidText{"LoneContinuation", "\x80", 1},
                    InvalidText{"LastContinuation", "\xBF", 1},
                    InvalidText{"FourContinuations", "\x84\x80\x80\x80", 4},
                    InvalidText{"NoLeadFE", "\xFE", 1}, InvalidText{"NoLeadFF", "\xFF", 1},
                    InvalidText{"TwoBytesCut", "\xC3", 1},
                    InvalidText{"ThreeBytesCutAfterOne", "\xE9", 1},
                    InvalidText{"ThreeBytesCutAfterTwo", "\xE9\xBC", 2},
                    InvalidText{"FourBytesCutAfterOne", "\xF0", 1},
                    InvalidText{"FourBytesCutAfterThree", "\xF0\x9F\x98", 3},
                    InvalidText{"OverlongSlashInTwo", "\xC0\xAF", 2},
                    InvalidText{"OverlongInTwoAtTheLimit", "\xC1\xBF", 2},
                    InvalidText{"OverlongInThree", "\xE0\x80\xAF", 3},
                    InvalidText{"OverlongInThreeAtTheLimit", "\xE0\x9F\xBF", 3},
                    InvalidText{"OverlongInFour", "\xF0\x80\x80\xAF", 4},
                    InvalidText{"OverlongInFourAtTheLimit", "\xF0\x8F\xBF\xBF", 4},
                    InvalidText{"FirstSurrogate", "\xED\xA0\x80", 3},
                    InvalidText{"LastSurrogate", "\xED\xBF\xBF", 3},
                    InvalidText{"SurrogatePair", "\xED\xA0\xBD\xED\xB8\x80", 6},
                    InvalidText{"BeyondTheLastScalar", "\xF4\x90\x80\x80", 4},
                    InvalidText{"LeadF5", "\xF5\x80\x80\x80", 4},
                    InvalidText{"FiveBytes", "\xF8\x88\x80\x80\x80", 5},
                    InvalidText{"SixBytes", "\xFC\x84\x80\x80\x80\x80", 6}),
    [](const auto& row) { return row.param.what; });

TEST(Utf8, AScalarWhoseTailIsAnotherScalarIsInvalid)
{
    EXPECT_EQ(firstScalar("\xC3"
                          "a")
                  .length,
              0U);
    EXPECT_EQ(toValidUtf8("\xE9\xBC"
                          "é"),
              "\uFFFD\uFFFDé");
}

TEST(Utf8, ValidTextOfAnyLengthIsKept)
{
    std::string text;
    for (int i = 0; i < 40; ++i) {
        text += i % 9 == 0 ? "鼠" : "a";
        EXPECT_TRUE(isValidUtf8(text)) << text;
        EXPECT_EQ(toValidUtf8(text), text);
    }
}

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
