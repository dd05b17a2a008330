#pragma once

#include "platform/run_loop.h"
#include "platform/wake_schedule.h"

#include <QTimer>

#include <functional>
#include <limits>

namespace voltmere {

/// A timer over one of Qt's, which stands still while the machine sleeps: whether it is due is told
/// by another clock, which runs on. It looks at that clock after each of Qt's waits.
class ScheduledTimer : public Timer {
public:
    /// The time since any fixed moment.
    using Now = Seconds (*)();

    /// What Qt's timers can wait for at most.
    static constexpr Seconds longestWaitOfQt =
        std::chrono::milliseconds(std::numeric_limits<int>::max());

    /// With an interval of zero it fires once. It may be destroyed by its own action.
    ScheduledTimer(Now now, Seconds longestWait, Seconds delay, Seconds interval,
                   std::function<void()> action);

    /// Waits anew, by what the clock says now, as is right after a sleep. Fires nothing itself.
    void wait();

private:
    void fireIfDue();

    const Now now;
    const Seconds longestWait;
    WakeSchedule schedule;
    const std::function<void()> action;
    bool finished = false;
    QTimer timer;
};

} // namespace voltmere
