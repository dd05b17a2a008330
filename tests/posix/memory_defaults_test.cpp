#include "posix/memory_defaults.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <limits>
#include <vector>

namespace voltmere {
namespace {

using testing::Optional;
using Value = MemoryDefaults::Value;

constexpr double twoToThe63rd = 9223372036854775808.0;
using Real = std::numeric_limits<double>;

/// A value, and what it converts to.
struct Conversion {
    Value value;
    std::optional<std::int64_t> integer;
    std::optional<bool> boolean;
};

TEST(MemoryDefaultsTest, AValueConvertsExactlyOrNotAtAll)
{
    const std::vector<Conversion> conversions{
        {std::int64_t{1}, 1, true},
        {std::int64_t{0}, 0, false},
        {std::int64_t{2}, 2, {}},
        {std::int64_t{-1}, -1, {}},
        {INT64_MAX, INT64_MAX, {}},
        {INT64_MIN, INT64_MIN, {}},
        {1.0, 1, true},
        {-0.0, 0, false},
        {35.0, 35, {}},
        {-twoToThe63rd, INT64_MIN, {}},
        {9007199254740992.0, 9007199254740992, {}},
        {true, 1, true},
        {false, 0, false},
        {0.5, {}, {}},
        {twoToThe63rd, {}, {}},
        {-2 * twoToThe63rd, {}, {}},
        {Real::quiet_NaN(), {}, {}},
        {Real::infinity(), {}, {}},
        {-Real::infinity(), {}, {}},
        {Real::denorm_min(), {}, {}},
    };
    for (const Conversion& conversion : conversions) {
        SCOPED_TRACE(testing::PrintToString(conversion.value));
        MemoryDefaults defaults;
        defaults.set("key", conversion.value);
        EXPECT_EQ(defaults.integer("key"), conversion.integer);
        EXPECT_EQ(defaults.boolean("key"), conversion.boolean);
        EXPECT_EQ(defaults.text("key"), std::nullopt);
    }
}

TEST(MemoryDefaultsTest, ATextIsATextOnly)
{
    MemoryDefaults defaults;
    for (const char* const text : {"35", "1", "0", "true", ""}) {
        defaults.set("key", std::string(text));
        EXPECT_EQ(defaults.integer("key"), std::nullopt) << text;
        EXPECT_EQ(defaults.boolean("key"), std::nullopt) << text;
        EXPECT_THAT(defaults.text("key"), Optional(std::string(text)));
    }
}

TEST(MemoryDefaultsTest, AWriteReplacesOneKeyAndKeepsTheOthers)
{
    MemoryDefaults defaults;
    EXPECT_EQ(defaults.integer("key"), std::nullopt);
    EXPECT_EQ(defaults.boolean("key"), std::nullopt);
    EXPECT_EQ(defaults.text("key"), std::nullopt);
    defaults.set("key", std::string("old"));
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
