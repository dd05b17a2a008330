#pragma once

#include <QColor>

#include <algorithm>
#include <cmath>

namespace voltmere {

/// The part of the brightest light that a colour gives back. Source: Web Content Accessibility
/// Guidelines 2, "relative luminance".
inline double luminance(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
        0.0722 * linear(colour.blueF());
}

/// How well two colours stand out against each other, from 1 to 21, as the same guidelines have it.
inline double contrast(const QColor& one, const QColor& other)
{
    const double a = luminance(one);
    const double b = luminance(other);
    return (std::max(a, b) + 0.05) / (std::min(a, b) + 0.05);
}

inline constexpr double readable = 4.5; ///< the guidelines' least contrast for text

} // namespace voltmere
