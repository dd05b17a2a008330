#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace voltmere {

/// Where a panel of `size` opens for the icon or pointer at `anchor`: centred below it, or above
/// it where it stands in the lower half, and inside `workArea` as far as that is large enough. All
/// in points of one screen.
QPoint placePanel(const QRect& anchor, const QSize& size, const QRect& workArea);

} // namespace voltmere
