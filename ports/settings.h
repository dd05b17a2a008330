#pragma once

#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

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

/// The boolean that equals `number`: 0 is false, 1 is true; nothing for any other number.
inline std::optional<bool> exactBoolean(std::optional<std::int64_t> number)
{
    if (!number || (*number != 0 && *number != 1)) {
        return std::nullopt;
    }
    return *number == 1;
}

/// The user's settings: a typed key-value store that outlives the process.
///
/// A read yields nothing when the key is absent or its value does not convert exactly. A whole
/// number of any form and a boolean convert to an integer (true is 1); a boolean and the numbers 0
/// and 1 convert to a boolean; only a text converts to a text. A write keeps all other keys, and
/// later reads see it even where it cannot be saved. Belongs to one thread.
class DefaultsStore {
public:
    virtual ~DefaultsStore() = default;

    virtual std::optional<std::int64_t> integer(std::string_view key) const = 0;
    virtual std::optional<std::string> text(std::string_view key) const = 0;

    virtual std::optional<bool> boolean(std::string_view key) const
    {
        return exactBoolean(integer(key));
    }

    virtual void setInteger(std::string_view key, std::int64_t value) = 0;
    virtual void setBoolean(std::string_view key, bool value) = 0;
};

/// Whether a program may write the settings; a program that only reads them changes no file.
enum class SettingsUse { readAndWrite, readOnly };

} // namespace voltmere
