// What the snooze alert says, and what a person does in it.

#include "linux/ui/alert_fixture.h"

#include "fakes/model_world.h"

#include <QAccessible>
#include <QPointer>

#include <algorithm>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class AlertTest : public AlertWindowTest {
protected:
    static std::vector<std::string> texts(const AlertView& view)
    {
        return {view.name().text().toStdString(), view.title().text().toStdString(),
                view.detail().text().toStdString(), view.prompt().text().toStdString()};
    }

    static std::string focused(const AlertView& view)
    {
        QWidget* const widget = view.window.focusWidget();
        return widget == nullptr ? "" : spokenName(*widget);
    }

    static void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
};

TEST_F(AlertTest, ALowDeviceIsToldInEnglishWithTheDetailAloneInRed)
{
    const AlertView view = showOneLow();

    EXPECT_THAT(texts(view),
                ElementsAre("Cellsentry", "Magic Mouse battery alert",
                            "Battery at 12%. Please charge.", "Remind me again"));
    EXPECT_EQ(view.rows().back()->findChildren<QLabel*>().front()->text(), "At a time");
    EXPECT_EQ(view.hour().currentText(), "15");
    EXPECT_EQ(view.minute().currentText(), "35");
    EXPECT_EQ(view.window.windowTitle(), "Magic Mouse battery alert");
    EXPECT_EQ(view.window.windowIcon().availableSizes(), QList<QSize>{QSize(48, 48)});
    EXPECT_EQ(textColour(view.detail()),
              warningTextColour(view.window.palette(), ColourScheme::light));
    for (const QLabel* const label : {&view.name(), &view.title(), &view.prompt()}) {
        EXPECT_EQ(textColour(*label), textColour(view.window));
    }
}

TEST_F(AlertTest, TheColoursFollowADesktopThatChangesWhileTheWindowIsOpen)
{
    useScheme(ColourScheme::light);
    const AlertView view = showOneLow();
    const QPoint margin(4, 4);
    ASSERT_GT(view.window.grab().toImage().pixelColor(margin).lightness(), 200);

    useScheme(ColourScheme::dark);
    EXPECT_EQ(textColour(view.detail()),
              warningTextColour(view.window.palette(), ColourScheme::dark));
    EXPECT_GT(textColour(view.title()).lightness(), 200);
    EXPECT_LT(view.window.grab().toImage().pixelColor(margin).lightness(), 80);
    EXPECT_LT(view.hour().grab().toImage().pixelColor(30, 14).lightness(), 130);

    useScheme(ColourScheme::light);
    EXPECT_EQ(textColour(view.detail()),
              warningTextColour(view.window.palette(), ColourScheme::light));
}

TEST_F(AlertTest, ADetailThatIsNoWarningIsInTheColourOfTheTextAndFollowsTheDesktopToo)
{
    useScheme(ColourScheme::light);
    const AlertView view = show({mouse(80), keyboard(64)}, false);
    EXPECT_EQ(view.detail().text(), "All good: Mouse80%, Keyboard64%");
    EXPECT_EQ(textColour(view.detail()), textColour(view.window));

    useScheme(ColourScheme::dark);
    EXPECT_EQ(textColour(view.detail()), textColour(view.window));
    EXPECT_GT(textColour(view.detail()).lightness(), 200);
}

TEST(AlertEdgeTest, IsDrawnWhereTheWindowSystemDrawsNoFrame)
{
    const FakeAppearance appearance;
    SnoozeAlertWindow window({}, {}, appearance);
    const auto edgeShows = [&window] {
        window.adjustSize();
        const QImage picture = window.grab().toImage();
        return picture.pixel(0, 100) != picture.pixel(3, 100);
    };

    EXPECT_FALSE(edgeShows());
    window.setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    EXPECT_TRUE(edgeShows());
}

TEST_F(AlertTest, AScreenReaderFindsADialogWithNamedControls)
{
    const AlertView view = showOneLow();
    auto* const dialog = QAccessible::queryAccessibleInterface(&view.window);

    EXPECT_EQ(dialog->role(), QAccessible::Dialog);
    EXPECT_EQ(dialog->text(QAccessible::Name), "Magic Mouse battery alert");
    EXPECT_EQ(dialog->text(QAccessible::Description), "Battery at 12%. Please charge.");
    EXPECT_EQ(spokenName(view.button("In 1 hour")), "In 1 hour");
}

