#pragma once

#include <QColor>
#include <QImage>
#include <QtGlobal>

#include <algorithm>
#include <cmath>

// The macros of Qt's that do this declare functions, which must stand in no namespace.
inline void removePicturesOfTheProgram()
{
    Q_CLEANUP_RESOURCE(icons);
}

inline void returnPicturesOfTheProgram()
{
    Q_INIT_RESOURCE(icons);
}

namespace voltmere {

/// Takes the application icon and the icon of the menu bar out of the program for one test.
class WithoutPictures {
public:
    WithoutPictures() { removePicturesOfTheProgram(); }
    ~WithoutPictures() { returnPicturesOfTheProgram(); }

    WithoutPictures(const WithoutPictures&) = delete;
    WithoutPictures& operator=(const WithoutPictures&) = delete;
};

template<typename Predicate>
int countPixelsThat(const QImage& image, Predicate predicate)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += predicate(image.pixel(x, y)) ? 1 : 0;
        }
    }
    return count;
}

/// How many pixels of `image` have exactly that colour, undiluted.
inline int countPixels(const QImage& image, const QColor& colour)
{
    return countPixelsThat(image, [&](QRgb pixel) { return pixel == colour.rgba(); });
}

/// How many pixels of `image` are not wholly transparent.
inline int countInk(const QImage& image)
{
    return countPixelsThat(image, [](QRgb pixel) { return qAlpha(pixel) > 0; });
}

/// How many pixels of two images of one size differ in a channel by more than `tolerance`.
inline int differingPixels(const QImage& one, const QImage& other, int tolerance = 0)
{
    int count = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QColor a = one.pixelColor(x, y);
            const QColor b = other.pixelColor(x, y);
            const int difference =
                std::max({std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                          std::abs(a.blue() - b.blue()), std::abs(a.alpha() - b.alpha())});
            count += difference > tolerance ? 1 : 0;
        }
    }
    return count;
}

inline QImage filledImage(const QColor& colour, int side)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(colour);
    return image;
}

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
