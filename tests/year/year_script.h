#pragma once

#include "year/year_oracle.h"

#include <random>

namespace voltmere::year {

/// A year of somebody's life with the program, made up at random from a seed: the machine is used
/// and sleeps, batteries run down and are charged, settings change, alerts are answered, the
/// user travels and sets the clock.
class YearScript {
public:
    explicit YearScript(unsigned seed);

    /// How things are when the program starts.
    Beginning beginning();

    /// One step, done to both runs alike.
    void step(Run& program, YearOracle& oracle);

    /// The machine is on all the time.
    void neverSleeps() { sleeps = false; }

    bool isOver() const { return passed >= 365 * day; }
    const std::string& lastStep() const { return description; }

private:
    using Action = std::function<void(Run&)>;

    std::int64_t below(std::int64_t limit);
    bool oneIn(std::int64_t chance) { return below(chance) == 0; }
    Action nextAction(const YearOracle& oracle);
    Action timePasses(const YearOracle& oracle);
    Action useOrSleep();
    Action settingChanges();
    Action alertIsAnswered();
    Action batteriesChange();
    Action namesChange();
    Action clockOrZoneChanges();
    Action userLooks();
    Action stayAwake(Millis span);
    Action sleep(Millis span);
    Action described(std::string what, Action action);

    std::mt19937 random;
    Millis passed = 0;
    bool launched = false;
    bool sleeps = true;
    std::string description;
};

} // namespace voltmere::year
