#pragma once

#include "devices/battery_device.h"
#include "linux/ui/image_bundle.h"

#include <QBuffer>
#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QtEndian>

#include <cstdint>
#include <initializer_list>
#include <map>
#include <string>

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

inline QByteArray bigEndian(quint32 number)
{
    QByteArray bytes(sizeof number, '\0');
    qToBigEndian(number, bytes.data());
    return bytes;
}

inline QByteArray icnsChunk(const QByteArray& type, const QByteArray& data)
{
    return type + bigEndian(static_cast<quint32>(8 + data.size())) + data;
}

/// An ICNS file of those pictures. The types are not those that the format has for each size.
inline QByteArray icnsOf(std::initializer_list<QByteArray> pictures)
{
    QByteArray chunks;
    for (const QByteArray& picture : pictures) {
        chunks += icnsChunk("ic07", picture);
    }
    return icnsChunk("icns", chunks);
}

/// A bundle of those files, by name.
inline ImageBundle bundleOf(std::map<std::string, QByteArray> files)
{
    return [files = std::move(files)](const QString& name,
                                      const QString& extension) -> std::optional<QByteArray> {
        const auto file = files.find((name + '.' + extension).toStdString());
        return file == files.end() ? std::nullopt : std::optional(file->second);
    };
}

} // namespace voltmere
