#include "linux/ui/images.h"

#include "fakes/sample_devices.h"
#include "linux/ui/pictures.h"
#include "linux/ui/theme.h"
#include "posix/temporary_directory.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QPixmap>

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

/// An SVG file of one colour.
std::string svgOf(const std::string& colour)
{
    return "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 8 8'><rect width='8' height='8' "
           "fill='" +
        colour + "'/></svg>";
}

/// Pictures in a directory, each kind in a colour of its own.
class AppIconAssetTest : public testing::Test {
protected:
    void addPng(const std::string& name, const QColor& colour, int side) const
    {
        ASSERT_TRUE(filledImage(colour, side).save(QString::fromStdString(directory / name)));
    }
    void addStatusPng() const { addPng("StatusIcon.png", Qt::red, 20); }
    void addStatusSvg() const { writeFile(directory / "StatusIcon.svg", svgOf("#00ff00")); }
    void addAppSvg() const { writeFile(directory / "AppIcon.svg", svgOf("#0000ff")); }
    void damage(const std::string& name) const { writeFile(directory / name, "no picture"); }

    DrawnImage statusImage(const QIcon& applicationIcon = {}) const
    {
        return AppIconAsset::statusImageFrom(QString::fromStdString(directory.path()),
                                             applicationIcon);
    }

    std::optional<DrawnImage> appImage(int side) const
    {
        return AppIconAsset::appImageFrom(QString::fromStdString(directory.path()), side);
    }

    /// The colour in the middle of the status icon.
    QColor statusColour(qreal ratio = 1) const
    {
        const QImage image = statusImage(applicationIcon).rendered(ratio);
        return image.pixelColor(image.rect().center());
    }

    TemporaryDirectory directory;
    QIcon applicationIcon{QPixmap::fromImage(filledImage(Qt::magenta, 64))};
};

TEST_F(AppIconAssetTest, TheStatusIconIsThePngElseTheSvgElseTheApplicationsElseItsOwnIcon)
{
    EXPECT_EQ(statusColour(), QColor(Qt::magenta));
    addAppSvg();
    EXPECT_EQ(statusColour(), QColor(Qt::blue));
    addStatusSvg();
    EXPECT_EQ(statusColour(), QColor(Qt::green));
    addStatusPng();
    EXPECT_EQ(statusColour(), QColor(Qt::red));
}

TEST_F(AppIconAssetTest, ADamagedStatusIconLeadsToTheApplicationsAtOnce)
{
    addAppSvg();
    damage("StatusIcon.svg");
    EXPECT_EQ(statusColour(), QColor(Qt::blue));

    addStatusSvg();
    damage("StatusIcon.png");
    EXPECT_EQ(statusColour(), QColor(Qt::blue));

    damage("AppIcon.svg");
    EXPECT_EQ(statusColour(), QColor(Qt::magenta));
}

TEST_F(AppIconAssetTest, TheStatusIconFillsTwentyPoints)
{
    EXPECT_EQ(countInk(statusImage().rendered(1)), 0) << "no icon at all";
    const auto fills = [this](const QColor& colour) {
        const DrawnImage image = statusImage(applicationIcon);
        EXPECT_EQ(image.size, QSize(20, 20));
        EXPECT_EQ(countPixels(image.rendered(1), colour), 20 * 20);
        EXPECT_EQ(countPixels(image.rendered(2), colour), 40 * 40);
    };
    fills(Qt::magenta);
    addAppSvg();
    fills(Qt::blue);
    addStatusPng();
    fills(Qt::red);
}

TEST_F(AppIconAssetTest, TheStatusIconUsesTheDenserPngOnADenserScreen)
{
    addStatusPng();
    addPng("StatusIcon@2x.png", Qt::green, 40);
    EXPECT_EQ(statusColour(1), QColor(Qt::red));
    EXPECT_EQ(statusColour(2), QColor(Qt::green));
}

TEST_F(AppIconAssetTest, TheAppImageHasTheSideThatIsAskedFor)
{
    addAppSvg();
    for (const int side : {22, 64}) {
        const auto image = appImage(side);
        ASSERT_TRUE(image);
        EXPECT_EQ(image->size, QSize(side, side));
        EXPECT_EQ(countPixels(image->rendered(2), Qt::blue), 4 * side * side);
    }
}

