#pragma once

/// How the process says how it went.
namespace voltmere::exitStatus {

inline constexpr int cannotRun = 1;
inline constexpr int wrongUsage = 2;

} // namespace voltmere::exitStatus
