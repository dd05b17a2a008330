#pragma once

#include "devices/battery_device.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace voltmere::reference {

using Names = std::map<std::string, std::string>;

/// The devices that the text of the registry tool shows, in display order. Follows the rules step
/// by step and copies at every step; it shares with the program nothing but the two tables of
/// Unicode properties.
std::vector<BatteryDevice> devicesInRegistry(const std::string& text, const Names& names);

/// The number behind the first `"key" = ` of a block.
std::optional<std::int64_t> numberOf(const std::string& key, const std::string& block);

} // namespace voltmere::reference