TEST_F(AppIconAssetTest, TheAppImageIsNothingWithoutAnAppIcon)
{
    addStatusPng();
    addStatusSvg();
    EXPECT_FALSE(appImage(64));
    damage("AppIcon.svg");
    EXPECT_FALSE(appImage(64));
}

TEST(AppIconAsset, TheStatusIconOfTheProgramIsItsPngAndIsBuiltOnce)
{
    const DrawnImage& image = AppIconAsset::statusImage();
    EXPECT_EQ(&image, &AppIconAsset::statusImage());
    EXPECT_EQ(image.rendered(1).convertToFormat(QImage::Format_ARGB32),
              QImage(":/voltmere/StatusIcon.png").convertToFormat(QImage::Format_ARGB32));
}

TEST(AppIconAsset, TheAppImageOfTheProgramHasAllItsColours)
{
    const auto image = AppIconAsset::appImage(64);
    ASSERT_TRUE(image);
    const QImage drawn = image->rendered(8);
    EXPECT_EQ(drawn.size(), QSize(512, 512));
    EXPECT_EQ(drawn.pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(drawn.pixelColor(256, 110), QColor("#86b3c9"));
    EXPECT_EQ(drawn.pixelColor(256, 380), QColor("#36d693"));
    EXPECT_EQ(drawn.pixelColor(170, 256), QColor(Qt::white));
    EXPECT_EQ(drawn.pixelColor(240, 256), QColor("#0f2740"));
}

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

TEST(StatusImage, OfAnEmptyListIsAsWideAsTheIconAndHasNoText)
{
    const DrawnImage image = StatusImage::make({}, 20, ColourScheme::dark);
    EXPECT_EQ(image.size, QSize(20, 22));
    const QImage icon = AppIconAsset::statusImage().rendered(1);
    EXPECT_EQ(image.rendered(1).copy(0, 1, 20, 20), icon.copy());
    EXPECT_EQ(countInk(image.rendered(1)), countInk(icon));
}

TEST(StatusImage, WritesTheWeakestLevelInRedAtTheThresholdElseInTheColourOfTheScheme)
{
    const QColor white = Qt::white;
    const QColor black = Qt::black;
    for (const Scheme scheme :
         {Scheme(ColourScheme::dark), Scheme(ColourScheme::light), Scheme()}) {
        const QColor normal = scheme == ColourScheme::dark ? white : black;
        const DrawnImage low = StatusImage::make({mouse(40), keyboard(20)}, 20, scheme);
        EXPECT_TRUE(isWrittenIn(systemRed(scheme), low));
        EXPECT_FALSE(isWrittenIn(normal, low));
        const DrawnImage above = StatusImage::make({mouse(40), keyboard(21)}, 20, scheme);
        EXPECT_TRUE(isWrittenIn(normal, above));
        EXPECT_FALSE(isWrittenIn(systemRed(scheme), above));
        EXPECT_EQ(above.rendered(2), StatusImage::make({mouse(21)}, 20, scheme).rendered(2));
    }
}

TEST(StatusImage, WritesTheLabelFivePointsFromTheIconCentredByTheHeightOfItsFont)
{
    const QFont usual = QApplication::font();
    QApplication::setFont(QFont(usual.family(), 30)); // the painter's own, at first
    const DrawnImage image = StatusImage::make({mouse(57)}, 20, ColourScheme::light);
    const auto draw = [](QPainter& painter, const QRectF& /*destination*/) {
        QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
        font.setPixelSize(13);
        font.setStyleStrategy(QFont::NoSubpixelAntialias);
        const QFontMetricsF metrics(font);
        painter.setFont(font);
        painter.drawText(QPointF(25, (22 - metrics.height()) / 2 + metrics.ascent()), "57%");
    };
    EXPECT_EQ(textPart(image), textPart({.size = image.size, .draw = draw}));
    QApplication::setFont(usual);
}

TEST(StatusImage, HasRoomForItsWholeText)
{
    const DrawnImage image = StatusImage::make({mouse(100)}, 20, ColourScheme::light);
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
    const DrawnImage image = StatusImage::make({mouse(57)}, 20, ColourScheme::light);
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

} // namespace
} // namespace voltmere
