#include "app/platform.h"

#import <AppKit/AppKit.h>

#include <dispatch/dispatch.h>

#include <atomic>
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
/// minute. While it is scheduled, the system does not put the program to nap (App Nap), as it does
/// with programs that show no window: the daily check would miss its minute.
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
                    usingBlock:^(NSNotification*) {
                        if (timer != nil) { // else it has fired
                            arm();
                        }
                    }];
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

private:
    void arm()
    {
        [timer invalidate];
        timer = [NSTimer timerWithTimeInterval:(due - uptime()).count() // at once where it is past
                                       repeats:NO
                                         block:^(NSTimer*) { fire(); }];
        [NSRunLoop.mainRunLoop addTimer:timer forMode:NSRunLoopCommonModes];
    }

    void fire()
    {
        timer = nil;
        if (interval > Seconds::zero()) {
            const Seconds now = uptime();
            do {
                due += interval;
            } while (due <= now);
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

/// The main run loop, and the application's own one where an application object exists. Its timers
/// also fire while a menu is open or a control tracks the mouse, and outlive it.
class MacRunLoop : public MainLoop {
public:
    int run() override
    {
        stopped = false;
        [NSApp run];
        while (!stopped) {
            @autoreleasepool {
                [NSRunLoop.mainRunLoop runMode:NSDefaultRunLoopMode
                                    beforeDate:NSDate.distantFuture];
            }
        }
        return exitStatus;
    }

    void stop(int status) override
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

    bool isBusy() const override { return *running > 0; }

    std::unique_ptr<Timer> scheduleOnce(Seconds delay, Action action) override
    {
        return std::make_unique<SleepCountingTimer>(delay, Seconds::zero(), std::move(action));
    }

    std::unique_ptr<Timer> scheduleRepeating(Seconds interval, Action action) override
    {
        return std::make_unique<SleepCountingTimer>(interval, interval, std::move(action));
    }

    void postToMain(Action action) override
    {
        dispatch_async(dispatch_get_main_queue(), ^{ action(); });
    }

    void runInBackground(Action work) override
    {
        ++*running;
        const auto counted = running;
        dispatch_async(dispatch_get_global_queue(QOS_CLASS_UTILITY, 0), ^{
            work();
            --*counted;
        });
    }

private:
    bool stopped = false;
    int exitStatus = 0;
    std::shared_ptr<std::atomic<int>> running = std::make_shared<std::atomic<int>>(0);
};

} // namespace

std::unique_ptr<MainLoop> makeMainLoop()
{
    return std::make_unique<MacRunLoop>();
}

} // namespace voltmere
