#include "platform/qt/scheduled_timer.h"

#include <algorithm>
#include <utility>

namespace voltmere {

ScheduledTimer::ScheduledTimer(Now now, Seconds longestWait, Seconds delay, Seconds interval,
                               std::function<void()> action)
    : now(now)
    , longestWait(longestWait)
    , schedule(now(), delay, interval)
    , action(std::move(action))
{
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, &timer, [this] { fireIfDue(); });
    wait();
}

void ScheduledTimer::wait()
{
    if (!finished) {
        const Seconds span = std::min(schedule.remaining(now()), longestWait);
        timer.start(std::chrono::ceil<std::chrono::milliseconds>(span));
    }
}

void ScheduledTimer::fireIfDue()
{
    const Seconds present = now();
    if (!schedule.isDue(present)) {
        wait();
        return;
    }
    finished = !schedule.repeats();
    if (!finished) {
        schedule.advancePast(present);
        wait();
    }
    const std::function<void()> current = action; // the action may destroy this timer
    current();
}

} // namespace voltmere
