#pragma once

#include <chrono>

namespace voltmere {

/// A span of time as timers take it, in seconds.
using Seconds = std::chrono::duration<double>;

} // namespace voltmere
