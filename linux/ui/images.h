#pragma once

#include "devices/battery_device.h"
#include "ports/desktop.h"

#include <QColor>
#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QRectF>
#include <QSize>
#include <QString>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace voltmere {

/// An image without pixels of its own: a size, and a routine that draws it sharply at any scale.
struct DrawnImage {
    /// Fills `destination`, in the painter's coordinates. May leave the painter's state changed.
    using Drawing = std::function<void(QPainter& painter, const QRectF& destination)>;

    QSize size; ///< points
    Drawing draw;

    /// The image on a transparent background, with `devicePixelRatio` pixels for each point.
    QImage rendered(qreal devicePixelRatio) const;
};

/// How many pixels of the painter's device `destination` is wide, rounded up.
int pixelWidth(const QPainter& painter, const QRectF& destination);

/// The symbol of that name, such as "magicmouse", in one colour, as a square of `side` points.
/// Empty for an unknown name.
DrawnImage symbolImage(const QString& name, int side, const QColor& colour);

/// The icons that stand for the program: the small status icon, and the application's.
class AppIconAsset {
public:
    /// The status icon, 20 by 20 points, for a menu bar and for a tray without a level. Built on
    /// first use and kept; never empty.
    static const DrawnImage& statusImage();

    /// The application icon as a square of `side` points; nothing where the program has none.
    static std::optional<DrawnImage> appImage(int side);

    /// The application icon for the title bar and the task list; empty where the program has none.
    static QIcon windowIcon();

    /// statusImage() from the files of `directory`: StatusIcon.png or else StatusIcon.svg, then
    /// AppIcon.svg, then `applicationIcon`; a null icon draws nothing.
    static DrawnImage statusImageFrom(const QString& directory, const QIcon& applicationIcon);

    /// appImage() from AppIcon.svg of `directory`.
    static std::optional<DrawnImage> appImageFrom(const QString& directory, int side);
};

/// The wide picture for a menu bar. On Linux only --screenshots draws it, since trays are square.
class StatusImage {
public:
    /// The status icon with the level of the weakest of `devices`, which stand in display order:
    /// red at or below `threshold` percent, else in the colour that suits the scheme.
    static DrawnImage make(const std::vector<BatteryDevice>& devices, std::int64_t threshold,
                           std::optional<ColourScheme> appearance);
};

} // namespace voltmere
