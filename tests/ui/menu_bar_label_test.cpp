#include "ui/menu_bar_label.h"

#include "fakes/fake_appearance.h"
#include "fakes/fake_status_item.h"
#include "fakes/model_world.h"
#include "fakes/sample_devices.h"
#include "ui/status_image.h"

#include <gmock/gmock.h>

#include <QBuffer>
#include <QCoreApplication>
#include <QImage>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::SizeIs;

class MenuBarLabelTest : public testing::Test {
protected:
    MenuBarLabelTest()
        : model(world.start())
    {
        world.runLoop.settle();
    }

    void show()
    {
        label = std::make_unique<MenuBarLabel>(
            model, appearance, std::make_unique<FakeStatusItem>(bar),
            [this](const QRect& place) { toggles.push_back(place); });
    }

    void setDevices(std::vector<BatteryDevice> devices)
    {
        model.devices = std::move(devices);
        QCoreApplication::processEvents();
    }

    static QImage imageOf(const std::string& png)
    {
        return QImage::fromData(QByteArray::fromStdString(png), "PNG")
            .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    }

    /// What the menu bar shows, at one pixel for each point.
    QImage shown() { return imageOf(bar.pictures.back().bitmaps.at(0)); }

    QImage expected()
    {
        QImage image =
            StatusImage::make(model.devices, model.threshold, appearance.scheme).rendered(1.0);
        image.setDevicePixelRatio(1.0);
        return imageOf([&image] {
            QByteArray bytes;
            QBuffer buffer(&bytes);
            image.save(&buffer, "PNG");
            return bytes.toStdString();
        }());
    }

    ModelWorld world;
    BatteryModel& model;
    FakeAppearance appearance;
    FakeStatusItem::Log bar;
    std::vector<QRect> toggles;
    std::unique_ptr<MenuBarLabel> label;
};

TEST_F(MenuBarLabelTest, WithoutPeripheralsThereIsTheIconAlone)
{
    show();

    ASSERT_THAT(bar.pictures, SizeIs(1));
    EXPECT_EQ(bar.pictures[0].width, 20);
    EXPECT_EQ(bar.pictures[0].height, 22);
    EXPECT_EQ(bar.description, "Cellsentry");
}

TEST_F(MenuBarLabelTest, ThePictureComesAtOneAndTwoPixelsToAPoint)
{
    show();
    setDevices({mouse(37)});

    const StatusItemPicture& picture = bar.pictures.back();
    ASSERT_THAT(picture.bitmaps, SizeIs(2));
    const QSize points(static_cast<int>(picture.width), static_cast<int>(picture.height));
    EXPECT_GT(points.width(), 20);
    EXPECT_EQ(points.height(), 22);
    EXPECT_EQ(imageOf(picture.bitmaps[0]).size(), points);
    EXPECT_EQ(imageOf(picture.bitmaps[1]).size(), 2 * points);
}

TEST_F(MenuBarLabelTest, ThePictureIsTheStatusImageOfTheModel)
{
    show();
    setDevices({mouse(37), keyboard(12)});

    EXPECT_EQ(shown(), expected());
}

TEST_F(MenuBarLabelTest, TheSchemeCountsAtTheNextChangeOfTheModel)
{
    show();
    setDevices({mouse(37)});
    const QImage light = shown();
    appearance.scheme = ColourScheme::dark;
    EXPECT_THAT(bar.pictures, SizeIs(2));

    model.status = "x";
    QCoreApplication::processEvents();
    EXPECT_NE(shown(), light);
    EXPECT_EQ(shown(), expected());
}

TEST_F(MenuBarLabelTest, EveryDeviceIsDescribedInDisplayOrder)
{
    show();
    setDevices({trackpad(5), mouse(37)});

    EXPECT_EQ(bar.description, "Cellsentry\nMagic Mouse 37%\nMagic Trackpad 5%");
}

TEST_F(MenuBarLabelTest, AClickTogglesThePanelAtTheItem)
{
    show();
    bar.click({1200.5, 0, 61, 24});

    EXPECT_THAT(toggles, ElementsAre(QRect(1200, 0, 62, 24)));
}

TEST_F(MenuBarLabelTest, AfterItsEndTheModelChangesUnseen)
{
    show();
    label.reset();
    setDevices({mouse(37)});

    EXPECT_THAT(bar.pictures, SizeIs(1));
}

} // namespace
} // namespace voltmere
