#include "devices/numeric_character.h"

#include "devices/unicode_tables.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <string_view>

namespace voltmere {
namespace {

template<typename Ranges>
void expectSortedAndApart(const Ranges& ranges)
{
    for (std::size_t i = 0; i < ranges.size(); ++i) {
        EXPECT_LE(ranges[i].first, ranges[i].last) << "range " << i;
        if (i > 0) {
            EXPECT_GT(ranges[i].first, ranges[i - 1].last) << "range " << i;
        }
    }
}

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

TEST(NumericCharacter, EveryRangeOfTheTableIsFound)
{
    for (const ScalarRange& range : numericRanges) {
        EXPECT_TRUE(isNumeric(range.first)) << std::uint32_t{range.first};
        EXPECT_TRUE(isNumeric(range.last)) << std::uint32_t{range.last};
    }
    for (const ScalarRange& range : extendingRanges) {
        EXPECT_TRUE(extendsCharacter(range.first)) << std::uint32_t{range.first};
        EXPECT_TRUE(extendsCharacter(range.last)) << std::uint32_t{range.last};
    }
}

TEST(NumericCharacter, TheTablesAreSortedSoThatTheyCanBeSearched)
{
    expectSortedAndApart(numericRanges);
    expectSortedAndApart(extendingRanges);
}

TEST(ExtendingCharacter, MarksJoinersSelectorsAndModifiersExtend)
{
    for (const char32_t mark :
         {U'\u0300', U'\u0301', U'\u036F', U'\u0903', U'\u093E', U'\u200C', U'\u200D', U'\u20E3',
          U'\u3099', U'\uFE0F', U'\U0001F3FB', U'\U000E0100'}) {
        EXPECT_TRUE(extendsCharacter(mark)) << std::uint32_t{mark};
    }
}

TEST(ExtendingCharacter, WhatStandsForItselfDoesNot)
{
    constexpr std::u32string_view others = U" \n09aé五鼠½٠,\"\u02FF\u0370\u200B\u2060😀";
    for (const char32_t other : others) {
        EXPECT_FALSE(extendsCharacter(other)) << std::uint32_t{other};
    }
    EXPECT_FALSE(extendsCharacter(0));
    EXPECT_FALSE(extendsCharacter(0x10FFFF));
}

} // namespace
} // namespace voltmere
