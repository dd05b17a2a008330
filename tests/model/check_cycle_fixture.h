#pragma once

#include "fakes/model_world.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <utility>

namespace voltmere {

/// The model over readings that the test counts and finishes.
class CheckCycleTest : public testing::Test {
protected:
    /// Starts the model with a low mouse, whose alert every full check brings up again, and
    /// takes the first check.
    BatteryModel& startWithLowMouse()
    {
        world.setLevels({{803, 10}});
        BatteryModel& model = world.start();
        world.runLoop.settle();
        return model;
    }

    /// Full checks so far, of a mouse that has been low all the time.
    int fullChecks() const
    {
        int checks = 0;
        for (const auto& alert : world.alerts.shown) {
            checks += 1 + alert->broughtToFront;
        }
        return checks;
    }

    int readings() const { return world.batteries.readings; }

    int quietRefreshes() const { return readings() - fullChecks(); }

    void advance(Seconds span) { world.runLoop.advance(span); }

    /// Finishes the reading that waits at `position`, out of turn. Its result waits for `settle`.
    void finishReading(std::size_t position)
    {
        auto& background = world.runLoop.background;
        const auto found = background.begin() + static_cast<std::ptrdiff_t>(position);
        const RunLoop::Action work = std::move(*found);
        background.erase(found);
        work();
    }

    /// Hides the alert, so that the next check raises a new one.
    void dismissAlert() { world.alerts.shown.back()->actions.cancel(); }

    ModelWorld world;
};

} // namespace voltmere
