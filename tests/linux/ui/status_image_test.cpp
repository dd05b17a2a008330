#include "linux/ui/contrast.h"
#include "linux/ui/pictures.h"

#include "linux/ui/app_icon_asset.h"
#include "linux/ui/status_image.h"
#include "linux/ui/theme.h"

#include <gmock/gmock.h>

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPainter>
#include <QtMath>

#include <algorithm>
#include <limits>

namespace voltmere {
namespace {

constexpr int textLeft = 20 + 5;

/// Large enough for a stem of a letter to cover whole pixels.
constexpr int magnified = 8;

using Scheme = std::optional<ColourScheme>;

/// What stands to the right of the icon.
QImage textPart(const DrawnImage& image)
{
    const QImage rendered = image.rendered(magnified);
    return rendered.copy(textLeft * magnified, 0, rendered.width() - textLeft * magnified,
                         rendered.height());
}

bool isWrittenIn(const QColor& colour, const DrawnImage& image)
{
    return countPixels(textPart(image), colour) > 0;
}

qreal widthOf(const QString& label)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPixelSize(13);
    return QFontMetricsF(font).horizontalAdvance(label);
}

bool looksLike(const DrawnImage& one, const DrawnImage& other)
{
    return one.rendered(magnified) == other.rendered(magnified);
}

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

TEST(StatusImage, OfAnEmptyListIsAsWideAsTheIconAndHasNoText)
{
    const DrawnImage image = StatusImage::make({}, 20, ColourScheme::dark);
    EXPECT_EQ(image.size, QSize(20, 22));
    const QImage icon = AppIconAsset::statusImage().rendered(1);
    EXPECT_EQ(image.rendered(1).copy(0, 1, 20, 20), icon.copy());
    EXPECT_EQ(countInk(image.rendered(1)), countInk(icon));
}

TEST(StatusImage, OfDevicesAt40And15And15ShowsTheFirst15AndNothingElse)
{
    const std::vector<BatteryDevice> devices{deviceAt(40, 803), deviceAt(15, 805),
                                             deviceAt(15, 804)};
    const DrawnImage image = StatusImage::make(devices, 20, ColourScheme::light);
    EXPECT_TRUE(looksLike(image, StatusImage::make({deviceAt(15)}, 20, ColourScheme::light)));
    EXPECT_FALSE(looksLike(image, StatusImage::make({deviceAt(16)}, 20, ColourScheme::light)));
    EXPECT_EQ(image.size.width(), qCeil(textLeft + widthOf("15%")));
}

TEST(StatusImage, AtTheThresholdIsRedAndAboveItNormal)
{
    const DrawnImage atThreshold = StatusImage::make({deviceAt(20)}, 20, ColourScheme::light);
    EXPECT_TRUE(isWrittenIn(systemRed(ColourScheme::light), atThreshold));
    EXPECT_FALSE(isWrittenIn(Qt::black, atThreshold));
    const DrawnImage above = StatusImage::make({deviceAt(21)}, 20, ColourScheme::light);
    EXPECT_TRUE(isWrittenIn(Qt::black, above));
    EXPECT_FALSE(isWrittenIn(systemRed(ColourScheme::light), above));
}

TEST(StatusImage, IsWrittenInWhiteWhenDarkAndInBlackWhenLightOrWithoutAScheme)
{
    for (const auto& [scheme, colour, other] :
         {std::tuple(Scheme(ColourScheme::dark), Qt::white, Qt::black),
          std::tuple(Scheme(ColourScheme::light), Qt::black, Qt::white),
          std::tuple(Scheme(), Qt::black, Qt::white)}) {
        const DrawnImage image = StatusImage::make({deviceAt(57)}, 20, scheme);
        EXPECT_TRUE(isWrittenIn(colour, image));
        EXPECT_FALSE(isWrittenIn(other, image));
    }
}

TEST(StatusImage, WarnsInTheRedOfItsScheme)
{
    for (const Scheme scheme :
         {Scheme(ColourScheme::dark), Scheme(ColourScheme::light), Scheme()}) {
        EXPECT_TRUE(isWrittenIn(systemRed(scheme), StatusImage::make({deviceAt(7)}, 20, scheme)));
    }
}

TEST(StatusImage, IsNeverATemplate)
{
    for (const Scheme scheme :
         {Scheme(ColourScheme::dark), Scheme(ColourScheme::light), Scheme()}) {
        EXPECT_FALSE(StatusImage::make({}, 20, scheme).isTemplate);
        EXPECT_FALSE(StatusImage::make({deviceAt(7)}, 20, scheme).isTemplate);
        EXPECT_FALSE(StatusImage::make({deviceAt(57)}, 20, scheme).isTemplate);
    }
}

TEST(StatusImage, ShowsALevelAsItWasReported)
{
    EXPECT_EQ(StatusImage::make({deviceAt(-1)}, 20, {}).size.width(),
              qCeil(textLeft + widthOf("-1%")));
    EXPECT_EQ(StatusImage::make({deviceAt(1234)}, 20, {}).size.width(),
              qCeil(textLeft + widthOf("1234%")));
}

TEST(StatusImage, WritesTheLabelFivePointsFromTheIconCentredByTheHeightOfItsFont)
{
    const DrawnImage image = StatusImage::make({deviceAt(57)}, 20, ColourScheme::light);
    const auto draw = [](QPainter& painter, const QRectF& /*destination*/) {
        QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
        font.setPixelSize(13);
        font.setStyleStrategy(QFont::NoSubpixelAntialias);
        const QFontMetricsF metrics(font);
        painter.setFont(font);
        painter.drawText(QPointF(25, (22 - metrics.height()) / 2 + metrics.ascent()), "57%");
    };
    EXPECT_EQ(textPart(image), textPart({.size = image.size, .draw = draw}));
}

TEST(StatusImage, WritesTheLabelInTheMiddleOfItsHeight)
{
    const QImage text = textPart(StatusImage::make({deviceAt(88)}, 20, ColourScheme::light));
    const int third = text.height() / 3;
    EXPECT_GT(countPixels(text.copy(0, third, text.width(), third), Qt::black), 0);
    EXPECT_EQ(countInk(text.copy(0, 0, text.width(), magnified * 2)), 0);
    EXPECT_EQ(countInk(text.copy(0, text.height() - magnified * 2, text.width(), magnified * 2)),
              0);
}

TEST(StatusImage, HasRoomForItsWholeText)
{
    const DrawnImage image = StatusImage::make({deviceAt(100)}, 20, ColourScheme::light);
    QImage canvas((image.size + QSize(20, 0)) * magnified, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    painter.scale(magnified, magnified);
    image.draw(painter, QRectF(QPointF(), image.size));
    const int right = image.size.width() * magnified;
    EXPECT_EQ(countInk(canvas.copy(right, 0, 20 * magnified, canvas.height())), 0);
}

TEST(StatusImage, FillsTheRectangleThatItIsDrawnInto)
{
    const DrawnImage image = StatusImage::make({deviceAt(57)}, 20, ColourScheme::light);
    QImage canvas(image.size * 3, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    image.draw(painter, QRectF(QPointF(image.size.width(), image.size.height()), image.size * 2));
    const QRect destination(QPoint(image.size.width(), image.size.height()), image.size * 2);
    EXPECT_GT(countInk(canvas.copy(destination)), 0);
    EXPECT_EQ(countInk(canvas), countInk(canvas.copy(destination)));
    EXPECT_EQ(countInk(canvas), countInk(image.rendered(2)));
}

TEST(SystemRed, IsTheOneOfTheScheme)
{
    EXPECT_EQ(systemRed(ColourScheme::light), QColor("#FF3B30"));
    EXPECT_EQ(systemRed(ColourScheme::dark), QColor("#FF453A"));
    EXPECT_EQ(systemRed(std::nullopt), QColor("#FF3B30"));
}

TEST(TrayIcon, IsOfferedInTheSizesOfUsualPanels)
{
    QList<QSize> expected;
    for (const int side : sides) {
        expected.append({side, side});
    }
    EXPECT_EQ(makeTrayIcon(IconLevel{42, false}).availableSizes(), expected);
    EXPECT_EQ(makeTrayIcon(std::nullopt).availableSizes(), expected);
}

TEST(TrayIcon, HasThePictureOfEachSize)
{
    const QIcon icon = makeTrayIcon(IconLevel{42, false});
    for (const int side : sides) {
        EXPECT_TRUE(icon.pixmap(QSize(side, side), 1.0).toImage() == trayImageAt(42, side)) << side;
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
    EXPECT_EQ(countPixels(trayImage(IconLevel{0, false}, 64), green), 0);
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
