#pragma once

#include "ports/desktop.h"

#include <QColor>
#include <QFont>
#include <QPalette>

#include <optional>

class QWidget;

namespace voltmere {

/// The red of warnings: macOS's system red, the same on every platform. Light where there is no
/// scheme.
QColor systemRed(std::optional<ColourScheme> scheme);

/// Whether the windows of `palette` are dark.
bool isDark(const QPalette& palette);

/// The program's own colours for a light or a dark desktop.
QPalette paletteFor(ColourScheme scheme);

/// Gives the application the colours of `scheme` where its own are of another scheme: Qt without a
/// theme for the desktop is always light. Colours of the desktop that fit the scheme stay.
void applyPalette(std::optional<ColourScheme> scheme);

/// For secondary text on the window's background.
QColor secondaryTextColour(const QPalette& palette);

/// For the thin lines between groups, on the window's background.
QColor dividerColour(const QPalette& palette);

/// Draws the text of `widget` in `colour`, or in its surroundings' text colour without one.
void setTextColour(QWidget& widget, std::optional<QColor> colour);

/// The font of names and headings: `body` in bold.
QFont headlineFont(QFont body);

/// The font of the figures that matter most: larger than `body`, and bold.
QFont title3Font(QFont body);

} // namespace voltmere
