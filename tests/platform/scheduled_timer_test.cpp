#include "platform/qt/scheduled_timer.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTest>

#include <cstdint>
#include <memory>

namespace voltmere {
namespace {

Seconds present{0};
int looks = 0;

/// The clock is the test's, and the timer beneath is Qt's own.
class ScheduledTimerTest : public testing::Test {
protected:
    ScheduledTimerTest()
    {
        present = Seconds(1000);
        looks = 0;
    }

    static Seconds now()
    {
        ++looks;
        return present;
    }

    void start(Seconds delay, Seconds interval = Seconds::zero(),
               Seconds longestWait = ScheduledTimer::longestWaitOfQt)
    {
        timer = std::make_unique<ScheduledTimer>(&now, longestWait, delay, interval,
                                                 [this] { ++fired; });
    }

    /// Lets time pass as in a sleep, after which the timer is told to wait anew.
    void sleepFor(Seconds span)
    {
        present += span;
        timer->wait();
        QCoreApplication::processEvents();
    }

    bool hasFired(int times)
    {
        return QTest::qWaitFor([this, times] { return fired == times; }, 60'000);
    }

    std::unique_ptr<ScheduledTimer> timer;
    int fired = 0;
};

TEST_F(ScheduledTimerTest, FiresOnceWhenItsTimeHasCome)
{
    start(Seconds(1200));
    sleepFor(Seconds(1100));
    EXPECT_EQ(fired, 0);

    sleepFor(Seconds(100));
    EXPECT_TRUE(hasFired(1));
    sleepFor(Seconds(5000));
    EXPECT_EQ(fired, 1);
}

TEST_F(ScheduledTimerTest, ARepeatingOneCountsMissedPeriodsAsOne)
{
    start(Seconds(600), Seconds(600));
    sleepFor(Seconds(6300));
    EXPECT_TRUE(hasFired(1));
    sleepFor(Seconds(0));
    EXPECT_EQ(fired, 1);

    sleepFor(Seconds(300));
    EXPECT_TRUE(hasFired(2));
}

TEST_F(ScheduledTimerTest, LooksAtTheClockByItselfAfterItsLongestWait)
{
    start(Seconds(1200), Seconds::zero(), Seconds(0.001));
    present += Seconds(1200);

    EXPECT_TRUE(hasFired(1));
}

TEST_F(ScheduledTimerTest, ADelayThatQtCannotCountIsWaitedForQuietly)
{
    // As many milliseconds as an int would take for none.
    const Seconds delay = std::chrono::milliseconds(std::int64_t{1} << 32);
    start(delay);
    const int atStart = looks;
    for (int turn = 0; turn < 3; ++turn) {
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(looks, atStart);

    sleepFor(delay);
    EXPECT_TRUE(hasFired(1));
}

TEST_F(ScheduledTimerTest, ItsActionMayDestroyIt)
{
    timer = std::make_unique<ScheduledTimer>(&now, Seconds(60), Seconds(1), Seconds(1), [this] {
        ++fired;
        timer.reset();
    });
    sleepFor(Seconds(1));

    EXPECT_TRUE(hasFired(1));
    EXPECT_EQ(timer, nullptr);
}

} // namespace
} // namespace voltmere
