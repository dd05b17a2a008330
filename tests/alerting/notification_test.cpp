#include "alerting/notifications.h"
#include "fakes/fake_preferred_languages.h"
#include "fakes/fake_run_loop.h"
#include "fakes/fake_services.h"
#include "fakes/model_world.h"

#include <gmock/gmock.h>

#include <set>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::SizeIs;

const std::string uuidForm = "[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}-[0-9A-F]{12}";

std::vector<std::string> titlesOf(const FakeNotificationCentre& centre)
{
    std::vector<std::string> titles;
    for (const NotificationAction& action : centre.categories.at(0).actions) {
        titles.push_back(action.title);
    }
    return titles;
}

class NotificationSetupTest : public testing::Test {
protected:
    LanguageGuard language{"en"};
    FakeClock clock;
    FakeRunLoop runLoop{clock};
    FakeApplication application;
    NotificationDelegate delegate{runLoop, application};
    FakeNotificationCentre centre;
};

TEST_F(NotificationSetupTest, InstallsTheDelegateAndRegistersOneCategoryWithFiveActionsInOrder)
{
    NotificationSetup::registerCategories(centre, delegate);

    EXPECT_THAT(
        centre.categories,
        ElementsAre(NotificationCategory{"LOW_BATTERY",
                                         {{"SNOOZE_20", "In 20 minutes", false},
                                          {"SNOOZE_30", "In 30 minutes", false},
                                          {"SNOOZE_60", "In 1 hour", false},
                                          {"SNOOZE_120", "In 2 hours", false},
                                          {"SNOOZE_CUSTOM", "At a specific time…", true}}}));
    EXPECT_EQ(centre.delegate, &delegate);
    EXPECT_THAT(centre.requests, IsEmpty());
}

TEST(NotificationsOfTheModel, SwitchingTheLanguageToChineseAndBackRegistersTheTitlesEachTime)
{
    ModelWorld world;
    BatteryModel& model = world.start();

    model.language = "zh";
    EXPECT_EQ(world.notifications.registrations, 1);
    EXPECT_EQ(titlesOf(world.notifications)[0], "20 分钟后");

    model.language = "en";
    EXPECT_EQ(world.notifications.registrations, 2);
    EXPECT_EQ(titlesOf(world.notifications)[0], "In 20 minutes");
    EXPECT_EQ(world.notifications.delegate, &world.notificationDelegate);
}

TEST(NotificationsOfTheModel, PermissionForAlertAndSoundIsAskedOnceAndNeverAgain)
{
    ModelWorld world;
    BatteryModel& model = world.start();
    model.language = "zh";
    world.runLoop.advance(std::chrono::hours(48));

    EXPECT_THAT(world.notifications.authorisationRequests, ElementsAre(6U));
}

TEST(NotificationsOfTheModel, AUserWhoDeniedPermissionSeesNoErrorAnywhere)
{
    // A centre without permission looks just like this one: it takes everything and shows nothing.
    ModelWorld world;
    const BatteryModel& model = world.start();
    const std::string status = model.status;
    world.notificationDelegate.didReceive(world.notifications, "SNOOZE_20", [] {});
    EXPECT_EQ(model.status.get(), status);

    EXPECT_THAT(world.log.lines, IsEmpty());
    EXPECT_THAT(world.alerts.shown, IsEmpty());
}

class NotificationDelegateTest : public NotificationSetupTest {
protected:
    /// The user chooses this; how often the completion was called.
    int respond(const std::string& action)
    {
        int completions = 0;
        delegate.didReceive(centre, action, [&] {
            ++completions;
            requestsAtCompletion = centre.requests.size();
        });
        return completions;
    }

    std::size_t requestsAtCompletion = 0;
};

TEST_F(NotificationDelegateTest, ANotificationWhileTheProgramIsFrontmostIsABannerWithSound)
{
    std::vector<std::uint32_t> answers;
    delegate.willPresent([&](std::uint32_t options) { answers.push_back(options); });

    EXPECT_THAT(answers, ElementsAre(18U));
}

struct TimedChoice {
    const char* action;
    double seconds;
};

class TimedChoiceTest : public NotificationDelegateTest,
                        public testing::WithParamInterface<TimedChoice> { };

