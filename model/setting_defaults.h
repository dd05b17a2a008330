#pragma once

#include <cstdint>

namespace voltmere {

/// The settings of a user who never changed any.
inline constexpr std::int64_t defaultThreshold = 20; ///< percent
inline constexpr std::int64_t defaultCheckHour = 22;
inline constexpr std::int64_t defaultCheckMinute = 30;
inline constexpr bool defaultEnabled = true;
inline constexpr bool defaultInstantEnabled = true;

} // namespace voltmere
