#pragma once

#include "platform/seconds.h"

#include <algorithm>
#include <cmath>

namespace voltmere {

/// When a timer is due, on a clock that runs on while the machine sleeps. With an interval of zero
/// it is due once.
class WakeSchedule {
public:
    WakeSchedule(Seconds now, Seconds delay, Seconds interval)
        : due(now + delay)
        , interval(interval)
    {
    }

    bool isDue(Seconds now) const { return now >= due; }

    /// How long to wait from `now`; zero when it is due.
    Seconds remaining(Seconds now) const { return std::max(due - now, Seconds::zero()); }

    bool repeats() const { return interval > Seconds::zero(); }

    /// Moves a repeating schedule past `now` in whole intervals: missed periods count as one.
    void advancePast(Seconds now)
    {
        due += interval * (std::floor(std::max(now - due, Seconds::zero()) / interval) + 1);
    }

private:
    Seconds due;
    Seconds interval;
};

} // namespace voltmere
