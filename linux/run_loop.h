#pragma once

#include "app/platform.h"

#include <QObject>

#include <atomic>
#include <memory>

class QCoreApplication;

namespace voltmere {

/// The run loop of the Qt application. Makes an application without windows where none exists yet.
/// Belongs to the main thread. Its timers count the time in which the machine sleeps. A timer
/// is null where the system refuses one.
class QtRunLoop : public MainLoop {
public:
    QtRunLoop();
    ~QtRunLoop() override;

    int run() override;
    void stop(int status) override;

    std::unique_ptr<Timer> scheduleOnce(Seconds delay, Action action) override;
    std::unique_ptr<Timer> scheduleRepeating(Seconds interval, Action action) override;
    void postToMain(Action action) override;

    /// Each piece of work gets a thread of its own, which ends with it: readings are minutes apart,
    /// so idle threads would cost more than new ones. Where the system refuses a thread, the
    /// work is dropped; the next reading tries again.
    void runInBackground(Action work) override;

    bool isBusy() const override { return *running > 0; }

private:
    std::unique_ptr<QCoreApplication> application;
    QObject context;
    std::shared_ptr<std::atomic<int>> running = std::make_shared<std::atomic<int>>(0);
};

} // namespace voltmere
