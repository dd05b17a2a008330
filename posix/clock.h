#pragma once

#include "ports/time.h"

namespace voltmere {

/// The system's wall clock.
class SystemClock : public Clock {
public:
    Instant now() const override { return std::chrono::system_clock::now(); }
};

} // namespace voltmere
