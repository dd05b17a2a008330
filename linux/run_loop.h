#pragma once

#include "ports/time.h"

#include <QObject>

#include <atomic>
#include <list>
#include <memory>

namespace voltmere {

/// The run loop of a Qt application. Made and used on its main thread. Its timers count the time in
/// which the machine sleeps. A timer is null where the system refuses one.
class QtRunLoop : public RunLoop {
public:
    std::unique_ptr<Timer> scheduleOnce(Seconds delay, Action action) override;
    std::unique_ptr<Timer> scheduleRepeating(Seconds interval, Action action) override;
    void postLater(Seconds delay, Action action) override;
    void postToMain(Action action) override;

    /// Each piece of work gets a thread of its own, which ends with it: readings are minutes apart,
    /// so idle threads would cost more than new ones. Where no thread can be had, the work is
    /// dropped; the next reading tries again.
    void runInBackground(Action work) override;

    /// Whether background work is under way. It cannot be interrupted, so a process that ends
    /// meanwhile must end without destroying what the work uses.
    bool isBusy() const { return *running > 0; }

private:
    QObject context;
    std::list<std::unique_ptr<Timer>> later;
    std::shared_ptr<std::atomic<int>> running = std::make_shared<std::atomic<int>>(0);
};

} // namespace voltmere
