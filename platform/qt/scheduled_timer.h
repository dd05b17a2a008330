#pragma once

#include "platform/run_loop.h"
#include "platform/wake_schedule.h"

#include <QTimer>

#include <functional>
#include <limits>

namespace voltmere {

/// A timer over one of Qt's, which stands still while the machine sleeps: what it waits for is told
/// by another clock, which runs on. It looks at that clock when it is told to, and at the latest
/// after its longest wait.
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

    /// Looks at the clock, as after a sleep.
    void look();

private:
    void wait(Seconds remaining);

    const Now now;
    const Seconds longestWait;
    WakeSchedule schedule;
    const std::function<void()> action;
    bool finished = false;
    QTimer timer;
};

} // namespace voltmere
