#pragma once

#include "devices/battery_device.h"

#include <QIcon>
#include <QImage>

#include <cstdint>
#include <vector>

namespace voltmere {

/// The picture for the square slots of a Linux tray, `side` pixels wide and high: the number of the
/// weakest device's level on a plate, with a bar for the level below it; the plate is red at or
/// below `threshold` percent. With no device, the status icon. The plate is there since a panel's
/// colour cannot be known: the number stands out against the plate, whatever is behind it.
QImage trayImage(const std::vector<BatteryDevice>& devices, std::int64_t threshold, int side);

/// That picture in the sizes of usual panels, in pixels, at one and two pixels to a point.
QIcon makeTrayIcon(const std::vector<BatteryDevice>& devices, std::int64_t threshold);

} // namespace voltmere
