#pragma once

#include <optional>

namespace voltmere {

/// A position on the desktop, in points.
struct PointerPosition {
    double x = 0;
    double y = 0;
};

/// The mouse pointer.
class Pointer {
public:
    virtual ~Pointer() = default;

    /// Where the pointer is; nothing where the desktop does not tell (Wayland tells a program only
    /// about its own windows). A desktop that tells once tells always.
    virtual std::optional<PointerPosition> position() const = 0;
};

} // namespace voltmere
