#include "linux/pending_reminders.h"

#include <algorithm>
#include <utility>

namespace voltmere {

namespace {

/// A delay that timers can count; what is no number is no delay.
Seconds usableDelay(Seconds delay)
{
    return delay > Seconds::zero() ? std::min(delay, longestReminderDelay) : Seconds::zero();
}

} // namespace

PendingReminders::PendingReminders(ReminderStore reminderStore, RunLoop& runLoop,
                                   const Clock& clock, SystemLog& log, Due due)
    : store(std::move(reminderStore))
    , runLoop(runLoop)
    , clock(clock)
    , log(log)
    , due(std::move(due))
{
    for (Reminder& reminder : store.load()) {
        // A clock that was set back makes nobody wait for longer than they asked for.
        const Seconds asked = reminder.request.delay.value_or(Seconds::zero());
        const Seconds remaining =
            std::clamp(Seconds(reminder.due - clock.now()), Seconds::zero(), asked);
        arm(std::move(reminder), remaining);
    }
}

void PendingReminders::add(NotificationRequest request)
{
    drop(request.identifier);
    if (pending.size() == mostReminders) {
        log.report("too many reminders are pending, so another one is not taken");
        return;
    }
    const Seconds delay = usableDelay(request.delay.value_or(Seconds::zero()));
    request.delay = delay;
    const Instant dueTime = clock.now() + std::chrono::duration_cast<Instant::duration>(delay);
    arm({std::move(request), dueTime}, delay);
    save();
}

void PendingReminders::forget(const std::string& identifier)
{
    if (drop(identifier)) {
        save();
    }
}

void PendingReminders::arm(Reminder reminder, Seconds remaining)
{
    auto timer =
        runLoop.scheduleOnce(remaining, [this, request = reminder.request] { due(request); });
    pending.push_back({std::move(reminder), std::move(timer)});
}

bool PendingReminders::drop(const std::string& identifier)
{
    return std::erase_if(pending, [&](const Pending& entry) {
               return entry.reminder.request.identifier == identifier;
           }) > 0;
}

void PendingReminders::save()
{
    std::vector<Reminder> reminders;
    for (const Pending& entry : pending) {
        reminders.push_back(entry.reminder);
    }
    store.save(reminders);
}

} // namespace voltmere
