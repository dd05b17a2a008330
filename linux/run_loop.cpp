#include "linux/run_loop.h"

#include "posix/file_descriptor.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <QSocketNotifier>

#include <sys/timerfd.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <ctime>
#include <system_error>
#include <thread>
#include <utility>

namespace voltmere {

namespace {

timespec toTimespec(Seconds span)
{
    using namespace std::chrono;
    // Zero would disarm the timer, so the shortest delay is a nanosecond.
    const auto whole = std::max(duration_cast<nanoseconds>(span), nanoseconds(1));
    const auto wholeSeconds = floor<seconds>(whole);
    return {wholeSeconds.count(), (whole - wholeSeconds).count()};
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

private:
    void fire()
    {
        // After a sleep the count is above one: the periods that passed meanwhile count as one.
        std::uint64_t expirations{};
        if (::read(static_cast<int>(notifier.socket()), &expirations, sizeof expirations) !=
            sizeof expirations) {
            return;
        }
        const std::function<void()> current = action; // the action may destroy this timer
        current();
    }

    FileDescriptor descriptor;
    QSocketNotifier notifier;
    std::function<void()> action;
};

/// An interval of zero makes it fire once. Nothing where no file descriptor is left.
std::unique_ptr<Timer> makeTimer(Seconds delay, Seconds interval, std::function<void()> action)
{
    FileDescriptor timer(::timerfd_create(CLOCK_BOOTTIME, TFD_CLOEXEC | TFD_NONBLOCK));
    if (!timer) {
        std::perror("voltmere: a timer cannot be made");
        return nullptr;
    }
    return std::make_unique<BootTimer>(std::move(timer), delay, interval, std::move(action));
}

std::unique_ptr<QCoreApplication> makeApplication()
{
    // Qt keeps references to both.
    static int count = 1;
    static char name[] = "voltmere";
    static char* words[] = {name, nullptr};
    return QCoreApplication::instance() == nullptr
        ? std::make_unique<QCoreApplication>(count, words)
        : nullptr;
}

} // namespace

QtRunLoop::QtRunLoop()
    : application(makeApplication())
{
}

QtRunLoop::~QtRunLoop() = default;

int QtRunLoop::run()
{
    return QCoreApplication::exec();
}

void QtRunLoop::stop(int status)
{
    QCoreApplication::exit(status);
}

std::unique_ptr<Timer> QtRunLoop::scheduleOnce(Seconds delay, Action action)
{
    return makeTimer(delay, Seconds::zero(), std::move(action));
}

std::unique_ptr<Timer> QtRunLoop::scheduleRepeating(Seconds interval, Action action)
{
    return makeTimer(interval, interval, std::move(action));
}

void QtRunLoop::postToMain(Action action)
{
    QMetaObject::invokeMethod(&context, std::move(action), Qt::QueuedConnection);
}

void QtRunLoop::runInBackground(Action work)
{
    ++*running;
    try {
        std::thread([work = std::move(work), running = running] {
            work();
            --*running;
        }).detach();
    } catch (const std::system_error&) {
        --*running;
    }
}

} // namespace voltmere
