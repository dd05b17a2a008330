#pragma once

#include "devices/battery_device.h"
#include "ports/desktop.h"

#import <AppKit/AppKit.h>

#include <cstdint>
#include <vector>

namespace voltmere {

/// The scheme of the application's appearance; light where it is neither dark nor light.
ColourScheme applicationScheme();

/// The icons of the application's bundle.
class AppIconAsset {
public:
    /// The menu-bar icon, 20 by 20 points. Built on first use and kept. Made of StatusIcon.png,
    /// else StatusIcon.icns, then AppIcon.icns, then the application's own icon.
    static NSImage* statusImage();

    /// The application icon as a square of `side` points; nil without AppIcon.icns.
    static NSImage* appImage(CGFloat side);
};

/// The picture in the menu bar.
class StatusImage {
public:
    /// The status icon and the level of the weakest device, for an application of `scheme`. It
    /// carries its own colours.
    static NSImage* make(const std::vector<BatteryDevice>& devices, std::int64_t threshold,
                         ColourScheme scheme);
};

} // namespace voltmere
