#include "linux/ui/alert_fixture.h"

#include <QEnterEvent>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Keeps what it is told.
class RecordingHover : public HoverHighlighting {
public:
    void setHovering(bool hovering) override { told.push_back(hovering); }

    std::vector<bool> told;
};

/// Two controls side by side in a window, whose top left corner is the desktop's.
class HoverPollerTest : public testing::Test {
protected:
    HoverPollerTest()
    {
        left.setParent(window.get());
        right.setParent(window.get());
        left.setGeometry(10, 10, 50, 28);
        right.setGeometry(70, 10, 50, 28);
        window->setGeometry(100, 100, 200, 50);
        window->show();
        QCoreApplication::processEvents();
    }

    ~HoverPollerTest() override
    {
        left.setParent(nullptr);
        right.setParent(nullptr);
    }

    HoverPoller& start()
    {
        poller = std::make_unique<HoverPoller>(
            window.get(),
            std::vector<HoverPoller::Item>{{&left, &leftHover}, {&right, &rightHover}}, pointer,
            runLoop);
        return *poller;
    }

    void pointAt(const QPoint& inWindow)
    {
        const QPoint point = window->mapToGlobal(inWindow);
        pointer.place =
            PointerPosition{static_cast<double>(point.x()), static_cast<double>(point.y())};
    }

    void tick(int times = 1) { runLoop.advance(times * HoverPoller::interval); }

    static void enter(QWidget& widget)
    {
        QEnterEvent event({1, 1}, {1, 1}, {1, 1});
        QApplication::sendEvent(&widget, &event);
    }

    static void leave(QWidget& widget)
    {
        QEvent event(QEvent::Leave);
        QApplication::sendEvent(&widget, &event);
    }

    FakePointer pointer;
    FakeClock clock;
    FakeRunLoop runLoop{clock};
    std::unique_ptr<QWidget> window = std::make_unique<QWidget>();
    QWidget left;
    QWidget right;
    RecordingHover leftHover;
    RecordingHover rightHover;
    std::unique_ptr<HoverPoller> poller;
};

TEST_F(HoverPollerTest, TheHighlightIsRightBeforeTheFirstTick)
{
    pointAt({20, 20});
    start();

    EXPECT_THAT(leftHover.told, ElementsAre(true));
    EXPECT_THAT(rightHover.told, ElementsAre(false));
}

TEST_F(HoverPollerTest, EveryItemIsToldOnEveryTickWhetherOrNotItsStateChanged)
{
    pointAt({20, 20});
    start();
    tick(3);

    EXPECT_THAT(leftHover.told, ElementsAre(true, true, true, true));
    EXPECT_THAT(rightHover.told, ElementsAre(false, false, false, false));
}

TEST_F(HoverPollerTest, TicksEvery120Milliseconds)
{
    start();
    runLoop.advance(Seconds(0.119));
    EXPECT_EQ(leftHover.told.size(), 1U);
    runLoop.advance(Seconds(0.002));
    EXPECT_EQ(leftHover.told.size(), 2U);
    runLoop.advance(Seconds(1.2));
    EXPECT_EQ(leftHover.told.size(), 12U);
}

TEST_F(HoverPollerTest, OneTickAsksForThePointerOnce)
{
    start();
    const int before = pointer.questions;
    tick();

    EXPECT_EQ(pointer.questions, before + 1);
}

TEST_F(HoverPollerTest, MovingFromOneControlToTheOtherChangesBothOnTheSameTick)
{
    pointAt({20, 20});
    start();
    pointAt({80, 20});
    tick();

    EXPECT_THAT(leftHover.told, ElementsAre(true, false));
    EXPECT_THAT(rightHover.told, ElementsAre(false, true));
}

TEST_F(HoverPollerTest, ThePointerOnTheControlsLastPixelsCountsAndJustOutsideDoesNot)
{
    pointAt({10, 10});
    start();
    for (const QPoint outside : {QPoint(9, 10), QPoint(10, 9), QPoint(60, 20), QPoint(20, 38)}) {
        pointAt(outside);
        tick();
        pointAt({59, 37});
        tick();
    }

    EXPECT_THAT(leftHover.told,
                ElementsAre(true, false, true, false, true, false, true, false, true));
}

TEST_F(HoverPollerTest, OverlappingControlsMayBothBeHovered)
{
    right.setGeometry(left.geometry());
    pointAt({20, 20});
    start();

    EXPECT_THAT(leftHover.told, ElementsAre(true));
    EXPECT_THAT(rightHover.told, ElementsAre(true));
}

TEST_F(HoverPollerTest, AWindowThatMovesIsFollowed)
{
    pointAt({20, 20});
    start();
    window->move(400, 300);
    tick();

    EXPECT_THAT(leftHover.told, ElementsAre(true, false));
}

TEST_F(HoverPollerTest, WhileTheWindowIsHiddenTicksChangeNothing)
{
    pointAt({20, 20});
    start();
    window->hide();
    pointAt({80, 20});
    tick(5);

    EXPECT_THAT(leftHover.told, ElementsAre(true));
    EXPECT_THAT(rightHover.told, ElementsAre(false));
}

