#pragma once

#include "ports/seconds.h"

#include <functional>
#include <memory>

namespace voltmere {

/// A scheduled timer. Destroying it cancels it.
class Timer {
public:
    virtual ~Timer() = default;
};

/// The main thread's event loop and the threads beside it.
///
/// Timers count the time during which the machine sleeps: one that fell due meanwhile fires right
/// after, once. Everything but `postToMain` belongs to the main thread.
class RunLoop {
public:
    using Action = std::function<void()>;

    virtual ~RunLoop() = default;

    /// Runs `action` once after `delay`, unless the timer is destroyed before.
    virtual std::unique_ptr<Timer> scheduleOnce(Seconds delay, Action action) = 0;

    /// Runs `action` after each `interval`, the first time one interval from now, until the timer
    /// is destroyed. Missed periods are not made up for.
    virtual std::unique_ptr<Timer> scheduleRepeating(Seconds interval, Action action) = 0;

    /// Runs `action` once after `delay`, without a handle to take that back.
    virtual void postLater(Seconds delay, Action action) = 0;

    /// Runs `action` on the main thread soon. May be called from any thread.
    virtual void postToMain(Action action) = 0;

    /// Runs `work` on a thread of its own, so that work which hangs holds no other work up.
    virtual void runInBackground(Action work) = 0;
};

} // namespace voltmere
