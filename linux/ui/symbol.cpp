#include "linux/ui/symbol.h"

#include "linux/ui/image_bundle.h"

#include <QSvgRenderer>

namespace voltmere {

namespace {

/// The shape of `svg` in `colour`. A bitmap of its own, since the tint must not reach what is
/// already on the painter that the symbol ends up on.
QImage tintedBitmap(const QByteArray& svg, int pixels, const QColor& colour)
{
    QImage bitmap(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    bitmap.fill(Qt::transparent);
    QPainter painter(&bitmap);
    QSvgRenderer(svg).render(&painter);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(bitmap.rect(), colour);
    return bitmap;
}

} // namespace

std::optional<DrawnImage> symbolImage(const QString& name, int side, const QColor& colour)
{
    const std::optional<QByteArray> svg = findInProgram("symbols/" + name, "svg");
    if (!svg) {
        return std::nullopt;
    }
    const auto draw = [svg = *svg, colour](QPainter& painter, const QRectF& destination) {
        painter.drawImage(destination, tintedBitmap(svg, pixelWidth(painter, destination), colour));
    };
    return DrawnImage{.size = {side, side}, .draw = draw};
}

} // namespace voltmere
