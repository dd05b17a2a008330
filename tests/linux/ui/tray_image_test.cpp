#include "linux/ui/icon.h"

#include "linux/ui/pictures.h"
#include "linux/ui/theme.h"

#include <gmock/gmock.h>

#include <QPainter>

#include <algorithm>
#include <limits>
#include <set>

namespace voltmere {
namespace {

using testing::ElementsAre;

const std::vector<int> sides{16, 22, 24, 32, 44, 48, 64};
constexpr std::int64_t threshold = 20;

QImage trayImageAt(std::int64_t level, int side)
{
    return trayImage(IconLevel{level, level <= threshold}, side);
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

/// The rows of a drawn number, with a sign for each pixel that is at least half covered.
std::vector<std::string> rowsOf(std::int64_t number, const QSize& size)
{
    const QImage image = drawnNumber(number, size);
    std::vector<std::string> rows;
    for (int y = 0; y < size.height(); ++y) {
        rows.emplace_back();
        for (int x = 0; x < size.width(); ++x) {
            rows.back() += qAlpha(image.pixel(x, y)) > 127 ? '#' : '.';
        }
    }
    return rows;
}

/// The smallest rectangle around the pixels that have a property.
template<typename Predicate>
QRect boundsOf(const QImage& image, Predicate predicate)
{
    QRect bounds;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (predicate(image.pixel(x, y))) {
                bounds |= QRect(x, y, 1, 1);
            }
        }
    }
    return bounds;
}

TEST(TrayIcon, HasThePictureOfEachSizeOfUsualPanels)
{
    QList<QSize> sizes;
    const QIcon icon = makeTrayIcon(IconLevel{42, false});
    for (const int side : sides) {
        sizes.append({side, side});
        EXPECT_TRUE(icon.pixmap(sizes.back(), 1.0).toImage() == trayImageAt(42, side)) << side;
    }
    EXPECT_EQ(icon.availableSizes(), sizes);
}

TEST(TrayImage, HasTheBarBelowTheNumberWithinThePlate)
{
    const auto isWhite = [](QRgb pixel) { return pixel == QColor(Qt::white).rgba(); };
    const auto isGreen = [](QRgb pixel) { return qGreen(pixel) - qRed(pixel) > 60; };
    for (const auto& [side, number, bar] :
         {std::tuple(16, QRect(1, 1, 13, 11), QRect(2, 13, 12, 2)),
          std::tuple(22, QRect(1, 2, 20, 16), QRect(2, 19, 18, 2)),
          std::tuple(64, QRect(3, 5, 57, 44), QRect(8, 53, 48, 6))}) {
        const QImage image = trayImageAt(44, side);
        EXPECT_EQ(boundsOf(image, isWhite), number) << side;
        EXPECT_EQ(boundsOf(trayImageAt(100, side), isGreen), bar) << side;
        EXPECT_LT(image.pixelColor(0, 0).alpha(), 16) << "the corners are round";
    }
}

TEST(TrayImage, IsRedForALowLevelOnly)
{
    for (const int side : sides) {
        EXPECT_TRUE(isRed(plateColour(trayImageAt(20, side)))) << side;
        EXPECT_FALSE(isRed(plateColour(trayImageAt(21, side)))) << side;
    }
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
    const QImage empty = trayImage(IconLevel{0, false}, 64);
    EXPECT_EQ(countPixels(empty, green), 0);
    EXPECT_GT(empty.pixelColor(32, 56).lightness(), plateColour(empty).lightness()) << "its track";
}

TEST(TrayImage, HasATraceOfABarForTheLeastCharge)
{
    for (const int side : sides) {
        const QRect bar(0, side - side / 8, side, side / 8);
        EXPECT_FALSE(trayImage(IconLevel{0, false}, side).copy(bar) ==
                     trayImage(IconLevel{1, false}, side).copy(bar))
            << side;
    }
}

TEST(TrayImage, WithNoDeviceIsTheStatusIconAlone)
{
    const QColor cell(0x5A, 0x85, 0x9C);
    const QColor charge(0x12, 0x96, 0x6A);
    for (const int side : sides) {
        const QImage image = trayImage(std::nullopt, side);
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
    EXPECT_NE(rowsOf(-1, {22, 16}), rowsOf(1, {22, 16}));
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
    std::set<std::vector<std::string>> drawn;
    for (std::int64_t number = 0; number <= 100; ++number) {
        drawn.insert(rowsOf(number, {16, 11}));
    }
    EXPECT_EQ(drawn.size(), 101U);
}

TEST(TrayNumber, IsSharpInTheSmallestSizes)
{
    // clang-format off
    EXPECT_THAT(rowsOf(100, {16, 11}),
                ElementsAre(".##...#.....#...",
                            ".##..###...###..",
                            "###.##.##.##.##.",
                            "###.##.##.##.##.",
                            "###.##.##.##.##.",
                            "###.##.##.##.##.",
                            ".##.##.##.##.##.",
                            ".##.##.##.##.##.",
                            ".##.##.##.##.##.",
                            ".##..###...###..",
                            ".##...#.....#..."));
    EXPECT_THAT(rowsOf(41, {22, 15}),
                ElementsAre("...###...###....###...",
                            "...###...###....###...",
                            "...###...###...####...",
                            "...###...###..#####...",
                            "...###...###..#####...",
                            "...###...###..#####...",
                            "...#########..#####...",
                            "...#########..#.###...",
                            "...#########..#.###...",
                            ".........###....###...",
                            ".........###....###...",
                            ".........###....###...",
                            ".........###....###...",
                            ".........###....###...",
                            ".........###....###..."));
    EXPECT_THAT(rowsOf(8, {16, 11}),
                ElementsAre(".......##.......",
                            "......####......",
                            ".....##..##.....",
                            ".....##..##.....",
                            "......####......",
                            "......####......",
                            ".....##..##.....",
                            ".....##..##.....",
                            ".....##..##.....",
                            "......####......",
                            ".......##......."));
    // clang-format on
}

} // namespace
} // namespace voltmere
