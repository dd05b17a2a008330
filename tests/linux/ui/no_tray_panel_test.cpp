#include "linux/ui/panel_controller.h"
#include "linux/ui/panel_fixture.h"
#include "linux/ui/theme.h"

#include <QPointer>

namespace voltmere {
namespace {

class NoTrayPanelTest : public PanelTest {
protected:
    void openWindow(const std::string& language = "en")
    {
        startModel(language);
        controller.setOrdinaryWindow(true);
        controller.open();
        settle();
    }

    QLabel& notice() { return *window->findChild<QLabel*>("noTray"); }

    QPointer<NoTrayPanel> window;
    QPointer<ContentView> content;
    PanelController controller{[this] {
        auto view = std::make_unique<ContentView>(model(), appearance, [this] { ++quits; });
        content = view.get();
        auto panel = std::make_unique<NoTrayPanel>(model(), std::move(view));
        window = panel.get();
        return panel;
    }};
};

TEST_F(NoTrayPanelTest, ShowsThePanelAndBelowItHowToOpenItAgain)
{
    openWindow();

    EXPECT_EQ(content->window(), window);
    EXPECT_TRUE(content->isVisible());
    EXPECT_EQ(notice().text(),
              "This desktop has no tray. Start the program again to reopen this panel.");
    EXPECT_EQ(notice().textFormat(), Qt::PlainText);
    EXPECT_GE(notice().geometry().top(), content->geometry().bottom());
    EXPECT_EQ(window->windowTitle(), "Cellsentry");
}

TEST_F(NoTrayPanelTest, IsAsWideAsThePanelAndShowsTheWholeNotice)
{
    for (const char* const language : {"en", "zh"}) {
        openWindow(language);
        EXPECT_EQ(window->width(), 320);
        EXPECT_GE(notice().height(), notice().heightForWidth(notice().width()));
        EXPECT_GE(window->height(), notice().geometry().bottom());
        window->close();
        world.model.reset();
        settle();
    }
}

TEST_F(NoTrayPanelTest, FollowsTheLanguage)
{
    openWindow();
    model().language = "zh";
    settle();

    EXPECT_EQ(notice().text(), "此桌面没有系统托盘。再次启动本程序即可重新打开此面板。");
    EXPECT_EQ(window->windowTitle(), "续航哨兵");
}

TEST_F(NoTrayPanelTest, AChangeOfSchemeThatTheWindowIsToldOfReachesThePanel)
{
    world.setLevels({{803, 5}});
    openWindow();
    const auto* const status = content->findChild<QLabel*>("status");
    ASSERT_EQ(status->palette().color(QPalette::WindowText), systemRed(ColourScheme::light));
    appearance.scheme = ColourScheme::dark;
    QEvent change(QEvent::PaletteChange);
    QCoreApplication::sendEvent(window, &change);
    settle();

    EXPECT_EQ(status->palette().color(QPalette::WindowText), systemRed(ColourScheme::dark));
}

TEST_F(NoTrayPanelTest, OpeningItTakesAReadingAsThePanelDoes)
{
    openWindow();
    const int readings = world.batteries.readings;
    window->close();
    controller.open();
    settle();

    EXPECT_EQ(world.batteries.readings, readings + 1);
}

TEST_F(NoTrayPanelTest, EscapeClosesTheWindow)
{
    openWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    QTest::keyClick(window->windowHandle(), Qt::Key_Escape);

    EXPECT_FALSE(controller.isOpen());
    EXPECT_TRUE(QTest::qWaitFor([this] { return window.isNull(); }, 60'000));
}

TEST_F(NoTrayPanelTest, QuitQuits)
{
    openWindow();
    QTest::mouseClick(window->findChild<QWidget*>("quit"), Qt::LeftButton);

    EXPECT_EQ(quits, 1);
}

TEST_F(NoTrayPanelTest, GrowsWithItsDevices)
{
    openWindow();
    world.setLevels({{803, 50}, {805, 60}, {804, 70}});
    const int before = window->height();
    model().refresh(false);
    settle();

    EXPECT_TRUE(QTest::qWaitFor([this, before] { return window->height() > before; }, 60'000));
}

} // namespace
} // namespace voltmere
