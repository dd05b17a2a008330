#include "linux/ui/panel_controller.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>
#include <QMenu>
#include <QPointer>
#include <QScreen>
#include <QTest>
#include <QVBoxLayout>

#include <chrono>
#include <memory>
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

    /// Tells what Qt tells when another program gets the keyboard.
    static void loseFocus() { emit qGuiApp->focusWindowChanged(nullptr); }

    std::vector<QPointer<QWidget>> built;
    PanelController::Uptime uptime{1h};
    std::unique_ptr<PanelController> controller = std::make_unique<PanelController>(
        [this] {
            auto widget = std::make_unique<QWidget>();
            auto* const column = new QVBoxLayout(widget.get());
            column->setContentsMargins({});
            column->addItem(new QSpacerItem(panelSize.width(), panelSize.height()));
            built.emplace_back(widget.get());
            return widget;
        },
        [this] { return uptime; });
};

TEST_F(PanelControllerTest, EachOpeningBuildsAPanelThatIsDestroyedWhenItCloses)
{
    loseFocus();
    EXPECT_FALSE(controller->isOpen());
    EXPECT_THAT(built, SizeIs(0));
    for (int i = 0; i < 3; ++i) {
        controller->open(iconAtTop);
        EXPECT_TRUE(controller->isOpen());
        panel()->close();
        expectGone();
    }
    EXPECT_THAT(built, SizeIs(3));
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
    EXPECT_FALSE(controller->isOpen());
    controller->toggle(iconAtTop);
    EXPECT_TRUE(controller->isOpen());
}

TEST_F(PanelControllerTest, ThePanelOpensBelowItsIconElseBelowThePointerAndAlwaysOnAScreen)
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry().marginsRemoved(
        {panelGap, panelGap, panelGap, panelGap});
    const QPoint centred = QPoint(-panelSize.width() / 2, 0);
    QCursor::setPos(400, 100);
    for (const auto& [icon, expected] :
         {std::pair(iconAtTop, QPoint(iconAtTop.center().x(), 22) + centred),
          std::pair(QRect(), QPoint(400, 101) + centred),
          std::pair(QRect(100'000, 100'000, 22, 22),
                    screen.bottomRight() -
                        QPoint(panelSize.width() - 1, panelSize.height() - 1))}) {
        controller->open(icon);
        EXPECT_EQ(panel()->pos(), expected);
        panel()->close();
    }
}

TEST_F(PanelControllerTest, APanelThatGrowsAboveItsIconKeepsClearOfTheIcon)
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const QRect icon(screen.center().x(), screen.bottom() - 40, 22, 22);
    controller->open(icon);
    EXPECT_EQ(panel()->geometry().bottom(), icon.top() - 1);

    panel()->resize(panelSize + QSize(0, 60));
    EXPECT_EQ(panel()->size(), panelSize + QSize(0, 60));
    EXPECT_EQ(panel()->geometry().bottom(), icon.top() - 1);
}

TEST_F(PanelControllerTest, ThePanelStaysInFrontWithoutAFrameAndWithTheProgramsIcon)
{
    controller->open(iconAtTop);

    EXPECT_EQ(panel()->windowType(), Qt::Tool);
    EXPECT_TRUE(panel()->windowFlags() & Qt::FramelessWindowHint);
    EXPECT_TRUE(panel()->windowFlags() & Qt::WindowStaysOnTopHint);
    EXPECT_EQ(panel()->windowIcon().availableSizes(), QList<QSize>{QSize(48, 48)});
}

TEST_F(PanelControllerTest, ThePanelClosesWhenTheProgramLosesTheKeyboard)
{
    openActive();
    loseFocus();
    expectGone();
}

TEST_F(PanelControllerTest, AnAlertOfTheProgramLeavesThePanelOpen)
{
    openActive();
    QWidget alert;
    alert.show();
    alert.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&alert));
    QCoreApplication::processEvents();
    EXPECT_TRUE(controller->isOpen());

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
    loseFocus();

    EXPECT_TRUE(controller->isOpen());
    list.close();
}

