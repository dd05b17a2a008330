#include "linux/ui/icon.h"

#include "fakes/model_world.h"
#include "fakes/sample_devices.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QPixmap>
#include <QPointer>
#include <QTextDocument>

#include <memory>
#include <string>
#include <vector>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

/// The icon over a model whose outside is all fakes. There is no tray on the platform of these
/// tests, so what the icon would show is asked of the tray icon object itself.
class StatusLabelTest : public testing::Test {
protected:
    using Devices = std::vector<BatteryDevice>;

    struct Request {
        Devices devices;
        std::int64_t threshold;

        bool operator==(const Request&) const = default;
    };

    StatusLabelTest()
        : model(world.start())
    {
        world.runLoop.settle();
    }

    void show()
    {
        label = std::make_unique<StatusLabel>(
            model,
            StatusLabel::Behaviour{
                .picture =
                    [this](const Devices& devices, std::int64_t threshold) {
                        requests.push_back({devices, threshold});
                        QPixmap pixmap(8, 8);
                        pixmap.fill(devices.empty() ? Qt::white : Qt::black);
                        return QIcon(pixmap);
                    },
                .toggle = [this](const QRect& place) { toggles.push_back(place); },
                .open = [this](const QRect& place) { openings.push_back(place); },
                .quit = [this] { ++quits; }});
    }

    static void turn() { QCoreApplication::processEvents(); }

    void setDevices(Devices devices)
    {
        model.devices = std::move(devices);
        turn();
    }

    QSystemTrayIcon& icon() { return *label->findChild<QSystemTrayIcon*>(); }

    QColor shownColour() { return icon().icon().pixmap(8, 8).toImage().pixelColor(4, 4); }

    QList<QAction*> entries() { return icon().contextMenu()->actions(); }

    std::vector<std::string> menuTexts()
    {
        std::vector<std::string> texts;
        for (const QAction* const entry : entries()) {
            texts.push_back(entry->isSeparator() ? "---" : entry->text().toStdString());
        }
        return texts;
    }

    std::string toolTip() { return icon().toolTip().toStdString(); }

    ModelWorld world;
    BatteryModel& model;
    std::vector<Request> requests;
    std::vector<QRect> toggles;
    std::vector<QRect> openings;
    int quits = 0;
    std::unique_ptr<StatusLabel> label;
};

TEST_F(StatusLabelTest, WithoutPeripheralsThereIsAnIconAllTheSame)
{
    show();

    EXPECT_THAT(requests, ElementsAre(Request{{}, 20}));
    EXPECT_TRUE(icon().isVisible());
    EXPECT_EQ(shownColour(), QColor(Qt::white));
    EXPECT_EQ(toolTip(), "Cellsentry");
    EXPECT_THAT(menuTexts(), ElementsAre("---", "Open", "Quit"));
}

TEST_F(StatusLabelTest, ThePictureIsAskedForInDisplayOrderWithTheThreshold)
{
    model.devices = {trackpad(5), keyboard(60), mouse(37)};
    model.threshold = 45;
    show();

    EXPECT_THAT(requests, ElementsAre(Request{{mouse(37), keyboard(60), trackpad(5)}, 45}));
    EXPECT_EQ(shownColour(), QColor(Qt::black));
}

TEST_F(StatusLabelTest, DevicesOfOneKindKeepTheirOrder)
{
    const BatteryDevice otherKeyboard{615, "Another", 60, "keyboard", 1};
    show();
    setDevices({keyboard(60), otherKeyboard, mouse(1)});
    EXPECT_THAT(requests.back().devices, ElementsAre(mouse(1), keyboard(60), otherKeyboard));

    setDevices({otherKeyboard, mouse(1), keyboard(60)});
    EXPECT_THAT(requests.back().devices, ElementsAre(mouse(1), otherKeyboard, keyboard(60)));
}

TEST_F(StatusLabelTest, TheModelsOwnOrderIsLeftAlone)
{
    show();
    setDevices({trackpad(5), mouse(37)});

    EXPECT_THAT(model.devices.get(), ElementsAre(trackpad(5), mouse(37)));
}

TEST_F(StatusLabelTest, ItRedrawsOncePerTurnHoweverMuchChanges)
{
    show();
    requests.clear();
    model.devices = {mouse(37)};
    model.threshold = 50;
    model.status = "x";
    model.devices = {mouse(36)};
    EXPECT_THAT(requests, IsEmpty());

    turn();
    EXPECT_THAT(requests, ElementsAre(Request{{mouse(36)}, 50}));
    turn();
    EXPECT_THAT(requests, SizeIs(1));
}

TEST_F(StatusLabelTest, ItRedrawsAtEveryPublishedChangeAnEqualOneToo)
{
    show();
    requests.clear();
    model.status = model.status.get();
    turn();
    EXPECT_THAT(requests, SizeIs(1));
    model.lastChecked = world.clock.present;
    turn();
    EXPECT_THAT(requests, SizeIs(2));
}

