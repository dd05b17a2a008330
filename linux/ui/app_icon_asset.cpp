#include "linux/ui/app_icon_asset.h"

#include <QApplication>
#include <QFile>
#include <QPixmap>
#include <QSvgRenderer>

#include <memory>

namespace voltmere {

namespace {

constexpr int statusImageSide = 20;
constexpr const char* programsPictures = ":/voltmere";

std::optional<DrawnImage> svgImage(const QString& file, int side)
{
    const auto picture = std::make_shared<QSvgRenderer>(file);
    if (!picture->isValid()) {
        return std::nullopt;
    }
    return DrawnImage{.size = {side, side},
                      .draw = [picture](QPainter& painter, const QRectF& destination) {
                          picture->render(&painter, destination);
                      }};
}

/// A null icon draws nothing.
DrawnImage iconImage(const QIcon& icon, int side)
{
    return {.size = {side, side}, .draw = [icon](QPainter& painter, const QRectF& destination) {
                const qreal ratio = pixelWidth(painter, destination) / destination.width();
                painter.drawImage(destination,
                                  icon.pixmap(destination.size().toSize(), ratio).toImage());
            }};
}

std::optional<DrawnImage> statusIcon(const QString& directory)
{
    const QString png = directory + "/StatusIcon.png";
    if (!QFile::exists(png)) {
        return svgImage(directory + "/StatusIcon.svg", statusImageSide);
    }
    QIcon icon(QPixmap{png});
    icon.addPixmap(QPixmap(directory + "/StatusIcon@2x.png"));
    return icon.isNull() ? std::nullopt : std::optional(iconImage(icon, statusImageSide));
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
    return image ? QIcon(QPixmap::fromImage(image->rendered(1.0))) : QIcon();
}

DrawnImage AppIconAsset::statusImageFrom(const QString& directory, const QIcon& applicationIcon)
{
    auto image = statusIcon(directory);
    if (!image) {
        image = appImageFrom(directory, statusImageSide);
    }
    return image.value_or(iconImage(applicationIcon, statusImageSide));
}

std::optional<DrawnImage> AppIconAsset::appImageFrom(const QString& directory, int side)
{
    return svgImage(directory + "/AppIcon.svg", side);
}

} // namespace voltmere
