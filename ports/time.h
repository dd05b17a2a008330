#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace voltmere {

/// A span of time as timers take it, in seconds.
using Seconds = std::chrono::duration<double>;

/// A point in wall time, free of any time zone.
using Instant = std::chrono::system_clock::time_point;

/// Tells the present wall time. A user or a time server may set it back or forward at any moment.
class Clock {
public:
    virtual ~Clock() = default;

    virtual Instant now() const = 0;
};

/// An instant as the user's calendar and wall clock show it.
struct LocalTime {
    int year = 1970;
    int month = 1;  ///< 1 to 12
    int day = 1;    ///< 1 to 31
    int hour = 0;   ///< 0 to 23
    int minute = 0; ///< 0 to 59
};

/// The user's calendar in the user's time zone, which may change at any moment.
class Calendar {
public:
    virtual ~Calendar() = default;

    virtual LocalTime localTime(Instant instant) const = 0;

    /// The instant at which the clock shows `time`, at second 0. A time that summer time skips
    /// moves by the skipped span; of a time that comes twice the first counts. Nothing when the
    /// calendar has no such instant.
    virtual std::optional<Instant> instantOf(const LocalTime& time) const = 0;

    /// The same clock time on the next day, by the rule of `instantOf`; whole seconds stay. Nothing
    /// when the calendar has no such instant.
    virtual std::optional<Instant> addingOneDay(Instant instant) const = 0;
};

/// A scheduled timer. Destroying it cancels it.
class Timer {
public:
    virtual ~Timer() = default;
};

/// The main thread's event loop and the threads beside it.
///
/// Timers count the time during which the machine sleeps: a timer that fell due meanwhile fires
/// once right after the sleep. A delay of zero or less is due at once; an interval is above zero.
/// Where the system refuses a timer, the result is null and the action never runs; where it refuses
/// a thread, the work is dropped. Everything but `postToMain` belongs to the main thread.
class RunLoop {
public:
    using Action = std::function<void()>;

    virtual ~RunLoop() = default;

    /// Runs `action` once after `delay`, unless the timer is destroyed before.
    virtual std::unique_ptr<Timer> scheduleOnce(Seconds delay, Action action) = 0;

    /// Runs `action` after each `interval`, the first time one interval from now, until the timer
    /// is destroyed. Missed periods are not made up for.
    virtual std::unique_ptr<Timer> scheduleRepeating(Seconds interval, Action action) = 0;

    /// Runs `action` on the main thread soon. May be called from any thread.
    virtual void postToMain(Action action) = 0;

    /// Runs `work` on a thread of its own, so that hanging work delays no other work.
    virtual void runInBackground(Action work) = 0;
};

} // namespace voltmere
