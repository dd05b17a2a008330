#pragma once

#include <string_view>

namespace voltmere {

/// How the process says how it went.
namespace exitStatus {
inline constexpr int cannotRun = 1;
inline constexpr int wrongUsage = 2;
} // namespace exitStatus

/// Prints an answer on standard output, and says on standard error when that fails. Returns the
/// exit status that fits: 0, or 1 when not all of it was written.
int printAnswer(std::string_view text);

} // namespace voltmere
