#pragma once

#include "devices/battery_device.h"

#include <string>
#include <vector>

namespace voltmere {

inline BatteryDevice mouse(std::int64_t level)
{
    return {803, "Magic Mouse", level, "magicmouse", 0};
}

inline BatteryDevice keyboard(std::int64_t level)
{
    return {805, "Magic Keyboard", level, "keyboard", 1};
}

inline BatteryDevice trackpad(std::int64_t level)
{
    return {804, "Magic Trackpad", level, "rectangle.and.hand.point.up.left", 2};
}

inline std::vector<std::string> namesOf(const std::vector<BatteryDevice>& devices)
{
    std::vector<std::string> names;
    for (const BatteryDevice& device : devices) {
        names.push_back(device.name);
    }
    return names;
}

} // namespace voltmere
