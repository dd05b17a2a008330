#include "linux/ui/pictures.h"

#include "linux/ui/app_icon_asset.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QPixmap>

namespace voltmere {
namespace {

/// An application icon that none of the bundles here has.
QIcon applicationIcon()
{
    return QIcon(QPixmap::fromImage(filledImage(Qt::magenta, 64)));
}

/// The colour in the middle of the status icon from that bundle.
QColor statusColour(const ImageBundle& bundle, qreal ratio = 1)
{
    const QImage image = AppIconAsset::statusImageFrom(bundle, applicationIcon()).rendered(ratio);
    return image.pixelColor(image.rect().center());
}

const QByteArray damaged("no picture");

TEST(AppIconAsset, StatusIconIsThePngWhereThereIsOne)
{
    EXPECT_EQ(statusColour(bundleOf({{"StatusIcon.png", pngOf(Qt::red, 20)},
                                     {"StatusIcon.icns", icnsOf({pngOf(Qt::green, 32)})},
                                     {"AppIcon.icns", icnsOf({pngOf(Qt::blue, 32)})}})),
              QColor(Qt::red));
}

TEST(AppIconAsset, StatusIconIsItsIcnsWithoutThePng)
{
    EXPECT_EQ(statusColour(bundleOf({{"StatusIcon.icns", icnsOf({pngOf(Qt::green, 32)})},
                                     {"AppIcon.icns", icnsOf({pngOf(Qt::blue, 32)})}})),
              QColor(Qt::green));
}

TEST(AppIconAsset, StatusIconIsTheApplicationsIcnsWithoutEither)
{
    EXPECT_EQ(statusColour(bundleOf({{"AppIcon.icns", icnsOf({pngOf(Qt::blue, 32)})}})),
              QColor(Qt::blue));
}

TEST(AppIconAsset, ADamagedPngLeadsToTheApplicationsIcnsAtOnce)
{
    EXPECT_EQ(statusColour(bundleOf({{"StatusIcon.png", damaged},
                                     {"StatusIcon.icns", icnsOf({pngOf(Qt::green, 32)})},
                                     {"AppIcon.icns", icnsOf({pngOf(Qt::blue, 32)})}})),
              QColor(Qt::blue));
}

TEST(AppIconAsset, ADamagedStatusIcnsLeadsToTheApplicationsIcns)
{
    EXPECT_EQ(statusColour(bundleOf(
                  {{"StatusIcon.icns", damaged}, {"AppIcon.icns", icnsOf({pngOf(Qt::blue, 32)})}})),
              QColor(Qt::blue));
}

TEST(AppIconAsset, StatusIconIsTheApplicationsOwnIconWithoutAnyPicture)
{
    EXPECT_EQ(statusColour(bundleOf({})), QColor(Qt::magenta));
}

TEST(AppIconAsset, StatusIconIsTheApplicationsOwnIconWhenAllPicturesAreDamaged)
{
    EXPECT_EQ(
        statusColour(bundleOf({{"StatusIcon.png", damaged}, {"AppIcon.icns", icnsOf({damaged})}})),
        QColor(Qt::magenta));
}

TEST(AppIconAsset, StatusIconDrawsNothingWithNoIconAtAll)
{
    const DrawnImage image = AppIconAsset::statusImageFrom(bundleOf({}), QIcon());
    EXPECT_EQ(image.size, QSize(20, 20));
    EXPECT_EQ(countInk(image.rendered(1)), 0);
}

TEST(AppIconAsset, StatusIconFillsTwentyPointsAndIsNoTemplate)
{
    const std::vector<ImageBundle> bundles{
        bundleOf({{"StatusIcon.png", pngOf(Qt::red, 20)}}),
        bundleOf({{"AppIcon.icns", icnsOf({pngOf(Qt::red, 64)})}}),
        bundleOf({{"AppIcon.icns", icnsOf({pngOf(Qt::red, 8)})}}),
    };
    for (const ImageBundle& bundle : bundles) {
        const DrawnImage image = AppIconAsset::statusImageFrom(bundle, applicationIcon());
        EXPECT_EQ(image.size, QSize(20, 20));
        EXPECT_FALSE(image.isTemplate);
        EXPECT_EQ(countPixels(image.rendered(1), Qt::red), 20 * 20);
        EXPECT_EQ(countPixels(image.rendered(2), Qt::red), 40 * 40);
    }
}

TEST(AppIconAsset, StatusIconUsesTheDenserPngOnADenserScreen)
{
    const ImageBundle bundle = bundleOf(
        {{"StatusIcon.png", pngOf(Qt::red, 20)}, {"StatusIcon@2x.png", pngOf(Qt::green, 40)}});
    EXPECT_EQ(statusColour(bundle, 1), QColor(Qt::red));
    EXPECT_EQ(statusColour(bundle, 2), QColor(Qt::green));
}

TEST(AppIconAsset, StatusIconOfTheProgramIsBuiltOnce)
{
    const DrawnImage& image = AppIconAsset::statusImage();
    EXPECT_EQ(&image, &AppIconAsset::statusImage());
    EXPECT_EQ(image.size, QSize(20, 20));
    EXPECT_EQ(image.rendered(1).convertToFormat(QImage::Format_ARGB32),
              QImage(":/voltmere/StatusIcon.png").convertToFormat(QImage::Format_ARGB32));
}

TEST(AppIconAsset, AppImageHasTheSideThatIsAskedFor)
{
    const ImageBundle bundle = bundleOf({{"AppIcon.icns", icnsOf({pngOf(Qt::blue, 32)})}});
    for (const int side : {22, 64}) {
        const auto image = AppIconAsset::appImageFrom(bundle, side);
        ASSERT_TRUE(image);
        EXPECT_EQ(image->size, QSize(side, side));
        EXPECT_FALSE(image->isTemplate);
        EXPECT_EQ(countPixels(image->rendered(2), Qt::blue), 4 * side * side);
    }
}

TEST(AppIconAsset, AppImageIsDrawnFromThePictureThatFitsTheScreen)
{
    const ImageBundle bundle =
        bundleOf({{"AppIcon.icns",
                   icnsOf({pngOf(Qt::red, 512), pngOf(Qt::green, 64), pngOf(Qt::blue, 32)})}});
    const auto image = AppIconAsset::appImageFrom(bundle, 22);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->rendered(1).pixelColor(11, 11), QColor(Qt::blue));
    EXPECT_EQ(image->rendered(2).pixelColor(11, 11), QColor(Qt::green));
    EXPECT_EQ(image->rendered(3).pixelColor(11, 11), QColor(Qt::red));
}

TEST(AppIconAsset, AppImagePassesOverAPictureThatIsDamaged)
{
    const ImageBundle bundle =
        bundleOf({{"AppIcon.icns", icnsOf({pngOf(Qt::red, 64), pngOf(Qt::blue, 32).first(40)})}});
    const auto image = AppIconAsset::appImageFrom(bundle, 32);
    ASSERT_TRUE(image);
    EXPECT_EQ(image->rendered(1).pixelColor(16, 16), QColor(Qt::red));
}

TEST(AppIconAsset, AppImageIsNothingWithoutAnIcnsOfItsOwn)
{
    EXPECT_FALSE(AppIconAsset::appImageFrom(bundleOf({}), 64));
    EXPECT_FALSE(AppIconAsset::appImageFrom(
        bundleOf({{"StatusIcon.png", pngOf(Qt::red, 20)}, {"AppIcon.png", pngOf(Qt::red, 64)}}),
        64));
    EXPECT_FALSE(AppIconAsset::appImageFrom(bundleOf({{"AppIcon.icns", damaged}}), 64));
}

TEST(AppIconAsset, AppImageOfTheProgramIsThere)
{
    for (const int side : {22, 64}) {
        const auto image = AppIconAsset::appImage(side);
        ASSERT_TRUE(image);
        EXPECT_EQ(image->size, QSize(side, side));
        EXPECT_GT(countInk(image->rendered(2)), 2 * side * side);
    }
}

TEST(ImageBundle, OfTheProgramHasThePicturesAndDoesNotCopyThem)
{
    for (const auto& [name, extension] :
         {std::pair("StatusIcon", "png"), std::pair("StatusIcon@2x", "png"),
          std::pair("StatusIcon", "svg"), std::pair("AppIcon", "icns")}) {
        const auto bytes = findInProgram(name, extension);
        ASSERT_TRUE(bytes) << name;
        EXPECT_FALSE(bytes->isEmpty());
        EXPECT_EQ(bytes->constData(), findInProgram(name, extension)->constData());
    }
    EXPECT_FALSE(findInProgram("StatusIcon", "icns"));
}

} // namespace
} // namespace voltmere
