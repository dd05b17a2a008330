#pragma once

#include <QPainterPath>
#include <QRect>

#include <cstdint>

namespace voltmere {

/// The outline of `number` in decimal digits, as high as `area` and centred in its width, both in
/// pixels. resources/digits.svg has the digits' form. The stems stand on whole pixels, so that the
/// digits stay sharp at 16 pixels, where those of a font blur; and they look the same whatever
/// fonts there are.
QPainterPath numberOutline(std::int64_t number, const QRect& area);

} // namespace voltmere
