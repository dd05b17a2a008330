#include "linux/ui/pictures.h"

#include "linux/ui/drawn_image.h"

#include <gmock/gmock.h>

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

bool hasOnly(const QColor& colour, const QImage& image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) == 255 && image.pixelColor(x, y) != colour) {
                return false;
            }
        }
    }
    return true;
}

TEST(DrawnImage, IsNoTemplateUnlessItSaysSo)
{
    EXPECT_FALSE(halfRed().isTemplate);
}

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

TEST(DrawnImage, IsTransparentWhereNothingIsDrawn)
{
    const QImage image = halfRed().rendered(2);
    EXPECT_EQ(countInk(image), 10 * 12);
    EXPECT_EQ(image.pixelColor(19, 11).alpha(), 0);
}

TEST(DrawnImage, AsAPixmapHasTheSamePixels)
{
    const QPixmap pixmap = halfRed().pixmap(2);
    EXPECT_EQ(pixmap.devicePixelRatio(), 2);
    EXPECT_EQ(countPixels(pixmap.toImage(), Qt::red), 10 * 12);
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

TEST(Symbol, OfEachKnownDeviceIsThere)
{
    for (const auto& [id, device] : BatteryDevice::knownAppleDevices()) {
        EXPECT_TRUE(symbolImage(QString::fromStdString(device.symbol), 16, Qt::black))
            << device.symbol;
    }
}

TEST(Symbol, IsDrawnInTheColourAlone)
{
    for (const char* const name :
         {"keyboard", "magicmouse", "rectangle.and.hand.point.up.left", "questionmark.circle"}) {
        const auto symbol = symbolImage(name, 24, orange);
        ASSERT_TRUE(symbol) << name;
        EXPECT_EQ(symbol->size, QSize(24, 24));
        const QImage image = symbol->rendered(4);
        EXPECT_GT(countPixels(image, orange), 100) << name;
        EXPECT_TRUE(hasOnly(orange, image)) << name;
    }
}

TEST(Symbol, LeavesWhatIsAroundItsShapeAsItWas)
{
    QImage canvas = filledImage(Qt::white, 40);
    QPainter painter(&canvas);
    const auto symbol = symbolImage("magicmouse", 40, orange);
    ASSERT_TRUE(symbol);
    symbol->draw(painter, QRectF(0, 0, 40, 40));
    EXPECT_EQ(canvas.pixelColor(0, 0), QColor(Qt::white));
    EXPECT_GT(countPixels(canvas, orange), 0);
}

TEST(Symbol, OfAnUnknownNameIsNothing)
{
    EXPECT_FALSE(symbolImage("toaster", 24, Qt::black));
    EXPECT_FALSE(symbolImage("", 24, Qt::black));
}

} // namespace
} // namespace voltmere
