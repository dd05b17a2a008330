#pragma once

#include "devices/battery_device.h"
#include "linux/ui/drawn_image.h"
#include "ports/desktop.h"
#include "ui/icon.h"

#include <QIcon>
#include <QImage>
#include <QPainterPath>
#include <QRect>

#include <cstdint>
#include <optional>
#include <vector>

namespace voltmere {

/// The outline of `number` in decimal digits, as high as `area` and centred in its width, both in
/// pixels. resources/digits.svg has the digits' form. The stems stand on whole pixels, so that the
/// digits stay sharp at 16 pixels, where a font blurs. They look the same with any fonts.
QPainterPath numberOutline(std::int64_t number, const QRect& area);

/// The wide picture for a menu bar. On Linux only --screenshots draws it, since trays are square.
class StatusImage {
public:
    /// The status icon with the level of the weakest of `devices`, which stand in display order:
    /// red at or below `threshold` percent, else in the colour that suits the scheme.
    static DrawnImage make(const std::vector<BatteryDevice>& devices, std::int64_t threshold,
                           std::optional<ColourScheme> appearance);
};

/// The icon for the square slots of a Linux tray, `side` pixels wide and high: the number of the
/// level on a plate, with a bar for the level below it; the plate is red for a low level. With no
/// level, the status icon. The program cannot know a panel's colour: the number stands out
/// against the plate on any panel.
QImage trayImage(const std::optional<IconLevel>& level, int side);

/// The tray's icon in the sizes of usual panels, in pixels, at one and two pixels to a point.
QIcon makeTrayIcon(const std::optional<IconLevel>& level);

} // namespace voltmere
