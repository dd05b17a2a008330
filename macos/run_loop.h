#pragma once

#include "app/platform.h"

#include <atomic>
#include <list>
#include <memory>

namespace voltmere {

/// The main run loop, and the application's own one where an application object exists. Its timers
/// also fire while a menu is open or a control tracks the mouse. While a timer is scheduled, the
/// system does not put the program to nap (App Nap), as it does with programs that show no window:
/// the daily check would miss its minute.
class MacRunLoop : public MainLoop {
public:
    int run() override;
    void stop(int status) override;
    bool isBusy() const override { return *running > 0; }

    std::unique_ptr<Timer> scheduleOnce(Seconds delay, Action action) override;
    std::unique_ptr<Timer> scheduleRepeating(Seconds interval, Action action) override;
    void postLater(Seconds delay, Action action) override;
    void postToMain(Action action) override;
    void runInBackground(Action work) override;

private:
    bool stopped = false;
    int exitStatus = 0;
    std::list<std::unique_ptr<Timer>> later;
    std::shared_ptr<std::atomic<int>> running = std::make_shared<std::atomic<int>>(0);
};

} // namespace voltmere