TEST_F(HoverPollerTest, StopTakesAllHighlightsAwayAndRemovesTheTimer)
{
    pointAt({20, 20});
    start();
    EXPECT_EQ(runLoop.timerCount(), 1U);
    poller->stop();

    EXPECT_EQ(runLoop.timerCount(), 0U);
    EXPECT_THAT(leftHover.told, ElementsAre(true, false));
    EXPECT_THAT(rightHover.told, ElementsAre(false, false));
    tick(3);
    EXPECT_EQ(leftHover.told.size(), 2U);
}

TEST_F(HoverPollerTest, StopAfterTheWindowWasHiddenLeavesAllItemsPlain)
{
    pointAt({20, 20});
    start();
    window->hide();
    tick(2);
    poller->stop();

    EXPECT_FALSE(leftHover.told.back());
    EXPECT_FALSE(rightHover.told.back());
}

TEST_F(HoverPollerTest, StoppingTwiceIsHarmless)
{
    start();
    poller->stop();
    poller->stop();

    EXPECT_EQ(runLoop.timerCount(), 0U);
}

TEST_F(HoverPollerTest, AReleasedPollerLeavesNoTimer)
{
    start();
    poller.reset();

    EXPECT_EQ(runLoop.timerCount(), 0U);
}

TEST_F(HoverPollerTest, AWindowThatIsGoneIsLeftAlone)
{
    start();
    left.setParent(nullptr);
    right.setParent(nullptr);
    window.reset();
    tick(2);

    EXPECT_EQ(leftHover.told.size(), 1U);
}

TEST_F(HoverPollerTest, WhereThePointerCannotBeAskedThereIsNoTimer)
{
    pointer.place.reset();
    start();

    EXPECT_EQ(runLoop.timerCount(), 0U);
    EXPECT_THAT(leftHover.told, IsEmpty());
}

TEST_F(HoverPollerTest, WhereThePointerCannotBeAskedEnterAndLeaveFeedTheSame)
{
    pointer.place.reset();
    start();
    enter(left);
    leave(left);
    enter(right);

    EXPECT_THAT(leftHover.told, ElementsAre(true, false));
    EXPECT_THAT(rightHover.told, ElementsAre(true));
}

TEST_F(HoverPollerTest, WhereThePointerCannotBeAskedStopTakesAllHighlightsAwayAndListensNoMore)
{
    pointer.place.reset();
    start();
    enter(left);
    poller->stop();
    enter(right);

    EXPECT_THAT(leftHover.told, ElementsAre(true, false));
    EXPECT_THAT(rightHover.told, ElementsAre(false));
}

TEST_F(HoverPollerTest, EnterAndLeaveSayNothingWhereThePointerCanBeAsked)
{
    start();
    enter(left);

    EXPECT_THAT(leftHover.told, ElementsAre(false));
}

class AlertHoverTest : public AlertWindowTest { };

TEST_F(AlertHoverTest, APointerRestingOverAnOptionHighlightsItWithin120MillisecondsAndAfterAClick)
{
    const AlertView view = showOneLow();
    HighlightButton& option = view.button("In 20 minutes");
    EXPECT_FALSE(option.isHighlighted());

    pointAt(option);
    EXPECT_TRUE(option.isHighlighted());
    QTest::mouseClick(&option, Qt::LeftButton);
    EXPECT_THAT(done, ElementsAre("option 0"));
    EXPECT_TRUE(option.isHighlighted());
    tick();
    EXPECT_TRUE(option.isHighlighted());

    pointAway();
    EXPECT_FALSE(option.isHighlighted());
}

TEST_F(AlertHoverTest, APointerThatAlreadyRestsWhereTheWindowAppearsHighlightsAtOnce)
{
    const QPoint place = [this] {
        const AlertView view = showOneLow();
        const QWidget& cancel = view.button("Cancel");
        return cancel.mapToGlobal(cancel.rect().center());
    }();
    pointer.place = PointerPosition{static_cast<double>(place.x()), static_cast<double>(place.y())};

    EXPECT_TRUE(showOneLow().button("Cancel").isHighlighted());
}

TEST_F(AlertHoverTest, EveryButtonHighlightsAloneCancelIncluded)
{
    const AlertView view = showOneLow();
    const std::vector<QString> titles{
        "In 20 minutes", "In 30 minutes", "In 1 hour", "In 2 hours", "OK", "Cancel"};
    for (const QString& hovered : titles) {
        pointAt(view.button(hovered));
        for (const QString& title : titles) {
            EXPECT_EQ(view.button(title).isHighlighted(), title == hovered)
                << title.toStdString() << " while over " << hovered.toStdString();
        }
    }
}

