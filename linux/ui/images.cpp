#include "linux/ui/images.h"

#include "linux/ui/theme.h"
#include "linux/ui/views.h"
#include "ui/icon.h"

#include <QApplication>
#include <QFile>
#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPixmap>
#include <QSvgRenderer>
#include <QTransform>
#include <QtMath>

#include <memory>
#include <string>

namespace voltmere {

namespace {

/// The shape of the SVG file in `colour`. It has a bitmap of its own, since the tint must not reach
/// the earlier content of the destination.
QImage tintedBitmap(const QString& file, int pixels, const QColor& colour)
{
    QImage bitmap(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    bitmap.fill(Qt::transparent);
    QPainter painter(&bitmap);
    QSvgRenderer(file).render(&painter);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(bitmap.rect(), colour);
    return bitmap;
}

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

/// The system font at IconShape::fontSize points, which Qt calls pixels; its own points are others.
QFont labelFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(IconShape::fontSize);
    font.setWeight(QFont::Normal);
    // The background is not known here, and subpixels smooth against a known one.
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    return font;
}

TextSize labelSize(const std::string& label)
{
    const QFontMetricsF metrics(labelFont());
    return {metrics.horizontalAdvance(asQt(label)), metrics.height()};
}

QColor inkFor(LabelColour colour, std::optional<ColourScheme> scheme)
{
    switch (colour) {
    case LabelColour::black:
        return Qt::black;
    case LabelColour::white:
        return Qt::white;
    case LabelColour::red:
        return systemRed(scheme);
    }
    return {};
}

} // namespace

QImage DrawnImage::rendered(qreal devicePixelRatio) const
{
    QImage image(size * devicePixelRatio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    draw(painter, QRectF(QPointF(), size));
    return image;
}

int pixelWidth(const QPainter& painter, const QRectF& destination)
{
    return qCeil(painter.deviceTransform().mapRect(destination).width());
}

DrawnImage symbolImage(const QString& name, int side, const QColor& colour)
{
    return {.size = {side, side},
            .draw = [file = ":/voltmere/symbols/" + name + ".svg",
                     colour](QPainter& painter, const QRectF& destination) {
                painter.drawImage(destination,
                                  tintedBitmap(file, pixelWidth(painter, destination), colour));
            }};
}

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

DrawnImage StatusImage::make(const std::vector<BatteryDevice>& devices, std::int64_t threshold,
                             std::optional<ColourScheme> appearance)
{
    const IconShape shape = iconShape(iconLevel(devices, threshold), appearance, &labelSize);
    const QSize size(shape.width, IconShape::height);
    const auto draw = [shape, size, icon = AppIconAsset::statusImage(),
                       ink = inkFor(shape.colour, appearance)](QPainter& painter,
                                                               const QRectF& destination) {
        painter.translate(destination.topLeft());
        painter.scale(destination.width() / size.width(), destination.height() / size.height());
        icon.draw(painter, QRectF(QPointF(0, IconShape::iconY), icon.size));
        painter.setPen(ink);
        painter.setFont(labelFont());
        painter.drawText(QPointF(shape.labelX, shape.labelY + QFontMetricsF(labelFont()).ascent()),
                         asQt(shape.label));
    };
    return {.size = size, .draw = draw};
}

} // namespace voltmere
