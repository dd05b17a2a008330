#pragma once

#include "ports/desktop.h"

#include <QColor>

#include <optional>

namespace voltmere {

/// The red of warnings: macOS's system red, the same on every platform. Light where there is no
/// scheme.
inline QColor systemRed(std::optional<ColourScheme> scheme)
{
    return scheme == ColourScheme::dark ? QColor(0xFF, 0x45, 0x3A) : QColor(0xFF, 0x3B, 0x30);
}

} // namespace voltmere
