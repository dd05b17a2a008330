#include "linux/notifications_fixture.h"

#include <limits>

namespace voltmere {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

class DelayedNotificationsTest : public NotificationsTest {
protected:
    std::string saved() const { return readFile(remindersFile); }

    /// The program ends, `span` passes, the program starts.
    void restartAfter(Seconds span)
    {
        centre.reset();
        runLoop.advance(span);
        start();
    }
};

TEST_F(DelayedNotificationsTest, ADelayedRequestIsShownOnceWhenItsTimeHasCome)
{
    centre->add(delayed("Later", 1200));
    runLoop.advance(1199s);
    roundTrip();
    EXPECT_THAT(daemon.shown, IsEmpty());

    runLoop.advance(1s);
    ASSERT_TRUE(waitForShown(1));
    runLoop.advance(24h);
    roundTrip();
    EXPECT_THAT(shownTitles(), ElementsAre("Later"));
}

TEST_F(DelayedNotificationsTest, ADelayedRequestIsInTheFileUntilItIsShown)
{
    centre->add(delayed("Later", 1200));
    EXPECT_THAT(saved(), HasSubstr("id-Later"));
    EXPECT_THAT(saved(), HasSubstr("2026-03-02T00:20:00.000Z"));

    runLoop.advance(1200s);
    ASSERT_TRUE(waitForShown(1));
    EXPECT_THAT(saved(), Not(HasSubstr("id-Later")));
}

TEST_F(DelayedNotificationsTest, ARequestWithoutADelayTouchesNoFile)
{
    centre->add(request("Now"));

    ASSERT_TRUE(waitForShown(1));
    EXPECT_FALSE(std::filesystem::exists(remindersFile));
}

TEST_F(DelayedNotificationsTest, AReminderOutlivesTheProgramAndKeepsItsTime)
{
    centre->add(delayed("Later", 1200));
    restartAfter(500s);
    runLoop.advance(699s);
    roundTrip();
    EXPECT_THAT(daemon.shown, IsEmpty());

    runLoop.advance(1s);
    ASSERT_TRUE(waitForShown(1));
    EXPECT_THAT(shownTitles(), ElementsAre("Later"));
}

TEST_F(DelayedNotificationsTest, AReminderThatFellDueMeanwhileIsShownAtOnceAndOnce)
{
    centre->add(delayed("Later", 1200));
    restartAfter(72h);
    EXPECT_THAT(daemon.shown, IsEmpty());
    runLoop.advance(0s);
    ASSERT_TRUE(waitForShown(1));

    restartAfter(1s);
    runLoop.advance(72h);
    roundTrip();
    EXPECT_THAT(shownTitles(), ElementsAre("Later"));
}

TEST_F(DelayedNotificationsTest, AReminderThatIsOnTheScreenIsNotShownAgainAfterACrash)
{
    centre->add(delayed("Later", 1200));
    daemon.notifyManner = FakeNotificationDaemon::Manner::hangs;
    runLoop.advance(1200s);
    ASSERT_TRUE(waitForShown(1));
    const std::string leftBehind = saved();
    daemon.notifyManner = FakeNotificationDaemon::Manner::answers;
    centre.reset();
    writeFile(remindersFile, leftBehind);
    start();
    runLoop.advance(1h);
    roundTrip();

    EXPECT_THAT(shownTitles(), ElementsAre("Later"));
}

TEST_F(DelayedNotificationsTest, AReminderThatNoDaemonTookWaitsForTheNextStart)
{
    daemon.disappear();
    centre->add(delayed("Later", 1200));
    runLoop.advance(1200s);
    ASSERT_TRUE(waitFor([this] { return !log.lines.empty(); }));
    EXPECT_THAT(saved(), HasSubstr("id-Later"));

    restartAfter(1h);
    daemon.appear();
    runLoop.advance(0s);
    ASSERT_TRUE(waitForShown(1));
    EXPECT_THAT(saved(), Not(HasSubstr("id-Later")));
}

TEST_F(DelayedNotificationsTest, AReminderThatFallsDueAfterTheEndOfTheBusWaitsForTheNextStart)
{
    centre->add(request("Now"));
    ASSERT_TRUE(waitForShown(1));
    centre->add(delayed("Later", 1200));
    settleCalls();
    bus.stop();
    ASSERT_TRUE(waitFor([this] { return !client.isConnected(); }));
    runLoop.advance(1200s);

    EXPECT_THAT(log.lines, ElementsAre(HasSubstr("there is no session bus")));
    EXPECT_THAT(saved(), HasSubstr("id-Later"));
}

TEST_F(DelayedNotificationsTest, AReminderKeepsItsContentAcrossTheEnd)
{
    NotificationRequest full{"id", {"电量 \"x\"", "<b>", true, "CHOICE"}, Seconds(60)};
    centre->add(full);
    restartAfter(1s);
    runLoop.advance(59s);

    ASSERT_TRUE(waitForShown(1));
    EXPECT_EQ(daemon.shown[0].summary, "电量 \"x\"");
    EXPECT_EQ(daemon.shown[0].body, "&lt;b&gt;");
    EXPECT_EQ(daemon.shown[0].hints["sound-name"], QVariant("message-new-instant"));
    EXPECT_TRUE(daemon.shown[0].actions.contains("FRONT"));
}

TEST_F(DelayedNotificationsTest, AClockThatIsSetMovesNoReminderOfARunningProgram)
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

TEST_F(DelayedNotificationsTest, AClockThatWasSetBackMakesAReminderNoLaterThanItsDelay)
{
    centre->add(delayed("Later", 1200));
    centre.reset();
    clock.present -= 1000h;
    start();
    runLoop.advance(1200s);

    EXPECT_TRUE(waitForShown(1));
}

TEST_F(DelayedNotificationsTest, AReminderThatFellDueInASleepIsShownOnceAfterIt)
{
    centre->add(delayed("Later", 1200));
    runLoop.sleepFor(8h);
    ASSERT_TRUE(waitForShown(1));
    roundTrip();

    EXPECT_THAT(shownTitles(), ElementsAre("Later"));
}

TEST_F(DelayedNotificationsTest, SeveralRemindersComeInTheOrderOfTheirTimes)
{
    centre->add(delayed("Third", 300));
    centre->add(delayed("First", 100));
    restartAfter(50s);
    centre->add(delayed("Second", 150));
    runLoop.advance(1h);

    ASSERT_TRUE(waitForShown(3));
    EXPECT_THAT(shownTitles(), ElementsAre("First", "Second", "Third"));
}

TEST_F(DelayedNotificationsTest, ARequestReplacesThePendingOneOfTheSameIdentifier)
{
    centre->add(delayed("Later", 1200));
    centre->add(delayed("Later", 60));
    restartAfter(60s);
    runLoop.advance(24h);
    ASSERT_TRUE(waitForShown(1));
    roundTrip();

    EXPECT_THAT(shownTitles(), ElementsAre("Later"));
}

TEST_F(DelayedNotificationsTest, ADelayThatIsNoTimeIsShownAtOnce)
{
    centre->add(delayed("Negative", -5));
    centre->add(delayed("NaN", std::numeric_limits<double>::quiet_NaN()));
    centre->add(delayed("Infinite", std::numeric_limits<double>::infinity()));
    runLoop.advance(0s);

    ASSERT_TRUE(waitForShown(2));
    EXPECT_THAT(shownTitles(), ElementsAre("Negative", "NaN"));
}

TEST_F(DelayedNotificationsTest, RemindersDoNotPileUp)
{
    for (int i = 0; i < 1000; ++i) {
        centre->add(delayed(std::to_string(i), 60));
    }
    EXPECT_EQ(runLoop.timerCount(), mostReminders);
    EXPECT_THAT(log.lines, ElementsAre(HasSubstr("too many reminders are pending")));
    runLoop.advance(60s);

    ASSERT_TRUE(waitForShown(mostReminders));
    EXPECT_THAT(saved(), Not(HasSubstr("id-")));
}

TEST_F(DelayedNotificationsTest, AFileThatCannotBeWrittenStillRemindsInThisRun)
{
    writeFile(state / "voltmere", "not a directory");
    centre->add(delayed("Later", 1200));
    EXPECT_THAT(log.lines, ElementsAre(HasSubstr("reminders cannot be saved")));
    runLoop.advance(1200s);

    ASSERT_TRUE(waitForShown(1));
    EXPECT_THAT(log.lines, SizeIs(1));
}

TEST_F(DelayedNotificationsTest, ADamagedFileIsSetAsideAndNewRemindersAreKept)
{
    writeFile(remindersFile, "{\"reminders\": [{\"ident");
    restartAfter(0s);
    EXPECT_THAT(log.lines, ElementsAre(HasSubstr("is damaged")));

    centre->add(delayed("Later", 1200));
    restartAfter(1h);
    runLoop.advance(0s);
    EXPECT_TRUE(waitForShown(1));
}

} // namespace
} // namespace voltmere
