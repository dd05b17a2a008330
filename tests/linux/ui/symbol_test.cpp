#include "linux/ui/pictures.h"

#include "linux/ui/symbol.h"

#include <gmock/gmock.h>

namespace voltmere {
namespace {

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
