#pragma once

#include <functional>
#include <memory>
#include <utility>

namespace voltmere {

/// What a control does. The control holds it weakly, so whoever wires the two keeps it alive.
class ActionTarget : public std::enable_shared_from_this<ActionTarget> {
public:
    explicit ActionTarget(std::function<void()> action)
        : action(std::move(action))
    {
    }

    /// Runs the action, and stays alive while it runs, whoever lets go of it there.
    void fire() const
    {
        const auto self = shared_from_this();
        action();
    }

private:
    const std::function<void()> action;
};

} // namespace voltmere
