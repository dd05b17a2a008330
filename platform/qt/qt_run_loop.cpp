#include "platform/qt/qt_run_loop.h"

#include "platform/qt/thread_class.h"
#include "platform/qt/wake_timer.h"

#include <QMetaObject>

#include <system_error>
#include <thread>
#include <utility>

namespace voltmere {

std::unique_ptr<Timer> QtRunLoop::scheduleOnce(Seconds delay, Action action)
{
    return makeWakeTimer(delay, Seconds::zero(), std::move(action));
}

std::unique_ptr<Timer> QtRunLoop::scheduleRepeating(Seconds interval, Action action)
{
    return makeWakeTimer(interval, interval, std::move(action));
}

void QtRunLoop::postLater(Seconds delay, Action action)
{
    const auto place = later.emplace(later.end());
    *place = scheduleOnce(delay, [this, place, action = std::move(action)] {
        const std::unique_ptr<Timer> fired = std::move(*place);
        later.erase(place);
        action();
    });
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
            becomeUtilityThread();
            work();
            --*running;
        }).detach();
    } catch (const std::system_error&) {
        --*running;
    }
}

} // namespace voltmere
