#pragma once

#include <functional>
#include <optional>

namespace voltmere {

/// Whether the desktop is dark or light.
enum class ColourScheme { light, dark };

/// The desktop's appearance.
class Appearance {
public:
    virtual ~Appearance() = default;

    /// The scheme that the desktop uses now; nothing where it has none.
    virtual std::optional<ColourScheme> bestMatch() const = 0;

    /// Calls `action` on the main thread after each change. One action; a new one replaces it.
    virtual void onChange(std::function<void()> action) = 0;
};

} // namespace voltmere
