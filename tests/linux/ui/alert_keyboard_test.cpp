#include "linux/ui/alert_fixture.h"

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class AlertKeyboardTest : public AlertWindowTest {
protected:
    static std::string focused(const AlertView& view)
    {
        const QWidget* const widget = view.window.focusWidget();
        return widget == nullptr ? "" : widget->accessibleName().toStdString();
    }

    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
};

TEST_F(AlertKeyboardTest, TheWindowHasTheKeyboardAndNoControlHasTheFocusAtFirst)
{
    const AlertView view = showOneLow();

    EXPECT_TRUE(view.window.isActiveWindow());
    EXPECT_EQ(QApplication::focusWidget(), &view.window);
}

TEST_F(AlertKeyboardTest, AStraySpaceOrReturnPressesNothing)
{
    const AlertView view = showOneLow();
    press(Qt::Key_Space);
    press(Qt::Key_Return);
    press(Qt::Key_Enter);
    press(Qt::Key_A);

    EXPECT_THAT(done, IsEmpty());
    EXPECT_TRUE(view.window.isVisible());
}

TEST_F(AlertKeyboardTest, TabWalksTheRowsFromTopToBottom)
{
    const AlertView view = showOneLow();
    std::vector<std::string> walked;
    for (int step = 0; step < 9; ++step) {
        press(Qt::Key_Tab);
        walked.push_back(focused(view));
    }

    EXPECT_THAT(walked,
                ElementsAre("In 20 minutes", "In 30 minutes", "In 1 hour", "In 2 hours", "Hour",
                            "Minute", "OK", "Cancel", "In 20 minutes"));
}

