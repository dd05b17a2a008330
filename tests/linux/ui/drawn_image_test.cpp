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

} // namespace
} // namespace voltmere
