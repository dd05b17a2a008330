#pragma once

#include "mac.h"
#include "macos/ui/front_end.h"
#include "runtime.h"

#include <gmock/gmock.h>

#include <algorithm>

namespace voltmere {

using Lines = std::vector<std::string>;
using testing::HasSubstr;
using testing::StartsWith;

/// A test with a Mac of its own. At its end nothing waits, and no object is left.
class MacTest : public testing::Test {
protected:
    /// A process that draws keeps the status icon to its end.
    explicit MacTest(bool draws = false)
    {
        mac = Mac();
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
        EXPECT_EQ(mac.timers.size() + mac.observers.size() + mac.activities.size(), 0U);
        mac = Mac();
        objc::drainPool();
        for (const auto& [name, count] : objc::liveObjects()) {
            EXPECT_EQ(count, before[name]) << "left: " << name;
        }
    }

    /// What the stand-ins were asked since the last time, without calls that name one of `others`.
    static Lines calls(const Lines& others = {})
    {
        Lines all = std::exchange(mac.calls, {});
        for (const std::string& other : others) {
            std::erase_if(all, [&](const std::string& one) { return one.find(other) != one.npos; });
        }
        return all;
    }

    static NSWindow* panel() { return mac.panel; }
    static NSWindow* alert() { return mac.alert.window; }

    /// The newest button with that title that a person can see.
    static NSButton* button(const std::string& title)
    {
        NSButton* found = nil;
        for (NSWindow* const window : mac.windows) {
            for (NSButton* const one : viewsIn(window.contentView, NSButton.class)) {
                found = window.visible && text(one.title) == title ? one : found;
            }
        }
        EXPECT_NE(found, nil) << title;
        return found;
    }

    static NSPopUpButton* popUp(NSWindow* window, int index)
    {
        return viewsIn(window.contentView, NSPopUpButton.class)[static_cast<unsigned>(index)];
    }

    static void pressIcon()
    {
        press(mac.statusItem.button);
        settle();
    }

private:
    std::map<std::string, long> before;
};

} // namespace voltmere
