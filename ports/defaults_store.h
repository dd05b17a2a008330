#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace voltmere {

/// The user's settings: a typed key-value store that outlives the process.
///
/// A read yields nothing when the key is absent or holds a value that does not convert exactly: a
/// whole number of any form and a boolean are integers (true is 1); a boolean and the numbers 0 and
/// 1 are booleans; only a text is a text. A write keeps every key that it does not name.
class DefaultsStore {
public:
    virtual ~DefaultsStore() = default;

    virtual std::optional<std::int64_t> integer(std::string_view key) const = 0;
    virtual std::optional<bool> boolean(std::string_view key) const = 0;
    virtual std::optional<std::string> text(std::string_view key) const = 0;

    virtual void setInteger(std::string_view key, std::int64_t value) = 0;
    virtual void setBoolean(std::string_view key, bool value) = 0;
};

} // namespace voltmere
