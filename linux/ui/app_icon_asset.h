#pragma once

#include "linux/ui/drawn_image.h"

#include <QIcon>
#include <QString>

#include <optional>

namespace voltmere {

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

} // namespace voltmere
