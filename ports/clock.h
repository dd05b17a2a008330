#pragma once

#include <chrono>

namespace voltmere {

/// A point in wall time, free of any time zone.
using Instant = std::chrono::system_clock::time_point;

/// Tells the present wall time. A user or a time server may set it back or forward at any moment.
class Clock {
public:
    virtual ~Clock() = default;

    virtual Instant now() const = 0;
};

} // namespace voltmere
