#pragma once

#include <functional>
#include <list>
#include <memory>
#include <utility>

namespace voltmere {

/// Keeps one observer registered for as long as it lives.
using Subscription = std::shared_ptr<void>;

/// Tells observers that something is about to change. Belongs to the main thread.
class ChangeAnnouncer {
public:
    using Observer = std::function<void()>;

    /// Calls `observer` before each change, until the subscription is gone.
    Subscription subscribe(Observer observer)
    {
        auto kept = std::make_shared<Observer>(std::move(observer));
        observers.push_back(kept);
        return kept;
    }

    void announce()
    {
        observers.remove_if([](const auto& observer) { return observer.expired(); });
        const auto current = observers;
        for (const auto& observer : current) {
            if (const auto kept = observer.lock()) {
                (*kept)();
            }
        }
    }

private:
    std::list<std::weak_ptr<Observer>> observers;
};

/// A property that others observe. Each assignment, of an equal value too, announces itself, then
/// stores the value, then runs the property's own change observer.
template<typename Value>
class Published {
public:
    Published(ChangeAnnouncer& announcer, Value initial, std::function<void()> didSet = {})
        : announcer(announcer)
        , value(std::move(initial))
        , didSet(std::move(didSet))
    {
    }

    Published(const Published&) = delete;
    Published& operator=(const Published&) = delete;

    Published& operator=(Value newValue)
    {
        announcer.announce();
        value = std::move(newValue);
        if (didSet) {
            didSet();
        }
        return *this;
    }

    const Value& get() const { return value; }
    operator const Value&() const { return value; }
    const Value* operator->() const { return &value; }

private:
    ChangeAnnouncer& announcer;
    Value value;
    std::function<void()> didSet;
};

} // namespace voltmere