TEST_F(AlertHoverTest, MovingFromOnePopUpToTheOtherMovesTheOverlayOnTheSameTick)
{
    const AlertView view = showOneLow();
    const auto looks = [&view] {
        return std::pair(view.hour().grab().toImage(), view.minute().grab().toImage());
    };
    const auto [plainHour, plainMinute] = looks();

    pointAt(view.hour());
    const auto [hoveredHour, stillPlainMinute] = looks();
    EXPECT_NE(hoveredHour, plainHour);
    EXPECT_EQ(stillPlainMinute, plainMinute);

    pointAt(view.minute());
    const auto [leftHour, hoveredMinute] = looks();
    EXPECT_EQ(leftHour, plainHour);
    EXPECT_NE(hoveredMinute, plainMinute);
}

TEST_F(AlertHoverTest, ATickDoesNotEatASpaceKeyPress)
{
    const AlertView view = showOneLow();
    HighlightButton& option = view.button("In 30 minutes");
    option.setFocus();
    QTest::keyPress(&option, Qt::Key_Space);
    EXPECT_TRUE(option.isDown());

    pointAt(option);
    pointAway();
    EXPECT_TRUE(option.isDown());
    QTest::keyRelease(&option, Qt::Key_Space);

    EXPECT_THAT(done, ElementsAre("option 1"));
}

TEST_F(AlertHoverTest, ATickDoesNotEatAMousePress)
{
    const AlertView view = showOneLow();
    HighlightButton& option = view.button("In 1 hour");
    QTest::mousePress(&option, Qt::LeftButton);

    pointAt(option);
    pointAway();
    EXPECT_TRUE(option.isDown());
    pointAt(option);
    QTest::mouseRelease(&option, Qt::LeftButton);

    EXPECT_THAT(done, ElementsAre("option 2"));
}

TEST_F(AlertHoverTest, ThePollerRunsOnWhileTheListOfAPopUpIsOpen)
{
    const AlertView view = showOneLow();
    view.hour().showPopup();
    ASSERT_TRUE(view.hour().view()->isVisible());

    pointAt(view.button("In 20 minutes"));
    EXPECT_TRUE(view.button("In 20 minutes").isHighlighted());
    pointAway();
    EXPECT_FALSE(view.button("In 20 minutes").isHighlighted());
    view.hour().hidePopup();
}

/// Notes the order in which controls are painted.
class PaintWatch : public QObject {
public:
    std::vector<std::string> painted;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            painted.push_back(static_cast<QWidget*>(watched)->accessibleName().toStdString());
        }
        return false;
    }
};

TEST_F(AlertHoverTest, EachTickTellsCancelFirstAndThenTheControlsFromTopToBottom)
{
    const AlertView view = showOneLow();
    // What covers the ground below itself is painted in the order in which it asked for it.
    PaintWatch watch;
    for (auto* const control : view.window.findChildren<QWidget*>()) {
        auto* const button = dynamic_cast<HighlightButton*>(control);
        if (button != nullptr) {
            button->setHighlighted(true);
        }
        if (button != nullptr || dynamic_cast<HoverPopUpButton*>(control) != nullptr) {
            control->setAttribute(Qt::WA_OpaquePaintEvent);
        }
    }
    QCoreApplication::processEvents();
    for (auto* const control : view.window.findChildren<QWidget*>()) {
        control->installEventFilter(&watch);
    }
    pointAway();
    QCoreApplication::processEvents();

    EXPECT_THAT(watch.painted,
                ElementsAre("Cancel", "In 20 minutes", "In 30 minutes", "In 1 hour", "In 2 hours",
                            "Hour", "Minute", "OK"));
}

TEST_F(AlertHoverTest, TheTimerExistsOnlyWhileTheWindowIsOnScreen)
{
    EXPECT_EQ(runLoop.timerCount(), 0U);
    showOneLow();
    EXPECT_EQ(runLoop.timerCount(), 1U);
    alert->orderOut();
    EXPECT_EQ(runLoop.timerCount(), 0U);
    alert->bringToFront();
    EXPECT_EQ(runLoop.timerCount(), 0U);
    EXPECT_FALSE(alert->isVisible());
}

TEST_F(AlertHoverTest, TakingTheWindowOffTheScreenTakesTheHighlightAway)
{
    const AlertView view = showOneLow();
    HighlightButton& option = view.button("In 1 hour");
    pointAt(option);
    ASSERT_TRUE(option.isHighlighted());
    alert->orderOut();

    EXPECT_FALSE(option.isHighlighted());
}

TEST_F(AlertHoverTest, WhereThePointerCannotBeAskedEnterAndLeaveHighlightTheControls)
{
    pointer.place.reset();
    const AlertView view = showOneLow();
    EXPECT_EQ(runLoop.timerCount(), 0U);
    HighlightButton& cancel = view.button("Cancel");
    QEnterEvent enter({1, 1}, {1, 1}, {1, 1});
    QApplication::sendEvent(&cancel, &enter);
    EXPECT_TRUE(cancel.isHighlighted());

    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&cancel, &leave);
    EXPECT_FALSE(cancel.isHighlighted());
}

} // namespace
} // namespace voltmere
