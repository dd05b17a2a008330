#include "linux/ui/front_end.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QTest>
#include <QWidget>

namespace voltmere {
namespace {

TEST(QtApplication, BringsTheOpenWindowToTheFront)
{
    QWidget hidden;
    QWidget window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));

    QtApplication().activate();

    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_FALSE(hidden.isVisible());
}

TEST(QtApplication, LeavesToolTipsAlone)
{
    QWidget window;
    window.show();
    QWidget tip(nullptr, Qt::ToolTip);
    tip.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&tip));

    QtApplication().activate();

    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    EXPECT_FALSE(tip.isActiveWindow());
}

TEST(QtApplication, DoesNothingWithoutAnOpenWindow)
{
    const QWidget closed;

    QtApplication().activate();

    EXPECT_FALSE(closed.isVisible());
    EXPECT_EQ(QApplication::activeWindow(), nullptr);
}

TEST(QtApplication, AnActivationTokenCountsOnce)
{
    qputenv("XDG_ACTIVATION_TOKEN", "token-1");

    QtApplication().activate();

    EXPECT_FALSE(qEnvironmentVariableIsSet("XDG_ACTIVATION_TOKEN"));
}

} // namespace
} // namespace voltmere
