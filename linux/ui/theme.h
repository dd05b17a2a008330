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
/// theme for the desktop is always light. Colours of the desktop that fit the scheme stay, and so
/// do those of a style that paints its controls in colours of its own. Texts become readable, and
/// in inactive windows, where some themes have them pale, the same as in active ones.
void applyPalette(std::optional<ColourScheme> scheme);

/// `wanted`, as far towards black or white as a text on `ground` needs for a contrast of 4.5 to 1.
/// Source: Web Content Accessibility Guidelines 2, success criterion 1.4.3.
QColor readableOn(const QColor& ground, const QColor& wanted);

/// For a text that warns, on the window's background.
QColor warningTextColour(const QPalette& palette, std::optional<ColourScheme> scheme);

/// For secondary text on the window's background.
QColor secondaryTextColour(const QPalette& palette);

/// For the thin lines between groups, on the window's background.
QColor dividerColour(const QPalette& palette);

/// For the thin line around a window without a frame.
QColor edgeColour(const QPalette& palette);

/// Draws the text of `widget` in `colour`, or in its surroundings' text colour without one.
void setTextColour(QWidget& widget, std::optional<QColor> colour);

/// `points`, a measure that fits a text of 13 pixels, for a text in `font`. Never less.
int scaledTo(const QFont& font, int points);

/// The font of names and headings: `body` in bold.
QFont headlineFont(QFont body);

/// The font of the figures that matter most: larger than `body`, and bold.
QFont title3Font(QFont body);

} // namespace voltmere
