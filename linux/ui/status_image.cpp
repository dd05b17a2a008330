#include "linux/ui/status_image.h"

#include "linux/ui/app_icon_asset.h"
#include "linux/ui/theme.h"
#include "linux/ui/tray_number.h"
#include "linux/ui/views.h"

#include <QFont>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QSvgRenderer>

#include <algorithm>
#include <array>

namespace voltmere {

namespace {

/// The system font. Its size is given in pixels: the painter's are points, whatever the density of
/// the screen.
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

constexpr std::array traySides{16, 22, 24, 32, 44, 48, 64};

/// White keeps a contrast of 5 to 1 or more on both plates; on the system red it would have 3.5.
struct PlateColours {
    QColor plate;
    QColor bar;
};

PlateColours coloursFor(bool low)
{
    return low ? PlateColours{{0xD7, 0x00, 0x15}, Qt::white}
               : PlateColours{{0x1B, 0x3C, 0x5A}, {0x36, 0xD6, 0x93}};
}

/// Where the parts stand, in whole pixels.
struct TrayLayout {
    QRect plate;
    QRect number;
    QRect bar;
};

TrayLayout layoutFor(int side)
{
    const int margin = std::max(1, side / 16);
    const int barHeight = std::max(2, side / 10);
    const int barInset = std::max(2, side / 8);
    const int barTop = side - barHeight - std::max(1, side / 12);
    const int numberTop = std::max(1, side / 11);
    return {QRect(0, 0, side, side), QRect(0, numberTop, side, barTop - margin - numberTop),
            QRect(barInset, barTop, side - 2 * barInset, barHeight)};
}

/// The left part of the bar that stands for `level` percent: at least a trace of it for any charge,
/// and never more than all of it.
QRect filledPart(const QRect& bar, std::int64_t level)
{
    const auto percent = static_cast<int>(std::clamp<std::int64_t>(level, 0, 100));
    return {bar.topLeft(), QSize((bar.width() * percent + 99) / 100, bar.height())};
}

void drawBar(QPainter& painter, const QRect& bar, std::int64_t level, const QColor& colour)
{
    const qreal radius = bar.height() / 2.0;
    const QColor track(255, 255, 255, 72);
    painter.setBrush(track);
    painter.drawRoundedRect(bar, radius, radius);
    painter.setClipRect(filledPart(bar, level));
    painter.setBrush(colour);
    painter.drawRoundedRect(bar, radius, radius);
}

void drawLevel(QPainter& painter, const IconLevel& level, int side)
{
    const TrayLayout layout = layoutFor(side);
    const PlateColours colours = coloursFor(level.low);
    const qreal cornerRadius = side * 0.19;
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours.plate);
    painter.drawRoundedRect(layout.plate, cornerRadius, cornerRadius);
    painter.fillPath(numberOutline(level.percent, layout.number), Qt::white);
    drawBar(painter, layout.bar, level.percent, colours.bar);
}

/// From the vector form, since the bitmaps are made for 20 points only.
void drawStatusIcon(QPainter& painter, int side)
{
    QSvgRenderer(QStringLiteral(":/voltmere/StatusIcon.svg"))
        .render(&painter, QRectF(0, 0, side, side));
}

} // namespace

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

QImage trayImage(const std::optional<IconLevel>& level, int side)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    if (level) {
        drawLevel(painter, *level, side);
    } else {
        drawStatusIcon(painter, side);
    }
    return image;
}

QIcon makeTrayIcon(const std::optional<IconLevel>& level)
{
    QIcon icon;
    for (const int side : traySides) {
        icon.addPixmap(QPixmap::fromImage(trayImage(level, side)));
    }
    return icon;
}

} // namespace voltmere
