#include "linux/ending_signals.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTest>

#include <csignal>

namespace voltmere {
namespace {

class EndingSignalsTest : public testing::TestWithParam<int> { };

INSTANTIATE_TEST_SUITE_P(Each, EndingSignalsTest, testing::Values(SIGTERM, SIGINT, SIGHUP));

TEST_P(EndingSignalsTest, EndsFromTheEventLoop)
{
    int ends = 0;
    const EndingSignals ending([&ends] { ++ends; });

    std::raise(GetParam());
    EXPECT_EQ(ends, 0);

    EXPECT_TRUE(QTest::qWaitFor([&ends] { return ends > 0; }, 60'000));
    QCoreApplication::processEvents();
    EXPECT_EQ(ends, 1);
}

TEST_P(EndingSignalsTest, TheSecondEndsTheProcessAtOnce)
{
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    const auto raiseTwice = [] {
        const EndingSignals ending([] {});
        std::raise(GetParam());
        std::raise(GetParam());
    };
    EXPECT_EXIT(raiseTwice(), testing::KilledBySignal(GetParam()), "");
}

TEST_P(EndingSignalsTest, LeavesAnIgnoredSignalIgnored)
{
    std::signal(GetParam(), SIG_IGN);
    int ends = 0;
    {
        const EndingSignals ending([&ends] { ++ends; });
        std::raise(GetParam());
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(ends, 0);
    EXPECT_EQ(std::signal(GetParam(), SIG_DFL), SIG_IGN);
}

TEST_P(EndingSignalsTest, GivesTheSignalBack)
{
    {
        const EndingSignals ending([] {});
    }
    EXPECT_EQ(std::signal(GetParam(), SIG_DFL), SIG_DFL);
}

} // namespace
} // namespace voltmere
