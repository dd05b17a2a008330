#include "linux/ui/tray_image.h"

#include "linux/ui/status_image.h"
#include "linux/ui/tray_number.h"

#include <QColor>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

#include <algorithm>
#include <array>

namespace voltmere {

namespace {

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

void drawLevel(QPainter& painter, std::int64_t level, bool low, int side)
{
    const TrayLayout layout = layoutFor(side);
    const PlateColours colours = coloursFor(low);
    const qreal cornerRadius = side * 0.19;
    painter.setPen(Qt::NoPen);
    painter.setBrush(colours.plate);
    painter.drawRoundedRect(layout.plate, cornerRadius, cornerRadius);
    painter.fillPath(numberOutline(level, layout.number), Qt::white);
    drawBar(painter, layout.bar, level, colours.bar);
}

/// From the vector form, since the bitmaps are made for 20 points only.
void drawStatusIcon(QPainter& painter, int side)
{
    QSvgRenderer renderer(QStringLiteral(":/voltmere/StatusIcon.svg"));
    renderer.render(&painter, QRectF(0, 0, side, side));
}

} // namespace

QImage trayImage(const std::vector<BatteryDevice>& devices, std::int64_t threshold, int side)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    if (const auto device = weakestDevice(devices)) {
        drawLevel(painter, device->level, isLow(*device, threshold), side);
    } else {
        drawStatusIcon(painter, side);
    }
    return image;
}

QIcon makeTrayIcon(const std::vector<BatteryDevice>& devices, std::int64_t threshold)
{
    QIcon icon;
    for (const int side : traySides) {
        icon.addPixmap(QPixmap::fromImage(trayImage(devices, threshold, side)));
    }
    return icon;
}

QIcon TrayIconMaker::make(const std::vector<BatteryDevice>& devices, std::int64_t threshold)
{
    std::optional<Look> look;
    if (const auto device = weakestDevice(devices)) {
        look = Look{device->level, isLow(*device, threshold)};
    }
    if (last.isNull() || look != lastLook) {
        lastLook = look;
        last = makeTrayIcon(devices, threshold);
    }
    return last;
}

} // namespace voltmere
