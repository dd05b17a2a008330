#include "linux/ui/contrast.h"
#include "linux/ui/pictures.h"

#include "linux/ui/tray_image.h"
#include "linux/ui/tray_number.h"

#include <gmock/gmock.h>

#include <QPainter>

#include <algorithm>
#include <limits>

namespace voltmere {
namespace {

using testing::UnorderedElementsAre;

const std::vector<int> sides{16, 22, 24, 32, 44, 48, 64};
constexpr std::int64_t threshold = 20;

QImage trayImageAt(std::int64_t level, int side)
{
    return trayImage({deviceAt(level)}, threshold, side);
}

/// The plate's colour, at a place beside the number and the bar.
QColor plateColour(const QImage& image)
{
    return image.pixelColor(image.width() / 2, 0);
}

bool isRed(const QColor& colour)
{
    return colour.red() > 4 * std::max(colour.green(), colour.blue());
}

QImage drawnNumber(std::int64_t number, const QSize& size)
{
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(numberOutline(number, image.rect()), Qt::white);
    return image;
}

/// How many pixels differ by more than half.
int difference(const QImage& one, const QImage& other)
{
    int count = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            count += std::abs(qAlpha(one.pixel(x, y)) - qAlpha(other.pixel(x, y))) > 127 ? 1 : 0;
        }
    }
    return count;
}

TEST(TrayIcon, IsOfferedInTheSizesOfUsualPanels)
{
    QList<QSize> expected;
    for (const int side : sides) {
        expected.append({side, side});
    }
    EXPECT_EQ(makeTrayIcon({deviceAt(42)}, threshold).availableSizes(), expected);
    EXPECT_EQ(makeTrayIcon({}, threshold).availableSizes(), expected);
}

TEST(TrayIcon, HasThePictureOfEachSize)
{
    const QIcon icon = makeTrayIcon({deviceAt(42)}, threshold);
    for (const int side : sides) {
        EXPECT_TRUE(icon.pixmap(QSize(side, side), 1.0).toImage() == trayImageAt(42, side)) << side;
    }
}

TEST(TrayIconMaker, GivesTheSameIconWhileItLooksTheSame)
{
    TrayIconMaker maker;
    const auto key = [&maker](const std::vector<BatteryDevice>& devices, std::int64_t limit) {
        return maker.make(devices, limit).cacheKey();
    };
    const qint64 first = key({deviceAt(42)}, 20);

    EXPECT_EQ(key({deviceAt(42)}, 20), first);
    EXPECT_EQ(key({deviceAt(42), deviceAt(90)}, 41), first);
    EXPECT_NE(key({deviceAt(41)}, 20), first);
    EXPECT_NE(key({deviceAt(42)}, 42), first);
}

TEST(TrayIconMaker, DrawsAnewWhatLooksDifferent)
{
    TrayIconMaker maker;
    for (const std::vector<BatteryDevice>& devices :
         {std::vector<BatteryDevice>{}, {deviceAt(42)}, {deviceAt(20)}, {}}) {
        const QImage shown = maker.make(devices, threshold).pixmap(QSize(22, 22), 1.0).toImage();
        EXPECT_TRUE(shown == trayImage(devices, threshold, 22));
    }
}

TEST(TrayImage, IsRedAtTheThresholdAndNotAboveIt)
{
    for (const int side : sides) {
        EXPECT_TRUE(isRed(plateColour(trayImageAt(20, side)))) << side;
        EXPECT_FALSE(isRed(plateColour(trayImageAt(21, side)))) << side;
    }
    EXPECT_TRUE(isRed(plateColour(trayImage({deviceAt(0)}, 0, 22))));
    EXPECT_FALSE(isRed(plateColour(trayImage({deviceAt(1)}, 0, 22))));
}

TEST(TrayImage, ShowsTheWeakestDevice)
{
    const std::vector<BatteryDevice> devices{deviceAt(88, 803), deviceAt(15, 805),
                                             deviceAt(40, 804)};
    EXPECT_TRUE(trayImage(devices, threshold, 22) == trayImageAt(15, 22));
}

TEST(TrayImage, HasItsNumberInPureWhite)
{
    for (const int side : sides) {
        for (const int level : {7, 15, 42, 88, 100}) {
            EXPECT_GT(countPixels(trayImageAt(level, side), Qt::white), side) << level;
        }
    }
}

TEST(TrayImage, IsReadableOnAnyPanelSinceItsNumberStandsOnAPlateOfItsOwn)
{
    for (const std::int64_t level : {15, 42}) {
        EXPECT_GT(contrast(Qt::white, plateColour(trayImageAt(level, 64))), readable) << level;
    }
    for (const int side : sides) {
        // The corners are round; within them nothing of the panel shows through.
        const int corner = side / 4;
        const QImage image = trayImageAt(42, side);
        for (int y = corner; y < side - corner; ++y) {
            for (int x = 0; x < side; ++x) {
                EXPECT_EQ(image.pixelColor(x, y).alpha(), 255) << side << ": " << x << ' ' << y;
            }
        }
    }
}

