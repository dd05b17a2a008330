#include "devices/numeric_character.h"

#include "devices/unicode_tables.h"

#include <algorithm>

namespace voltmere {

namespace {

template<std::size_t size>
bool contains(const std::array<ScalarRange, size>& ranges, char32_t scalar)
{
    const auto after = std::upper_bound(
        ranges.begin(), ranges.end(), scalar,
        [](char32_t value, const ScalarRange& range) { return value < range.first; });
    return after != ranges.begin() && scalar <= std::prev(after)->last;
}

} // namespace

bool isNumeric(char32_t scalar)
{
    return contains(numericRanges, scalar);
}

bool extendsCharacter(char32_t scalar)
{
    return contains(extendingRanges, scalar);
}

} // namespace voltmere
