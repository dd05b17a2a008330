#include "platform/qt/wake_timer.h"

#include "platform/macos/wake_observer.h"
#include "platform/qt/scheduled_timer.h"

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

/// Each wake asks anew how long to wait.
class WakeTimer : public Timer {
public:
    WakeTimer(Seconds delay, Seconds interval, std::function<void()> action)
        : timer(&continuousTime, ScheduledTimer::longestWaitOfQt, delay, interval,
                std::move(action))
        , wake([this] { timer.wait(); })
    {
    }

private:
    ScheduledTimer timer;
    WakeObserver wake;
};

} // namespace

std::unique_ptr<Timer> makeWakeTimer(Seconds delay, Seconds interval, std::function<void()> action)
{
    return std::make_unique<WakeTimer>(delay, interval, std::move(action));
}

} // namespace voltmere