TEST_F(AlertTest, MarkupAndAmpersandsInANameAreShownAsTheyStand)
{
    BatteryDevice device = mouse(12);
    device.name = "<b>x</b> &amp; &Quit";
    const AlertView view = show({device}, true);

    EXPECT_EQ(view.title().text(), "<b>x</b> &amp; &Quit battery alert");
    EXPECT_EQ(view.title().textFormat(), Qt::PlainText);
    EXPECT_EQ(view.detail().textFormat(), Qt::PlainText);
}

TEST_F(AlertTest, TheWindowHasTheKeyboardButAStrayKeyPressesNothing)
{
    const AlertView view = showOneLow();
    EXPECT_TRUE(view.window.isActiveWindow());
    EXPECT_EQ(QApplication::focusWidget(), &view.window);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_A}) {
        press(key);
    }
    view.hour().setFocus();
    press(Qt::Key_Return);

    EXPECT_THAT(done, IsEmpty());
    EXPECT_TRUE(view.window.isVisible());
}

TEST_F(AlertTest, TabWalksTheRowsFromTopToBottomAndBacktabBack)
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
    press(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_EQ(focused(view), "Cancel");
}

TEST_F(AlertTest, SpaceReturnAndEnterPressTheFocusedButtonAndNoOther)
{
    showOneLow();
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        press(Qt::Key_Tab);
        press(key);
    }

    EXPECT_THAT(done, ElementsAre("option 0", "option 1", "option 2"));
}

TEST_F(AlertTest, EveryButtonReportsItsOwnChoiceOnce)
{
    const AlertView view = showOneLow();
    for (const char* const title :
         {"In 20 minutes", "In 30 minutes", "In 1 hour", "In 2 hours", "OK", "Cancel"}) {
        view.click(title);
    }

    EXPECT_THAT(
        done, ElementsAre("option 0", "option 1", "option 2", "option 3", "time 15:35", "cancel"));
}

TEST_F(AlertTest, ATimeIsChosenWithTheArrowKeysOrFromTheListsAndReportedOnceItIsConfirmed)
{
    const AlertView view = showOneLow();
    view.hour().setFocus();
    press(Qt::Key_Down);
    press(Qt::Key_Tab);
    press(Qt::Key_Up);
    turnWheel(view.hour());
    EXPECT_THAT(done, IsEmpty());
    view.click("OK");
    for (const auto& [hour, minute] : {std::pair("00", "00"), std::pair("23", "55")}) {
        chooseEntry(view.hour(), hour);
        chooseEntry(view.minute(), minute);
        view.click("OK");
    }

    EXPECT_THAT(done, ElementsAre("time 16:30", "time 0:0", "time 23:55"));
}

TEST_F(AlertTest, EscapeAndTheCloseButtonDoWhatCancelDoes)
{
    const AlertView view = showOneLow();
    press(Qt::Key_Escape);
    view.button("In 1 hour").setFocus();
    press(Qt::Key_Escape);
    view.minute().setFocus();
    press(Qt::Key_Escape);
    view.window.windowHandle()->close();

    EXPECT_THAT(done, ElementsAre("cancel", "cancel", "cancel", "cancel"));
}

TEST_F(AlertTest, EscapeInAnOpenListClosesOnlyTheList)
{
    const AlertView view = showOneLow();
    view.hour().showPopup();
    QTest::keyClick(view.hour().view(), Qt::Key_Escape);

    EXPECT_FALSE(view.hour().view()->isVisible());
    EXPECT_THAT(done, IsEmpty());
}

TEST_F(AlertTest, AMinimisedWindowIsBroughtBack)
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
        EXPECT_FALSE(window->isVisible());
        turnEventLoop();
        EXPECT_TRUE(window.isNull());
        EXPECT_EQ(runLoop.timerCount(), 0U);
    }

    QPointer<SnoozeAlertWindow> window;
};

TEST_F(AlertDestroyedWithinTest, ByAClickOrAKeyOnAButton)
{
    for (const char* const title : {"In 20 minutes", "In 2 hours", "OK", "Cancel"}) {
        const AlertView clicked = showDestroying();
        pointAt(clicked.button(title));
        clicked.click(title);
        expectGone();
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
            const AlertView view = showDestroying();
            view.button(title).setFocus();
            QTest::keyClick(&view.button(title), key);
            expectGone();
        }
    }
}

