#pragma once

#include <functional>

namespace voltmere {

/// Sees to it that the program runs once for each user session.
class SingleInstance {
public:
    enum class Role {
        first, ///< no other process runs the program
        later, ///< another one does, and was asked to open its panel
        alone, ///< the processes of the program cannot know of each other here
    };

    virtual ~SingleInstance() = default;

    /// Becomes the one instance, or asks the one that is there for its panel.
    virtual Role start() = 0;

    /// Calls `action` whenever a later start asks for the panel.
    virtual void onActivation(std::function<void()> action) = 0;
};

} // namespace voltmere
