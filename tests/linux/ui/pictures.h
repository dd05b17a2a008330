#pragma once

#include "devices/battery_device.h"

#include <QBuffer>
#include <QByteArray>
#include <QColor>
#include <QImage>

#include <cstdint>

namespace voltmere {

inline BatteryDevice deviceAt(std::int64_t level, std::int64_t id = 803)
{
    return {.id = id, .name = "Magic Mouse", .level = level, .symbol = "magicmouse", .order = 0};
}

/// How many pixels of `image` have exactly that colour, undiluted.
inline int countPixels(const QImage& image, const QColor& colour)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += image.pixel(x, y) == colour.rgba() ? 1 : 0;
        }
    }
    return count;
}

/// How many pixels of `image` are not wholly transparent.
inline int countInk(const QImage& image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += qAlpha(image.pixel(x, y)) > 0 ? 1 : 0;
        }
    }
    return count;
}

inline QImage filledImage(const QColor& colour, int side)
{
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(colour);
    return image;
}

/// A PNG file of one colour.
inline QByteArray pngOf(const QColor& colour, int side)
{
    QByteArray bytes;
    QBuffer file(&bytes);
    filledImage(colour, side).save(&file, "PNG");
    return bytes;
}

} // namespace voltmere
