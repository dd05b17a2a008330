#include "model/published.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PublishedTest : public testing::Test {
protected:
    /// Notes each announcement together with the level that still holds then.
    Subscription watch()
    {
        return announcer.subscribe(
            [this] { events.push_back("announce at " + std::to_string(level.get())); });
    }

    ChangeAnnouncer announcer;
    std::vector<std::string> events;
    Published<int> level{announcer, 20,
                         [this] { events.push_back("didSet at " + std::to_string(level.get())); }};
};

TEST_F(PublishedTest, ConstructionAnnouncesNothingAndRunsNoObserver)
{
    const Subscription subscription = watch();
    const Published<int> other(announcer, 7, [this] { events.emplace_back("didSet other"); });

    EXPECT_THAT(events, IsEmpty());
    EXPECT_EQ(other.get(), 7);
}

TEST_F(PublishedTest, AnAssignmentAnnouncesThenStoresThenRunsTheObserver)
{
    const Subscription subscription = watch();

    level = 35;

    EXPECT_THAT(events, ElementsAre("announce at 20", "didSet at 35"));
    EXPECT_EQ(level.get(), 35);
}

TEST_F(PublishedTest, AnAssignmentOfAnEqualValueDoesTheSame)
{
    const Subscription subscription = watch();

    level = 20;

    EXPECT_THAT(events, ElementsAre("announce at 20", "didSet at 20"));
}

TEST_F(PublishedTest, APropertyWithoutAnObserverOnlyAnnouncesAndStores)
{
    Published<std::string> status(announcer, "waiting");
    const Subscription subscription = watch();

    status = "fine";

    EXPECT_THAT(events, ElementsAre("announce at 20"));
    EXPECT_EQ(status.get(), "fine");
    EXPECT_EQ(status->size(), 4U);
}

class ChangeAnnouncerTest : public testing::Test {
protected:
    Subscription note(const std::string& name)
    {
        return announcer.subscribe([this, name] { calls.push_back(name); });
    }

    ChangeAnnouncer announcer;
    std::vector<std::string> calls;
};

TEST_F(ChangeAnnouncerTest, TellsEveryObserverInTheOrderOfSubscription)
{
    const Subscription first = note("first");
    const Subscription second = note("second");

    announcer.announce();

    EXPECT_THAT(calls, ElementsAre("first", "second"));
}

TEST_F(ChangeAnnouncerTest, AnObserverWhoseSubscriptionEndedIsToldNothing)
{
    Subscription first = note("first");
    const Subscription second = note("second");

    announcer.announce();
    first.reset();
    announcer.announce();

    EXPECT_THAT(calls, ElementsAre("first", "second", "second"));
}

TEST_F(ChangeAnnouncerTest, AnObserverMayEndItsOwnSubscription)
{
    Subscription own;
    own = announcer.subscribe([this, &own] {
        own.reset();
        calls.emplace_back("own");
    });
    const Subscription other = note("other");

    announcer.announce();
    announcer.announce();

    EXPECT_THAT(calls, ElementsAre("own", "other", "other"));
}

TEST_F(ChangeAnnouncerTest, AnObserverMayEndTheNextOnesSubscription)
{
    Subscription next;
    const Subscription first = announcer.subscribe([&next] { next.reset(); });
    next = note("next");

    announcer.announce();

    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(ChangeAnnouncerTest, AnObserverAddedDuringAnAnnouncementHearsTheNextOne)
{
    std::vector<Subscription> later;
    const Subscription first =
        announcer.subscribe([this, &later] { later.push_back(note("later")); });

    announcer.announce();
    EXPECT_THAT(calls, IsEmpty());

    announcer.announce();
    EXPECT_THAT(calls, ElementsAre("later"));
}

TEST_F(ChangeAnnouncerTest, ASubscriptionMayOutliveTheAnnouncer)
{
    Subscription subscription;
    {
        ChangeAnnouncer shortLived;
        subscription = shortLived.subscribe([this] { calls.emplace_back("told"); });
        shortLived.announce();
    }
    subscription.reset();

    EXPECT_THAT(calls, ElementsAre("told"));
}

} // namespace
} // namespace voltmere
