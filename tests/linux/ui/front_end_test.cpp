#include "linux/ui/front_end.h"

#include "fakes/model_world.h"
#include "fakes/platform.h"
#include "fakes/recording_log.h"
#include "linux/fake_bus_service.h"
#include "linux/session_bus.h"
#include "linux/ui/theme.h"
#include "linux/ui/widgets.h"

#include <QDBusVariant>
#include <QLabel>
#include <QMenu>
#include <QPixmapCache>
#include <QPushButton>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

/// On Qt's offscreen platform, whose only tray is the one that a test puts on the session bus.
class QtFrontEndTest : public testing::Test {
protected:
    ~QtFrontEndTest() override { QApplication::setPalette(QPalette()); }

    static void settle() { QCoreApplication::processEvents(); }

    static QVariant variant(const QVariant& value)
    {
        return QVariant::fromValue(QDBusVariant(value));
    }

    QWidget* panelOnScreen() const
    {
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            if (window->isVisible() && window->findChild<QPushButton*>("quit") != nullptr) {
                return window;
            }
        }
        return nullptr;
    }

    /// Whether the open panel says that there is no tray.
    bool hasNotice() const { return panelOnScreen()->findChild<QWidget*>("noTray") != nullptr; }

    void openPanel()
    {
        scene->openPanel();
        settle();
        ASSERT_NE(panelOnScreen(), nullptr);
    }

    /// The entries of the icon's menu, once there is an icon.
    static QList<QAction*> menu()
    {
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            if (auto* const menu = dynamic_cast<QMenu*>(window)) {
                return menu->actions();
            }
        }
        return {};
    }

    void startTray()
    {
        tray = std::make_unique<FakeBusService>(
            sessionBus().connect(), "/StatusNotifierWatcher",
            [](const QDBusMessage& call) { return call.createReply(variant(true)); });
        tray->appear("org.kde.StatusNotifierWatcher");
        ASSERT_TRUE(QTest::qWaitFor([] { return !menu().empty(); }, 60'000));
    }

    ModelWorld world;
    RecordingLog log;
    FakeMainLoop mainLoop;
    QtFrontEnd frontEnd{mainLoop, log};
    std::unique_ptr<Scene> scene = frontEnd.show(world.start());
    std::unique_ptr<FakeBusService> tray;
};

TEST_F(QtFrontEndTest, WithoutATrayThePanelOpensAsAWindowAfterFifteenSeconds)
{
    mainLoop.loop.advance(Seconds(14.9));
    settle();
    EXPECT_EQ(panelOnScreen(), nullptr);
    EXPECT_THAT(log.lines, IsEmpty());

    mainLoop.loop.advance(Seconds(0.2));
    settle();
    ASSERT_NE(panelOnScreen(), nullptr);
    EXPECT_TRUE(hasNotice());
    EXPECT_EQ(panelOnScreen()->windowType(), Qt::Window);
    EXPECT_THAT(log.lines, ElementsAre(HasSubstr("this desktop has no tray yet")));
}

TEST_F(QtFrontEndTest, ThePanelThatOpensByItselfWaitsUntilAlertsWereAnswered)
{
    auto first = frontEnd.alerts().present({}, {});
    auto second = frontEnd.alerts().present({}, {});
    mainLoop.loop.advance(Seconds(16));
    for (auto* const alert : {&first, &second}) {
        settle();
        EXPECT_EQ(panelOnScreen(), nullptr);
        (*alert)->orderOut();
    }

    EXPECT_TRUE(QTest::qWaitFor([this] { return panelOnScreen() != nullptr; }, 60'000));
    EXPECT_TRUE(hasNotice());
    EXPECT_THAT(log.lines, SizeIs(1));
}

TEST_F(QtFrontEndTest, ATrayThatComesBeforeTheAnswerLeavesThePanelClosed)
{
    const auto alert = frontEnd.alerts().present({}, {});
    mainLoop.loop.advance(Seconds(16));
    startTray();
    alert->orderOut();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    settle();

    EXPECT_EQ(panelOnScreen(), nullptr);
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(QtFrontEndTest, TheAlertThatTheIconsPanelShowsTakesItsPlace)
{
    openPanel();
    panelOnScreen()->findChild<QPushButton*>("testAlert")->click();

    EXPECT_EQ(panelOnScreen(), nullptr);
    EXPECT_THAT(world.alerts.shown, SizeIs(1));
}

TEST_F(QtFrontEndTest, WithATrayTheIconsMenuOpensThePanelAndQuitsAndNothingOpensByItself)
{
    startTray();
    mainLoop.loop.advance(Seconds(20));
    settle();
    EXPECT_EQ(panelOnScreen(), nullptr);
    EXPECT_THAT(log.lines, IsEmpty());

    menu().at(1)->trigger();
    ASSERT_NE(panelOnScreen(), nullptr);
    EXPECT_EQ(panelOnScreen()->windowType(), Qt::Tool);
    EXPECT_EQ(mainLoop.status, -1);
    menu().at(2)->trigger();
    EXPECT_EQ(mainLoop.status, 0);
}

TEST_F(QtFrontEndTest, ATrayThatComesLateMakesThePanelOneOfTheIconAgain)
{
    mainLoop.loop.advance(Seconds(16));
    settle();
    ASSERT_TRUE(hasNotice());
    panelOnScreen()->close();
    startTray();
    openPanel();

    EXPECT_FALSE(hasNotice());
    EXPECT_EQ(panelOnScreen()->windowType(), Qt::Tool);
}

TEST_F(QtFrontEndTest, OnRequestThePanelOpensAtOnceWithoutTheNoticeAndItsButtonQuits)
{
    openPanel();
    EXPECT_FALSE(hasNotice());
    panelOnScreen()->findChild<QPushButton*>("quit")->click();

    EXPECT_EQ(mainLoop.status, 0);
}

TEST_F(QtFrontEndTest, TheEndOfTheSceneTakesThePanelOffTheScreen)
{
    openPanel();
    scene.reset();

    EXPECT_EQ(panelOnScreen(), nullptr);
}

TEST_F(QtFrontEndTest, WindowsFollowTheDesktopsSchemeAlsoWhereItsColoursChangedFirst)
{
    FakeBusService portal(sessionBus().connect(), "/org/freedesktop/portal/desktop",
                          [](const QDBusMessage& call) { return call.createReply(); });
    portal.appear("org.freedesktop.portal.Desktop");
    world.setLevels({{803, 5}});
    world.model->refresh(false);
    world.runLoop.settle();
    openPanel();
    const auto expectRed = [&](unsigned preference, ColourScheme scheme) {
        portal.emitSignal("org.freedesktop.portal.Settings", "SettingChanged",
                          {"org.freedesktop.appearance", "color-scheme", variant(preference)});
        portal.waitUntilDealtWith(QDBusConnection::sessionBus());
        EXPECT_EQ(textColour(*panelOnScreen()->findChild<QLabel*>("status")),
                  warningTextColour(QApplication::palette(), scheme));
        EXPECT_EQ(isDark(QApplication::palette()), scheme == ColourScheme::dark);
    };

    expectRed(1, ColourScheme::dark);
    expectRed(2, ColourScheme::light);
    QApplication::setPalette(paletteFor(ColourScheme::dark));
    settle();
    expectRed(1, ColourScheme::dark);
}

TEST_F(QtFrontEndTest, OldPicturesOfTheIconTakeLittleMemory)
{
    EXPECT_LE(QPixmapCache::cacheLimit(), 1024); // KiB
}

TEST(QtPointerTest, TellsWhereThePointerIsWhereTheDesktopDoes)
{
    EXPECT_TRUE(QtPointer().position());
}

TEST(QtApplicationTest, BringsTheOpenWindowToTheFrontAndLeavesHiddenOnesAndToolTipsAlone)
{
    const QWidget hidden;
    QWidget window;
    window.show();
    QWidget tip(nullptr, Qt::ToolTip);
    tip.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&tip));

    QtApplication().activate();

    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_FALSE(tip.isActiveWindow());
    EXPECT_FALSE(hidden.isVisible());
}

TEST(QtApplicationTest, AnActivationTokenCountsOnce)
{
    qputenv("XDG_ACTIVATION_TOKEN", "token-1");

    QtApplication().activate();

    EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
}

} // namespace
} // namespace voltmere
