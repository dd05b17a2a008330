// The snooze alert's real window over a real model, in virtual time.

#include "linux/ui/alert_fixture.h"

#include "fakes/model_world.h"

namespace voltmere {
namespace {

using std::chrono::hours;
using std::chrono::minutes;
using std::chrono::seconds;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class AlertModelTest : public testing::Test {
protected:
    ~AlertModelTest() override
    {
        world.model.reset();
        turnEventLoop();
    }

    BatteryModel& start()
    {
        const ModelServices fakes = world.services();
        world.model = std::make_unique<BatteryModel>(ModelServices{
            fakes.defaults, fakes.runLoop, fakes.clock, fakes.calendar, fakes.loginItems,
            fakes.notifications, fakes.notificationDelegate, presenter, fakes.log, fakes.reader});
        world.model->instantEnabled = false;
        world.model->enabled = false;
        return *world.model;
    }

    /// Starts the model with a mouse at 12 %, whose alert is then on screen.
    BatteryModel& startWithAlert()
    {
        world.setLevels({{803, 12}});
        BatteryModel& model = start();
        settle();
        return model;
    }

    void settle()
    {
        world.runLoop.settle();
        turnEventLoop();
    }

    void advance(Seconds span)
    {
        world.runLoop.advance(span);
        turnEventLoop();
    }

    static AlertView view() { return AlertView(*alertWindows().at(0)); }

    static std::string title() { return view().title().text().toStdString(); }

    static QPointer<SnoozeAlertWindow> window() { return alertWindows().at(0); }

    /// How many timers run that are not the model's own.
    std::size_t extraTimers() const { return world.runLoop.timerCount() - 1; }

    ModelWorld world;
    FakeAppearance appearance;
    FakePointer pointer;
    SnoozeAlertPresenter presenter{appearance, pointer, world.runLoop};
};

TEST_F(AlertModelTest, BeforeLaunchHasSettledNothingShowsAndThenTheFirstRetryShows)
{
    BatteryModel::launchSettled = false;
    startWithAlert();
    EXPECT_THAT(alertWindows(), IsEmpty());
    advance(Seconds(2));
    EXPECT_THAT(alertWindows(), IsEmpty());

    BatteryModel::launchSettled = true;
    EXPECT_THAT(alertWindows(), IsEmpty());
    advance(Seconds(1.2));
    ASSERT_THAT(alertWindows(), SizeIs(1));
    EXPECT_TRUE(window()->isVisible());
}

TEST_F(AlertModelTest, CallingItTwiceLeavesOneWindowInFrontWithTheFirstCallsDevices)
{
    BatteryModel& model = start();
    settle();
    model.showSnoozeAlert({mouse(12)}, true);
    const QPointer<SnoozeAlertWindow> first = window();
    view().button("OK").setFocus();
    QWidget other;
    other.show();
    other.activateWindow();
    QCoreApplication::processEvents();
    ASSERT_FALSE(first->isActiveWindow());

    model.showSnoozeAlert({mouse(12), keyboard(8)}, true);
    turnEventLoop();

    ASSERT_THAT(alertWindows(), ElementsAre(first.data()));
    EXPECT_TRUE(first->isActiveWindow());
    EXPECT_EQ(title(), "Magic Mouse battery alert");
    EXPECT_EQ(extraTimers(), 1U);
}

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

TEST_F(AlertModelTest, AnAlertIsRaisedToTheFrontWhenItAppearsAndWhenItIsAskedForAgain)
{
    BatteryModel& model = start();
    settle();
    const RaiseWatch watch;
    model.showSnoozeAlert({mouse(12)}, true);
    EXPECT_EQ(watch.raised, 1);

    model.showSnoozeAlert({mouse(12)}, true);
    EXPECT_EQ(watch.raised, 2);
}

/// One of the things that take an alert off the screen without choosing a time.
struct Dismissal {
    const char* name;
    void (*act)(const AlertView& view);
};

class AlertDismissalTest : public AlertModelTest, public testing::WithParamInterface<Dismissal> { };

TEST_P(AlertDismissalTest, HidesTheWindowReleasesItAndALaterOneIsNew)
{
    BatteryModel& model = startWithAlert();
    const QPointer<SnoozeAlertWindow> first = window();
    GetParam().act(view());

    EXPECT_FALSE(first->isVisible());
    turnEventLoop();
    EXPECT_TRUE(first.isNull());
    EXPECT_EQ(extraTimers(), 0U);

    model.showSnoozeAlert({keyboard(8)}, true);
    ASSERT_THAT(alertWindows(), SizeIs(1));
    EXPECT_EQ(title(), "Magic Keyboard battery alert");
    EXPECT_TRUE(window()->isVisible());
}

const Dismissal dismissals[]{
    {"CancelClicked", [](const AlertView& view) { view.click("Cancel"); }},
    {"CancelByKey",
     [](const AlertView& view) { QTest::keyClick(&view.button("Cancel"), Qt::Key_Space); }},
    {"Escape", [](const AlertView& view) { QTest::keyClick(&view.window, Qt::Key_Escape); }},
    {"CloseButton", [](const AlertView& view) { view.window.windowHandle()->close(); }},
};

INSTANTIATE_TEST_SUITE_P(Ways, AlertDismissalTest, testing::ValuesIn(dismissals),
                         [](const auto& way) { return std::string(way.param.name); });

/// A row that brings the alert back after some time.
struct Choice {
    const char* name;
    const char* title;
    Seconds delay;
};

class AlertChoiceTest : public AlertModelTest, public testing::WithParamInterface<Choice> {
protected:
    void expectSnoozed(const QPointer<SnoozeAlertWindow>& first)
    {
        EXPECT_FALSE(first->isVisible());
        turnEventLoop();
        EXPECT_TRUE(first.isNull());
        EXPECT_EQ(extraTimers(), 1U);
        advance(GetParam().delay - seconds(1));
        EXPECT_THAT(alertWindows(), IsEmpty());
        advance(seconds(1));
        ASSERT_THAT(alertWindows(), SizeIs(1));
        EXPECT_TRUE(window()->isVisible());
    }
};

TEST_P(AlertChoiceTest, AClickHidesTheWindowReleasesItAndBringsAFreshOneInTime)
{
    startWithAlert();
    const QPointer<SnoozeAlertWindow> first = window();
    view().click(GetParam().title);
    expectSnoozed(first);
}

TEST_P(AlertChoiceTest, AClickWhileThePointerHoversDoesTheSame)
{
    startWithAlert();
    const QPointer<SnoozeAlertWindow> first = window();
    const QWidget& button = view().button(GetParam().title);
    const QPoint centre = button.mapToGlobal(button.rect().center());
    pointer.place =
        PointerPosition{static_cast<double>(centre.x()), static_cast<double>(centre.y())};
    world.runLoop.advance(HoverPoller::interval);
    ASSERT_TRUE(view().button(GetParam().title).isHighlighted());
    world.setClock(10, 0);
    view().click(GetParam().title);
    expectSnoozed(first);
}

TEST_P(AlertChoiceTest, AKeyDoesTheSame)
{
    startWithAlert();
    const QPointer<SnoozeAlertWindow> first = window();
    view().button(GetParam().title).setFocus();
    QTest::keyClick(&view().button(GetParam().title), Qt::Key_Space);
    expectSnoozed(first);
}

// At 10:00 the row for a clock time shows 11:00.
const Choice choices[]{
    {"In20Minutes", "In 20 minutes", minutes(20)},
    {"In30Minutes", "In 30 minutes", minutes(30)},
    {"In1Hour", "In 1 hour", hours(1)},
    {"In2Hours", "In 2 hours", hours(2)},
    {"AtATime", "OK", hours(1)},
};

INSTANTIATE_TEST_SUITE_P(Rows, AlertChoiceTest, testing::ValuesIn(choices),
                         [](const auto& choice) { return std::string(choice.param.name); });

TEST_F(AlertModelTest, ChoosingIn30MinutesShowsWhatIsLow1800SecondsLater)
{
    startWithAlert();
    view().click("In 30 minutes");
    world.setLevels({{803, 100}, {805, 8}});
    advance(seconds(1799));
    EXPECT_THAT(alertWindows(), IsEmpty());
    advance(seconds(1));

    ASSERT_THAT(alertWindows(), SizeIs(1));
    EXPECT_EQ(title(), "Magic Keyboard battery alert");
}

TEST_F(AlertModelTest, ChoosingAnotherOptionBeforeThatReplacesThePendingTimer)
{
    BatteryModel& model = startWithAlert();
    view().click("In 30 minutes");
    advance(minutes(10));
    model.showSnoozeAlert({mouse(12)}, true);
    view().click("In 2 hours");
    turnEventLoop();
    EXPECT_EQ(extraTimers(), 1U);

    advance(hours(2) - seconds(1));
    EXPECT_THAT(alertWindows(), IsEmpty());
    advance(seconds(1));
    EXPECT_THAT(alertWindows(), SizeIs(1));
}

TEST_F(AlertModelTest, At0910Choosing0930AlertsIn20MinutesLessTheSecondsElapsed)
{
    world.setClock(9, 10, 25);
    startWithAlert();
    AlertView::choose(view().hour(), "09");
    AlertView::choose(view().minute(), "30");
    view().click("OK");
    turnEventLoop();

    advance(seconds(1174));
    EXPECT_THAT(alertWindows(), IsEmpty());
    advance(seconds(1));
    EXPECT_THAT(alertWindows(), SizeIs(1));
}

TEST_F(AlertModelTest, At0910Choosing0910AlertsTomorrow)
{
    world.setClock(9, 10);
    startWithAlert();
    AlertView::choose(view().hour(), "09");
    AlertView::choose(view().minute(), "10");
    view().click("OK");
    turnEventLoop();

    advance(hours(24) - seconds(1));
    EXPECT_THAT(alertWindows(), IsEmpty());
    advance(seconds(1));
    EXPECT_THAT(alertWindows(), SizeIs(1));
}

TEST_F(AlertModelTest, At0910Choosing0800AlertsTomorrow)
{
    world.setClock(9, 10);
    startWithAlert();
    AlertView::choose(view().hour(), "08");
    AlertView::choose(view().minute(), "00");
    view().click("OK");
    turnEventLoop();

    advance(hours(22) + minutes(50) - seconds(1));
    EXPECT_THAT(alertWindows(), IsEmpty());
    advance(seconds(1));
    EXPECT_THAT(alertWindows(), SizeIs(1));
}

TEST_F(AlertModelTest, At2230ThePopUpsOpenAt23And30)
{
    world.setClock(22, 30);
    startWithAlert();

    EXPECT_EQ(view().hour().currentText(), "23");
    EXPECT_EQ(view().minute().currentText(), "30");
}

TEST_F(AlertModelTest, At2358ThePopUpsOpenAt00And55)
{
    world.setClock(23, 58);
    startWithAlert();

    EXPECT_EQ(view().hour().currentText(), "00");
    EXPECT_EQ(view().minute().currentText(), "55");
}

TEST_F(AlertModelTest, Confirming0745SetsHour7AndMinute45BeforeTheSnoozeIsScheduled)
{
    BatteryModel& model = startWithAlert();
    std::vector<std::size_t> timersAtChanges;
    const Subscription subscription =
        model.objectWillChange.subscribe([&] { timersAtChanges.push_back(extraTimers()); });
    AlertView::choose(view().hour(), "07");
    AlertView::choose(view().minute(), "45");
    view().click("OK");

    EXPECT_EQ(model.customHour.get(), 7);
    EXPECT_EQ(model.customMinute.get(), 45);
    EXPECT_THAT(timersAtChanges, ElementsAre(0U, 0U));
    EXPECT_EQ(extraTimers(), 1U);
}

TEST_F(AlertModelTest, ThePopUpsDoNotRememberTheLastChoice)
{
    BatteryModel& model = startWithAlert();
    AlertView::choose(view().hour(), "07");
    view().click("OK");
    turnEventLoop();
    model.showSnoozeAlert({mouse(12)}, true);

    EXPECT_EQ(view().hour().currentText(), "11");
}

TEST_F(AlertModelTest, CancelLeavesAPendingSnooze)
{
    BatteryModel& model = startWithAlert();
    view().click("In 30 minutes");
    turnEventLoop();
    model.showSnoozeAlert({mouse(12)}, true);
    view().click("Cancel");
    turnEventLoop();

    EXPECT_EQ(extraTimers(), 1U);
    advance(minutes(30));
    EXPECT_THAT(alertWindows(), SizeIs(1));
}

TEST_F(AlertModelTest, APendingSnoozeIsTheOnlyThingThatWaits)
{
    startWithAlert();
    view().click("In 2 hours");
    turnEventLoop();
    const int questions = pointer.questions;
    advance(hours(2) - seconds(1));

    EXPECT_EQ(pointer.questions, questions);
    EXPECT_EQ(extraTimers(), 1U);
}

TEST_F(AlertModelTest, AfterManyAlertsNoWindowAndNoTimerIsLeft)
{
    BatteryModel& model = start();
    settle();
    for (int round = 0; round < 20; ++round) {
        model.showSnoozeAlert({mouse(12)}, true);
        view().click("Cancel");
        turnEventLoop();
    }

    EXPECT_THAT(alertWindows(), IsEmpty());
    EXPECT_EQ(extraTimers(), 0U);
}

TEST_F(AlertModelTest, AModelThatGoesTakesTheWindowWithIt)
{
    startWithAlert();
    const QPointer<SnoozeAlertWindow> first = window();
    world.model.reset();

    EXPECT_FALSE(first->isVisible());
    turnEventLoop();
    EXPECT_TRUE(first.isNull());
    EXPECT_EQ(world.runLoop.timerCount(), 0U);
}

} // namespace
} // namespace voltmere
