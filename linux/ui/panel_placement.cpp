#include "linux/ui/panel_placement.h"

#include <algorithm>

namespace voltmere {

namespace {

/// The position nearest to `wanted` at which a span of `length` lies between `low` and `high`. One
/// that is too long begins at `low`.
int fitted(int wanted, int length, int low, int high)
{
    return std::max(low, std::min(wanted, high - length + 1));
}

} // namespace

QPoint placePanel(const QRect& anchor, const QSize& size, const QRect& workArea)
{
    const bool below = anchor.center().y() <= workArea.center().y();
    const int x = anchor.center().x() - size.width() / 2;
    const int y = below ? anchor.bottom() + 1 : anchor.top() - size.height();
    return {fitted(x, size.width(), workArea.left(), workArea.right()),
            fitted(y, size.height(), workArea.top(), workArea.bottom())};
}

} // namespace voltmere
