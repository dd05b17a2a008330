#pragma once

#include "linux/ui/drawn_image.h"

#include <QColor>
#include <QString>

#include <optional>

namespace voltmere {

/// The symbol of that name, such as "magicmouse", in one colour, as a square of `side` points.
/// Nothing for a name that no symbol has.
std::optional<DrawnImage> symbolImage(const QString& name, int side, const QColor& colour);

} // namespace voltmere
