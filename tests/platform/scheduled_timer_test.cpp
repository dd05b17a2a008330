#include "platform/qt/scheduled_timer.h"

#include <gtest/gtest.h>

#include <QTest>

#include <memory>

namespace voltmere {
namespace {

Seconds present{0};

/// The clock is the test's, and the timer beneath is Qt's own.
class ScheduledTimerTest : public testing::Test {
protected:
    ScheduledTimerTest() { present = Seconds(1000); }

    void start(Seconds delay, Seconds interval = Seconds::zero(),
               Seconds longestWait = ScheduledTimer::longestWaitOfQt)
    {
        timer = std::make_unique<ScheduledTimer>([] { return present; }, longestWait, delay,
                                                 interval, [this] { ++fired; });
    }

    std::unique_ptr<ScheduledTimer> timer;
    int fired = 0;
};

TEST_F(ScheduledTimerTest, FiresOnceAtALookThatFindsItDue)
{
    start(Seconds(1200));
    present += Seconds(1199);
    timer->look();
    EXPECT_EQ(fired, 0);

    present += Seconds(1);
    timer->look();
    timer->look();
    EXPECT_EQ(fired, 1);
}

TEST_F(ScheduledTimerTest, ARepeatingOneCountsMissedPeriodsAsOne)
{
    start(Seconds(60), Seconds(60));
    present += Seconds(3630);
    timer->look();
    timer->look();
    EXPECT_EQ(fired, 1);

    present += Seconds(30);
    timer->look();
    EXPECT_EQ(fired, 2);
}

TEST_F(ScheduledTimerTest, LooksByItselfAfterItsLongestWait)
{
    start(Seconds(1200), Seconds::zero(), Seconds(0.001));
    present += Seconds(1200);

    EXPECT_TRUE(QTest::qWaitFor([this] { return fired > 0; }, 60'000));
}

TEST_F(ScheduledTimerTest, ADelayThatQtCannotCountIsNotDueEarly)
{
    start(std::chrono::days(366));
    present += std::chrono::days(365);
    timer->look();

    EXPECT_EQ(fired, 0);
}

TEST_F(ScheduledTimerTest, ItsActionMayDestroyIt)
{
    timer = std::make_unique<ScheduledTimer>([] { return present; }, Seconds(60), Seconds(1),
                                             Seconds(1),
                                             [this] {
                                                 ++fired;
                                                 timer.reset();
                                             });
    present += Seconds(1);
    timer->look();

    EXPECT_EQ(fired, 1);
    EXPECT_EQ(timer, nullptr);
}

} // namespace
} // namespace voltmere
