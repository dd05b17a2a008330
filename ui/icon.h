#pragma once

#include "devices/battery_device.h"
#include "ports/desktop.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace voltmere {

/// The level that the icon shows. The icon is drawn anew only when the level differs.
struct IconLevel {
    std::int64_t percent; ///< as reported: neither clamped nor checked
    bool low;             ///< at or below the threshold, so shown in red

    bool operator==(const IconLevel&) const = default;
};

/// The level of the weakest of `devices`; nothing without a device.
std::optional<IconLevel> iconLevel(const std::vector<BatteryDevice>& devices,
                                   std::int64_t threshold);

/// The icon's texts.
struct IconTexts {
    std::vector<std::string> devices; ///< name and level of each device
    std::string toolTip;              ///< the program's name and each device on lines of their own
    std::string accessible;           ///< the same on one line, for a picture without text
    std::string open;                 ///< menu entry
    std::string quit;                 ///< menu entry

    bool operator==(const IconTexts&) const = default;
};

/// The texts in the present language, with `devices` in their order.
IconTexts iconTexts(const std::vector<BatteryDevice>& devices);

/// The size of a text, in points.
struct TextSize {
    double width;
    double height;
};

/// The colour of the label in the picture for a menu bar.
enum class LabelColour {
    black,
    white,
    red, ///< the system's own
};

/// The picture for a menu bar that takes any width: the status icon and the label beside it. In
/// points. Both are centred in the height, so y is the same from the top and from the bottom.
struct IconShape {
    static constexpr int height = 22;
    static constexpr int iconSide = 20;
    static constexpr int fontSize = 13; ///< the system's font, regular weight
    static constexpr double iconY = (height - iconSide) / 2.0;

    int width = iconSide;
    std::string label; ///< such as "37%"; empty without a device
    double labelX = 0;
    double labelY = 0;
    LabelColour colour = LabelColour::black;
};

/// The shape for `level` in a bar of `scheme`. `measure` gives the size of a text in the label's
/// font.
IconShape iconShape(const std::optional<IconLevel>& level, std::optional<ColourScheme> scheme,
                    const std::function<TextSize(const std::string& label)>& measure);

} // namespace voltmere
