#pragma once

#include "devices/battery_device.h"
#include "ports/desktop.h"
#include "ports/time.h"
#include "snooze/custom_time.h"

#include <array>
#include <string_view>
#include <vector>

namespace voltmere {

/// One fixed delay after which the snooze alert can come back.
struct SnoozeOption {
    std::string_view labelKey;
    Seconds delay;
};

/// The fixed choices, in display order.
inline constexpr std::array<SnoozeOption, 4> snoozeOptions{{
    {"alert.in20", Seconds(1200)},
    {"alert.in30", Seconds(1800)},
    {"alert.in60", Seconds(3600)},
    {"alert.in120", Seconds(7200)},
}};

/// The measures of the snooze alert's content, in points: four labels, four choices and the row for
/// a clock time, one below the other.
namespace alertGeometry {
inline constexpr int width = 237;
inline constexpr int labelHeight = 16;
inline constexpr int rowHeight = 28;
inline constexpr int spacing = 6;
inline constexpr std::array<int, 9> rowHeights{labelHeight, labelHeight, labelHeight,
                                               labelHeight, rowHeight,   rowHeight,
                                               rowHeight,   rowHeight,   rowHeight};

/// The rows' heights and the gaps between them.
constexpr int height()
{
    int sum = spacing * (static_cast<int>(rowHeights.size()) - 1);
    for (const int rowHeight : rowHeights) {
        sum += rowHeight;
    }
    return sum;
}
} // namespace alertGeometry

/// The snooze alert's content for `devices` in the current language: the low devices when `isLow`
/// is true, else all known devices, if any.
AlertContent makeAlertContent(const std::vector<BatteryDevice>& devices, bool isLow,
                              const ClockTime& preselected);

} // namespace voltmere
