#include "linux/ui/panel_controller.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QMenu>
#include <QPointer>
#include <QScreen>
#include <QTest>

#include <chrono>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace voltmere {
namespace {

using testing::SizeIs;
using namespace std::chrono_literals;

constexpr QSize panelSize(320, 200);
constexpr QRect iconAtTop(400, 0, 22, 22);

/// The panel's opening and closing, with an empty window for the panel.
class PanelControllerTest : public testing::Test {
protected:
    /// The panel that was built last; null once it is destroyed.
    QWidget* panel() const { return built.empty() ? nullptr : built.back().data(); }

    std::size_t living() const
    {
        return static_cast<std::size_t>(std::count_if(
            built.begin(), built.end(), [](const auto& widget) { return !widget.isNull(); }));
    }

    /// The panel is closed, and destroyed in the next turn.
    void expectGone()
    {
        EXPECT_FALSE(controller->isOpen());
        EXPECT_TRUE(QTest::qWaitFor([this] { return living() == 0; }, 60'000));
    }

    void openActive()
    {
        controller->open(iconAtTop);
        ASSERT_TRUE(QTest::qWaitForWindowActive(panel()));
    }

    QAccessible::Role role() const
    {
        return QAccessible::queryAccessibleInterface(panel())->role();
    }

    /// Gives the keyboard to another window.
    void loseFocus()
    {
        other.show();
        other.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    }

    std::vector<QPointer<QWidget>> built;
    QWidget other;
    PanelController::Uptime uptime{1h};
    std::unique_ptr<PanelController> controller = std::make_unique<PanelController>(
        [this] {
            auto widget = std::make_unique<QWidget>();
            widget->setFixedSize(panelSize);
            built.emplace_back(widget.get());
            return widget;
        },
        [this] { return uptime; });
};

TEST_F(PanelControllerTest, ThePanelIsBuiltWhenItOpensAndNotBefore)
{
    EXPECT_FALSE(controller->isOpen());
    EXPECT_THAT(built, SizeIs(0));

    controller->open(iconAtTop);
    EXPECT_TRUE(controller->isOpen());
    EXPECT_THAT(built, SizeIs(1));
    EXPECT_TRUE(panel()->isVisible());
}

TEST_F(PanelControllerTest, ThePanelHasTheProgramsIconForTheTaskList)
{
    controller->open(iconAtTop);

    EXPECT_EQ(panel()->windowIcon().availableSizes(), QList<QSize>{QSize(48, 48)});
}

TEST_F(PanelControllerTest, ThePanelIsDestroyedWhenItCloses)
{
    controller->open(iconAtTop);
    panel()->close();
    expectGone();
}

TEST_F(PanelControllerTest, EachOpeningBuildsANewPanel)
{
    for (int i = 0; i < 3; ++i) {
        controller->open(iconAtTop);
        panel()->close();
    }
    controller->open(iconAtTop);

    EXPECT_THAT(built, SizeIs(4));
    EXPECT_TRUE(QTest::qWaitFor([this] { return living() == 1; }, 60'000));
    EXPECT_TRUE(controller->isOpen());
}

TEST_F(PanelControllerTest, AScreenReaderFindsAWindow)
{
    controller->open(iconAtTop);
    EXPECT_EQ(role(), QAccessible::Window);
}

TEST_F(PanelControllerTest, OpeningAnOpenPanelKeepsIt)
{
    controller->open(iconAtTop);
    const QPoint place = panel()->pos();
    controller->open({900, 0, 22, 22});

    EXPECT_THAT(built, SizeIs(1));
    EXPECT_EQ(panel()->pos(), place);
}

TEST_F(PanelControllerTest, AClickOnTheIconOpensAndTheNextOneCloses)
{
    controller->toggle(iconAtTop);
    EXPECT_TRUE(controller->isOpen());
    controller->toggle(iconAtTop);
    expectGone();
    controller->toggle(iconAtTop);
    EXPECT_TRUE(controller->isOpen());
    EXPECT_THAT(built, SizeIs(2));
}

TEST_F(PanelControllerTest, ThePanelOpensBelowItsIcon)
{
    controller->open(iconAtTop);

    EXPECT_EQ(panel()->pos(), QPoint(iconAtTop.center().x() - panelSize.width() / 2, 22));
}

TEST_F(PanelControllerTest, WhereTheIconsPlaceIsNotKnownThePanelOpensOnTheScreen)
{
    controller->open();

    EXPECT_TRUE(
        panel()->screen()->availableGeometry().contains(QRect(panel()->pos(), panel()->size())));
}

TEST_F(PanelControllerTest, AnIconOffEveryScreenIsTakenToThePrimaryOne)
{
    controller->open({100'000, 100'000, 22, 22});

    EXPECT_TRUE(QGuiApplication::primaryScreen()->availableGeometry().contains(
        QRect(panel()->pos(), panel()->size())));
}

TEST_F(PanelControllerTest, ThePanelStaysInFrontAndHasNoFrame)
{
    controller->open(iconAtTop);

    EXPECT_EQ(panel()->windowType(), Qt::Tool);
    EXPECT_TRUE(panel()->windowFlags() & Qt::FramelessWindowHint);
    EXPECT_TRUE(panel()->windowFlags() & Qt::WindowStaysOnTopHint);
}

TEST_F(PanelControllerTest, ThePanelClosesWhenItLosesTheKeyboard)
{
    openActive();
    loseFocus();
    expectGone();
}

TEST_F(PanelControllerTest, AListOfThePanelDoesNotCloseIt)
{
    openActive();
    QMenu list(panel());
    list.addAction("entry");
    list.popup(panel()->pos());
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&list));
    QEvent deactivated(QEvent::WindowDeactivate);
    QCoreApplication::sendEvent(panel(), &deactivated);

    EXPECT_TRUE(controller->isOpen());
    list.close();
}

TEST_F(PanelControllerTest, TheClickThatTookTheKeyboardIsTheOneThatCloses)
{
    openActive();
    loseFocus();
    uptime += 299ms;
    controller->toggle(iconAtTop);
    EXPECT_FALSE(controller->isOpen());

    uptime += 1ms;
    controller->toggle(iconAtTop);
    EXPECT_TRUE(controller->isOpen());
}

TEST_F(PanelControllerTest, OnlyTheIconsClickCountsAsTheSame)
{
    openActive();
    loseFocus();
    controller->open(iconAtTop);

    EXPECT_TRUE(controller->isOpen());
}

TEST_F(PanelControllerTest, AClickRightAfterAnotherWayOfClosingOpens)
{
    controller->open(iconAtTop);
    panel()->close();
    controller->toggle(iconAtTop);

    EXPECT_TRUE(controller->isOpen());
}

TEST_F(PanelControllerTest, AnOrdinaryWindowHasAFrameAndStaysOpen)
{
    controller->setOrdinaryWindow(true);
    EXPECT_TRUE(controller->isOrdinaryWindow());
    openActive();
    EXPECT_EQ(panel()->windowType(), Qt::Window);
    EXPECT_TRUE(panel()->windowFlags() & Qt::WindowCloseButtonHint);
    EXPECT_FALSE(panel()->windowFlags() & Qt::FramelessWindowHint);
    EXPECT_FALSE(panel()->windowFlags() & Qt::WindowStaysOnTopHint);

    loseFocus();
    QCoreApplication::processEvents();
    EXPECT_TRUE(controller->isOpen());

    panel()->close();
    expectGone();
}

TEST_F(PanelControllerTest, ThePanelIsOneUnderItsIconAgainOnceThereIsATray)
{
    controller->setOrdinaryWindow(true);
    controller->open();
    panel()->close();
    controller->setOrdinaryWindow(false);
    controller->open(iconAtTop);

    EXPECT_FALSE(controller->isOrdinaryWindow());
    EXPECT_EQ(panel()->windowType(), Qt::Tool);
}

TEST_F(PanelControllerTest, APanelThatWaitedForATrayGivesWayToTheOrdinaryWindow)
{
    controller->open();
    controller->setOrdinaryWindow(true);
    controller->open();

    EXPECT_EQ(panel()->windowType(), Qt::Window);
    EXPECT_TRUE(QTest::qWaitFor([this] { return living() == 1; }, 60'000));
}

TEST_F(PanelControllerTest, AnOrdinaryWindowStaysOpenAlsoOnceThereIsATray)
{
    controller->setOrdinaryWindow(true);
    openActive();
    controller->setOrdinaryWindow(false);
    loseFocus();

    EXPECT_TRUE(controller->isOpen());
}

TEST_F(PanelControllerTest, AnOpenPanelGoesWithItsController)
{
    controller->open(iconAtTop);
    controller.reset();

    EXPECT_EQ(living(), 0U);
}

constexpr QSize panel(320, 400);

struct Placement {
    std::string name;
    QRect anchor;
    QRect workArea;
    QPoint expected;
};

void PrintTo(const Placement& placement, std::ostream* out)
{
    *out << placement.name;
}

class PanelPlacementTest : public testing::TestWithParam<Placement> { };

TEST_P(PanelPlacementTest, StandsWhereItShould)
{
    const auto& [name, anchor, workArea, expected] = GetParam();
    const QPoint place = placePanel(anchor, panel, workArea);
    EXPECT_EQ(place.x(), expected.x());
    EXPECT_EQ(place.y(), expected.y());
}

/// A screen of 1920 x 1080 with a bar of 30 points at the named edge, and one of the same size at
/// its right.
const QRect belowTopBar(0, 30, 1920, 1050);
const QRect aboveBottomBar(0, 0, 1920, 1050);
const QRect rightOfLeftBar(30, 0, 1890, 1080);
const QRect leftOfRightBar(0, 0, 1890, 1080);
const QRect secondScreen = belowTopBar.translated(1920, 0);
const QRect leftScreen = aboveBottomBar.translated(-1920, -200);

INSTANTIATE_TEST_SUITE_P(
    Icons, PanelPlacementTest,
    testing::Values(
        Placement{"centred below an icon at the top", {1000, 4, 22, 22}, belowTopBar, {850, 30}},
        Placement{"a gap between icon and work area", {1000, 0, 20, 20}, belowTopBar, {849, 30}},
        Placement{"at the right end of a top bar", {1890, 4, 22, 22}, belowTopBar, {1600, 30}},
        Placement{"at the left end of a top bar", {4, 4, 22, 22}, belowTopBar, {0, 30}},
        Placement{"above an icon at the bottom", {1000, 1054, 22, 22}, aboveBottomBar, {850, 650}},
        Placement{"bottom right corner", {1894, 1054, 22, 22}, aboveBottomBar, {1600, 650}},
        Placement{"bottom left corner", {4, 1054, 22, 22}, aboveBottomBar, {0, 650}},
        Placement{"high in a left bar", {4, 100, 22, 22}, rightOfLeftBar, {30, 122}},
        Placement{"low in a left bar", {4, 1000, 22, 22}, rightOfLeftBar, {30, 600}},
        Placement{"high in a right bar", {1894, 100, 22, 22}, leftOfRightBar, {1570, 122}},
        Placement{"low in a right bar", {1894, 1000, 22, 22}, leftOfRightBar, {1570, 600}},
        Placement{"the middle counts as the upper half", {900, 529, 1, 1}, belowTopBar, {740, 530}},
        Placement{"just below the middle", {900, 556, 1, 1}, belowTopBar, {740, 156}},
        Placement{"a pointer in the open", {500, 200, 1, 1}, belowTopBar, {340, 201}},
        Placement{"second screen, top", {2900, 4, 22, 22}, secondScreen, {2750, 30}},
        Placement{"second screen, left end", {1924, 4, 22, 22}, secondScreen, {1920, 30}},
        Placement{"second screen, right end", {3810, 4, 22, 22}, secondScreen, {3520, 30}},
        Placement{"a screen at the left", {-1000, 854, 22, 22}, leftScreen, {-1149, 450}},
        Placement{"a screen at the left, its corner", {-26, 854, 22, 22}, leftScreen, {-320, 450}},
        Placement{"no room below", {100, 150, 20, 20}, {0, 0, 800, 420}, {0, 20}},
        Placement{"exactly as large", {100, 0, 20, 20}, {0, 0, 320, 400}, {0, 0}},
        Placement{"too low a work area", {100, 0, 20, 20}, {0, 24, 800, 300}, {0, 24}},
        Placement{"too low, icon at the bottom", {100, 330, 20, 20}, {0, 24, 800, 300}, {0, 24}},
        Placement{"too narrow a work area", {150, 0, 20, 20}, {10, 24, 200, 900}, {10, 24}},
        Placement{"no work area at all", {150, 0, 20, 20}, {7, 9, 0, 0}, {7, 9}}));

TEST(PanelPlacement, StaysInsideEveryWorkAreaThatIsLargeEnough)
{
    for (const QRect& area : {belowTopBar, aboveBottomBar, rightOfLeftBar, secondScreen}) {
        for (int x = area.left() - 40; x < area.right() + 40; x += 97) {
            for (int y = area.top() - 40; y < area.bottom() + 40; y += 89) {
                const QRect placed(placePanel({x, y, 22, 22}, panel, area), panel);
                EXPECT_TRUE(area.contains(placed)) << x << ' ' << y;
            }
        }
    }
}

TEST(PanelPlacement, DoesNotCoverAnIconInABar)
{
    for (const auto& [icon, area] : {std::pair(QRect(1000, 4, 22, 22), belowTopBar),
                                     std::pair(QRect(1000, 1054, 22, 22), aboveBottomBar)}) {
        EXPECT_FALSE(QRect(placePanel(icon, panel, area), panel).intersects(icon));
    }
}

} // namespace
} // namespace voltmere
