#pragma once

#include "ports/time.h"

namespace voltmere {

/// A wall clock that stands where the test puts it.
class FakeClock : public Clock {
public:
    Instant now() const override { return present; }

    Instant present{};
};

} // namespace voltmere
