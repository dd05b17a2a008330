// The whole program: its main function over macos/, with tools of the test in place of the
// system's.

#include "mac_test.h"
#include "model/battery_model.h"

#include "posix/temporary_directory.h"

#define main voltmereMain
#include "app/main.cpp"
#undef main

namespace voltmere {
namespace {

constexpr const char* mouseAt12 = R"(cat <<END
+-o AppleDeviceManagementHIDEventService
    {
      "BatteryPercent" = 12
      "ProductID" = 803
    }
END)";

struct MacProgram : MacTest {
    MacProgram()
        : MacTest(true)
    {
        mac.supportDirectory = directory.path();
        writeTool("system_profiler", "");
        writeTool("ioreg", mouseAt12);
    }

    ~MacProgram() override { BatteryModel::launchSettled = false; }

    void writeTool(const std::string& name, const std::string& script)
    {
        std::ofstream(directory / name) << "#!/bin/sh\n" << script << '\n';
        std::filesystem::permissions(directory / name, std::filesystem::perms::owner_all);
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
        int status = -1;
        EXPECT_NO_THROW(status = call(std::move(words)));
        output = testing::internal::GetCapturedStdout();
        errors = testing::internal::GetCapturedStderr();
        std::fputs(HasFailure() ? output.c_str() : "", stdout);
        return status;
    }

    /// What a person does who only looks at the panel.
    static void openPanelAndQuit()
    {
        settle();
        pressIcon(); // an alert takes the keyboard from an open panel
        press(button("Quit"));
    }

    TemporaryDirectory directory;
    std::string output;
    std::string errors;
};

TEST_F(MacProgram, StartsInTheMenuBarAndEndsWithQuit)
{
    mac.whileRunning = [] {
        EXPECT_TRUE(BatteryModel::launchSettled);
        EXPECT_FALSE(panel().visible);
        EXPECT_FALSE(mac.isActive) << "nothing takes the keyboard at the start";
        settle();
        EXPECT_EQ(text(mac.statusItem.button.toolTip), "Cellsentry\nMagic Mouse 12%");
        EXPECT_TRUE(alert().visible);
        EXPECT_TRUE([NSApp.delegate applicationSupportsSecureRestorableState:NSApp]);
        pressIcon();
        EXPECT_TRUE(panel().visible);
        press(button("Quit"));
    };
    EXPECT_EQ(run({}), 0);
    Lines asked = calls({"setImage:", "setToolTip:", "setLevel:"});
    asked.resize(4);
    const std::string category = "UNUserNotificationCenter categories LOW_BATTERY, "
                                 "SNOOZE_20=In 20 minutes/0, SNOOZE_30=In 30 minutes/0, "
                                 "SNOOZE_60=In 1 hour/0, SNOOZE_120=In 2 hours/0, "
                                 "SNOOZE_CUSTOM=At a specific time…/4";
    EXPECT_EQ(asked,
              (Lines{"UNUserNotificationCenter authorise 6", "NSApplication run",
                     "NSStatusBar statusItemWithLength:", category}));
    EXPECT_TRUE(mac.isAgent);
    EXPECT_EQ(NSApp.delegate, nil);
    EXPECT_EQ(mac.statusItem, nil);
}

TEST_F(MacProgram, SpeaksWithTheNotificationCentre)
{
    const auto answers = std::make_shared<Lines>();
    id<UNUserNotificationCenterDelegate> kept = nil;
    const auto respond = [&](const std::string& action) {
        UNUserNotificationCenter* const centre = UNUserNotificationCenter.currentNotificationCenter;
        kept = kept == nil ? centre.delegate : kept;
        mac.calls.clear();
        [kept userNotificationCenter:centre
             willPresentNotification:(UNNotification*)@""
               withCompletionHandler:^(UNNotificationPresentationOptions options) {
                   answers->push_back(std::to_string(options));
               }];
        [kept userNotificationCenter:centre
            didReceiveNotificationResponse:made(UNNotificationResponse.class, action)
                     withCompletionHandler:^{ answers->push_back("done"); }];
        EXPECT_EQ(answers->size(), 0U) << "not on the thread of the system";
        settle();
        return std::exchange(*answers, {});
    };
    mac.whileRunning = [&] {
        settle();
        const Lines once{"18", "done"};
        EXPECT_EQ(respond("SNOOZE_60"), once);
        const Lines added = calls();
        ASSERT_EQ(added.size(), 1U);
        EXPECT_THAT(added[0], StartsWith("UNUserNotificationCenter add snooze-"));
        EXPECT_THAT(added[0], HasSubstr("|Magic Mouse battery alert|Snoozed reminder: "));
        EXPECT_THAT(added[0], HasSubstr("|sound||in 3600"));
        EXPECT_EQ(respond("SNOOZE_CUSTOM"), once);
        EXPECT_EQ(calls(), (Lines{"NSApplication activateIgnoringOtherApps:"}));
        openPanelAndQuit();
    };
    EXPECT_EQ(run({"--panel"}), 0);
    EXPECT_EQ(respond("SNOOZE_60"), (Lines{"0", "done"})) << "after the end too";
    EXPECT_EQ(calls(), Lines());
}

TEST_F(MacProgram, SaysOnceThatItHasNoBundleAndCannotKnowOfOthersAndGoesOn)
{
    mac.hasBundle = false;
    mac.supportDirectory = "/dev/null";
    mac.whileRunning = openPanelAndQuit;
    EXPECT_EQ(run({"--panel"}), 0);
    const Lines all = calls({"Button", "ImageView", "Panel", "Application", "Alert", "Bar"});
    const std::string line = "NSLog Voltmere: /dev/null/org.voltmere.Voltmere/instance.lock cannot "
                             "be locked (Not a directory), so a second start runs a second time";
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0], line);
    EXPECT_THAT(all[1], StartsWith("NSLog Voltmere: notifications need the application bundle"));
}

