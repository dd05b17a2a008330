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

} // namespace
} // namespace voltmere
