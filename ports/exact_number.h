#pragma once

#include <cmath>
#include <cstdint>
#include <optional>

namespace voltmere {

/// The integer that equals `number`; nothing for a fraction or beyond 64 bits.
inline std::optional<std::int64_t> exactInteger(double number)
{
    constexpr double limit = 9223372036854775808.0; // 2 to the 63rd
    if (!(number >= -limit && number < limit) || std::trunc(number) != number) {
        return std::nullopt;
    }
    return static_cast<std::int64_t>(number);
}

/// The boolean that equals `number`: 0 is false, 1 is true, nothing else is either.
inline std::optional<bool> exactBoolean(std::optional<std::int64_t> number)
{
    if (!number || (*number != 0 && *number != 1)) {
        return std::nullopt;
    }
    return *number == 1;
}

} // namespace voltmere