TEST_F(MacProgram, OpensThePanelForASecondStartAndForFinder)
{
    int runs = 0;
    mac.whileRunning = [&] {
        ++runs;
        settle();
        const auto start = std::chrono::steady_clock::now();
        EXPECT_EQ(call({}), 0);
        EXPECT_GE(std::chrono::steady_clock::now() - start, std::chrono::milliseconds(100))
            << "the request leaves the process on a thread of the system";
        EXPECT_TRUE(panel().visible);
        settle();
        pressIcon();
        EXPECT_FALSE(panel().visible);
        EXPECT_FALSE([NSApp.delegate applicationShouldHandleReopen:NSApp hasVisibleWindows:NO]);
        EXPECT_TRUE(panel().visible);
        settle();
        const std::filesystem::path lock = directory / "org.voltmere.Voltmere/instance.lock";
        EXPECT_EQ(std::filesystem::status(lock).permissions(), std::filesystem::perms(0600));
        press(button("Quit"));
    };
    EXPECT_EQ(run({}), 0);
    EXPECT_EQ(run({}), 0);
    EXPECT_EQ(runs, 2) << "the end frees the lock";
}

TEST_F(MacProgram, ADemoLeavesTheRunningInstanceAndTheOutsideAlone)
{
    mac.bundlePath = directory.path();
    std::filesystem::create_directories(directory / "Contents/Resources/demo");
    writeTool("Contents/Resources/demo/ioreg", "");
    writeTool("Contents/Resources/demo/system_profiler", "");
    mac.whileRunning = [] {
        settle();
        EXPECT_TRUE(std::ranges::none_of(mac.observers, [](const Registration& one) {
            return [one.centre isKindOfClass:NSDistributedNotificationCenter.class];
        })) << "a later start asks another instance";
        press(button("Quit"));
    };
    EXPECT_EQ(run({"--panel", "--demo"}), 0) << errors;
    EXPECT_FALSE(std::filesystem::exists(directory / "org.voltmere.Voltmere"));
}

TEST_F(MacProgram, SaysWhatIsMissingInASessionWithoutAScreen)
{
    mac.isLoggedIn = false;
    EXPECT_EQ(run({}), exitStatus::cannotRun);
    EXPECT_EQ(errors, "voltmere: this session has no screen; log in at the Mac, or use --list\n");
    NSApp = nil;
    EXPECT_EQ(run({"--list"}), 0);
    EXPECT_THAT(output, HasSubstr("Magic Mouse"));
    EXPECT_EQ(run({"--diagnose"}), 0);
    EXPECT_THAT(output, HasSubstr("macOS Version 14.5"));
    EXPECT_EQ(run({"--unknown"}), exitStatus::wrongUsage);
    EXPECT_THAT(errors, HasSubstr("--unknown"));
    EXPECT_EQ(calls(), Lines());
    EXPECT_EQ(NSApp, nil);
}

