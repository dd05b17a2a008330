#include "linux/ui/status_image.h"

#include "linux/ui/app_icon_asset.h"
#include "linux/ui/colours.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QString>
#include <QtMath>

#include <algorithm>

namespace voltmere {

namespace {

// All in points.
constexpr int imageHeight = 22;
constexpr int iconToText = 5;
constexpr int fontSize = 13;

/// The system font. Its size is given in pixels: the painter's are points, whatever the density of
/// the screen.
QFont labelFont()
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(fontSize);
    font.setWeight(QFont::Normal);
    // The background is not known here, and subpixels smooth against a known one.
    font.setStyleStrategy(QFont::NoSubpixelAntialias);
    return font;
}

QString labelOf(const BatteryDevice& device)
{
    return QString::number(device.level) + '%';
}

QColor labelColour(bool low, std::optional<ColourScheme> appearance)
{
    if (low) {
        return systemRed(appearance);
    }
    return appearance == ColourScheme::dark ? Qt::white : Qt::black;
}

void drawIcon(QPainter& painter, const DrawnImage& icon)
{
    const qreal top = (imageHeight - icon.size.height()) / 2.0;
    icon.draw(painter, QRectF(QPointF(0, top), icon.size));
}

void drawLabel(QPainter& painter, const QString& label, qreal left)
{
    const QFont font = labelFont();
    const QFontMetricsF metrics(font);
    painter.setFont(font);
    painter.drawText(QPointF(left, (imageHeight - metrics.height()) / 2 + metrics.ascent()), label);
}

int imageWidth(const DrawnImage& icon, const QString& label)
{
    const qreal textWidth = QFontMetricsF(labelFont()).horizontalAdvance(label);
    return qCeil(icon.size.width() + iconToText + textWidth);
}

/// The drawing inside a frame of `size`, stretched to whatever destination it is given.
DrawnImage framed(const QSize& size, const std::function<void(QPainter&)>& draw)
{
    return {.size = size, .draw = [size, draw](QPainter& painter, const QRectF& destination) {
                painter.translate(destination.topLeft());
                painter.scale(destination.width() / size.width(),
                              destination.height() / size.height());
                draw(painter);
            }};
}

} // namespace

DrawnImage StatusImage::make(const std::vector<BatteryDevice>& devices, std::int64_t threshold,
                             std::optional<ColourScheme> appearance)
{
    const DrawnImage icon = AppIconAsset::statusImage();
    const std::optional<BatteryDevice> device = weakestDevice(devices);
    if (!device) {
        return framed({icon.size.width(), imageHeight},
                      [icon](QPainter& painter) { drawIcon(painter, icon); });
    }
    const QString label = labelOf(*device);
    const QColor colour = labelColour(isLow(*device, threshold), appearance);
    return framed({imageWidth(icon, label), imageHeight}, [=](QPainter& painter) {
        drawIcon(painter, icon);
        painter.setPen(colour);
        drawLabel(painter, label, icon.size.width() + iconToText);
    });
}

} // namespace voltmere
