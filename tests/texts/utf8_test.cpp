#include "texts/utf8.h"

#include <gmock/gmock.h>

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

} // namespace
} // namespace voltmere
