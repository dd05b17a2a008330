#pragma once

#include <functional>
#include <memory>

namespace voltmere {

/// Hears, on the main thread, that the machine has woken from sleep.
class WakeObserver {
public:
    explicit WakeObserver(std::function<void()> action);
    ~WakeObserver();
    WakeObserver(const WakeObserver&) = delete;
    WakeObserver& operator=(const WakeObserver&) = delete;

private:
    struct Cocoa;
    std::unique_ptr<Cocoa> cocoa;
};

} // namespace voltmere
