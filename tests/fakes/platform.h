#pragma once

#include "app/platform.h"
#include "fakes/fake_clock.h"
#include "fakes/fake_run_loop.h"
#include "fakes/fake_services.h"

namespace voltmere {

/// A main run loop in virtual time, which a test ends by what it does while the loop runs.
class FakeMainLoop : public MainLoop {
public:
    std::unique_ptr<Timer> scheduleOnce(Seconds delay, Action action) override
    {
        return loop.scheduleOnce(delay, std::move(action));
    }

    std::unique_ptr<Timer> scheduleRepeating(Seconds interval, Action action) override
    {
        return loop.scheduleRepeating(interval, std::move(action));
    }

    void postToMain(Action action) override { loop.postToMain(std::move(action)); }
    void runInBackground(Action work) override { loop.runInBackground(std::move(work)); }

    int run() override
    {
        whileRunning();
        return status;
    }

    void stop(int newStatus) override { status = newStatus; }
    bool isBusy() const override { return false; }

    FakeClock clock;
    FakeRunLoop loop{clock};
    std::function<void()> whileRunning = [] {};
    int status = -1;
};

/// What the functions of app/platform.h made last, for a test to look at. A test makes one for
/// itself; there is one at a time.
struct FakePlatform {
    FakePlatform();
    ~FakePlatform();
    FakePlatform(const FakePlatform&) = delete;
    FakePlatform& operator=(const FakePlatform&) = delete;

    std::vector<std::string> logged;
    std::vector<SettingsUse> settingsOpened;
    int loginItemServices = 0;
    int notificationCentres = 0;
};

} // namespace voltmere
