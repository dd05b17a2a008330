#include "linux/ui/drawn_image.h"

#include <QTransform>
#include <QtMath>

namespace voltmere {

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

QPixmap DrawnImage::pixmap(qreal devicePixelRatio) const
{
    return QPixmap::fromImage(rendered(devicePixelRatio));
}

int pixelWidth(const QPainter& painter, const QRectF& destination)
{
    return qCeil(painter.deviceTransform().mapRect(destination).width());
}

} // namespace voltmere
