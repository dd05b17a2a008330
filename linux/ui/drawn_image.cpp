#include "linux/ui/drawn_image.h"

#include <QPainterPath>
#include <QSvgRenderer>
#include <QTransform>
#include <QtMath>

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

void fillRounded(QPainter& painter, const QRectF& place, qreal radius, const QColor& colour)
{
    QPainterPath path;
    path.addRoundedRect(place, radius, radius);
    painter.fillPath(path, colour);
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

} // namespace voltmere
