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
    QObject::connect(&timer, &QTimer::timeout, &timer, [this] { look(); });
    wait(delay);
}

void ScheduledTimer::look()
{
    const Seconds present = now();
    if (finished) {
        return;
    }
    if (!schedule.isDue(present)) {
        wait(schedule.remaining(present));
        return;
    }
    finished = !schedule.repeats();
    if (!finished) {
        schedule.advancePast(present);
        wait(schedule.remaining(present));
    }
    const std::function<void()> current = action; // the action may destroy this timer
    current();
}

void ScheduledTimer::wait(Seconds remaining)
{
    timer.start(std::chrono::ceil<std::chrono::milliseconds>(std::min(remaining, longestWait)));
}

} // namespace voltmere
