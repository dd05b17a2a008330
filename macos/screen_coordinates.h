#pragma once

#include "macos/status_item.h"

namespace voltmere {

/// A rectangle of Cocoa's screen coordinates, whose origin is the bottom left corner of the first
/// screen, turned to have its origin at that screen's top left.
inline ScreenRectangle fromTopLeft(const ScreenRectangle& cocoa, double firstScreenHeight)
{
    return {cocoa.x, firstScreenHeight - cocoa.y - cocoa.height, cocoa.width, cocoa.height};
}

} // namespace voltmere