TEST_F(AlertDestroyedWithinTest, ByEscapeByTheCloseButtonOrWhileAListIsOpen)
{
    QTest::keyClick(&showDestroying().window, Qt::Key_Escape);
    expectGone();
    EXPECT_TRUE(showDestroying().window.windowHandle()->close());
    expectGone();
    showDestroying().hour().showPopup();
    alert.reset();
    expectGone();
}

/// The window over a real model, in virtual time.
class AlertModelTest : public testing::Test {
protected:
    AlertModelTest()
    {
        const ModelServices fakes = world.services();
        world.model = std::make_unique<BatteryModel>(ModelServices{
            fakes.defaults, fakes.runLoop, fakes.clock, fakes.calendar, fakes.loginItems,
            fakes.notifications, fakes.notificationDelegate, presenter, fakes.log, fakes.reader});
        world.runLoop.settle();
    }

    ~AlertModelTest() override
    {
        world.model.reset();
        turnEventLoop();
    }

    BatteryModel& model() { return *world.model; }
    static AlertView view() { return AlertView(*alertWindows().at(0)); }

    /// How many timers run that are not the model's own.
    std::size_t extraTimers() const { return world.runLoop.timerCount() - 1; }

    ModelWorld world;
    FakeAppearance appearance;
    FakePointer pointer;
    SnoozeAlertPresenter presenter{appearance, pointer, world.runLoop};
};

/// Counts how often an alert is raised over other windows.
class RaiseWatch : public QObject {
public:
    RaiseWatch() { qApp->installEventFilter(this); }

    int raised = 0;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const bool isAlert = dynamic_cast<SnoozeAlertWindow*>(watched) != nullptr;
        raised += isAlert && event->type() == QEvent::ZOrderChange ? 1 : 0;
        return false;
    }
};

TEST_F(AlertModelTest, AskedForAgainAnAlertIsRaisedAndGetsTheKeyboardWithTheFirstCallsDevices)
{
    const RaiseWatch watch;
    model().showSnoozeAlert({mouse(12)}, true);
    EXPECT_EQ(watch.raised, 1);
    const QPointer<SnoozeAlertWindow> first = alertWindows().at(0);
    QWidget other;
    other.show();
    other.activateWindow();
    QCoreApplication::processEvents();
    ASSERT_FALSE(first->isActiveWindow());

    model().showSnoozeAlert({mouse(12), keyboard(8)}, true);
    turnEventLoop();

    ASSERT_THAT(alertWindows(), ElementsAre(first.data()));
    EXPECT_EQ(watch.raised, 2);
    EXPECT_TRUE(first->isActiveWindow());
    EXPECT_EQ(view().title().text(), "Magic Mouse battery alert");
}

TEST_F(AlertModelTest, AChoiceTakesTheAlertAwayAndBringsANewOneInTimeForWhichAloneATimerWaits)
{
    model().showSnoozeAlert({mouse(12)}, true);
    view().click("In 30 minutes");
    turnEventLoop();
    EXPECT_THAT(alertWindows(), IsEmpty());
    EXPECT_EQ(extraTimers(), 1U);

    const int questions = pointer.questions;
    world.runLoop.advance(Seconds(1799));
    EXPECT_THAT(alertWindows(), IsEmpty());
    EXPECT_EQ(pointer.questions, questions);
    world.runLoop.advance(Seconds(1));
    ASSERT_THAT(alertWindows(), SizeIs(1));
    EXPECT_TRUE(view().window.isVisible());
}

TEST_F(AlertModelTest, AfterManyAlertsNoWindowAndNoTimerIsLeft)
{
    for (int round = 0; round < 20; ++round) {
        model().showSnoozeAlert({mouse(12)}, true);
        view().click("Cancel");
        turnEventLoop();
    }

    EXPECT_THAT(alertWindows(), IsEmpty());
    EXPECT_EQ(extraTimers(), 0U);
}

TEST_F(AlertModelTest, AModelThatGoesTakesTheWindowWithIt)
{
    model().showSnoozeAlert({mouse(12)}, true);
    const QPointer<SnoozeAlertWindow> first = alertWindows().at(0);
    world.model.reset();

    EXPECT_FALSE(first->isVisible());
    turnEventLoop();
    EXPECT_TRUE(first.isNull());
    EXPECT_EQ(world.runLoop.timerCount(), 0U);
}

} // namespace
} // namespace voltmere
