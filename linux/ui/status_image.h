#pragma once

#include "devices/battery_device.h"
#include "linux/ui/drawn_image.h"
#include "ports/desktop.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace voltmere {

/// The picture in the menu bar.
class StatusImage {
public:
    /// The status icon with the level of the weakest of `devices`, which stand in display order:
    /// red at or below `threshold` percent, else white in the dark scheme and black in the light
    /// one or in none.
    static DrawnImage make(const std::vector<BatteryDevice>& devices, std::int64_t threshold,
                           std::optional<ColourScheme> appearance);
};

} // namespace voltmere