TEST_F(AlertKeyboardTest, BacktabWalksBack)
{
    const AlertView view = showOneLow();
    press(Qt::Key_Tab);
    press(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(focused(view), "Cancel");
    press(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(focused(view), "OK");
}

TEST_F(AlertKeyboardTest, SpaceAndReturnPressTheFocusedButtonAndNoOther)
{
    showOneLow();
    press(Qt::Key_Tab);
    press(Qt::Key_Tab);
    press(Qt::Key_Space);
    press(Qt::Key_Tab);
    press(Qt::Key_Return);

    EXPECT_THAT(done, ElementsAre("option 1", "option 2"));
}

TEST_F(AlertKeyboardTest, ATimeIsChosenWithTheArrowKeys)
{
    showOneLow();
    for (int step = 0; step < 5; ++step) {
        press(Qt::Key_Tab);
    }
    press(Qt::Key_Down);
    press(Qt::Key_Tab);
    press(Qt::Key_Up);
    EXPECT_THAT(done, IsEmpty());
    press(Qt::Key_Tab);
    press(Qt::Key_Space);

    EXPECT_THAT(done, ElementsAre("time 16:30"));
}

TEST_F(AlertKeyboardTest, ReturnInAPopUpPressesNoButton)
{
    const AlertView view = showOneLow();
    view.hour().setFocus();
    press(Qt::Key_Return);

    EXPECT_THAT(done, IsEmpty());
}

TEST_F(AlertKeyboardTest, EscapeDoesWhatCancelDoes)
{
    showOneLow();
    press(Qt::Key_Escape);

    EXPECT_THAT(done, ElementsAre("cancel"));
}

TEST_F(AlertKeyboardTest, EscapeOnAFocusedControlDoesWhatCancelDoes)
{
    const AlertView view = showOneLow();
    view.button("In 1 hour").setFocus();
    press(Qt::Key_Escape);
    view.minute().setFocus();
    press(Qt::Key_Escape);

    EXPECT_THAT(done, ElementsAre("cancel", "cancel"));
}

TEST_F(AlertKeyboardTest, EscapeInAnOpenListClosesOnlyTheList)
{
    const AlertView view = showOneLow();
    view.hour().showPopup();
    QTest::keyClick(view.hour().view(), Qt::Key_Escape);

    EXPECT_FALSE(view.hour().view()->isVisible());
    EXPECT_TRUE(view.window.isVisible());
    EXPECT_THAT(done, IsEmpty());
}

TEST_F(AlertKeyboardTest, TheCloseButtonDoesWhatCancelDoes)
{
    const AlertView view = showOneLow();
    view.window.windowHandle()->close();

    EXPECT_THAT(done, ElementsAre("cancel"));
}

TEST_F(AlertKeyboardTest, ClosingIsNeverRefused)
{
    const AlertView view = showOneLow();

    EXPECT_TRUE(view.window.windowHandle()->close());
}

TEST_F(AlertKeyboardTest, CancelCancels)
{
    showOneLow().click("Cancel");

    EXPECT_THAT(done, ElementsAre("cancel"));
}

TEST_F(AlertKeyboardTest, EveryRowReportsItsOwnChoiceOnce)
{
    const AlertView view = showOneLow();
    for (const char* title : {"In 20 minutes", "In 30 minutes", "In 1 hour", "In 2 hours", "OK"}) {
        view.click(title);
    }

    EXPECT_THAT(done, ElementsAre("option 0", "option 1", "option 2", "option 3", "time 15:35"));
}

TEST_F(AlertKeyboardTest, ChoosingATimeOnlyChangesTheSelectionUntilItIsConfirmed)
{
    const AlertView view = showOneLow();
    AlertView::choose(view.hour(), "07");
    AlertView::choose(view.minute(), "45");
    EXPECT_THAT(done, IsEmpty());
    view.click("OK");

    EXPECT_THAT(done, ElementsAre("time 7:45"));
}

TEST_F(AlertKeyboardTest, TheFirstAndTheLastEntriesAreReportedAsTheyStand)
{
    const AlertView view = showOneLow();
    AlertView::choose(view.hour(), "00");
    AlertView::choose(view.minute(), "00");
    view.click("OK");
    AlertView::choose(view.hour(), "23");
    AlertView::choose(view.minute(), "55");
    view.click("OK");

    EXPECT_THAT(done, ElementsAre("time 0:0", "time 23:55"));
}

TEST_F(AlertKeyboardTest, AMinimisedWindowIsBroughtBack)
{
    const AlertView view = showOneLow();
    view.window.setWindowState(Qt::WindowMinimized);
    ASSERT_TRUE(view.window.isMinimized());
    alert->bringToFront();

    EXPECT_FALSE(view.window.isMinimized());
    EXPECT_TRUE(view.window.isVisible());
}

/// An alert that is destroyed by its own controls, before their events have been dealt with.
class AlertDestroyedWithinTest : public AlertWindowTest {
protected:
    AlertView showDestroying()
    {
        const auto destroy = [this](auto&&...) { alert.reset(); };
        alert = presenter.present(makeAlertContent({mouse(12)}, true, {15, 35}),
                                  {destroy, destroy, destroy});
        QCoreApplication::processEvents();
        window = alertWindows().at(0);
        return AlertView(*window);
    }

    void expectGone()
    {
        turnEventLoop();
        EXPECT_TRUE(window.isNull());
        EXPECT_EQ(runLoop.timerCount(), 0U);
    }

    QPointer<SnoozeAlertWindow> window;
};

TEST_F(AlertDestroyedWithinTest, ByAClickOnEachButton)
{
    for (const char* title :
         {"In 20 minutes", "In 30 minutes", "In 1 hour", "In 2 hours", "OK", "Cancel"}) {
        const AlertView view = showDestroying();
        pointAt(view.button(title));
        view.click(title);
        expectGone();
    }
}

TEST_F(AlertDestroyedWithinTest, ByAKeyOnEachButton)
{
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
        for (const char* title : {"In 20 minutes", "OK", "Cancel"}) {
            const AlertView view = showDestroying();
            view.button(title).setFocus();
            QTest::keyClick(&view.button(title), key);
            expectGone();
        }
    }
}

TEST_F(AlertDestroyedWithinTest, ByEscape)
{
    const AlertView view = showDestroying();
    QTest::keyClick(&view.window, Qt::Key_Escape);
    expectGone();
}

TEST_F(AlertDestroyedWithinTest, ByTheCloseButton)
{
    const AlertView view = showDestroying();
    view.window.windowHandle()->close();
    expectGone();
}

TEST_F(AlertDestroyedWithinTest, WhileAListIsOpen)
{
    const AlertView view = showDestroying();
    view.hour().showPopup();
    alert.reset();
    expectGone();
}

} // namespace
} // namespace voltmere
