#pragma once

#include "linux/reminder_store.h"
#include "ports/log.h"
#include "ports/time.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace voltmere {

/// The notifications that are to be shown later. They outlive the program in their store: one whose
/// time came meanwhile, by the wall clock, falls due at the next start. While the program runs, a
/// clock that is set moves none of them.
class PendingReminders {
public:
    using Due = std::function<void(const NotificationRequest&)>;

    /// Takes up what the store holds. `due` is called once for each, from the run loop, and the
    /// reminder stays in the store until it is forgotten.
    PendingReminders(ReminderStore reminderStore, RunLoop& runLoop, const Clock& clock,
                     SystemLog& log, Due due);

    /// A request with the identifier of a pending one replaces it. Its delay, none counting as
    /// zero, is at most `longestReminderDelay`.
    void add(NotificationRequest request);

    /// Takes one away, due or not. Does nothing when there is none of that identifier.
    void forget(const std::string& identifier);

private:
    struct Pending {
        Reminder reminder;
        std::unique_ptr<Timer> timer;
    };

    void arm(Reminder reminder, Seconds remaining);
    bool drop(const std::string& identifier);
    void save();

    ReminderStore store;
    RunLoop& runLoop;
    const Clock& clock;
    OnceLog log;
    const Due due;
    std::vector<Pending> pending;
};

} // namespace voltmere
