#include "platform/qt/wake_timer.h"

#include "platform/macos/wake_observer.h"
#include "platform/macos/wake_schedule.h"

#include <QTimer>

#include <algorithm>
#include <limits>
#include <time.h>
#include <utility>

namespace voltmere {

namespace {

/// Time since the machine started, its sleep included. Source: clock_gettime(3) of macOS.
Seconds continuousTime()
{
    timespec time{};
    ::clock_gettime(CLOCK_MONOTONIC_RAW, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

/// Qt's timers stand still while the machine sleeps, so each wake asks anew how long to wait.
class WakeTimer : public Timer {
public:
    WakeTimer(Seconds delay, Seconds interval, std::function<void()> action)
        : schedule(continuousTime(), delay, interval)
        , action(std::move(action))
        , wake([this] { wait(); })
    {
        timer.setSingleShot(true);
        timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&timer, &QTimer::timeout, &timer, [this] { fireIfDue(); });
        wait();
    }

private:
    void wait()
    {
        if (finished) {
            return;
        }
        using std::chrono::milliseconds;
        const auto whole = std::chrono::ceil<milliseconds>(schedule.remaining(continuousTime()));
        constexpr milliseconds longest{std::numeric_limits<int>::max()};
        timer.start(std::min(whole, longest));
    }

    void fireIfDue()
    {
        const Seconds now = continuousTime();
        if (!schedule.isDue(now)) {
            wait();
            return;
        }
        finished = !schedule.repeats();
        if (!finished) {
            schedule.advancePast(now);
            wait();
        }
        const std::function<void()> current = action; // the action may destroy this timer
        current();
    }

    WakeSchedule schedule;
    std::function<void()> action;
    bool finished = false;
    QTimer timer;
    WakeObserver wake;
};

} // namespace

std::unique_ptr<Timer> makeWakeTimer(Seconds delay, Seconds interval, std::function<void()> action)
{
    return std::make_unique<WakeTimer>(delay, interval, std::move(action));
}

} // namespace voltmere
