// The whole program: its main function over macos/, with tools of the test in place of the
// system's.

#include "mac_test.h"
#include "model/battery_model.h"
#include "texts/l10n.h"

#include "posix/temporary_directory.h"

#include <fcntl.h>

#define main voltmereMain
#include "app/main.cpp"
#undef main

namespace voltmere {
namespace {

struct MacProgram : MacTest {
    MacProgram()
        : MacTest(true)
    {
        mac.supportDirectory = directory.path();
        writeTool("system_profiler", "");
        setLevel(12);
    }

    ~MacProgram() override { BatteryModel::launchSettled = false; }

    void writeTool(const std::string& name, const std::string& script)
    {
        const std::filesystem::path path = directory / name;
        std::ofstream(path) << "#!/bin/sh\n" << script << '\n';
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    }

    void setLevel(int level)
    {
        writeTool("ioreg",
                  R"(cat <<END
+-o AppleDeviceManagementHIDEventService
    {
      "BatteryPercent" = )" +
                      std::to_string(level) + "\n      \"ProductID\" = 803\n    }\nEND");
    }

    int call(std::vector<std::string> words) const
    {
        words.insert(words.begin(), "voltmere");
        if (words.back() != "--demo") {
            words.insert(words.end(), {"--tools", directory.path()});
        }
        std::vector<char*> pointers;
        for (std::string& word : words) {
            pointers.push_back(word.data());
        }
        pointers.push_back(nullptr);
        return voltmereMain(static_cast<int>(words.size()), pointers.data());
    }

    int run(std::vector<std::string> words)
    {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        const int status = call(std::move(words));
        output = testing::internal::GetCapturedStdout();
        errors = testing::internal::GetCapturedStderr();
        return status;
    }

    /// A click on "Quit" in the panel.
    static void quit()
    {
        for (NSWindow* const window : mac.windows) {
            for (NSView* const view : viewsIn(window.contentView)) {
                if ([view isKindOfClass:NSButton.class] &&
                    text(((NSButton*)view).title) == "Quit") {
                    press((NSButton*)view);
                }
            }
        }
    }

    static bool isPanelOpen()
    {
        for (NSWindow* const window : mac.windows) {
            if (window.level == NSStatusWindowLevel) {
                return window.visible;
            }
        }
        return false;
    }

