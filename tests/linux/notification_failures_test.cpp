#include "linux/notifications_fixture.h"

#include <QFile>

namespace voltmere {
namespace {

using namespace std::chrono_literals;
using testing::AllOf;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;
using Manner = FakeNotificationDaemon::Manner;

/// Long enough for an answer on a busy machine.
constexpr std::chrono::milliseconds limit = 500ms;

class NotificationFailuresTest : public NotificationsTest {
protected:
    [[nodiscard]] bool waitForLog(std::size_t lines)
    {
        return waitFor([this, lines] { return log.lines.size() == lines; });
    }

    void add(int count)
    {
        for (int i = 0; i < count; ++i) {
            centre->add(request(std::to_string(i)));
        }
    }
};

TEST_F(NotificationFailuresTest, WithoutADaemonTheLogSaysSoOnce)
{
    daemon.disappear();
    add(1);
    ASSERT_TRUE(waitForLog(1));
    add(5);
    daemon.appear();
    roundTrip();

    EXPECT_THAT(log.lines,
                ElementsAre(StartsWith("Voltmere: there is no notification service that answers")));
}

TEST_F(NotificationFailuresTest, WhatWasPostedWithoutADaemonIsShownOnceWhenOneAppears)
{
    daemon.disappear();
    add(3);
    ASSERT_TRUE(waitForLog(1));
    daemon.appear();

    ASSERT_TRUE(waitForShown(3));
    roundTrip();
    EXPECT_THAT(shownTitles(), ElementsAre("0", "1", "2"));
}

TEST_F(NotificationFailuresTest, NotificationsWithoutADaemonDoNotPileUp)
{
    daemon.disappear();
    add(1000);
    ASSERT_TRUE(waitForLog(2));
    daemon.appear();

    ASSERT_TRUE(waitForShown(64));
    roundTrip();
    EXPECT_THAT(shownTitles(), SizeIs(64));
    EXPECT_EQ(shownTitles().back(), "999");
    EXPECT_THAT(log.lines, testing::Contains(HasSubstr("too many notifications wait")));
}

TEST_F(NotificationFailuresTest, WithoutABusTheLogSaysSoOnceAndNothingIsShown)
{
    const QDBusConnection nowhere = QDBusConnection::connectToBus("unix:path=/nowhere", "nowhere");
    DesktopNotifications alone({nowhere, [] { return "Program"; }, [] { return "program-icon"; },
                                "/nowhere/reminders.json"},
                               runLoop, clock, log);
    alone.setDelegate(&delegate);
    alone.add(request("First"));
    alone.add(request("Second"));

    EXPECT_THAT(log.lines,
                ElementsAre("Voltmere: there is no session bus, so notifications are not shown"));
}

TEST_F(NotificationFailuresTest, ABusThatEndsTakesNothingWithIt)
{
    add(1);
    ASSERT_TRUE(waitForShown(1));
    roundTrip(); // so that no call is under way
    bus.stop();
    ASSERT_TRUE(waitFor([this] { return !client.isConnected(); }));
    add(2);

    EXPECT_TRUE(waitForLog(1));
}

TEST_F(NotificationFailuresTest, AHangingDaemonBlocksNothingAndIsAskedOnce)
{
    // A call that waited would never come back: the daemon lives on this very thread.
    daemon.capabilityManner = Manner::hangs;
    add(50);
    ASSERT_TRUE(waitFor([this] { return daemon.capabilityCalls == 1; }));
    add(50);
    settleCalls();

    EXPECT_THAT(daemon.shown, IsEmpty());
    EXPECT_EQ(daemon.capabilityCalls, 1);
}

TEST_F(NotificationFailuresTest, ADaemonThatHangsLongerThanTheLimitIsLoggedOnce)
{
    start(50ms);
    daemon.capabilityManner = Manner::hangs;
    ASSERT_TRUE(waitFor([this] {
        add(1);
        return daemon.capabilityCalls == 3;
    }));

    EXPECT_THAT(log.lines, ElementsAre(HasSubstr("no notification service that answers")));
}

TEST_F(NotificationFailuresTest, WhatAHangingDaemonDidNotTakeIsShownWithTheNextOne)
{
    start(limit);
    daemon.capabilityManner = Manner::hangs;
    centre->add(request("First"));
    ASSERT_TRUE(waitForLog(1));
    daemon.capabilityManner = Manner::answers;
    centre->add(request("Second"));

    ASSERT_TRUE(waitForShown(2));
    EXPECT_THAT(shownTitles(), ElementsAre("First", "Second"));
}

TEST_F(NotificationFailuresTest, ADaemonThatHangsOnNotificationsGetsAFewAtATime)
{
    daemon.notifyManner = Manner::hangs;
    add(40);
    ASSERT_TRUE(waitForShown(8));
    add(40);
    settleCalls();

    EXPECT_THAT(daemon.shown, SizeIs(8));
}

TEST_F(NotificationFailuresTest, TheCallsThatAHangingDaemonLeftUnansweredEndWithTheLimit)
{
    start(limit);
    daemon.notifyManner = Manner::hangs;
    add(12);

    ASSERT_TRUE(waitForShown(12));
    EXPECT_THAT(log.lines, ElementsAre(HasSubstr("did not show a notification")));
}

TEST_F(NotificationFailuresTest, ARefusalIsLoggedOnceAsPlainTextAndNotTriedAgain)
{
    daemon.notifyManner = Manner::refuses;
    daemon.complaint = "100%s %n {} %1";
    add(3);
    ASSERT_TRUE(waitForLog(1));
    daemon.notifyManner = Manner::answers;
    roundTrip();

    EXPECT_THAT(shownTitles(), ElementsAre("0", "1", "2"));
    EXPECT_THAT(log.lines,
                ElementsAre(AllOf(StartsWith("Voltmere: the notification service did not show"),
                                  EndsWith("100%s %n {} %1)"))));
}

TEST_F(NotificationFailuresTest, ADaemonThatDoesNotTellWhatItCanDoGetsThePlainestForm)
{
    for (const Manner manner : {Manner::refuses, Manner::talksNonsense}) {
        daemon.capabilityManner = manner;
        daemon.shown.clear();
        log.lines.clear();
        start();
        centre->add({"id", {"Title", "A & B", false, "CHOICE"}, std::nullopt});
        ASSERT_TRUE(waitForShown(1));
        EXPECT_EQ(daemon.shown[0].actions, QStringList());
        EXPECT_EQ(daemon.shown[0].body, "A & B");
        EXPECT_THAT(log.lines, ElementsAre(HasSubstr("does not tell what it can do")));
    }
}

TEST_F(NotificationFailuresTest, AnAnswerOfAnUnknownFormIsAFailure)
{
    daemon.notifyManner = Manner::talksNonsense;
    add(1);

    EXPECT_TRUE(waitForLog(1));
    EXPECT_THAT(log.lines, ElementsAre(HasSubstr("did not show a notification")));
}

TEST_F(NotificationFailuresTest, CapabilitiesAreAskedForOncePerOwnerOfTheName)
{
    add(3);
    ASSERT_TRUE(waitForShown(3));
    roundTrip();
    EXPECT_EQ(daemon.capabilityCalls, 1);

    daemon.capabilities = {"body"};
    daemon.disappear();
    daemon.appear();
    ASSERT_TRUE(waitFor([this] { return matchRules().isEmpty(); }));
    centre->add(request("3"));
    ASSERT_TRUE(waitForShown(4));
    EXPECT_EQ(daemon.capabilityCalls, 2);
    EXPECT_EQ(daemon.shown[3].actions, QStringList());
}

TEST_F(NotificationFailuresTest, ADaemonThatTakesOverIsAskedAnewAndTheOldOnesAnswersEnd)
{
    centre->add(request("Old", "CHOICE"));
    ASSERT_TRUE(waitForShown(1));
    const uint id = daemon.shown[0].id;
    daemon.disappear();
    FakeNotificationDaemon successor(bus.connect());
    successor.nextId = 100;
    successor.capabilities = {"body"};
    ASSERT_TRUE(waitFor([this] { return matchRules().isEmpty(); }));

    successor.emitActionInvoked(id, "LATER");
    daemon.emitActionInvoked(id, "LATER");
    centre->add(request("New", "CHOICE"));
    ASSERT_TRUE(waitFor([&] { return successor.shown.size() == 1; }));
    EXPECT_EQ(successor.capabilityCalls, 1);
    EXPECT_EQ(successor.shown[0].actions, QStringList());
    successor.emitActionInvoked(successor.shown[0].id, "default");
    ASSERT_TRUE(waitFor([this] { return !delegate.answers.empty(); }));
    EXPECT_THAT(delegate.answers, ElementsAre(standardAction::open));
    EXPECT_THAT(daemon.shown, SizeIs(1));
}

TEST_F(NotificationFailuresTest, ADaemonThatRestartsWhileItIsAskedIsAskedAgain)
{
    daemon.disappear();
    auto first = std::make_unique<FakeNotificationDaemon>(bus.connect());
    const QString connection = first->connectionName();
    first->capabilityManner = Manner::hangs;
    add(1);
    ASSERT_TRUE(waitFor([&] { return first->capabilityCalls == 1; }));
    first.reset();
    QDBusConnection::disconnectFromBus(connection);
    FakeNotificationDaemon successor(bus.connect());

    ASSERT_TRUE(waitFor([&] { return successor.shown.size() == 1; }));
    EXPECT_EQ(successor.capabilityCalls, 1);
}

TEST_F(NotificationFailuresTest, TheEndWithCallsUnderWayIsClean)
{
    daemon.capabilityManner = Manner::hangs;
    add(10);
    ASSERT_TRUE(waitFor([this] { return daemon.capabilityCalls == 1; }));
    centre.reset();
    daemon.capabilityManner = Manner::answers;
    daemon.notifyManner = Manner::hangs;
    start();
    add(10);
    ASSERT_TRUE(waitForShown(8));
    centre.reset();

    EXPECT_THAT(log.lines, IsEmpty());
}

} // namespace
} // namespace voltmere
