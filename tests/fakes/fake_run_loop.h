#pragma once

#include "fakes/fake_clock.h"
#include "ports/time.h"

#include <algorithm>
#include <deque>
#include <list>
#include <memory>
#include <utility>
#include <vector>

namespace voltmere {

/// A run loop in virtual time: `advance` moves the clock from one due timer to the next.
///
/// Work for the background waits in a queue and is done when time passes or the test says so; its
/// results then reach the main thread in the order in which the work was finished.
class FakeRunLoop : public RunLoop {
public:
    explicit FakeRunLoop(FakeClock& clock)
        : clock(clock)
    {
    }

    std::unique_ptr<Timer> scheduleOnce(Seconds delay, Action action) override
    {
        return schedule(delay, Seconds::zero(), std::move(action));
    }

    std::unique_ptr<Timer> scheduleRepeating(Seconds interval, Action action) override
    {
        return schedule(interval, interval, std::move(action));
    }

    void postToMain(Action action) override { posted.push_back(std::move(action)); }

    void runInBackground(Action work) override { background.push_back(std::move(work)); }

    /// Does the work that waits for the background, in order, and what it posts.
    void settle()
    {
        while (!background.empty() || !posted.empty()) {
            if (!background.empty()) {
                takeFirst(background)();
            } else {
                takeFirst(posted)();
            }
        }
    }

    /// Lets time pass while the machine is awake.
    void advance(Seconds span)
    {
        settle();
        const Seconds end = uptime + span;
        while (const Entry* due = nextDue(end)) {
            moveTo(due->due);
            fire(due->number);
            settle();
        }
        moveTo(end);
    }

    /// Lets time pass while the machine sleeps: what falls due meanwhile fires at the end, once.
    void sleepFor(Seconds span)
    {
        moveTo(uptime + span);
        std::vector<int> dueNumbers;
        for (const Entry& entry : *entries) {
            if (entry.due <= uptime) {
                dueNumbers.push_back(entry.number);
            }
        }
        for (const int number : dueNumbers) {
            fire(number);
            settle();
        }
    }

    std::size_t timerCount() const { return entries->size(); }

    FakeClock& clock;
    std::deque<Action> background; ///< work that waits; a test may take it out of order
    std::deque<Action> posted;
    Seconds uptime{0}; ///< time since the start, sleep included; no clock change moves it

private:
    struct Entry {
        int number;
        Seconds due;
        Seconds interval; ///< zero for a timer that fires once
        Action action;
    };

    using Entries = std::list<Entry>;

    class Handle : public Timer {
    public:
        Handle(std::shared_ptr<Entries> entries, int number)
            : entries(std::move(entries))
            , number(number)
        {
        }

        ~Handle() override
        {
            entries->remove_if([this](const Entry& entry) { return entry.number == number; });
        }

    private:
        std::shared_ptr<Entries> entries;
        int number;
    };

    std::unique_ptr<Timer> schedule(Seconds delay, Seconds interval, Action action)
    {
        entries->push_back({nextNumber, uptime + delay, interval, std::move(action)});
        return std::make_unique<Handle>(entries, nextNumber++);
    }

    const Entry* nextDue(Seconds end) const
    {
        const Entry* next = nullptr;
        for (const Entry& entry : *entries) {
            if (entry.due <= end && (next == nullptr || entry.due < next->due)) {
                next = &entry;
            }
        }
        return next;
    }

    void fire(int number)
    {
        const auto found =
            std::find_if(entries->begin(), entries->end(),
                         [number](const Entry& entry) { return entry.number == number; });
        if (found == entries->end()) {
            return;
        }
        const Action action = found->action;
        if (found->interval == Seconds::zero()) {
            entries->erase(found);
        } else {
            while (found->due <= uptime) {
                found->due += found->interval;
            }
        }
        action();
    }

    void moveTo(Seconds time)
    {
        // Both ends are rounded, so that no error adds up over many steps.
        clock.present += std::chrono::round<Instant::duration>(time) -
            std::chrono::round<Instant::duration>(uptime);
        uptime = time;
    }

    static Action takeFirst(std::deque<Action>& queue)
    {
        Action action = std::move(queue.front());
        queue.pop_front();
        return action;
    }

    std::shared_ptr<Entries> entries = std::make_shared<Entries>();
    int nextNumber = 0;
};

} // namespace voltmere
