#include "platform/qt/wake_timer.h"

#include "platform/posix/file_descriptor.h"
#include "platform/qt/scheduled_timer.h"

#include <QSocketNotifier>

#include <sys/timerfd.h>

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <utility>

namespace voltmere {

namespace {

timespec toTimespec(Seconds span)
{
    using namespace std::chrono;
    // Zero would disarm the timer, so what is due at once is due after a nanosecond.
    const auto whole = std::max(duration_cast<nanoseconds>(span), nanoseconds(1));
    const auto wholeSeconds = floor<seconds>(whole);
    return {wholeSeconds.count(), (whole - wholeSeconds).count()};
}

Seconds bootTime()
{
    timespec time{};
    ::clock_gettime(CLOCK_BOOTTIME, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

/// CLOCK_BOOTTIME counts the time in which the machine is suspended, unlike CLOCK_MONOTONIC.
class BootTimer : public Timer {
public:
    BootTimer(FileDescriptor timer, Seconds delay, Seconds interval, std::function<void()> action)
        : descriptor(std::move(timer))
        , notifier(descriptor.get(), QSocketNotifier::Read)
        , action(std::move(action))
    {
        itimerspec schedule{};
        schedule.it_value = toTimespec(delay);
        if (interval > Seconds::zero()) {
            schedule.it_interval = toTimespec(interval);
        }
        ::timerfd_settime(descriptor.get(), 0, &schedule, nullptr);
        QObject::connect(&notifier, &QSocketNotifier::activated, &notifier, [this] { fire(); });
    }

    BootTimer(const BootTimer&) = delete;
    BootTimer& operator=(const BootTimer&) = delete;

    ~BootTimer() override { notifier.setEnabled(false); }

private:
    void fire()
    {
        // After a sleep the count is above one: the periods that passed meanwhile count as one.
        std::uint64_t expirations = 0;
        if (::read(descriptor.get(), &expirations, sizeof expirations) != sizeof expirations) {
            return;
        }
        const std::function<void()> current = action; // the action may destroy this timer
        current();
    }

    FileDescriptor descriptor;
    QSocketNotifier notifier;
    std::function<void()> action;
};

} // namespace

std::unique_ptr<Timer> makeWakeTimer(Seconds delay, Seconds interval, std::function<void()> action)
{
    FileDescriptor timer(::timerfd_create(CLOCK_BOOTTIME, TFD_CLOEXEC | TFD_NONBLOCK));
    if (!timer) {
        // No descriptor is left. A timer of Qt's needs none, but nothing tells it of a sleep.
        return std::make_unique<ScheduledTimer>(&bootTime, Seconds(60), delay, interval,
                                                std::move(action));
    }
    return std::make_unique<BootTimer>(std::move(timer), delay, interval, std::move(action));
}

} // namespace voltmere
