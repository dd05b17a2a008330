#pragma once

#include "ports/peripherals.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace voltmere {

/// Whether Unicode gives the character a numeric value: digits of any script, fractions, and
/// ideographs such as 五 (the property Numeric_Type of the Unicode Character Database).
bool isNumeric(char32_t scalar);

/// Reads the text that the registry tool prints for the HID event services: one entry for each
/// property block, in the order of the text, for blocks that name a product or a level. The time
/// is linear in the text. A text that is not UTF-8 has no entries.
std::vector<BatteryEntry> parseRegistry(std::string_view text);

/// The integer behind the first `"key" = ` in `text`. The longest run of numeric characters counts;
/// nothing when that run is not a decimal number of 64 bits. A later occurrence is never tried.
std::optional<std::int64_t> extractInt(std::string_view key, std::string_view text);

} // namespace voltmere
