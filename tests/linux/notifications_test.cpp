#include "linux/notifications.h"

#include "fakes/fake_run_loop.h"
#include "fakes/recording_log.h"
#include "linux/fake_notification_daemon.h"
#include "linux/private_bus.h"
#include "texts/l10n.h"

#include <gmock/gmock.h>

#include <QDBusPendingCall>
#include <QTest>

namespace voltmere {
namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;
using testing::UnorderedElementsAre;
using Manner = FakeNotificationDaemon::Manner;

constexpr uint expired = 1;
constexpr uint dismissed = 2;
constexpr uint closedByCall = 3;

/// Keeps what it is told, and allows what the test says.
class RecordingDelegate : public NotificationCentreDelegate {
public:
    void willPresent(std::function<void(std::uint32_t presentation)> completion) override
    {
        ++presentations;
        if (answersAtOnce) {
            completion(allowed);
        } else {
            kept.push_back(std::move(completion));
        }
    }

    void didReceive(NotificationCentre& centre, const std::string& actionIdentifier,
                    std::function<void()> completion) override
    {
        centres.push_back(&centre);
        answers.push_back(actionIdentifier);
        tokens.push_back(qgetenv("XDG_ACTIVATION_TOKEN").toStdString());
        completion();
    }

    std::uint32_t allowed = presentation::banner | presentation::sound;
    bool answersAtOnce = true;
    int presentations = 0;
    std::vector<std::function<void(std::uint32_t)>> kept;
    std::vector<NotificationCentre*> centres;
    std::vector<std::string> answers;
    std::vector<std::string> tokens; ///< what the environment held at each answer
};

/// The desktop's notifications between a fake daemon on a bus of their own and virtual time.
class NotificationsTest : public testing::Test {
protected:
    NotificationsTest()
        : client(bus.connect())
        , daemon(bus.connect())
    {
        qunsetenv("XDG_ACTIVATION_TOKEN");
        clock.present = Instant(std::chrono::sys_days(std::chrono::year(2026) / 3 / 2));
        start();
    }

    ~NotificationsTest() override { qunsetenv("XDG_ACTIVATION_TOKEN"); }

    /// Starts the centre, after what is left of an earlier one has gone.
    void start()
    {
        centre.reset();
        centre = std::make_unique<DesktopNotifications>(client, delayedFile, runLoop, clock, log);
        centre->setDelegate(&delegate);
        centre->setCategories(
            {{"CHOICE", {{"LATER", "Later", false}, {"FRONT", "To the front…", true}}},
             {"MARKER", {{"MARK", "Mark", false}}}});
    }

    /// The program ends, `span` passes, the program starts.
    void restartAfter(Seconds span)
    {
        centre.reset();
        runLoop.advance(span);
        start();
    }

    static NotificationRequest request(const std::string& title, const std::string& category = "")
    {
        return {"id-" + title, {title, "Body", false, category}, std::nullopt};
    }

    static NotificationRequest delayed(const std::string& title, double seconds)
    {
        NotificationRequest result = request(title);
        result.delay = Seconds(seconds);
        return result;
    }

