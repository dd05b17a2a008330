#include "linux/ui/symbol.h"

#include <QFile>
#include <QSvgRenderer>

namespace voltmere {

namespace {

/// The shape of the SVG file in `colour`. A bitmap of its own, since the tint must not reach what
/// is already on the painter that the symbol ends up on.
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

std::optional<DrawnImage> symbolImage(const QString& name, int side, const QColor& colour)
{
    const QString file = ":/voltmere/symbols/" + name + ".svg";
    if (!QFile::exists(file)) {
        return std::nullopt;
    }
    const auto draw = [file, colour](QPainter& painter, const QRectF& destination) {
        painter.drawImage(destination,
                          tintedBitmap(file, pixelWidth(painter, destination), colour));
    };
    return DrawnImage{.size = {side, side}, .draw = draw};
}

} // namespace voltmere
