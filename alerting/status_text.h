#pragma once

#include "devices/battery_device.h"

#include <cstdint>
#include <string>
#include <vector>

namespace voltmere {

/// The line that tells a person how a reading turned out, in the current language: no peripherals,
/// all fine, or which ones are low at `threshold` percent.
std::string statusText(const std::vector<BatteryDevice>& devices, std::int64_t threshold);

} // namespace voltmere