TEST_F(StatusLabelTest, AReadingChangesTheIcon)
{
    show();
    world.setLevels({{803, 14}});
    model.refresh(false);
    world.runLoop.settle();
    turn();

    EXPECT_EQ(requests.back(), (Request{{mouse(14)}, 20}));
    EXPECT_EQ(shownColour(), QColor(Qt::black));
}

TEST_F(StatusLabelTest, TheTooltipNamesEveryDeviceOnALineOfItsOwn)
{
    model.devices = {trackpad(5), mouse(100)};
    show();

    EXPECT_EQ(toolTip(), "Cellsentry\nMagic Mouse 100%\nMagic Trackpad 5%");
}

TEST_F(StatusLabelTest, TheMenuListsTheDevicesAboveOpenAndQuit)
{
    model.devices = {trackpad(5), mouse(100)};
    show();

    EXPECT_THAT(menuTexts(),
                ElementsAre("Magic Mouse 100%", "Magic Trackpad 5%", "---", "Open", "Quit"));
    EXPECT_FALSE(entries().at(0)->isEnabled());
    EXPECT_FALSE(entries().at(1)->isEnabled());
    EXPECT_TRUE(entries().at(3)->isEnabled());
    EXPECT_TRUE(entries().at(4)->isEnabled());
}

TEST_F(StatusLabelTest, TheMenuFollowsTheLanguage)
{
    show();
    model.language = "zh";
    turn();

    EXPECT_THAT(menuTexts(), ElementsAre("---", "打开", "退出"));
    EXPECT_EQ(toolTip(), L10n::t("app.name"));
}

TEST_F(StatusLabelTest, NamesAreShownAsTheyStand)
{
    BatteryDevice device = mouse(37);
    device.name = "A & B && C <b>bold</b> &amp; my_mouse";
    model.devices = {device};
    show();

    EXPECT_EQ(menuTexts().front(), "A && B &&&& C <b>bold</b> &&amp; my_mouse 37%");
    EXPECT_EQ(toolTip(), "Cellsentry\nA & B && C <b>bold</b> &amp; my_mouse 37%");
    EXPECT_FALSE(Qt::mightBeRichText(icon().toolTip()));
}

TEST_F(StatusLabelTest, ANameBreaksNeitherItsLineNorItsMenuEntry)
{
    BatteryDevice device = mouse(37);
    device.name = "a\nb\tc\x1b[31m\u2028\u202Ed";
    model.devices = {device};
    show();

    EXPECT_EQ(menuTexts().front(), "a b c [31m d 37%");
    EXPECT_EQ(toolTip(), "Cellsentry\na b c [31m d 37%");
}

TEST_F(StatusLabelTest, AnOpenMenuIsLeftAloneWhileItShowsTheSame)
{
    model.devices = {mouse(37)};
    show();
    const QPointer<QAction> entry = entries().front();
    model.lastChecked = world.clock.present;
    setDevices({mouse(37)});
    EXPECT_FALSE(entry.isNull());

    setDevices({mouse(36)});
    EXPECT_TRUE(entry.isNull());
    EXPECT_EQ(menuTexts().front(), "Magic Mouse 36%");
}

TEST_F(StatusLabelTest, AClickTogglesThePanel)
{
    show();
    emit icon().activated(QSystemTrayIcon::Trigger);

    EXPECT_THAT(toggles, ElementsAre(icon().geometry()));
    EXPECT_THAT(openings, IsEmpty());
}

TEST_F(StatusLabelTest, OtherWaysToTouchTheIconDoNothing)
{
    show();
    for (const auto reason : {QSystemTrayIcon::Context, QSystemTrayIcon::DoubleClick,
                              QSystemTrayIcon::MiddleClick, QSystemTrayIcon::Unknown}) {
        emit icon().activated(reason);
    }

    EXPECT_THAT(toggles, IsEmpty());
    EXPECT_THAT(openings, IsEmpty());
}

TEST_F(StatusLabelTest, TheMenuOpensThePanelAndQuits)
{
    show();
    entries().at(1)->trigger();
    EXPECT_THAT(openings, SizeIs(1));
    EXPECT_EQ(quits, 0);

    entries().at(2)->trigger();
    EXPECT_EQ(quits, 1);
    EXPECT_THAT(toggles, IsEmpty());
}

TEST_F(StatusLabelTest, NothingIsDrawnOnceItIsGone)
{
    show();
    requests.clear();
    model.threshold = 50;
    label.reset();
    model.threshold = 51;
    turn();

    EXPECT_THAT(requests, IsEmpty());
}

} // namespace
} // namespace voltmere
