#pragma once

namespace voltmere {

/// What a desktop knows the program by: the name of its desktop entry, its icon in the theme and
/// its name on the session bus; on macOS the bundle's identifier.
inline constexpr const char* applicationId = "org.voltmere.Voltmere";

} // namespace voltmere