    TemporaryDirectory directory;
    std::string output;
    std::string errors;
};

TEST_F(MacProgram, StartsInTheMenuBarAndEndsWithQuit)
{
    mac.whileRunning = [] {
        EXPECT_TRUE(BatteryModel::launchSettled);
        EXPECT_FALSE(isPanelOpen());
        EXPECT_FALSE(mac.isActive) << "nothing takes the keyboard at the start";
        settle();
        EXPECT_EQ(text(mac.statusItem.button.toolTip), "Cellsentry\nMagic Mouse 12%");
        EXPECT_TRUE(mac.alert.window.visible);
        EXPECT_TRUE([NSApp.delegate applicationSupportsSecureRestorableState:NSApp]);
        press(mac.statusItem.button);
        EXPECT_TRUE(isPanelOpen());
        settle();
        quit();
    };
    EXPECT_EQ(run({}), 0);
    Lines asked = calls();
    asked.resize(4);
    EXPECT_EQ(asked,
              (Lines{"NSApplication accessory", "UNUserNotificationCenter authorise 6",
                     "NSApplication run", "NSStatusBar item -1"}));
    EXPECT_EQ(NSApp.delegate, nil);
    EXPECT_EQ(mac.statusItem, nil);
}

TEST_F(MacProgram, RegistersItsCategoryWhenItHasLaunchedAndAtEachLanguage)
{
    mac.whileRunning = [] {
        settle();
        const Lines asked = calls();
        const std::string english = "UNUserNotificationCenter categories LOW_BATTERY, "
                                    "SNOOZE_20=In 20 minutes/0, SNOOZE_30=In 30 minutes/0, "
                                    "SNOOZE_60=In 1 hour/0, SNOOZE_120=In 2 hours/0, "
                                    "SNOOZE_CUSTOM=At a specific time…/4";
        EXPECT_EQ(std::count(asked.begin(), asked.end(), english), 1);
        EXPECT_NE([UNUserNotificationCenter currentNotificationCenter].delegate, nil);
        quit();
    };
    EXPECT_EQ(run({"--panel"}), 0);
}

TEST_F(MacProgram, AnswersWhatTheUserChoseInANotification)
{
    mac.whileRunning = [] {
        settle();
        UNUserNotificationCenter* const centre =
            [UNUserNotificationCenter currentNotificationCenter];
        __block int answers = 0;
        for (const char* const action : {"SNOOZE_60", "SNOOZE_CUSTOM", "unknown"}) {
            mac.calls.clear();
            mac.isActive = false;
            [centre.delegate userNotificationCenter:centre
                     didReceiveNotificationResponse:made(UNNotificationResponse.class, action)
                              withCompletionHandler:^{ ++answers; }];
            settle();
            const Lines asked = calls();
            if (action == std::string("SNOOZE_60")) {
                ASSERT_EQ(asked.size(), 1U);
                EXPECT_EQ(asked[0].rfind("UNUserNotificationCenter add snooze-", 0), 0U);
                EXPECT_NE(asked[0].find("|Magic Mouse battery alert|Snoozed reminder: please "
                                        "charge your mouse.|sound||in 3600"),
                          std::string::npos);
            } else if (action == std::string("SNOOZE_CUSTOM")) {
                EXPECT_EQ(asked, (Lines{"NSApplication activate ignoring others"}));
            } else {
                EXPECT_EQ(asked, Lines());
            }
        }
        EXPECT_EQ(answers, 3);
        quit();
    };
    EXPECT_EQ(run({"--panel"}), 0);
}

TEST_F(MacProgram, LogsAFailedLoginItemAndThenNotifies)
{
    mac.whileRunning = [] {
        settle();
        mac.calls.clear();
        mac.loginItemFailure = "Operation not permitted";
        for (NSWindow* const window : mac.windows) {
            for (NSView* const view : viewsIn(window.contentView)) {
                if ([view isKindOfClass:NSButton.class] &&
                    text(((NSButton*)view).title) == "Launch at login") {
                    press((NSButton*)view);
                }
            }
        }
        const Lines asked = calls();
        ASSERT_EQ(asked.size(), 3U);
        EXPECT_EQ(asked[0], "SMAppService register");
        EXPECT_EQ(asked[1], "NSLog Voltmere: 设置开机启动失败 Operation not permitted");
        EXPECT_EQ(asked[2].rfind("UNUserNotificationCenter add launch-fail-", 0), 0U);
        EXPECT_NE(asked[2].find("|Launch at login|Operation not permitted|silent||at once"),
                  std::string::npos);
        settle();
        quit();
    };
    EXPECT_EQ(run({"--panel"}), 0);
}

TEST_F(MacProgram, OpensThePanelForASecondStartAndForFinder)
{
    mac.whileRunning = [this] {
        settle();
        EXPECT_FALSE(isPanelOpen());
        EXPECT_EQ(call({}), 0);
        EXPECT_TRUE(isPanelOpen());
        settle();
        press(mac.statusItem.button);
        EXPECT_FALSE(isPanelOpen());
        EXPECT_FALSE([NSApp.delegate applicationShouldHandleReopen:NSApp hasVisibleWindows:NO]);
        EXPECT_TRUE(isPanelOpen());
        settle();
        quit();
    };
    EXPECT_EQ(run({}), 0);
}

TEST_F(MacProgram, TheDemoLeavesTheRunningInstanceAndTheOutsideAlone)
{
    mac.whileRunning = [] {
        settle();
        quit();
    };
    EXPECT_EQ(run({"--panel", "--demo"}), 0);
    EXPECT_FALSE(std::filesystem::exists(directory / "org.voltmere.Voltmere"));
    for (const std::string& call : calls()) {
        EXPECT_EQ(call.find("UNUserNotificationCenter"), std::string::npos) << call;
        EXPECT_EQ(call.find("NSUserDefaults"), std::string::npos) << call;
    }
}

TEST_F(MacProgram, SaysWhatIsMissingInASessionWithoutAScreen)
{
    mac.isLoggedIn = false;
    EXPECT_EQ(run({}), exitStatus::cannotRun);
    EXPECT_EQ(errors, "voltmere: this session has no screen; log in at the Mac, or use --list\n");
    EXPECT_EQ(calls(), Lines());
}

TEST_F(MacProgram, EndsAtOnceWhileAToolHangs)
{
    writeTool("ioreg", "sleep 60");
    mac.whileRunning = [] {
        drainMainQueue(); // the reading has only begun
        press(mac.statusItem.button);
        EXPECT_TRUE(isPanelOpen());
        quit();
    };
    EXPECT_EXIT(call({}), testing::ExitedWithCode(0), "");
}

TEST_F(MacProgram, TerminalCommandsNeedNoWindows)
{
    mac.isLoggedIn = false;
    NSApp = nil;
    EXPECT_EQ(run({"--list"}), 0);
    EXPECT_NE(output.find("12"), std::string::npos) << output;
    EXPECT_NE(output.find("Magic Mouse"), std::string::npos) << output;
    EXPECT_EQ(run({"--unknown"}), exitStatus::wrongUsage);
    EXPECT_NE(errors.find("--unknown"), std::string::npos) << errors;
    EXPECT_EQ(run({"--diagnose"}), 0);
    EXPECT_NE(output.find("macOS Version 14.5"), std::string::npos) << output;
    EXPECT_EQ(calls(), Lines());
    EXPECT_EQ(NSApp, nil);
}

TEST_F(MacProgram, DrawsItsPicturesInBothLanguagesLightAndDark)
{
    const std::filesystem::path album = directory / "new" / "album";
    EXPECT_EQ(run({"--screenshots", album.string()}), 0) << errors;
    std::map<std::string, std::string> pictures;
    for (const auto& entry : std::filesystem::directory_iterator(album)) {
        std::ifstream file(entry.path());
        pictures[entry.path().filename()] = {std::istreambuf_iterator<char>(file), {}};
    }
    EXPECT_EQ(pictures.size(), 2U * (1 + 2 * (1 + 5)));
    for (const auto& [name, picture] : pictures) {
        EXPECT_EQ(picture.rfind("PNG ", 0), 0U) << name;
        const bool isDark = name.find("-dark.png") != std::string::npos;
        EXPECT_NE(picture.find(isDark ? "on dark background" : "on light background"),
                  std::string::npos)
            << name << picture;
        if (name.rfind("menu-bar", 0) != 0) {
            const bool isChinese = name.find("-zh-") != std::string::npos;
            EXPECT_NE(picture.find(isChinese ? "续航哨兵" : "Cellsentry"), std::string::npos)
                << name;
        }
    }
    EXPECT_NE(pictures["menu-bar-light.png"].find("12% at 25 3 regular 13 red"), std::string::npos);
    EXPECT_NE(pictures["panel-en-dark.png"].find("Magic Mouse\n12%\n"), std::string::npos);
    EXPECT_EQ(mac.defaults.size(), 0U);
}

TEST_F(MacProgram, SaysWhichPictureItCannotWrite)
{
    std::ofstream(directory / "file") << "x";
    EXPECT_EQ(run({"--screenshots", directory / "file" / "album"}), exitStatus::cannotRun);
    EXPECT_NE(errors.find("cannot make the directory"), std::string::npos) << errors;
    std::filesystem::create_directories(directory / "menu-bar-light.png");
    EXPECT_EQ(run({"--screenshots", directory.path()}), exitStatus::cannotRun);
    EXPECT_NE(errors.find("menu-bar-light.png"), std::string::npos) << errors;
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 1) << "one line for all";
}

// The status icon is made once in a process, so each of these has a process of its own.

struct MacStatusIcon : MacTest {
    void expect(const std::string& drawn)
    {
        GTEST_FLAG_SET(death_test_style, "threadsafe");
        EXPECT_EXIT(
            {
                (void)NSApplication.sharedApplication;
                NSImage* const icon = AppIconAsset::statusImage();
                const bool isPlain = !icon.isTemplate && icon == AppIconAsset::statusImage();
                std::fprintf(stderr, "%g %s", icon.size.height, drawing(icon).front().c_str());
                std::_Exit(isPlain && icon.size.width == 20 ? 0 : 1);
            },
            testing::ExitedWithCode(0), "20 " + drawn + " in 0 0 20 20");
        GTEST_FLAG_SET(death_test_style, "fast");
    }
};

TEST_F(MacStatusIcon, IsThePng)
{
    expect("StatusIcon.png");
}

TEST_F(MacStatusIcon, IsTheIcnsWithoutAPng)
{
    mac.resources = {"StatusIcon.icns", "AppIcon.icns"};
    expect("StatusIcon.icns");
}

TEST_F(MacStatusIcon, IsTheAppIconWhereTheChosenOneIsMissingOrDamaged)
{
    mac.damagedResources = {"StatusIcon.png"};
    expect("AppIcon.icns");
}

TEST_F(MacStatusIcon, IsTheApplicationsOwnAtLast)
{
    mac.resources.clear();
    expect("own icon");
}

} // namespace
} // namespace voltmere
