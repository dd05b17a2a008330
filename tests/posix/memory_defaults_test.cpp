#include "posix/memory_defaults.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <limits>

namespace voltmere {
namespace {

using testing::Optional;

constexpr double twoToThe63rd = 9223372036854775808.0;

/// A store that holds one value, under "key".
MemoryDefaults holding(MemoryDefaults::Value value)
{
    MemoryDefaults defaults;
    defaults.set("key", std::move(value));
    return defaults;
}

MemoryDefaults holdingText(const char* text)
{
    return holding(std::string(text));
}

MemoryDefaults holdingWhole(std::int64_t number)
{
    return holding(number);
}

TEST(MemoryDefaultsTest, AnAbsentKeyYieldsNothing)
{
    const MemoryDefaults defaults = holdingWhole(1);

    EXPECT_EQ(defaults.integer("other"), std::nullopt);
    EXPECT_EQ(defaults.boolean("other"), std::nullopt);
    EXPECT_EQ(defaults.text("other"), std::nullopt);
}

TEST(MemoryDefaultsTest, WholeNumbersOfAnyFormAreIntegers)
{
    EXPECT_THAT(holdingWhole(35).integer("key"), Optional(35));
    EXPECT_THAT(holdingWhole(-7).integer("key"), Optional(-7));
    EXPECT_THAT(holdingWhole(INT64_MAX).integer("key"), Optional(INT64_MAX));
    EXPECT_THAT(holdingWhole(INT64_MIN).integer("key"), Optional(INT64_MIN));
    EXPECT_THAT(holding(35.0).integer("key"), Optional(35));
    EXPECT_THAT(holding(-0.0).integer("key"), Optional(0));
    EXPECT_THAT(holding(-twoToThe63rd).integer("key"), Optional(INT64_MIN));
    EXPECT_THAT(holding(9007199254740992.0).integer("key"), Optional(9007199254740992));
}

TEST(MemoryDefaultsTest, WhatIsNoWholeNumberOf64BitsIsNoInteger)
{
    EXPECT_EQ(holding(20.5).integer("key"), std::nullopt);
    EXPECT_EQ(holding(twoToThe63rd).integer("key"), std::nullopt);
    EXPECT_EQ(holding(-2 * twoToThe63rd).integer("key"), std::nullopt);
    EXPECT_EQ(holding(std::numeric_limits<double>::quiet_NaN()).integer("key"), std::nullopt);
    EXPECT_EQ(holding(std::numeric_limits<double>::infinity()).integer("key"), std::nullopt);
    EXPECT_EQ(holding(-std::numeric_limits<double>::infinity()).integer("key"), std::nullopt);
    EXPECT_EQ(holding(std::numeric_limits<double>::denorm_min()).integer("key"), std::nullopt);
}

TEST(MemoryDefaultsTest, ATextIsNeitherIntegerNorBoolean)
{
    for (const char* const text : {"35", "1", "0", "true", ""}) {
        EXPECT_EQ(holdingText(text).integer("key"), std::nullopt) << text;
        EXPECT_EQ(holdingText(text).boolean("key"), std::nullopt) << text;
        EXPECT_THAT(holdingText(text).text("key"), Optional(std::string(text)));
    }
}

TEST(MemoryDefaultsTest, BooleansAreTheIntegers0And1)
{
    EXPECT_THAT(holding(true).integer("key"), Optional(1));
    EXPECT_THAT(holding(false).integer("key"), Optional(0));
    EXPECT_THAT(holding(true).boolean("key"), Optional(true));
    EXPECT_THAT(holding(false).boolean("key"), Optional(false));
    EXPECT_THAT(holdingWhole(1).boolean("key"), Optional(true));
    EXPECT_THAT(holdingWhole(0).boolean("key"), Optional(false));
    EXPECT_THAT(holding(1.0).boolean("key"), Optional(true));
    EXPECT_THAT(holding(0.0).boolean("key"), Optional(false));
}

TEST(MemoryDefaultsTest, OtherNumbersAreNoBooleans)
{
    EXPECT_EQ(holdingWhole(2).boolean("key"), std::nullopt);
    EXPECT_EQ(holdingWhole(-1).boolean("key"), std::nullopt);
    EXPECT_EQ(holding(0.5).boolean("key"), std::nullopt);
    EXPECT_EQ(holding(std::numeric_limits<double>::quiet_NaN()).boolean("key"), std::nullopt);
}

TEST(MemoryDefaultsTest, OnlyATextIsAText)
{
    EXPECT_EQ(holdingWhole(1).text("key"), std::nullopt);
    EXPECT_EQ(holding(1.0).text("key"), std::nullopt);
    EXPECT_EQ(holding(true).text("key"), std::nullopt);
}

TEST(MemoryDefaultsTest, AWriteReplacesOneKeyAndKeepsTheOthers)
{
    MemoryDefaults defaults = holdingText("old");
    defaults.set("language", std::string("zh"));

    defaults.setInteger("key", 40);
    EXPECT_THAT(defaults.integer("key"), Optional(40));
    EXPECT_EQ(defaults.text("key"), std::nullopt);
    defaults.setBoolean("key", false);
    EXPECT_THAT(defaults.boolean("key"), Optional(false));

    EXPECT_THAT(defaults.text("language"), Optional(std::string("zh")));
}

} // namespace
} // namespace voltmere
