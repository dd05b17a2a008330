#include "year/year_script.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <deque>

namespace voltmere::year {
namespace {

// Years of random use, in virtual time, each compared with the oracle after every step.
// VOLTMERE_YEAR_SCRIPTS asks for another number of them.

unsigned scriptCount()
{
    const char* const asked = std::getenv("VOLTMERE_YEAR_SCRIPTS");
    return asked == nullptr ? 100 : static_cast<unsigned>(std::atoi(asked));
}

/// What the scripts reached, so that they cannot miss the point unnoticed.
struct Reached {
    int alerts = 0;
    int readings = 0;
    int broughtToFront = 0;
};

void count(const View& view, Reached& reached)
{
    for (const Event& event : view.events) {
        reached.alerts += event.what.starts_with("alert ") ? 1 : 0;
        reached.readings += event.what == "levels read" ? 1 : 0;
        reached.broughtToFront += event.what == "alert in front" ? 1 : 0;
    }
}

void runYear(YearScript& script, Reached& reached)
{
    const Beginning beginning = script.beginning();
    const std::unique_ptr<Run> program = runProgram(beginning);
    YearOracle oracle(beginning);
    std::deque<std::string> steps{"start"};
    while (true) {
        const View seen = program->look();
        const View expected = oracle.look();
        if (seen != expected) {
            std::string road;
            for (const std::string& step : steps) {
                road += step + "; ";
            }
            ADD_FAILURE() << "after ... " << road << "\nexpected: " << expected
                          << "\nseen: " << seen;
            return;
        }
        count(seen, reached);
        if (script.isOver()) {
            return;
        }
        script.step(*program, oracle);
        steps.push_back(script.lastStep());
        if (steps.size() > 12) {
            steps.pop_front();
        }
    }
}

TEST(YearTest, RandomYearsGoAsTheOracleSays)
{
    Reached reached;
    for (unsigned seed = 1; seed <= scriptCount() && !testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        YearScript script(seed);
        runYear(script, reached);
    }
    const int least = static_cast<int>(scriptCount());
    EXPECT_GT(reached.alerts, 10 * least);
    EXPECT_GT(reached.broughtToFront, least);
    EXPECT_GT(reached.readings, 200 * least);
    std::cout << scriptCount() << " years: " << reached.readings << " readings, " << reached.alerts
              << " alerts\n";
}

TEST(YearTest, AYearWithoutSleepGoesAsTheOracleSays)
{
    Reached reached;
    YearScript script(365);
    script.neverSleeps();
    runYear(script, reached);
    EXPECT_GT(reached.readings, 365 * 24 * 12 - 1);
}

} // namespace
} // namespace voltmere::year
