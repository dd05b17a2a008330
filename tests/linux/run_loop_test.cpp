#include "linux/run_loop.h"

#include "linux/few_descriptors.h"

#include <gmock/gmock.h>

#include <QElapsedTimer>
#include <QTest>
#include <QThread>

#include <ctime>
#include <filesystem>
#include <fstream>
#include <future>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace voltmere {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A few milliseconds of real time: the real run loop is what these tests are about.
constexpr Seconds soon{0.004};
constexpr Seconds later{0.012};
constexpr Seconds farOff{3600};

class QtRunLoopTest : public testing::Test {
protected:
    RunLoop::Action count()
    {
        return [this] { ++fired; };
    }

    bool hasFired(int times)
    {
        return QTest::qWaitFor([this, times] { return fired >= times; }, 60'000);
    }

    /// Until a timer that is due after all others that are short has fired.
    void letShortTimersPass()
    {
        bool passed = false;
        const auto last = runLoop.scheduleOnce(Seconds(0.03), [&passed] { passed = true; });
        EXPECT_TRUE(QTest::qWaitFor([&passed] { return passed; }, 60'000));
    }

    QtRunLoop runLoop;
    int fired = 0;
};

/// The clocks of the timers that this process has as file descriptors.
std::vector<int> clocksOfTimers()
{
    std::vector<int> clocks;
    for (const auto& descriptor : std::filesystem::directory_iterator("/proc/self/fdinfo")) {
        std::ifstream lines(descriptor.path());
        for (std::string name; lines >> name;) {
            int clock = 0;
            if (name == "clockid:" && lines >> clock) {
                clocks.push_back(clock);
            }
        }
    }
    return clocks;
}

TEST_F(QtRunLoopTest, TimersCountTheTimeInWhichTheMachineSleeps)
{
    ASSERT_THAT(clocksOfTimers(), IsEmpty());
    const auto once = runLoop.scheduleOnce(farOff, count());
    const auto repeating = runLoop.scheduleRepeating(farOff, count());

    EXPECT_THAT(clocksOfTimers(), ElementsAre(CLOCK_BOOTTIME, CLOCK_BOOTTIME));
}

TEST_F(QtRunLoopTest, WithoutFileDescriptorsATimerIsRefusedWithALine)
{
    testing::internal::CaptureStderr();
    {
        const FewDescriptors scarcity(0);
        EXPECT_EQ(runLoop.scheduleOnce(soon, count()), nullptr);
        EXPECT_EQ(runLoop.scheduleRepeating(soon, count()), nullptr);
    }
    EXPECT_THAT(testing::internal::GetCapturedStderr(), HasSubstr("a timer cannot be made"));

    EXPECT_NE(runLoop.scheduleOnce(soon, count()), nullptr);
}

TEST_F(QtRunLoopTest, ATimerFiresOnceAfterItsDelayAndNotBefore)
{
    QElapsedTimer time;
    time.start();
    const auto timer = runLoop.scheduleOnce(later, count());
    EXPECT_TRUE(hasFired(1));
    EXPECT_GE(time.nsecsElapsed(), 12'000'000);

    letShortTimersPass();
    EXPECT_EQ(fired, 1);
}

TEST_F(QtRunLoopTest, ATimerNeverFiresWithinTheCallThatMakesIt)
{
    for (const Seconds delay : {Seconds(0), Seconds(-5), Seconds(1e-12)}) {
        fired = 0;
        const auto timer = runLoop.scheduleOnce(delay, count());
        EXPECT_EQ(fired, 0);
        EXPECT_TRUE(hasFired(1));
        letShortTimersPass();
        EXPECT_EQ(fired, 1);
    }
}

TEST_F(QtRunLoopTest, ATimerThatIsDestroyedDoesNotFireEvenIfItIsDue)
{
    for (const Seconds delay : {soon, Seconds(0)}) {
        auto timer = runLoop.scheduleOnce(delay, count());
        std::this_thread::yield();
        timer.reset();
    }
    letShortTimersPass();

    EXPECT_EQ(fired, 0);
}

TEST_F(QtRunLoopTest, ARepeatingTimerFiresAfterEachInterval)
{
    QElapsedTimer time;
    time.start();
    const auto timer = runLoop.scheduleRepeating(soon, count());

    EXPECT_TRUE(hasFired(3));
    EXPECT_GE(time.nsecsElapsed(), 12'000'000);
}

TEST_F(QtRunLoopTest, MissedPeriodsAreNotMadeUpFor)
{
    const auto timer = runLoop.scheduleRepeating(soon, count());
    QElapsedTimer blocked;
    blocked.start();
    while (blocked.elapsed() < 60) { // the main thread has no time for its timers
        std::this_thread::yield();
    }
    QCoreApplication::processEvents();
    EXPECT_GE(fired, 1);
    EXPECT_LT(fired, 15 / 2) << "of fifteen periods";

    EXPECT_TRUE(hasFired(fired + 1));
}

TEST_F(QtRunLoopTest, ATimerMayBeDestroyedByItsOwnAction)
{
    std::unique_ptr<Timer> timer;
    const std::string text(100, 'x');
    timer = runLoop.scheduleRepeating(soon, [this, &timer, text] {
        timer.reset();
        fired += static_cast<int>(text.size()); // the action itself is still whole
    });

    EXPECT_TRUE(hasFired(100));
    letShortTimersPass();
    EXPECT_EQ(fired, 100);
}

TEST_F(QtRunLoopTest, AnActionMayPutANewTimerInTheOldOnesPlace)
{
    std::unique_ptr<Timer> timer;
    std::function<void()> again = [&] {
        if (++fired < 3) {
            timer = runLoop.scheduleOnce(soon, again);
        }
    };
    timer = runLoop.scheduleOnce(soon, again);

    EXPECT_TRUE(hasFired(3));
}

TEST_F(QtRunLoopTest, PostToMainRunsInTheNextTurnInOrder)
{
    std::vector<int> order;
    runLoop.postToMain([&order] { order.push_back(1); });
    runLoop.postToMain([&order] { order.push_back(2); });
    EXPECT_THAT(order, IsEmpty());
    QCoreApplication::processEvents();

    EXPECT_THAT(order, ElementsAre(1, 2));
}

TEST_F(QtRunLoopTest, WhatAnotherThreadPostsRunsOnTheMainThread)
{
    QThread* thread = nullptr;
    std::thread([&] { runLoop.postToMain([&] { thread = QThread::currentThread(); }); }).join();
    EXPECT_EQ(thread, nullptr);

    EXPECT_TRUE(QTest::qWaitFor([&] { return thread != nullptr; }, 60'000));
    EXPECT_EQ(thread, qApp->thread());
}

TEST_F(QtRunLoopTest, BackgroundWorkRunsBesideTheMainThread)
{
    std::promise<void> release;
    std::thread::id worker;
    runLoop.runInBackground([&, released = release.get_future().share()] {
        released.wait();
        runLoop.postToMain([&, id = std::this_thread::get_id()] { worker = id; });
    });
    EXPECT_TRUE(runLoop.isBusy());
    QCoreApplication::processEvents();
    EXPECT_EQ(worker, std::thread::id());
    release.set_value();

    EXPECT_TRUE(QTest::qWaitFor([&] { return worker != std::thread::id(); }, 60'000));
    EXPECT_NE(worker, std::this_thread::get_id());
    EXPECT_TRUE(QTest::qWaitFor([this] { return !runLoop.isBusy(); }, 60'000));
}

TEST_F(QtRunLoopTest, WorkThatHangsHoldsNoOtherWorkUp)
{
    std::promise<void> release;
    runLoop.runInBackground([released = release.get_future().share()] { released.wait(); });
    for (int i = 0; i < 3; ++i) {
        runLoop.runInBackground([this] { runLoop.postToMain(count()); });
    }

    EXPECT_TRUE(hasFired(3));
    EXPECT_TRUE(runLoop.isBusy());
    release.set_value();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !runLoop.isBusy(); }, 60'000));
}

TEST_F(QtRunLoopTest, AFarOffTimerDoesNotFireNowAndKeepsNobodyBusy)
{
    const auto hour = runLoop.scheduleOnce(farOff, count());
    const auto year = runLoop.scheduleOnce(Seconds(365.0 * 24 * 3600), count());
    letShortTimersPass();

    EXPECT_EQ(fired, 0);
    EXPECT_FALSE(runLoop.isBusy());
}

} // namespace
} // namespace voltmere
