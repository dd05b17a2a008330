#pragma once

#include "ports/clock.h"

namespace voltmere {

/// The system's wall clock.
class SystemClock : public Clock {
public:
    Instant now() const override { return std::chrono::system_clock::now(); }
};

} // namespace voltmere
