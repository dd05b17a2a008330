#include "linux/ui/pictures.h"

#include "linux/ui/app_icon_asset.h"
#include "linux/ui/colours.h"
#include "linux/ui/status_image.h"

#include <gmock/gmock.h>

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QtMath>

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

TEST(StatusImage, WithThresholdZeroIsRedAtZeroOnly)
{
    const QColor red = systemRed(ColourScheme::light);
    EXPECT_TRUE(isWrittenIn(red, StatusImage::make({deviceAt(0)}, 0, ColourScheme::light)));
    EXPECT_FALSE(isWrittenIn(red, StatusImage::make({deviceAt(1)}, 0, ColourScheme::light)));
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

TEST(StatusImage, OfAHundredIsWiderByItsText)
{
    const DrawnImage hundred = StatusImage::make({deviceAt(100)}, 20, ColourScheme::light);
    const DrawnImage fifty = StatusImage::make({deviceAt(50)}, 20, ColourScheme::light);
    EXPECT_EQ(hundred.size, QSize(qCeil(textLeft + widthOf("100%")), 22));
    EXPECT_EQ(fifty.size, QSize(qCeil(textLeft + widthOf("50%")), 22));
    EXPECT_GT(hundred.size.width(), fifty.size.width());
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

} // namespace
} // namespace voltmere
