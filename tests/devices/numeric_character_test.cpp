#include "devices/registry_parser.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string_view>

namespace voltmere {
namespace {

TEST(NumericCharacter, NumeralsOfEveryKindAreNumeric)
{
    constexpr std::u32string_view numerals =
        U"0123456789²³¹¼½¾٠٥٩०९౦Ⅷⅷ①⑳〇一二三四五六七八九十百千万亿零壹０９𝟘𝟿";
    for (const char32_t numeral : numerals) {
        EXPECT_TRUE(isNumeric(numeral)) << std::uint32_t{numeral};
    }
}

TEST(NumericCharacter, OtherCharactersAreNot)
{
    constexpr std::u32string_view others =
        U"\0 \n\r\t,-+.{}()\"/:;aAfFxXéβ鼠标电量、：٪…\u0301\u200D\uFE0F😀";
    for (const char32_t other : others) {
        EXPECT_FALSE(isNumeric(other)) << std::uint32_t{other};
    }
    EXPECT_FALSE(isNumeric(0));
}

TEST(NumericCharacter, ARangeEndsWhereItEnds)
{
    EXPECT_FALSE(isNumeric(U'0' - 1));
    EXPECT_FALSE(isNumeric(U'9' + 1));
    EXPECT_FALSE(isNumeric(0x065F));
    EXPECT_TRUE(isNumeric(0x0660));
    EXPECT_TRUE(isNumeric(0x0669));
    EXPECT_FALSE(isNumeric(0x066A));
    EXPECT_TRUE(isNumeric(0x2F890)) << "the last of all";
    EXPECT_FALSE(isNumeric(0x2F891));
    EXPECT_FALSE(isNumeric(0x10FFFF));
}

TEST(NumericCharacter, ThereAreAsManyAsTheDatabaseHas)
{
    int count = 0;
    for (char32_t scalar = 0; scalar <= 0x10FFFF; ++scalar) {
        count += isNumeric(scalar) ? 1 : 0;
    }
    EXPECT_EQ(count, 1912);
}

} // namespace
} // namespace voltmere
