#pragma once

#include "mac.h"
#include "macos/ui/status_image.h"
#include "runtime.h"

#include <gtest/gtest.h>

namespace voltmere {

using Lines = std::vector<std::string>;

/// A test with a Mac of its own. At its end nothing waits, and no object is left.
class MacTest : public testing::Test {
protected:
    /// A process that draws keeps the status icon to its end.
    explicit MacTest(bool draws = false)
    {
        mac = Mac();
        NSApp.appearance = nil;
        NSApp = nil;
        if (draws) {
            (void)NSApplication.sharedApplication;
            (void)AppIconAsset::statusImage();
        }
        objc::drainPool();
        mac.calls.clear();
        before = objc::liveObjects();
    }

    ~MacTest() override
    {
        settle();
        NSApp.appearance = nil;
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
