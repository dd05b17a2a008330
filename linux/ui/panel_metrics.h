#pragma once

/// The measures of the settings panel, in points.
namespace voltmere::panelMetrics {

inline constexpr int width = 320;
inline constexpr int padding = 16;
inline constexpr int itemSpacing = 12; ///< between the rows of the panel
inline constexpr int rowSpacing = 8;   ///< within a row
inline constexpr int iconSide = 22;
inline constexpr int symbolSide = 20;
inline constexpr int thresholdWidth = 80; ///< at least
inline constexpr int buttonPadding = 12;  ///< at least, on each side of a button's text

} // namespace voltmere::panelMetrics
