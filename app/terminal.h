#pragma once

#include <string_view>

namespace voltmere {

/// The exit status of the process.
namespace exitStatus {
inline constexpr int cannotRun = 1;
inline constexpr int wrongUsage = 2;
} // namespace exitStatus

/// Prints an answer on standard output. Returns 0, or reports a failed write on standard error and
/// returns 1.
int printAnswer(std::string_view text);

} // namespace voltmere