TEST_F(MacProgram, EndsAtOnceWhileAToolHangs)
{
    writeTool("ioreg", "sleep 60");
    mac.whileRunning = [] {
        drainMainQueue(); // the reading has only begun
        press(mac.statusItem.button);
        press(button("Quit"));
    };
    EXPECT_EXIT(call({}), testing::ExitedWithCode(0), "");
}

TEST_F(MacProgram, DrawsItsPicturesInBothLanguagesLightAndDark)
{
    const std::filesystem::path album = directory / "new" / "album";
    EXPECT_EQ(run({"--screenshots", album.string()}), 0) << errors;
    const auto picture = [&](const std::string& name) {
        std::ifstream file(album / (name + ".png"));
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    const std::string icon = "PNG 0 0 43 22\n(12% at 25 3 regular 13 red, read out)\non ";
    EXPECT_EQ(picture("menu-bar-dark"), icon + "dark background\n");
    EXPECT_EQ(picture("menu-bar-light"), icon + "light background\n");
    EXPECT_THAT(picture("panel-en-dark"), HasSubstr("Magic Mouse headline cut first ~ 12%"));
    EXPECT_THAT(picture("panel-zh-light"), StartsWith("PNG 0 0 320 400\n~"));
    EXPECT_THAT(picture("panel-zh-light"), HasSubstr("续航哨兵"));
    EXPECT_THAT(picture("alert-one-low-en-dark"), HasSubstr("<15>{width = 52}{gap 3} :{gap 3} <"));
    EXPECT_THAT(picture("alert-one-low-en-dark"), HasSubstr("on dark background"));
    EXPECT_FALSE(std::filesystem::exists(directory / "org.voltmere.Voltmere"));
    const Lines all = calls();
    EXPECT_GE(std::ranges::count(all, "NSView layoutSubtreeIfNeeded"), 20) << "once for each alert";
}

TEST_F(MacProgram, SaysWhichPictureItCannotWrite)
{
    const std::string picture = directory / "menu-bar-light.png";
    std::filesystem::create_directories(picture);
    EXPECT_EQ(run({"--screenshots", directory.path()}), exitStatus::cannotRun);
    EXPECT_THAT(errors, StartsWith("voltmere: cannot write " + picture));
}

TEST(MacStatusIcon, IsTheFirstOfItsSourcesThatIsThere)
{
    // It is made once in a process, so each of these has a process of its own.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto drawStatusIcon = [](const std::set<std::string>& resources,
                                   const std::string& damaged) {
        mac = Mac();
        mac.resources = resources;
        mac.noImages = {damaged};
        (void)NSApplication.sharedApplication;
        NSImage* const icon = AppIconAsset::statusImage();
        std::fprintf(stderr, "%s of %s", drawing(icon).front().c_str(),
                     text({{}, icon.size}).c_str());
        std::_Exit(icon.isTemplate || icon != AppIconAsset::statusImage() ? 1 : 0);
    };
    const std::set<std::string> all{"StatusIcon.png", "StatusIcon.icns", "AppIcon.icns"};
    EXPECT_EXIT(drawStatusIcon(all, ""), testing::ExitedWithCode(0),
                "StatusIcon.png in 0 0 20 20 of 0 0 20 20");
    EXPECT_EXIT(drawStatusIcon({"StatusIcon.icns", "AppIcon.icns"}, ""), testing::ExitedWithCode(0),
                "StatusIcon.icns in");
    EXPECT_EXIT(drawStatusIcon(all, "StatusIcon.png"), testing::ExitedWithCode(0),
                "AppIcon.icns in");
    EXPECT_EXIT(drawStatusIcon({}, ""), testing::ExitedWithCode(0), "own icon in");
}

} // namespace
} // namespace voltmere
