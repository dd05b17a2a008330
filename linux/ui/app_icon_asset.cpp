#include "linux/ui/app_icon_asset.h"

#include <QApplication>
#include <QFile>
#include <QSvgRenderer>

#include <memory>
#include <utility>

namespace voltmere {

namespace {

constexpr int statusImageSide = 20;
constexpr const char* programsPictures = ":/voltmere";

std::optional<DrawnImage> svgImage(const QString& file, int side)
{
    if (!QFile::exists(file)) {
        return std::nullopt;
    }
    const auto picture = std::make_shared<QSvgRenderer>(file);
    if (!picture->isValid()) {
        return std::nullopt;
    }
    return DrawnImage{.size = {side, side},
                      .draw = [picture](QPainter& painter, const QRectF& destination) {
                          picture->render(&painter, destination);
                      }};
}

/// `denser`, which may be null, is for screens with more than one pixel to a point.
std::optional<DrawnImage> pngImage(const QImage& image, const QImage& denser, int side)
{
    if (image.isNull()) {
        return std::nullopt;
    }
    return DrawnImage{.size = {side, side},
                      .draw = [image, denser](QPainter& painter, const QRectF& destination) {
                          const bool isDense = pixelWidth(painter, destination) > image.width();
                          painter.drawImage(destination,
                                            isDense && !denser.isNull() ? denser : image);
                      }};
}

DrawnImage iconImage(const QIcon& icon, int side)
{
    return {.size = {side, side}, .draw = [icon](QPainter& painter, const QRectF& destination) {
                const int pixels = pixelWidth(painter, destination);
                painter.drawImage(destination, icon.pixmap(QSize(pixels, pixels), 1.0).toImage());
            }};
}

std::optional<DrawnImage> statusIcon(const QString& directory)
{
    const QString png = directory + "/StatusIcon.png";
    if (QFile::exists(png)) {
        return pngImage(QImage(png), QImage(directory + "/StatusIcon@2x.png"), statusImageSide);
    }
    return svgImage(directory + "/StatusIcon.svg", statusImageSide);
}

} // namespace

const DrawnImage& AppIconAsset::statusImage()
{
    static const DrawnImage image = statusImageFrom(programsPictures, QApplication::windowIcon());
    return image;
}

std::optional<DrawnImage> AppIconAsset::appImage(int side)
{
    return appImageFrom(programsPictures, side);
}

QIcon AppIconAsset::windowIcon()
{
    constexpr int side = 48; // pixels; desktops scale it as needed
    const auto image = appImage(side);
    return image ? QIcon(image->pixmap(1.0)) : QIcon();
}

DrawnImage AppIconAsset::statusImageFrom(const QString& directory, const QIcon& applicationIcon)
{
    if (auto image = statusIcon(directory)) {
        return *std::move(image);
    }
    if (auto image = appImageFrom(directory, statusImageSide)) {
        return *std::move(image);
    }
    return iconImage(applicationIcon, statusImageSide);
}

std::optional<DrawnImage> AppIconAsset::appImageFrom(const QString& directory, int side)
{
    return svgImage(directory + "/AppIcon.svg", side);
}

} // namespace voltmere
