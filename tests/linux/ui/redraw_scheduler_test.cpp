#include "linux/ui/redraw_scheduler.h"

#include <gmock/gmock.h>

#include <QCoreApplication>

#include <memory>

namespace voltmere {
namespace {

class RedrawSchedulerTest : public testing::Test {
protected:
    static void turn() { QCoreApplication::processEvents(); }

    ChangeAnnouncer announcer;
    Published<int> first{announcer, 1};
    Published<int> second{announcer, 2};
    std::vector<int> seen;
    std::unique_ptr<RedrawScheduler> scheduler = std::make_unique<RedrawScheduler>(
        announcer, [this] { seen.push_back(first.get() * 10 + second.get()); });
};

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(RedrawSchedulerTest, ManyChangesInOneTurnRedrawOnceWithTheNewValues)
{
    first = 3;
    first = 4;
    second = 5;
    EXPECT_THAT(seen, IsEmpty());
    turn();
    EXPECT_THAT(seen, ElementsAre(45));
}

TEST_F(RedrawSchedulerTest, EachTurnWithAChangeRedraws)
{
    first = 3;
    turn();
    turn();
    first = 4;
    turn();
    EXPECT_THAT(seen, ElementsAre(32, 42));
}

TEST_F(RedrawSchedulerTest, ARequestRedrawsWithoutAChange)
{
    scheduler->schedule();
    scheduler->schedule();
    turn();
    EXPECT_THAT(seen, ElementsAre(12));
}

TEST_F(RedrawSchedulerTest, AChangeMadeByARedrawIsDrawnInTheTurnAfter)
{
    scheduler = std::make_unique<RedrawScheduler>(announcer, [this] {
        seen.push_back(first);
        if (first < 3) {
            first = first + 1;
        }
    });
    scheduler->schedule();
    turn();
    turn();
    turn();
    EXPECT_THAT(seen, ElementsAre(1, 2, 3));
}

TEST_F(RedrawSchedulerTest, NothingIsDrawnAndNoSubscriptionIsLeftOnceItIsGone)
{
    first = 3;
    scheduler.reset();
    second = 4;
    turn();
    EXPECT_THAT(seen, IsEmpty());
}

} // namespace
} // namespace voltmere