TEST(TrayImage, HasABarAsLongAsTheLevel)
{
    const QColor green(0x36, 0xD6, 0x93);
    const int full = countPixels(trayImageAt(100, 64), green);
    EXPECT_GT(full, 64);
    EXPECT_NEAR(countPixels(trayImageAt(50, 64), green), full / 2, full / 10);
    EXPECT_EQ(countPixels(trayImage({deviceAt(0)}, -1, 64), green), 0);
}

TEST(TrayImage, HasATraceOfABarForTheLeastCharge)
{
    for (const int side : sides) {
        const QRect bar(0, side - side / 8, side, side / 8);
        EXPECT_FALSE(trayImage({deviceAt(0)}, -1, side).copy(bar) ==
                     trayImage({deviceAt(1)}, -1, side).copy(bar))
            << side;
    }
}

TEST(TrayImage, WithNoDeviceIsTheStatusIconAlone)
{
    const QColor cell(0x5A, 0x85, 0x9C);
    const QColor charge(0x12, 0x96, 0x6A);
    for (const int side : sides) {
        const QImage image = trayImage({}, threshold, side);
        EXPECT_EQ(image.size(), QSize(side, side));
        EXPECT_GT(countPixels(image, cell), 0) << side;
        EXPECT_GT(countPixels(image, charge), 0) << side;
        EXPECT_EQ(image.pixelColor(0, side / 2).alpha(), 0) << side;
        EXPECT_EQ(image.pixelColor(side - 1, side / 2).alpha(), 0) << side;
    }
}

TEST(TrayImage, IsDrawnForAnyNumberThatADeviceMayReport)
{
    for (const std::int64_t level :
         {std::numeric_limits<std::int64_t>::min(), std::int64_t{-1}, std::int64_t{255},
          std::int64_t{1234}, std::numeric_limits<std::int64_t>::max()}) {
        for (const int side : sides) {
            EXPECT_EQ(trayImageAt(level, side).size(), QSize(side, side));
        }
    }
    EXPECT_GT(difference(drawnNumber(-1, {22, 16}), drawnNumber(1, {22, 16})), 0);
}

TEST(TrayNumber, StaysWithinItsAreaAndFillsItsHeight)
{
    for (const QSize& size : {QSize(16, 11), QSize(22, 16), QSize(64, 46)}) {
        for (std::int64_t number = 0; number <= 100; ++number) {
            const QRectF area(QPointF(3, 5), size);
            const QRectF bounds = numberOutline(number, area.toRect()).boundingRect();
            EXPECT_TRUE(area.adjusted(-0.01, -0.01, 0.01, 0.01).contains(bounds)) << number;
            EXPECT_NEAR(bounds.top(), area.top(), 0.01) << number;
            EXPECT_NEAR(bounds.bottom(), area.bottom(), 0.01) << number;
        }
    }
}

TEST(TrayNumber, StandsInTheMiddle)
{
    for (const std::int64_t number : {0, 88, 100}) {
        const QRectF bounds = numberOutline(number, QRect(0, 0, 44, 32)).boundingRect();
        EXPECT_NEAR(bounds.center().x(), 22, 1) << number;
    }
}

TEST(TrayNumber, HasSharpStems)
{
    for (const QSize& size : {QSize(16, 11), QSize(22, 16), QSize(24, 18), QSize(32, 24)}) {
        const QImage four = drawnNumber(4, size);
        EXPECT_GT(countInk(four), 0);
        EXPECT_EQ(countInk(four), countPixels(four, Qt::white)) << size.width();
    }
}

TEST(TrayNumber, OfSixteenPixelsIsLikeNoOther)
{
    const QSize size(16, 11);
    std::vector<QImage> drawn;
    for (std::int64_t number = 0; number <= 100; ++number) {
        drawn.push_back(drawnNumber(number, size));
    }
    for (std::size_t one = 0; one < drawn.size(); ++one) {
        for (std::size_t other = 0; other < one; ++other) {
            EXPECT_GE(difference(drawn[one], drawn[other]), 2) << one << " and " << other;
        }
    }
}

TEST(TrayNumber, OfAHundredHasStemsOfTwoPixelsAtSixteenPixels)
{
    const QImage row = drawnNumber(100, {16, 11}).copy(0, 5, 16, 1);
    EXPECT_EQ(countPixels(row, Qt::white), 2 + 4 + 4);
}

TEST(TrayNumber, OfAHundredHasGapsBetweenItsDigitsAtSixteenPixels)
{
    const QImage image = drawnNumber(100, {16, 11});
    const auto isEmptyColumn = [&image](int x) {
        return countInk(image.copy(x, 0, 1, image.height())) == 0;
    };
    int gaps = 0;
    for (int x = 1; x < image.width(); ++x) {
        gaps += isEmptyColumn(x) && !isEmptyColumn(x - 1) ? 1 : 0;
    }
    EXPECT_EQ(gaps, 3); // the last one is the margin
}

} // namespace
} // namespace voltmere