    [[nodiscard]] static bool waitFor(const std::function<bool()>& condition)
    {
        return QTest::qWaitFor(condition, 30'000);
    }

    template<typename List>
    [[nodiscard]] static bool waitForSize(const List& list, std::size_t size)
    {
        return waitFor([&] { return list.size() == size; });
    }

    [[nodiscard]] bool waitForShown(std::size_t count) { return waitForSize(daemon.shown, count); }

    [[nodiscard]] bool waitForAnswers(std::size_t count)
    {
        return waitForSize(delegate.answers, count);
    }

    [[nodiscard]] bool waitForLog(std::size_t lines) { return waitForSize(log.lines, lines); }

    /// Shows one notification of the category with actions; its number at the daemon.
    uint showChoice()
    {
        show(request("Title", "CHOICE"));
        return daemon.shown.back().id;
    }

    /// Shows one notification with this body.
    QString bodyShownFor(const std::string& body)
    {
        show({"id", {"A < B & C", body, false, ""}, std::nullopt});
        EXPECT_EQ(daemon.shown.back().summary, "A < B & C");
        return daemon.shown.back().body;
    }

    void show(const NotificationRequest& request)
    {
        const std::size_t count = daemon.shown.size();
        centre->add(request);
        ASSERT_TRUE(waitForShown(count + 1));
    }

    /// Waits until the centre has taken in everything that the daemon has sent so far: a further
    /// notification makes the whole way there and back.
    void roundTrip()
    {
        centre->add(request("marker", "MARKER"));
        ASSERT_TRUE(waitFor(
            [this] { return !daemon.shown.empty() && daemon.shown.back().summary == "marker"; }));
        daemon.emitActionInvoked(daemon.shown.back().id, "MARK");
        ASSERT_TRUE(waitFor(
            [this] { return !delegate.answers.empty() && delegate.answers.back() == "MARK"; }));
        daemon.shown.pop_back();
        delegate.answers.pop_back();
        delegate.tokens.pop_back();
        --delegate.presentations;
    }

    /// Waits until the daemon has taken in every call that the centre has sent so far.
    void settleCalls()
    {
        const QDBusPendingCall call = client.asyncCall(QDBusMessage::createMethodCall(
            daemon.connection().baseService(), "/org/freedesktop/Notifications",
            "org.freedesktop.Notifications", "GetServerInformation"));
        ASSERT_TRUE(waitFor([&call] { return call.isFinished(); }));
    }

    std::vector<std::string> shownTitles() const
    {
        std::vector<std::string> titles;
        for (const FakeNotificationDaemon::Notification& notification : daemon.shown) {
            titles.push_back(notification.summary.toStdString());
        }
        return titles;
    }

    /// The rules of the centre's own connection for messages of the daemon's interface.
    QStringList matchRules() const
    {
        const QDBusMessage reply = client.call(
            QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                           "org.freedesktop.DBus.Debug.Stats", "GetAllMatchRules"));
        EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage) << reply.errorMessage().toStdString();
        const auto rules = qdbus_cast<QMap<QString, QStringList>>(reply.arguments().value(0));
        return rules.value(client.baseService())
            .filter("interface='org.freedesktop.Notifications'");
    }

    std::string saved() const { return readFile(delayedFile); }

    PrivateBus bus;
    QDBusConnection client;
    FakeNotificationDaemon daemon;
    FakeClock clock;
    FakeRunLoop runLoop{clock};
    RecordingLog log;
    RecordingDelegate delegate;
    TemporaryDirectory state;
    std::filesystem::path delayedFile = state / "voltmere" / "notifications.json";
    std::unique_ptr<DesktopNotifications> centre;
};