TEST_F(PanelControllerTest, TheMenuOfTheIconDoesNotCloseIt)
{
    openActive();
    controller->keepForMenu();
    uptime += 999ms;
    loseFocus();
    EXPECT_TRUE(controller->isOpen());

    uptime += 1ms;
    loseFocus();
    expectGone();
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

TEST_F(PanelControllerTest, ARequestRightAfterItOpensAndSoDoesAClickAfterAnotherWayOfClosing)
{
    openActive();
    loseFocus();
    controller->open(iconAtTop);
    EXPECT_TRUE(controller->isOpen());

    uptime += 1h;
    panel()->close();
    controller->toggle(iconAtTop);
    EXPECT_TRUE(controller->isOpen());
}

TEST_F(PanelControllerTest, AnOrdinaryWindowHasAFrameAndStaysOpenAlsoOnceThereIsATray)
{
    controller->setOrdinaryWindow(true);
    EXPECT_TRUE(controller->isOrdinaryWindow());
    openActive();
    EXPECT_EQ(panel()->windowType(), Qt::Window);
    EXPECT_TRUE(panel()->windowFlags() & Qt::WindowCloseButtonHint);
    EXPECT_FALSE(panel()->windowFlags() & Qt::FramelessWindowHint);
    EXPECT_FALSE(panel()->windowFlags() & Qt::WindowStaysOnTopHint);

    controller->setOrdinaryWindow(false); // there is a tray after all
    loseFocus();
    QCoreApplication::processEvents();
    EXPECT_TRUE(controller->isOpen());

    panel()->close();
    expectGone();
    controller->open(iconAtTop);
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

TEST_F(PanelControllerTest, AnOpenPanelGoesWithItsController)
{
    controller->open(iconAtTop);
    controller.reset();

    EXPECT_EQ(living(), 0U);
}

constexpr QSize panel(320, 400);

struct Placement {
    const char* name;
    QRect anchor;
    QRect workArea;
    QPoint expected;
};

/// A screen of 1920 x 1080 with a bar of 30 points at the named edge, and one of the same size at
/// its right.
const QRect belowTopBar(0, 30, 1920, 1050);
const QRect aboveBottomBar(0, 0, 1920, 1050);
const QRect rightOfLeftBar(30, 0, 1890, 1080);
const QRect leftOfRightBar(0, 0, 1890, 1080);
const QRect secondScreen = belowTopBar.translated(1920, 0);
const QRect leftScreen = aboveBottomBar.translated(-1920, -200);

const Placement placements[]{
    {"centred below an icon at the top", {1000, 4, 22, 22}, belowTopBar, {850, 38}},
    {"at the right end of a top bar", {1890, 4, 22, 22}, belowTopBar, {1592, 38}},
    {"above an icon at the bottom", {1000, 1054, 22, 22}, aboveBottomBar, {850, 642}},
    {"bottom right corner", {1894, 1054, 22, 22}, aboveBottomBar, {1592, 642}},
    {"high in a left bar", {4, 100, 22, 22}, rightOfLeftBar, {38, 122}},
    {"low in a left bar", {4, 1000, 22, 22}, rightOfLeftBar, {38, 600}},
    {"the middle counts as the upper half", {900, 529, 1, 1}, belowTopBar, {740, 530}},
    {"just below the middle", {900, 556, 1, 1}, belowTopBar, {740, 156}},
    {"a pointer in the open", {500, 200, 1, 1}, belowTopBar, {340, 201}},
    {"second screen, right end", {3810, 4, 22, 22}, secondScreen, {3512, 38}},
    {"a screen at the left, its corner", {-26, 854, 22, 22}, leftScreen, {-328, 442}},
    {"no room below", {100, 150, 20, 20}, {0, 0, 800, 420}, {8, 12}},
    {"too low for its gaps", {900, 0, 20, 20}, {0, 0, 1920, 410}, {749, 8}},
    {"exactly as large", {100, 0, 20, 20}, {0, 0, 320, 400}, {0, 0}},
    {"too low a work area", {100, 0, 20, 20}, {0, 24, 800, 300}, {8, 24}},
    {"too narrow a work area", {150, 0, 20, 20}, {10, 24, 200, 900}, {10, 32}},
    {"no work area at all", {150, 0, 20, 20}, {7, 9, 0, 0}, {7, 9}}};

TEST(PanelPlacement, StandsWhereItShould)
{
    for (const auto& [name, anchor, workArea, expected] : placements) {
        EXPECT_EQ(placePanel(anchor, panel, workArea), expected) << name;
    }
}

TEST(PanelPlacement, StaysAwayFromTheEdgesOfEveryWorkAreaThatIsLargeEnough)
{
    for (const QRect& area : {belowTopBar, aboveBottomBar, rightOfLeftBar, secondScreen}) {
        for (int x = area.left() - 40; x < area.right() + 40; x += 97) {
            for (int y = area.top() - 40; y < area.bottom() + 40; y += 89) {
                const QRect placed(placePanel({x, y, 22, 22}, panel, area), panel);
                EXPECT_TRUE(area.contains(placed.marginsAdded({8, 8, 8, 8}))) << x << ' ' << y;
            }
        }
    }
}

TEST(TrayCorner, IsAtTheBottomWhereTheDesktopHasItsBarThere)
{
    for (const char* const desktops : {"KDE", "ubuntu:KDE", "LXQt:labwc:wlroots"}) {
        EXPECT_EQ(trayCorner(desktops), Qt::RightEdge | Qt::BottomEdge) << desktops;
    }
    for (const char* const desktops : {"", "sway", "labwc:wlroots", "XFCE", "KDE2"}) {
        EXPECT_EQ(trayCorner(desktops), Qt::RightEdge | Qt::TopEdge) << desktops;
    }
}

} // namespace
} // namespace voltmere
