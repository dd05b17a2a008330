#include "linux/ui/app_icon_asset.h"

#include "linux/ui/pictures.h"
#include "posix/temporary_directory.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QPixmap>

namespace voltmere {
namespace {

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

} // namespace
} // namespace voltmere
