#include "linux/ui/drawn_image.h"

#include "devices/battery_device.h"
#include "linux/ui/pictures.h"

#include <gmock/gmock.h>

#include <set>
#include <string>

namespace voltmere {
namespace {

/// Red in its left half.
DrawnImage halfRed()
{
    return {.size = {10, 6}, .draw = [](QPainter& painter, const QRectF& destination) {
                QRectF half = destination;
                half.setWidth(destination.width() / 2);
                painter.fillRect(half, Qt::red);
            }};
}

const QColor orange(0xFF, 0x80, 0x00);

TEST(DrawnImage, IsRenderedWithThePixelsOfTheScreen)
{
    for (const qreal ratio : {1.0, 1.5, 2.0, 3.0}) {
        const QImage image = halfRed().rendered(ratio);
        EXPECT_EQ(image.size(), QSize(10, 6) * ratio);
        EXPECT_EQ(image.devicePixelRatio(), ratio);
        EXPECT_EQ(image.format(), QImage::Format_ARGB32_Premultiplied);
        EXPECT_EQ(image.pixelColor(1, 1), QColor(Qt::red));
    }
}

TEST(DrawnImage, IsTransparentWhereNothingIsDrawnAndSmoothAtItsEdges)
{
    const QImage image = halfRed().rendered(2);
    EXPECT_EQ(countInk(image), 10 * 12);
    EXPECT_EQ(image.pixelColor(19, 11).alpha(), 0);
    const QImage smooth = halfRed().rendered(1.5); // the edge at 7.5 pixels
    EXPECT_NEAR(smooth.pixelColor(7, 4).alpha(), 128, 2);
}

TEST(PixelWidth, CountsThePixelsOfTheDeviceAndNotPoints)
{
    QImage image(100, 100, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(2);
    QPainter painter(&image);
    EXPECT_EQ(pixelWidth(painter, QRectF(5, 5, 20, 20)), 40);
    painter.scale(1.5, 1.5);
    EXPECT_EQ(pixelWidth(painter, QRectF(5, 5, 20, 20)), 60);
}

TEST(Symbol, OfEachKnownDeviceIsDrawnInTheColourAlone)
{
    std::set<std::string> names{"questionmark.circle"};
    for (const auto& [id, device] : BatteryDevice::knownAppleDevices()) {
        names.insert(device.symbol);
    }
    for (const std::string& name : names) {
        const DrawnImage symbol = symbolImage(QString::fromStdString(name), 24, orange);
        EXPECT_EQ(symbol.size, QSize(24, 24));
        const QImage image = symbol.rendered(4);
        EXPECT_GT(countPixels(image, orange), 100) << name;
        EXPECT_EQ(countPixelsThat(image, [](QRgb pixel) { return qAlpha(pixel) == 255; }),
                  countPixels(image, orange))
            << name;
    }
}

TEST(Symbol, LeavesWhatIsAroundItsShapeAsItWas)
{
    QImage canvas = filledImage(Qt::white, 40);
    QPainter painter(&canvas);
    symbolImage("magicmouse", 40, orange).draw(painter, QRectF(0, 0, 40, 40));
    EXPECT_EQ(canvas.pixelColor(0, 0), QColor(Qt::white));
    EXPECT_GT(countPixels(canvas, orange), 0);
}

TEST(Symbol, OfAnUnknownNameIsEmpty)
{
    EXPECT_EQ(countInk(symbolImage("toaster", 24, Qt::black).rendered(1)), 0);
}

} // namespace
} // namespace voltmere
