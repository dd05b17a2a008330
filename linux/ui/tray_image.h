#pragma once

#include "devices/battery_device.h"

#include <QIcon>
#include <QImage>

#include <cstdint>
#include <optional>
#include <vector>

namespace voltmere {

/// The picture for the square slots of a Linux tray, `side` pixels wide and high: the number of the
/// weakest device's level on a plate, with a bar for the level below it; the plate is red at or
/// below `threshold` percent. With no device, the status icon. The plate is there since a panel's
/// colour cannot be known: the number stands out against the plate, whatever is behind it.
QImage trayImage(const std::vector<BatteryDevice>& devices, std::int64_t threshold, int side);

/// That picture in the sizes of usual panels, in pixels, at one and two pixels to a point.
QIcon makeTrayIcon(const std::vector<BatteryDevice>& devices, std::int64_t threshold);

/// Makes one tray icon after the other, and gives the last one again where the next would look the
/// same: what has the same cache key need not be sent to the desktop once more.
class TrayIconMaker {
public:
    QIcon make(const std::vector<BatteryDevice>& devices, std::int64_t threshold);

private:
    /// What a tray picture shows.
    struct Look {
        std::int64_t level; ///< percent
        bool low;

        bool operator==(const Look&) const = default;
    };

    std::optional<Look> lastLook; ///< nothing for the icon of no device
    QIcon last;
};

} // namespace voltmere
