#pragma once

#include "mac.h"
#include "runtime.h"

#include <gtest/gtest.h>

namespace voltmere {

using Lines = std::vector<std::string>;

/// A test with a Mac of its own. At its end nothing waits, and no object is left.
class MacTest : public testing::Test {
protected:
    MacTest()
    {
        mac = Mac();
        NSApp = nil;
        objc::drainPool();
        before = objc::liveObjects();
    }

    ~MacTest() override
    {
        settle();
        objc::drainPool();
        EXPECT_EQ(mac.timers.size() + mac.observers.size() + mac.monitors.size() +
                      mac.activities.size() + mac.appearanceObservers.size(),
                  0U);
        mac = Mac();
        objc::drainPool();
        for (const auto& [name, count] : objc::liveObjects()) {
            EXPECT_EQ(count, before[name]) << "left: " << name;
        }
    }

    /// What the stand-ins were asked since the last time.
    static Lines calls() { return std::exchange(mac.calls, {}); }

private:
    std::map<std::string, long> before;
};

} // namespace voltmere
