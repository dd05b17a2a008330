#include "linux/ui/app_icon_asset.h"

#include "linux/ui/icns.h"

#include <QApplication>

#include <functional>
#include <map>
#include <memory>
#include <utility>

namespace voltmere {

namespace {

constexpr int statusImageSide = 20;

/// Gives an icon as a square bitmap of so many pixels a side; a null one where it cannot.
using BitmapSource = std::function<QImage(int pixels)>;

QImage scaledTo(int pixels, const QImage& image)
{
    return image.scaled(pixels, pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

/// An icon that keeps its bitmaps in the sizes that were asked for, and nothing larger. Nothing if
/// the source has no bitmap.
std::optional<DrawnImage> squareImage(int side, BitmapSource source)
{
    const auto bitmaps = std::make_shared<std::map<int, QImage>>();
    if (bitmaps->emplace(side, source(side)).first->second.isNull()) {
        return std::nullopt;
    }
    const auto draw = [source = std::move(source), bitmaps](QPainter& painter,
                                                            const QRectF& destination) {
        const int pixels = pixelWidth(painter, destination);
        const auto [bitmap, isNew] = bitmaps->try_emplace(pixels);
        if (isNew) {
            bitmap->second = source(pixels);
        }
        painter.drawImage(destination, bitmap->second);
    };
    return DrawnImage{.size = {side, side}, .draw = draw};
}

/// `png` has the pixels for one to a point, `denser`, which may be empty, those for more.
BitmapSource pngSource(const QByteArray& png, const QByteArray& denser)
{
    return [png, denser](int pixels) {
        const QImage image = QImage::fromData(png);
        if (image.isNull() || image.width() >= pixels) {
            return scaledTo(pixels, image);
        }
        const QImage denserImage = QImage::fromData(denser);
        return scaledTo(pixels, denserImage.isNull() ? image : denserImage);
    };
}

BitmapSource icnsSource(const QByteArray& container)
{
    return [container](int pixels) {
        for (const IcnsPicture& picture : icnsPictures(container, pixels)) {
            const QImage image = QImage::fromData(picture.png);
            if (!image.isNull()) {
                return scaledTo(pixels, image);
            }
        }
        return QImage();
    };
}

BitmapSource iconSource(const QIcon& icon)
{
    return [icon](int pixels) {
        return scaledTo(pixels, icon.pixmap(QSize(pixels, pixels), 1.0).toImage());
    };
}

std::optional<DrawnImage> icnsImage(const std::optional<QByteArray>& container, int side)
{
    return container ? squareImage(side, icnsSource(*container)) : std::nullopt;
}

std::optional<DrawnImage> statusIcon(const ImageBundle& bundle)
{
    if (const auto png = bundle("StatusIcon", "png")) {
        const QByteArray denser = bundle("StatusIcon@2x", "png").value_or(QByteArray());
        return squareImage(statusImageSide, pngSource(*png, denser));
    }
    return icnsImage(bundle("StatusIcon", "icns"), statusImageSide);
}

DrawnImage emptyImage(int side)
{
    return {.size = {side, side}, .draw = [](QPainter&, const QRectF&) {}};
}

} // namespace

const DrawnImage& AppIconAsset::statusImage()
{
    static const DrawnImage image = statusImageFrom(findInProgram, QApplication::windowIcon());
    return image;
}

std::optional<DrawnImage> AppIconAsset::appImage(int side)
{
    return appImageFrom(findInProgram, side);
}

QIcon AppIconAsset::windowIcon()
{
    constexpr int side = 48; // pixels; desktops scale it to what they need
    const auto image = appImage(side);
    return image ? QIcon(image->pixmap(1.0)) : QIcon();
}

DrawnImage AppIconAsset::statusImageFrom(const ImageBundle& bundle, const QIcon& applicationIcon)
{
    if (auto image = statusIcon(bundle)) {
        return *std::move(image);
    }
    if (auto image = appImageFrom(bundle, statusImageSide)) {
        return *std::move(image);
    }
    return squareImage(statusImageSide, iconSource(applicationIcon))
        .value_or(emptyImage(statusImageSide));
}

std::optional<DrawnImage> AppIconAsset::appImageFrom(const ImageBundle& bundle, int side)
{
    return icnsImage(bundle("AppIcon", "icns"), side);
}

} // namespace voltmere