TEST_P(TimedChoiceTest, AddsExactlyOneRequestAfterItsDelayThenCompletesOnce)
{
    EXPECT_EQ(respond(GetParam().action), 1);

    ASSERT_THAT(centre.requests, SizeIs(1));
    EXPECT_EQ(requestsAtCompletion, 1U);
    EXPECT_EQ(centre.requests[0].delay, Seconds(GetParam().seconds));
    EXPECT_THAT(centre.requests[0].identifier, SizeIs(43));
    EXPECT_THAT(centre.requests[0].identifier, MatchesRegex("snooze-" + uuidForm));
    EXPECT_EQ(centre.requests[0].content,
              (NotificationContent{"Magic Mouse battery alert",
                                   "Snoozed reminder: please charge your mouse.", true, ""}));
    EXPECT_THAT(runLoop.posted, IsEmpty());
    EXPECT_EQ(runLoop.timerCount(), 0U);
}

INSTANTIATE_TEST_SUITE_P(Actions, TimedChoiceTest,
                         testing::Values(TimedChoice{"SNOOZE_20", 1200},
                                         TimedChoice{"SNOOZE_30", 1800},
                                         TimedChoice{"SNOOZE_60", 3600},
                                         TimedChoice{"SNOOZE_120", 7200}),
                         [](const auto& choice) { return std::string(choice.param.action); });

TEST_F(NotificationDelegateTest, TheDelayedNotificationSpeaksTheLanguageOfTheMoment)
{
    L10n::setting = "zh";
    respond("SNOOZE_20");

    EXPECT_EQ(centre.requests.at(0).content.title, "Magic Mouse 电量提醒");
    EXPECT_EQ(centre.requests.at(0).content.body, "这是稍后提醒：请给鼠标充电。");
}

TEST_F(NotificationDelegateTest, EachDelayedNotificationHasAnIdentifierOfItsOwn)
{
    respond("SNOOZE_20");
    respond("SNOOZE_20");

    EXPECT_NE(centre.requests.at(0).identifier, centre.requests.at(1).identifier);
}

TEST_F(NotificationDelegateTest, ChoosingCustomBringsTheProgramToTheFrontAndAddsNoRequest)
{
    EXPECT_EQ(respond("SNOOZE_CUSTOM"), 1);
    EXPECT_EQ(application.activations, 0) << "only from the main thread's queue";
    runLoop.settle();

    EXPECT_EQ(application.activations, 1);
    EXPECT_THAT(centre.requests, IsEmpty());
}

class OtherResponseTest : public NotificationDelegateTest,
                          public testing::WithParamInterface<const char*> { };

TEST_P(OtherResponseTest, OnlyCallsTheCompletionHandler)
{
    EXPECT_EQ(respond(GetParam()), 1);
    runLoop.settle();

    EXPECT_THAT(centre.requests, IsEmpty());
    EXPECT_EQ(application.activations, 0);
    EXPECT_EQ(runLoop.timerCount(), 0U);
}

INSTANTIATE_TEST_SUITE_P(TappingTheBody, OtherResponseTest, testing::Values(standardAction::open));
INSTANTIATE_TEST_SUITE_P(Dismissing, OtherResponseTest, testing::Values(standardAction::dismiss));
INSTANTIATE_TEST_SUITE_P(UnknownActions, OtherResponseTest,
                         testing::Values("", "snooze_20", "SNOOZE_20 ", "SNOOZE_", "SNOOZE_2",
                                         "SNOOZE_CUSTOM2", "LOW_BATTERY", "default"));

TEST(RandomUuid, IsNewEachTimeAndTakesEveryDigitThatItsFormOf36CharactersAllows)
{
    std::set<std::string> seen;
    std::vector<std::set<char>> digits(36);
    for (int i = 0; i < 1000; ++i) {
        const std::string uuid = randomUuid();
        ASSERT_THAT(uuid, MatchesRegex(uuidForm));
        seen.insert(uuid);
        for (std::size_t place = 0; place < digits.size(); ++place) {
            digits[place].insert(uuid.at(place));
        }
    }
    EXPECT_THAT(seen, SizeIs(1000));
    const std::set<std::size_t> hyphensAndVersion{8, 13, 14, 18, 23};
    constexpr std::size_t variant = 19;
    for (std::size_t place = 0; place < digits.size(); ++place) {
        const std::size_t choices = hyphensAndVersion.contains(place) ? 1U
            : place == variant                                        ? 4U
                                                                      : 16U;
        EXPECT_THAT(digits[place], SizeIs(choices)) << place;
    }
}

} // namespace
} // namespace voltmere
