#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace voltmere::reference {

/// The value of the first line `key=value` of a uevent.
std::optional<std::string> lineValue(const std::string& uevent, const std::string& key);

/// A hexadecimal number without a prefix that fits 64 bits with a sign.
std::optional<std::int64_t> hexadecimal(const std::string& text);

} // namespace voltmere::reference
