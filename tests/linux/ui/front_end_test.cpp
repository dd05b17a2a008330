#include "linux/ui/front_end.h"

#include "fakes/model_world.h"
#include "fakes/platform.h"
#include "fakes/recording_log.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QPalette>
#include <QPushButton>
#include <QTest>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// On Qt's offscreen platform, where no tray ever comes.
class QtFrontEndTest : public testing::Test {
protected:
    static void settle() { QCoreApplication::processEvents(); }

    /// The panel, alone or within the window that says that there is no tray.
    static QWidget* panelOnScreen()
    {
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            if (window->isVisible() && window->findChild<QPushButton*>("quit") != nullptr) {
                return window;
            }
        }
        return nullptr;
    }

    ModelWorld world;
    RecordingLog log;
    FakeMainLoop mainLoop;
    QtFrontEnd frontEnd{mainLoop, log};
    std::unique_ptr<Scene> scene = frontEnd.show(world.start());
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
    EXPECT_NE(panelOnScreen()->findChild<QWidget*>("noTray"), nullptr);
    EXPECT_THAT(log.lines, ElementsAre(HasSubstr("this desktop has no tray yet")));
}

TEST_F(QtFrontEndTest, OnRequestThePanelOpensAtOnceWithoutTheNotice)
{
    scene->openPanel();
    settle();

    ASSERT_NE(panelOnScreen(), nullptr);
    EXPECT_EQ(panelOnScreen()->findChild<QWidget*>("noTray"), nullptr);
}

TEST_F(QtFrontEndTest, QuitStopsTheMainLoopWithStatusZero)
{
    scene->openPanel();
    settle();
    ASSERT_NE(panelOnScreen(), nullptr);
    panelOnScreen()->findChild<QPushButton*>("quit")->click();

    EXPECT_EQ(mainLoop.status, 0);
}

TEST_F(QtFrontEndTest, TheEndOfTheSceneTakesThePanelOffTheScreen)
{
    scene->openPanel();
    settle();
    scene.reset();

    EXPECT_EQ(panelOnScreen(), nullptr);
}

TEST(QtPointerTest, TellsWhereThePointerIsWhereTheDesktopDoes)
{
    EXPECT_TRUE(QtPointer().position());
}

} // namespace
} // namespace voltmere