TEST_F(NotificationsTest, ARequestWithoutADelayIsShownAtOnceInTheFormThatTheStandardGives)
{
    centre->add(request("Title", "CHOICE"));

    ASSERT_TRUE(waitForShown(1));
    EXPECT_EQ(daemon.shown[0].applicationName.toStdString(), L10n::t("app.name"));
    EXPECT_EQ(daemon.shown[0].replaces, 0U);
    EXPECT_EQ(daemon.shown[0].icon, "org.voltmere.Voltmere");
    EXPECT_EQ(daemon.shown[0].summary, "Title");
    EXPECT_EQ(daemon.shown[0].body, "Body");
    EXPECT_EQ(daemon.shown[0].actions,
              QStringList({"default", "", "LATER", "Later", "FRONT", QString("To the front…")}));
    EXPECT_EQ(daemon.shown[0].hints["desktop-entry"], QVariant("org.voltmere.Voltmere"));
    EXPECT_EQ(daemon.shown[0].hints["urgency"], QVariant::fromValue(uchar(1)));
    EXPECT_EQ(daemon.shown[0].hints["urgency"].metaType(), QMetaType::fromType<uchar>());
    EXPECT_EQ(daemon.shown[0].duration, -1);
    EXPECT_FALSE(std::filesystem::exists(delayedFile));
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(NotificationsTest, NewCategoriesReplaceTheOldOnesForWhatIsShownNext)
{
    centre->setCategories({{"OTHER", {{"X", "Other", false}}}});
    show(request("First", "OTHER"));
    show(request("Second", "CHOICE"));

    EXPECT_EQ(daemon.shown[0].actions, QStringList({"default", "", "X", "Other"}));
    EXPECT_EQ(daemon.shown[1].actions, QStringList({"default", ""}));
}

TEST_F(NotificationsTest, TextsArePlainTextAndNoFormat)
{
    EXPECT_EQ(bodyShownFor("100%s %n %1 {} %@"), "100%s %n %1 {} %@");
    EXPECT_EQ(bodyShownFor("请给鼠标 🔋充电"), QString::fromUtf8("请给鼠标 🔋充电"));
    EXPECT_EQ(bodyShownFor(std::string("a\0b\x1B[c\u202E\x7F", 10)), "a b [c ");
    EXPECT_EQ(bodyShownFor("<b>&amp; \"x\"</b>"), "&lt;b&gt;&amp;amp; &quot;x&quot;&lt;/b&gt;");
    daemon.capabilities = {"body", "actions"}; // no markup
    EXPECT_EQ(bodyShownFor("<b>&amp; \"x\"</b>"), "<b>&amp; \"x\"</b>");
}

TEST_F(NotificationsTest, ADaemonWithoutButtonsGetsNoActions)
{
    daemon.capabilities = {"body"};
    showChoice();

    EXPECT_EQ(daemon.shown[0].actions, QStringList());
}

TEST_F(NotificationsTest, ASoundNeedsTheRequestAndTheDelegate)
{
    NotificationRequest sounding = request("Sounding");
    sounding.content.defaultSound = true;
    show(sounding);
    show(request("Silent"));
    delegate.allowed = 0; // a banner is the quietest that there is
    show(sounding);

    EXPECT_EQ(delegate.presentations, 3);
    EXPECT_EQ(daemon.shown[0].hints["sound-name"], QVariant("message-new-instant"));
    EXPECT_FALSE(daemon.shown[0].hints.contains("suppress-sound"));
    for (const std::size_t silent : {1U, 2U}) {
        EXPECT_FALSE(daemon.shown[silent].hints.contains("sound-name"));
        EXPECT_EQ(daemon.shown[silent].hints["suppress-sound"], QVariant(true));
    }
}

TEST_F(NotificationsTest, ADelegateThatAnswersAfterTheEndShowsNothing)
{
    delegate.answersAtOnce = false;
    centre->add(request("Title"));
    centre.reset();
    delegate.kept.at(0)(presentation::banner);
    delegate.answersAtOnce = true;
    start();
    roundTrip();

    EXPECT_THAT(daemon.shown, IsEmpty());
}

TEST_F(NotificationsTest, WithoutADelegateNotificationsAreShownAndAnswersGoNowhere)
{
    centre->setDelegate(nullptr);
    daemon.emitNotificationClosed(showChoice(), dismissed);
    daemon.emitActionInvoked(showChoice(), "LATER");
    ASSERT_TRUE(waitFor([this] { return daemon.closed.size() == 1; }));

    EXPECT_THAT(delegate.answers, IsEmpty());
}

TEST_F(NotificationsTest, AnActionReachesTheDelegateWithItsIdentifierAndATapAsTheDefaultAction)
{
    daemon.emitActionInvoked(showChoice(), "LATER");
    ASSERT_TRUE(waitForAnswers(1));
    daemon.emitActionInvoked(showChoice(), "default");
    ASSERT_TRUE(waitForAnswers(2));

    EXPECT_THAT(delegate.answers, ElementsAre("LATER", standardAction::open));
    EXPECT_THAT(delegate.centres, ElementsAre(centre.get(), centre.get()));
}

TEST_F(NotificationsTest, EachNotificationHasItsOwnAnswerOfWhichTheFirstCounts)
{
    const uint first = showChoice();
    const uint second = showChoice();
    daemon.emitNotificationClosed(second, dismissed);
    daemon.emitNotificationClosed(second, dismissed);
    daemon.emitActionInvoked(first, "LATER");
    daemon.emitActionInvoked(first, "FRONT");
    daemon.emitNotificationClosed(first, dismissed);
    roundTrip();

    EXPECT_THAT(delegate.answers, ElementsAre(standardAction::dismiss, "LATER"));
}

TEST_F(NotificationsTest, AnAnsweredNotificationIsTakenOffTheScreen)
{
    const uint answered = showChoice();
    const uint clicked = showChoice();
    const uint dismissedByHand = showChoice();
    showChoice();
    daemon.emitActionInvoked(answered, "LATER");
    daemon.emitActionInvoked(clicked, "default");
    daemon.emitNotificationClosed(dismissedByHand, dismissed);
    ASSERT_TRUE(waitForAnswers(3));
    settleCalls();

    EXPECT_THAT(daemon.closed, ElementsAre(answered, clicked));
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(NotificationsTest, ANotificationThatGoesByItselfOrAnActionThatWasNotOfferedIsNoAnswer)
{
    for (const uint reason : {expired, closedByCall}) {
        const uint id = showChoice();
        daemon.emitNotificationClosed(id, reason);
        daemon.emitActionInvoked(id, "LATER");
    }
    daemon.emitActionInvoked(showChoice(), "SOMETHING");
    roundTrip();

    EXPECT_THAT(delegate.answers, IsEmpty());
}

TEST_F(NotificationsTest, OnlyTheForegroundActionFindsTheActivationTokenInTheEnvironment)
{
    for (const char* const key : {"LATER", "default", "FRONT"}) {
        const uint id = showChoice();
        daemon.emitActivationToken(id + 1, "foreign");
        daemon.emitActivationToken(id, "token-1");
        daemon.emitActionInvoked(id, key);
    }

    ASSERT_TRUE(waitForAnswers(3));
    EXPECT_THAT(delegate.tokens, ElementsAre("", "", "token-1"));
}

TEST_F(NotificationsTest, SignalsForNotificationsOfOthersAreIgnored)
{
    const uint id = showChoice();
    for (uint foreign = id + 1; foreign <= id + 10'000; ++foreign) {
        daemon.emitActionInvoked(foreign, "LATER");
        daemon.emitNotificationClosed(foreign, dismissed);
    }
    daemon.nextId = id + 20'000;
    roundTrip();
    EXPECT_THAT(delegate.answers, IsEmpty());

    daemon.emitActionInvoked(id, "LATER");
    EXPECT_TRUE(waitForAnswers(1));
}

TEST_F(NotificationsTest, SignalsOfProgramsOtherThanTheDaemonThatWasAskedAreIgnored)
{
    FakeNotificationDaemon other(bus.connect());
    const uint id = showChoice();
    other.emitActionInvoked(id, "LATER");
    roundTrip();
    EXPECT_THAT(delegate.answers, IsEmpty());

    daemon.disappear();
    other.appear();
    other.emitActionInvoked(id, "LATER");
    other.nextId = 100;
    centre->add(request("New", "CHOICE"));
    ASSERT_TRUE(waitFor([&] { return other.shown.size() == 1; }));
    other.emitActionInvoked(100, "default");
    ASSERT_TRUE(waitForAnswers(1));
    EXPECT_THAT(delegate.answers, ElementsAre(standardAction::open));
}

TEST_F(NotificationsTest, TheProgramListensToNobodyBeforeItsFirstNotification)
{
    centre->add(delayed("Later", 600));
    settleCalls();
    EXPECT_EQ(matchRules(), QStringList());
    EXPECT_EQ(daemon.capabilityCalls, 0);

    showChoice();
    EXPECT_EQ(matchRules().size(), 3);
    showChoice();
    EXPECT_EQ(matchRules().size(), 3);
}

TEST_F(NotificationsTest, WithoutADaemonTheLogSaysSoOnce)
{
    daemon.disappear();
    centre->add(request("First"));
    ASSERT_TRUE(waitForLog(1));
    centre->add(request("Second"));
    settleCalls();
    daemon.appear();
    roundTrip();

    EXPECT_THAT(daemon.shown, IsEmpty());
    EXPECT_THAT(log.lines,
                ElementsAre(StartsWith("Voltmere: there is no notification service that answers")));
}

TEST_F(NotificationsTest, WithoutABusTheLogSaysSoOnce)
{
    const QDBusConnection nowhere = QDBusConnection::connectToBus("unix:path=/nowhere", "nowhere");
    DesktopNotifications alone(nowhere, delayedFile, runLoop, clock, log);
    alone.add(request("First"));
    alone.add(request("Second"));

    ASSERT_TRUE(waitForLog(1));
    EXPECT_THAT(log.lines, ElementsAre(HasSubstr("there is no message bus")));
}

TEST_F(NotificationsTest, ABusThatEndsTakesNothingWithIt)
{
    showChoice();
    roundTrip(); // so that no call is under way
    bus.stop();
    ASSERT_TRUE(waitFor([this] { return !client.isConnected(); }));
    centre->add(request("Title"));

    EXPECT_TRUE(waitForLog(1));
}

TEST_F(NotificationsTest, AHangingDaemonBlocksNothing)
{
    // A call that waited would never come back: the daemon lives on this very thread.
    daemon.capabilityManner = Manner::hangs;
    centre->add(request("First"));
    settleCalls();
    daemon.capabilityManner = Manner::answers;
    daemon.notifyManner = Manner::hangs;
    centre->add(request("Second"));
    ASSERT_TRUE(waitForShown(1));
    daemon.notifyManner = Manner::answers;
    centre->add(request("Third"));
    ASSERT_TRUE(waitForShown(2));
    centre.reset(); // with calls under way

    EXPECT_THAT(shownTitles(), ElementsAre("Second", "Third"));
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(NotificationsTest, ARefusalIsLoggedOnceAsPlainTextAndNotTriedAgain)
{
    daemon.notifyManner = Manner::refuses;
    daemon.complaint = "100%s %n {} %1";
    show(request("First"));
    centre->add(delayed("Second", 0));
    runLoop.advance(0s);
    ASSERT_TRUE(waitForShown(2));
    daemon.notifyManner = Manner::answers;
    runLoop.advance(24h);
    roundTrip();

    EXPECT_THAT(shownTitles(), ElementsAre("First", "Second"));
    EXPECT_THAT(log.lines,
                ElementsAre(AllOf(StartsWith("Voltmere: the notification service did not show"),
                                  EndsWith("100%s %n {} %1)"))));
}

TEST_F(NotificationsTest, AnAnswerOfAnUnknownFormIsAFailure)
{
    daemon.notifyManner = Manner::talksNonsense;
    centre->add(request("First"));
    ASSERT_TRUE(waitForLog(1));
    daemon.capabilityManner = Manner::talksNonsense;
    centre->add(request("Second"));
    ASSERT_TRUE(waitForLog(2));

    EXPECT_THAT(log.lines,
                ElementsAre(HasSubstr("did not show a notification"),
                            HasSubstr("no notification service that answers")));
}

// Delayed notifications

class DelayedNotificationsTest : public NotificationsTest { };

TEST_F(DelayedNotificationsTest, IsShownOnceWhenItsTimeHasComeAndInTheFileUntilThen)
{
    centre->add(delayed("Later", 1200));
    runLoop.advance(1199s);
    roundTrip();
    EXPECT_THAT(daemon.shown, IsEmpty());
    EXPECT_THAT(saved(), HasSubstr("id-Later"));

    runLoop.advance(1s);
    ASSERT_TRUE(waitForShown(1));
    EXPECT_THAT(saved(), Not(HasSubstr("id-Later")));
    runLoop.advance(24h);
    roundTrip();
    EXPECT_THAT(shownTitles(), ElementsAre("Later"));
}

TEST_F(DelayedNotificationsTest, OutlivesTheProgramWithItsTimeAndContent)
{
    centre->add({"id", {"电量 \"x\"", "<b>", true, "CHOICE"}, Seconds(1200)});
    restartAfter(500s);
    runLoop.advance(699s);
    roundTrip();
    EXPECT_THAT(daemon.shown, IsEmpty());

    runLoop.advance(1s);
    ASSERT_TRUE(waitForShown(1));
    EXPECT_EQ(daemon.shown[0].summary, "电量 \"x\"");
    EXPECT_EQ(daemon.shown[0].body, "&lt;b&gt;");
    EXPECT_EQ(daemon.shown[0].hints["sound-name"], QVariant("message-new-instant"));
    EXPECT_TRUE(daemon.shown[0].actions.contains("FRONT"));
}

TEST_F(DelayedNotificationsTest, ThatFellDueMeanwhileIsShownAtTheNextStartAndOnce)
{
    centre->add(delayed("Later", 1200));
    restartAfter(72h);
    runLoop.advance(0s);
    ASSERT_TRUE(waitForShown(1));

    restartAfter(1s);
    runLoop.advance(72h);
    roundTrip();
    EXPECT_THAT(shownTitles(), ElementsAre("Later"));
}

TEST_F(DelayedNotificationsTest, ThatIsOnTheScreenIsNotShownAgainAfterACrash)
{
    centre->add(delayed("Later", 1200));
    daemon.notifyManner = Manner::hangs;
    runLoop.advance(1200s);
    ASSERT_TRUE(waitForShown(1));

    EXPECT_THAT(saved(), Not(HasSubstr("id-Later")));
}

TEST_F(DelayedNotificationsTest, ThatNoDaemonTookIsTriedAgainEachMinute)
{
    daemon.disappear();
    centre->add(delayed("Later", 1200));
    runLoop.advance(1200s);
    ASSERT_TRUE(waitForLog(1));
    runLoop.advance(1min);
    EXPECT_EQ(delegate.presentations, 2);
    settleCalls();
    EXPECT_THAT(saved(), HasSubstr("id-Later"));
    daemon.appear();
    ASSERT_TRUE(waitFor([this] { return runLoop.timerCount() == 1; }));

    runLoop.advance(1min);
    ASSERT_TRUE(waitForShown(1));
    EXPECT_THAT(saved(), Not(HasSubstr("id-Later")));
    EXPECT_THAT(log.lines, SizeIs(1));
}

TEST_F(DelayedNotificationsTest, ThatFallsDueAfterTheEndOfTheBusWaitsForTheNextStart)
{
    showChoice();
    centre->add(delayed("Later", 1200));
    settleCalls();
    bus.stop();
    ASSERT_TRUE(waitFor([this] { return !client.isConnected(); }));
    runLoop.advance(1200s);

    ASSERT_TRUE(waitForLog(1));
    EXPECT_THAT(saved(), HasSubstr("id-Later"));
}

TEST_F(DelayedNotificationsTest, AClockThatIsSetMovesNoneOfARunningProgram)
{
    centre->add(delayed("Later", 1200));
    clock.present += 10h;
    runLoop.advance(1199s);
    clock.present -= 20h;
    roundTrip();
    EXPECT_THAT(daemon.shown, IsEmpty());

    runLoop.advance(1s);
    EXPECT_TRUE(waitForShown(1));
}

TEST_F(DelayedNotificationsTest, AClockThatWasSetBackMakesNoneLaterThanItsDelay)
{
    centre->add(delayed("Later", 1200));
    centre.reset();
    clock.present -= 1000h;
    start();
    runLoop.advance(1200s);

    EXPECT_TRUE(waitForShown(1));
}

TEST_F(DelayedNotificationsTest, ThatFellDueInASleepIsShownOnceAfterIt)
{
    centre->add(delayed("Later", 1200));
    runLoop.sleepFor(8h);
    ASSERT_TRUE(waitForShown(1));
    roundTrip();

    EXPECT_THAT(shownTitles(), ElementsAre("Later"));
}

TEST_F(DelayedNotificationsTest, SeveralComeInTheOrderOfTheirTimes)
{
    centre->add(delayed("Third", 300));
    centre->add(delayed("First", 100));
    restartAfter(50s);
    centre->add(delayed("Second", 150));
    for (const std::size_t count : {1U, 2U, 3U}) {
        runLoop.advance(100s);
        ASSERT_TRUE(waitForShown(count));
    }

    EXPECT_THAT(shownTitles(), ElementsAre("First", "Second", "Third"));
}

TEST_F(DelayedNotificationsTest, AFileThatCannotBeWrittenStillNotifiesInThisRun)
{
    writeFile(state / "voltmere", "not a directory");
    centre->add(delayed("Later", 1200));
    EXPECT_THAT(log.lines, ElementsAre(HasSubstr("the delayed notifications cannot be saved")));
    runLoop.advance(1200s);

    ASSERT_TRUE(waitForShown(1));
    EXPECT_THAT(log.lines, SizeIs(1));
}

TEST_F(DelayedNotificationsTest, ADamagedFileIsSetAsideAndNewOnesAreKept)
{
    writeFile(delayedFile, "{\"delayed\": [{\"ident");
    restartAfter(0s);
    EXPECT_THAT(log.lines, ElementsAre(HasSubstr("is damaged")));

    centre->add(delayed("Later", 1200));
    restartAfter(1h);
    runLoop.advance(0s);
    EXPECT_TRUE(waitForShown(1));
}

TEST_F(DelayedNotificationsTest, AFileOfAnotherFormEndsNothing)
{
    for (const char* const content :
         {R"({"delayed": 5})", R"({"delayed": {}})", "{}",
          R"({"delayed": [{"title": "No time", "body": 5, "delay": "x"}, 7,
                          {"title": "Beyond time", "delay": 1e300, "due": 1e300},
                          {"title": "Before time", "delay": -1e300, "due": -1e300}]})"}) {
        writeFile(delayedFile, content);
        restartAfter(0s);
    }
    runLoop.advance(0s);

    ASSERT_TRUE(waitForShown(2));
    EXPECT_THAT(shownTitles(), UnorderedElementsAre("No time", "Before time"));
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST(DelayedNotificationsPath, IsInTheStateDirectory)
{
    qputenv("XDG_STATE_HOME", "/somewhere/state");
    EXPECT_EQ(delayedNotificationsPath(), "/somewhere/state/voltmere/notifications.json");
    qunsetenv("XDG_STATE_HOME");
    EXPECT_THAT(delayedNotificationsPath().string(),
                EndsWith("/.local/state/voltmere/notifications.json"));
}

} // namespace
} // namespace voltmere
