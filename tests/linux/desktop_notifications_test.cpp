#include "linux/notifications_fixture.h"

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::Gt;
using testing::IsEmpty;

constexpr uint expired = 1;
constexpr uint dismissed = 2;
constexpr uint closedByCall = 3;
constexpr uint closedSomehow = 4;

class DesktopNotificationsTest : public NotificationsTest {
protected:
    /// Shows one notification of the category with actions; its number at the daemon.
    uint showChoice()
    {
        const std::size_t count = daemon.shown.size();
        centre->add(request("Title", "CHOICE"));
        EXPECT_TRUE(waitForShown(count + 1));
        return daemon.shown.back().id;
    }

    [[nodiscard]] bool waitForAnswers(std::size_t count)
    {
        return waitFor([this, count] { return delegate.answers.size() == count; });
    }
};

TEST_F(DesktopNotificationsTest, ARequestWithoutADelayIsShownAtOnce)
{
    centre->add({"id", {"Title", "A & B", false, ""}, std::nullopt});

    ASSERT_TRUE(waitForShown(1));
    EXPECT_EQ(daemon.shown[0].applicationName, "Program");
    EXPECT_EQ(daemon.shown[0].summary, "Title");
    EXPECT_EQ(daemon.shown[0].body, "A &amp; B");
    EXPECT_EQ(daemon.shown[0].icon, "program-icon");
    EXPECT_EQ(daemon.shown[0].actions, QStringList({"default", ""}));
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(DesktopNotificationsTest, TheProgramsNameIsTheOneOfTheMoment)
{
    applicationName = "程序";
    centre->add(request("Title"));

    ASSERT_TRUE(waitForShown(1));
    EXPECT_EQ(daemon.shown[0].applicationName, "程序");
}

TEST_F(DesktopNotificationsTest, ANotificationOfACategoryOffersItsActions)
{
    showChoice();

    EXPECT_EQ(daemon.shown[0].actions,
              QStringList({"default", "", "LATER", "Later", "FRONT", QString("To the front…")}));
}

TEST_F(DesktopNotificationsTest, NewCategoriesReplaceTheOldOnesForWhatIsShownNext)
{
    centre->setCategories({{"OTHER", {{"X", "Other", false}}}});
    centre->add(request("First", "OTHER"));
    centre->add(request("Second", "CHOICE"));

    ASSERT_TRUE(waitForShown(2));
    EXPECT_EQ(daemon.shown[0].actions, QStringList({"default", "", "X", "Other"}));
    EXPECT_EQ(daemon.shown[1].actions, QStringList({"default", ""}));
}

TEST_F(DesktopNotificationsTest, ADaemonWithoutActionsOrMarkupGetsPlainTextAndNoActions)
{
    daemon.capabilities = {"body"};
    centre->add({"id", {"Title", "A & B", false, "CHOICE"}, std::nullopt});

    ASSERT_TRUE(waitForShown(1));
    EXPECT_EQ(daemon.shown[0].actions, QStringList());
    EXPECT_EQ(daemon.shown[0].body, "A & B");
}

TEST_F(DesktopNotificationsTest, AskingForPermissionAsksNobodyAndShowsNothing)
{
    centre->requestAuthorisation(authorisation::alert | authorisation::sound);
    roundTrip();

    EXPECT_THAT(daemon.shown, IsEmpty());
    EXPECT_EQ(delegate.presentations, 0);
    EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(DesktopNotificationsTest, ANotificationWhileTheProgramIsInFrontIsShownWithItsSound)
{
    NotificationRequest sounding = request("Title");
    sounding.content.defaultSound = true;
    centre->add(sounding);

    ASSERT_TRUE(waitForShown(1));
    EXPECT_EQ(delegate.presentations, 1);
    EXPECT_EQ(daemon.shown[0].hints["sound-name"], QVariant("message-new-instant"));
}

TEST_F(DesktopNotificationsTest, ANotificationWithoutASoundStaysSilentWhateverTheDelegateAllows)
{
    centre->add(request("Title"));

    ASSERT_TRUE(waitForShown(1));
    EXPECT_EQ(daemon.shown[0].hints["suppress-sound"], QVariant(true));
}

TEST_F(DesktopNotificationsTest, ADelegateThatForbidsTheSoundSilencesTheNotification)
{
    delegate.allowed = presentation::banner;
    NotificationRequest sounding = request("Title");
    sounding.content.defaultSound = true;
    centre->add(sounding);

    ASSERT_TRUE(waitForShown(1));
    EXPECT_EQ(daemon.shown[0].hints["suppress-sound"], QVariant(true));
}

TEST_F(DesktopNotificationsTest, ADelegateThatForbidsTheBannerLosesNothing)
{
    delegate.allowed = 0;
    centre->add(request("Title"));

    EXPECT_TRUE(waitForShown(1));
}

TEST_F(DesktopNotificationsTest, ADelegateThatAnswersTwiceShowsTheNotificationOnce)
{
    delegate.answersAtOnce = false;
    centre->add(request("Title"));
    ASSERT_EQ(delegate.kept.size(), 1U);
    const auto completion = delegate.kept[0];
    completion(presentation::banner);
    completion(presentation::banner);
    delegate.answersAtOnce = true;
    roundTrip();

    EXPECT_THAT(shownTitles(), ElementsAre("Title"));
}

TEST_F(DesktopNotificationsTest, ADelegateThatAnswersAfterTheEndShowsNothing)
{
    delegate.answersAtOnce = false;
    centre->add(request("Title"));
    centre.reset();
    delegate.kept[0](presentation::banner);
    delegate.answersAtOnce = true;
    start();
    roundTrip();

    EXPECT_THAT(daemon.shown, IsEmpty());
}

TEST_F(DesktopNotificationsTest, WithoutADelegateNotificationsAreShownAndAnswersGoNowhere)
{
    centre->setDelegate(nullptr);
    const uint id = showChoice();
    daemon.emitActionInvoked(id, "LATER");

    EXPECT_TRUE(waitFor([this] { return matchRules().isEmpty(); }));
    EXPECT_THAT(delegate.answers, IsEmpty());
}

TEST_F(DesktopNotificationsTest, AnActionReachesTheDelegateWithItsIdentifier)
{
    daemon.emitActionInvoked(showChoice(), "LATER");

    ASSERT_TRUE(waitForAnswers(1));
    EXPECT_THAT(delegate.answers, ElementsAre("LATER"));
    EXPECT_THAT(delegate.centres, ElementsAre(centre.get()));
}

TEST_F(DesktopNotificationsTest, TappingTheBodyReachesTheDelegateAsTheDefaultAction)
{
    daemon.emitActionInvoked(showChoice(), "default");

    ASSERT_TRUE(waitForAnswers(1));
    EXPECT_THAT(delegate.answers, ElementsAre(standardAction::open));
}

TEST_F(DesktopNotificationsTest, ADismissalReachesTheDelegateOnce)
{
    const uint id = showChoice();
    daemon.emitNotificationClosed(id, dismissed);
    daemon.emitNotificationClosed(id, dismissed);
    roundTrip();

    EXPECT_THAT(delegate.answers, ElementsAre(standardAction::dismiss));
}

TEST_F(DesktopNotificationsTest, AnActionIsNotFollowedByADismissal)
{
    const uint id = showChoice();
    daemon.emitActionInvoked(id, "LATER");
    daemon.emitNotificationClosed(id, dismissed);
    roundTrip();

    EXPECT_THAT(delegate.answers, ElementsAre("LATER"));
}

TEST_F(DesktopNotificationsTest, AnAnsweredNotificationIsTakenOffTheScreen)
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

TEST_F(DesktopNotificationsTest, OnlyTheFirstActionOfANotificationCounts)
{
    const uint id = showChoice();
    daemon.emitActionInvoked(id, "LATER");
    daemon.emitActionInvoked(id, "LATER");
    daemon.emitActionInvoked(id, "FRONT");
    roundTrip();

    EXPECT_THAT(delegate.answers, ElementsAre("LATER"));
}

TEST_F(DesktopNotificationsTest, ANotificationThatGoesByItselfIsNoAnswer)
{
    for (const uint reason : {expired, closedByCall, closedSomehow}) {
        const uint id = showChoice();
        daemon.emitNotificationClosed(id, reason);
        daemon.emitActionInvoked(id, "LATER");
        roundTrip();
    }

    EXPECT_THAT(delegate.answers, IsEmpty());
}

TEST_F(DesktopNotificationsTest, AnActionThatWasNotOfferedIsIgnored)
{
    daemon.emitActionInvoked(showChoice(), "SOMETHING");
    roundTrip();

    EXPECT_THAT(delegate.answers, IsEmpty());
}

TEST_F(DesktopNotificationsTest, EachNotificationHasItsOwnAnswer)
{
    const uint first = showChoice();
    const uint second = showChoice();
    daemon.emitNotificationClosed(second, dismissed);
    daemon.emitActionInvoked(first, "FRONT");

    ASSERT_TRUE(waitForAnswers(2));
    EXPECT_THAT(delegate.answers, ElementsAre(standardAction::dismiss, "FRONT"));
}

TEST_F(DesktopNotificationsTest, TheForegroundActionFindsTheActivationTokenInTheEnvironment)
{
    const uint id = showChoice();
    daemon.emitActivationToken(id + 1, "foreign");
    daemon.emitActivationToken(id, "token-1");
    daemon.emitActionInvoked(id, "FRONT");

    ASSERT_TRUE(waitForAnswers(1));
    EXPECT_THAT(delegate.tokens, ElementsAre("token-1"));
}

TEST_F(DesktopNotificationsTest, OtherActionsLeaveNoActivationToken)
{
    for (const char* const key : {"LATER", "default"}) {
        const uint id = showChoice();
        daemon.emitActivationToken(id, "token-1");
        daemon.emitActionInvoked(id, key);
    }

    ASSERT_TRUE(waitForAnswers(2));
    EXPECT_THAT(delegate.tokens, ElementsAre("", ""));
}

TEST_F(DesktopNotificationsTest, SignalsForNotificationsOfOthersAreIgnored)
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
    ASSERT_TRUE(waitForAnswers(1));
}

TEST_F(DesktopNotificationsTest, SignalsOfProgramsThatDoNotOwnTheNameAreIgnored)
{
    FakeNotificationDaemon impostor(bus.connect());
    const uint id = showChoice();
    for (int i = 0; i < 10'000; ++i) {
        impostor.emitActionInvoked(id, "LATER");
    }
    roundTrip();

    EXPECT_THAT(delegate.answers, IsEmpty());
}

TEST_F(DesktopNotificationsTest, TheProgramListensOnlyWhileANotificationOfItsOwnIsShown)
{
    EXPECT_EQ(matchRules(), QStringList());

    const uint first = showChoice();
    const uint second = showChoice();
    EXPECT_THAT(matchRules().size(), Gt(0));

    daemon.emitActionInvoked(first, "LATER");
    ASSERT_TRUE(waitForAnswers(1));
    EXPECT_THAT(matchRules().size(), Gt(0));

    daemon.emitNotificationClosed(second, expired);
    EXPECT_TRUE(waitFor([this] { return matchRules().isEmpty(); }));
}

TEST_F(DesktopNotificationsTest, TheProgramListensToNobodyWhileNoNotificationWasEverPosted)
{
    centre->add(delayed("Later", 600));
    FakeNotificationDaemon other(bus.connect());
    for (int i = 0; i < 100; ++i) {
        daemon.emitNotificationClosed(1, dismissed);
    }

    EXPECT_EQ(matchRules(), QStringList());
    EXPECT_EQ(daemon.capabilityCalls, 0);
}

TEST_F(DesktopNotificationsTest, ADaemonThatNeverClosesAnythingIsForgottenPieceByPiece)
{
    const uint first = showChoice();
    for (int i = 0; i < 100; ++i) {
        showChoice();
    }
    const uint last = showChoice();
    daemon.emitActionInvoked(first, "LATER");
    daemon.emitActionInvoked(last, "FRONT");
    roundTrip();

    EXPECT_THAT(delegate.answers, ElementsAre("FRONT"));
}

} // namespace
} // namespace voltmere
