#pragma once

namespace voltmere {

/// Whether Unicode gives the character a numeric value: digits of any script, fractions, and
/// ideographs such as 五 (the property Numeric_Type of the Unicode Character Database).
bool isNumeric(char32_t scalar);

} // namespace voltmere
