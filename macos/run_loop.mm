#include "macos/run_loop.h"

#import <AppKit/AppKit.h>

#include <dispatch/dispatch.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <utility>

namespace voltmere {

namespace {

/// The time since an arbitrary moment, with the time in which the machine slept: on macOS this
/// clock goes on then.
Seconds uptime()
{
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec);
}

/// An NSTimer stands still while the machine sleeps, so each wake sets it anew. It has no
/// tolerance: a tick of the daily check that came some seconds late could fall into the next
/// minute.
class SleepCountingTimer : public Timer {
public:
    /// An interval of zero makes it fire once.
    SleepCountingTimer(Seconds delay, Seconds interval, RunLoop::Action action)
        : interval(interval)
        , action(std::move(action))
        , due(uptime() + delay)
    {
        wakeObserver = [NSWorkspace.sharedWorkspace.notificationCenter
            addObserverForName:NSWorkspaceDidWakeNotification
                        object:nil
                         queue:nil
                    usingBlock:^(NSNotification*) { armAgain(); }];
        activity = [NSProcessInfo.processInfo
            beginActivityWithOptions:NSActivityUserInitiatedAllowingIdleSystemSleep
                              reason:@"A battery check or a reminder is due at a set time"];
        arm();
    }

    ~SleepCountingTimer() override
    {
        [timer invalidate];
        [NSWorkspace.sharedWorkspace.notificationCenter removeObserver:wakeObserver];
        [NSProcessInfo.processInfo endActivity:activity];
    }

    SleepCountingTimer(const SleepCountingTimer&) = delete;
    SleepCountingTimer& operator=(const SleepCountingTimer&) = delete;

private:
    void arm()
    {
        [timer invalidate];
        const Seconds rest = std::max(due - uptime(), Seconds::zero());
        timer = [NSTimer timerWithTimeInterval:rest.count()
                                       repeats:NO
                                         block:^(NSTimer*) { fire(); }];
        [NSRunLoop.mainRunLoop addTimer:timer forMode:NSRunLoopCommonModes];
    }

    void armAgain()
    {
        if (timer != nil) {
            arm();
        }
    }

    void fire()
    {
        timer = nil;
        if (interval > Seconds::zero()) {
            const double missed = std::floor((uptime() - due) / interval);
            due += interval * (std::max(missed, 0.0) + 1);
            arm();
        }
        const RunLoop::Action current = action; // the action may destroy this timer
        current();
    }

    Seconds interval;
    RunLoop::Action action;
    Seconds due;
    NSTimer* timer = nil;
    id<NSObject> wakeObserver;
    id<NSObject> activity;
};

} // namespace

int MacRunLoop::run()
{
    stopped = false;
    [NSApp run];
    while (!stopped) {
        @autoreleasepool {
            [NSRunLoop.mainRunLoop runMode:NSDefaultRunLoopMode beforeDate:NSDate.distantFuture];
        }
    }
    return exitStatus;
}

void MacRunLoop::stop(int status)
{
    stopped = true;
    exitStatus = status;
    // Both loops look only after an event, and a timer, which may be the caller, is none.
    if (NSApp == nil) {
        postToMain([] {});
        return;
    }
    [NSApp stop:nil];
    [NSApp postEvent:[NSEvent otherEventWithType:NSEventTypeApplicationDefined
                                        location:NSMakePoint(0, 0)
                                   modifierFlags:0
                                       timestamp:0
                                    windowNumber:0
                                         context:nil
                                         subtype:0
                                           data1:0
                                           data2:0]
             atStart:YES];
}

std::unique_ptr<Timer> MacRunLoop::scheduleOnce(Seconds delay, Action action)
{
    return std::make_unique<SleepCountingTimer>(delay, Seconds::zero(), std::move(action));
}

std::unique_ptr<Timer> MacRunLoop::scheduleRepeating(Seconds interval, Action action)
{
    return std::make_unique<SleepCountingTimer>(interval, interval, std::move(action));
}

void MacRunLoop::postLater(Seconds delay, Action action)
{
    const auto place = later.emplace(later.end());
    *place = scheduleOnce(delay, [this, place, action = std::move(action)] {
        const std::unique_ptr<Timer> fired = std::move(*place);
        later.erase(place);
        action();
    });
}

void MacRunLoop::postToMain(Action action)
{
    dispatch_async(dispatch_get_main_queue(), ^{ action(); });
}

void MacRunLoop::runInBackground(Action work)
{
    ++*running;
    const auto counted = running;
    dispatch_async(dispatch_get_global_queue(QOS_CLASS_UTILITY, 0), ^{
        work();
        --*counted;
    });
}

} // namespace voltmere
