#pragma once

#include "devices/battery_device.h"

#include <cstdint>
#include <string>
#include <vector>

namespace voltmere {

/// One reading as the command line reports it.
struct Reading {
    std::string source; ///< source of the reading: "tools" or "sysfs"
    std::vector<BatteryDevice> devices;
    std::int64_t threshold; ///< percent
};

/// A table for a person at a terminal: level, low or ok, name. Ends with a line feed. The name
/// stands last, so that no column depends on how wide a terminal draws its characters.
std::string readingTable(const Reading& reading);

/// One JSON object on one line, without a line feed. Its "status" is the line that the panel shows.
std::string readingJson(const Reading& reading);

/// One JSON object on one line for waybar's custom module (waybar-custom(5), "return-type: json"):
/// the lowest level as text and percentage, every device in the tooltip, and the class "low" or
/// "ok". Without devices the text is empty, which hides the module, and the class "none".
std::string readingWaybar(const Reading& reading);

} // namespace voltmere
