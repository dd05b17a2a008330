// The icon, the panel and the snooze alert: macos/ui over a model whose other ports are fakes.

#include "mac_test.h"
#include "macos/ui/controls.h"

#include "fakes/model_world.h"

namespace voltmere {
namespace {

struct MacWindows : MacTest {
    MacWindows()
        : MacTest(true)
    {
    }

    ~MacWindows() override
    {
        settle();
        scene.reset();
        model.reset();
    }

    /// Shows the program with the first reading done.
    void start(const std::vector<std::pair<std::int64_t, std::int64_t>>& productsAndLevels = {})
    {
        world.setLevels(productsAndLevels);
        model = std::make_unique<BatteryModel>(ModelServices{
            *defaults, *loop, world.clock, world.calendar, world.loginItems, world.notifications,
            world.notificationDelegate, frontEnd->alerts(), world.log, world.reader});
        settle();
        scene = frontEnd->show(*model);
        settle();
        mac.calls.clear();
    }

    static std::string shown() { return [panel().contentView seen]; }
    static NSStatusBarButton* icon() { return mac.statusItem.button; }

    ModelWorld world;
    const std::unique_ptr<DefaultsStore> defaults =
        openUserSettings(SettingsUse::readAndWrite, world.log);
    const std::unique_ptr<MainLoop> loop = makeMainLoop();
    const std::unique_ptr<FrontEnd> frontEnd = makeFrontEnd(*loop);
    std::unique_ptr<BatteryModel> model;
    std::unique_ptr<Scene> scene;
};

// The icon

TEST_F(MacWindows, TheIconShowsTheWeakestDevice)
{
    start({{803, 40}, {805, 15}});
    EXPECT_EQ(drawing(icon().image),
              (Lines{"StatusIcon.png in 0 1 20 20", "15% at 25 3 regular 13 red"}));
    EXPECT_EQ(text({{}, icon().image.size}), "0 0 43 22");
    EXPECT_FALSE(icon().image.isTemplate);
    EXPECT_EQ(icon().imagePosition, NSImageOnly);
    EXPECT_EQ(text(icon().toolTip), "Cellsentry\nMagic Mouse 40%\nMagic Keyboard 15%");
    EXPECT_EQ(text(icon().accessibilityLabel), "Cellsentry, Magic Mouse 40%, Magic Keyboard 15%");
    world.setLevels({{803, 21}});
    for (const auto& [appearance, colour] :
         {std::pair(NSAppearanceNameDarkAqua, "white"), std::pair(NSAppearanceNameAqua, "black"),
          std::pair((NSString*)nil, "black")}) {
        mac.appearance = appearance;
        model->checkNow();
        settle();
        EXPECT_EQ(drawing(icon().image).back(), std::string("21% at 25 3 regular 13 ") + colour);
    }
    world.setLevels({});
    model->checkNow();
    settle();
    EXPECT_EQ(drawing(icon().image), (Lines{"StatusIcon.png in 0 1 20 20"}));
    EXPECT_EQ(icon().eventMask, NSEventMaskLeftMouseDown | NSEventMaskRightMouseDown);
    scene.reset();
    EXPECT_EQ(calls().back(), "NSStatusBar removeStatusItem:");
}

TEST_F(MacWindows, TheIconIsDrawnAfterTheReading)
{
    start({{803, 50}});
    world.setLevels({{803, 49}});
    model->checkNow();
    EXPECT_EQ(calls(), Lines());
    settle();
    EXPECT_EQ(calls(), (Lines{"NSStatusBarButton setImage:", "NSStatusBarButton setToolTip:"}));
    model->enabled = false;
    settle();
    EXPECT_EQ(calls({"NSUserDefaults"}), (Lines{"NSStatusBarButton setImage:"}))
        << "an open tool tip stays";
}

// The panel

TEST_F(MacWindows, ThePanelHasTheRowsOfItsDefinition)
{
    start({{803, 20}, {805, 21}});
    pressIcon();
    EXPECT_EQ(
        shown(),
        "~{width = another's width} (AppIcon.icns in 0 0 22 22) Cellsentry headline ~{width = 288}"
        "\n---{width = 288}"
        "\n(magicmouse){width = 20} Magic Mouse headline cut first ~ 20% bold 15 red{width = 288}"
        "\n(keyboard){width = 20} Magic Keyboard headline cut first ~ 21% bold 15 label{width = "
        "288}"
        "{spacing 12}{leading}"
        "\n---{width = 288}"
        "\nAlert below <20%>{width = 80} [x Immediately] ~{width = 288}"
        "\n[x Daily check]"
        "\nCheck time ~ <22> : <30>{width = 288}"
        "\nLow battery: Magic Mouse 20% red over 288{width = 288}"
        "\n[Enable / test alert]"
        "\n[o Launch at login]"
        "\n---{width = 288}"
        "\n[Quit] ~ Language <System>{width = 288}{spacing 12}{leading}{insets 16 16 16 16}");
    NSView* const column = panel().contentView;
    EXPECT_EQ([column constraints], (Lines{"width = 320"}));
    EXPECT_TRUE(column.translatesAutoresizingMaskIntoConstraints) << "the window places it";
}

TEST_F(MacWindows, ThePanelDoesWithoutDevicesIconsAndSymbols)
{
    mac.defaults["language"] = @"zh";
    mac.resources.clear();
    mac.noImages = {"questionmark.circle"};
    start();
    pressIcon();
    EXPECT_EQ(shown(),
              "~{width = another's width} 续航哨兵 headline ~{width = 288}\n---{width = 288}\n"
              "(){width = 20} 未检测到外设 ~{width = 288}{spacing 12}{leading}\n---{width = 288}\n"
              "电量低于 <20%>{width = 80} 提醒 [x 立即提醒] ~{width = 288}\n[x 每天定时检查]\n"
              "检查时间 ~ <22> : <30>{width = 288}\n未检测到外设 secondary over 288{width = 288}\n"
              "[开启/测试通知]\n[o 开机自动启动]\n---{width = 288}\n"
              "[退出] ~ 语言 <简体中文>{width = 288}{spacing 12}{leading}{insets 16 16 16 16}");
    model->language = "en";
    settle();
    EXPECT_THAT(shown(), HasSubstr("\n(){width = 20} No peripherals found ~"));
    world.setLevels({{803, 50}});
    model->checkNow();
    settle();
    EXPECT_THAT(shown(), HasSubstr("---{width = 288}\n(magicmouse)"));
}

TEST_F(MacWindows, EachChoiceReachesTheModelAndTheSettings)
{
    mac.defaults["minute"] = @7;
    start();
    pressIcon();
    mac.calls.clear();
    [popUp(panel(), 2) sendAction];
    EXPECT_EQ(calls(), Lines()) << "a stored value that is no choice stays";
    EXPECT_EQ(text(popUp(panel(), 0).accessibilityLabel), "Threshold");
    choose(popUp(panel(), 0), 49);
    EXPECT_EQ(calls().front(), "NSUserDefaults threshold = 50");
    choose(popUp(panel(), 1), 7);
    choose(popUp(panel(), 2), 11);
    press(button("Immediately"));
    press(button("Daily check"));
    EXPECT_EQ(model->threshold, 50);
    EXPECT_EQ(model->checkHour, 7);
    EXPECT_EQ(model->checkMinute, 55);
    EXPECT_EQ(model->instantEnabled, false);
    EXPECT_EQ(model->enabled, false);
    EXPECT_EQ(drainMainQueue(), 2) << "the icon and the panel are drawn once for all";
    model->enabled = true;
    EXPECT_EQ(button("Daily check").state, NSControlStateValueOff) << "not within the turn";
    settle();
    EXPECT_EQ(button("Daily check").state, NSControlStateValueOn);
    EXPECT_EQ(calls({"NSUserDefaults", "layoutSub", "setImage:"}), Lines())
        << "an open menu stays as it is";
    choose(popUp(panel(), 3), 1);
    EXPECT_EQ(model->language.get(), "zh");
    settle();
    EXPECT_NE(button("退出"), nil);
}

TEST_F(MacWindows, OpeningThePanelAsksAnewAndNeverAlerts)
{
    start();
    world.loginItems.enabled = true;
    world.setLevels({{803, 3}});
    pressIcon();
    EXPECT_EQ(button("Launch at login").state, NSControlStateValueOn);
    EXPECT_EQ(world.loginItems.registrations, 0);
    EXPECT_THAT(shown(), HasSubstr("3% bold 15 red"));
    EXPECT_EQ(mac.alert, nil);
}

TEST_F(MacWindows, ThePanelTakesTheKeyboardWithoutActivatingTheProgram)
{
    start();
    press(icon());
    EXPECT_EQ(mac.keyWindow, panel());
    EXPECT_FALSE(mac.isActive);
    EXPECT_EQ(calls({"ImageView", "setLevel:", "removeAll", "layoutSub"}),
              (Lines{"NSApplication unhideWithoutActivation",
                     "VoltmerePanel makeKeyAndOrderFront:", "VoltmerePanel makeFirstResponder:"}));
    EXPECT_EQ(panel().level, NSStatusWindowLevel);
    EXPECT_EQ(panel().styleMask,
              NSWindowStyleMaskTitled | NSWindowStyleMaskFullSizeContentView |
                  NSWindowStyleMaskNonactivatingPanel);
    EXPECT_FALSE(panel().hidesOnDeactivate || panel().movable);
    EXPECT_TRUE(panel().titlebarAppearsTransparent);
    EXPECT_EQ(panel().titleVisibility, NSWindowTitleHidden);
    EXPECT_EQ(text(panel().title), "Cellsentry");
    EXPECT_EQ(panel().collectionBehavior,
              NSWindowCollectionBehaviorMoveToActiveSpace | NSWindowCollectionBehaviorTransient |
                  NSWindowCollectionBehaviorIgnoresCycle |
                  NSWindowCollectionBehaviorFullScreenAuxiliary);
    for (const auto one : {NSWindowCloseButton, NSWindowMiniaturizeButton, NSWindowZoomButton}) {
        EXPECT_TRUE([panel() standardWindowButton:one].hidden);
    }
}

TEST_F(MacWindows, ThePanelClosesForEachOfItsReasons)
{
    start();
    NSWindow* const other = [[NSPanel alloc] initWithContentRect:NSZeroRect
                                                       styleMask:NSWindowStyleMaskTitled
                                                         backing:NSBackingStoreBuffered
                                                           defer:NO];
    NSNotificationCenter* const centre = NSWorkspace.sharedWorkspace.notificationCenter;
    const std::function<void()> reasons[]{
        [] { pressEscape(); },
        [] { press(icon()); },
        [] { clickElsewhere(); },
        [&] { [other makeKeyAndOrderFront:nil]; },
        [&] { post(centre, NSWorkspaceActiveSpaceDidChangeNotification); },
    };
    for (const auto& reason : reasons) {
        mac.keyWindow = nil;
        pressIcon();
        EXPECT_TRUE(panel().visible);
        reason();
        EXPECT_FALSE(panel().visible) << &reason - reasons;
    }
    pressIcon();
    mac.pointer = {1010, 880};
    mac.pressedButtons = 1;
    clickElsewhere();
    EXPECT_TRUE(panel().visible) << "it would open again at the icon's own action";
    mac.pointer = {500, 500};
    clickElsewhere();
    EXPECT_FALSE(panel().visible);
    mac.pointer = {1010, 880};
    mac.pressedButtons = 0;
    pressIcon();
    clickElsewhere();
    EXPECT_FALSE(panel().visible);
}

TEST_F(MacWindows, ThePanelStandsUnderItsIconOrWhereThePersonIs)
{
    start();
    pressIcon();
    EXPECT_EQ(text(panel().frame), "870 476 320 400");
    mac.fittingSize = {320, 500};
    model->threshold = 30;
    settle();
    EXPECT_EQ(text(panel().frame), "870 376 320 500") << "the upper edge stays";
    pressEscape();
    mac.otherScreens = {{{1440, 0}, {1000, 800}}};
    mac.pointer = {1700, 790};
    pressIcon();
    EXPECT_EQ(text(panel().frame), "1540 300 320 500") << "the menu bar of the other screen";
    pressEscape();
    mac.pointer = {900, 890};
    pressIcon();
    EXPECT_EQ(text(panel().frame), "870 376 320 500");
    const auto placed = [](double x, double y, double height) {
        pressEscape();
        mac.fittingSize.height = height;
        mac.statusItem.window.frame = {{x, y}, {60, 24}};
        pressIcon();
        return text(panel().frame);
    };
    EXPECT_EQ(placed(1380, 876, 400), "1120 476 320 400");
    EXPECT_EQ(placed(20, 876, 400), "0 476 320 400");
    EXPECT_EQ(placed(700, 876, 2000), "570 -1124 320 2000") << "the upper rows matter more";
    EXPECT_EQ(placed(700, 100, 400), "570 40 320 400") << "all of it is above the Dock";
}

TEST_F(MacWindows, ThePanelOpensAtTheTopRightForAHiddenIcon)
{
    mac.statusWindow = {{-500, 2000}, {60, 24}};
    start();
    scene->openPanel();
    EXPECT_EQ(text(panel().frame), "1120 476 320 400");
    mac.calls.clear();
    scene->openPanel();
    EXPECT_EQ(calls(), (Lines{"VoltmerePanel makeKeyAndOrderFront:"})) << "it is open";
    pressEscape();
    icon().window.contentView.frame = {{-3000, 0}, {60, 24}};
    mac.statusItem.window.frame = {{1000, 876}, {60, 24}};
    scene->openPanel();
    EXPECT_EQ(text(panel().frame), "1120 476 320 400") << "its window is there, but it is not";
    NSWindow* const kept = panel();
    scene.reset();
    model->threshold = 5;
    [kept cancelOperation:nil]; // the system may hold it a little longer
}

TEST_F(MacWindows, TheKeyboardGoesBackAfterTheLastWindow)
{
    start();
    pressIcon();
    press(button("Enable / test alert"));
    EXPECT_TRUE(mac.isActive);
    EXPECT_FALSE(panel().visible) << "the alert has the keyboard";
    pressEscape();
    EXPECT_EQ(calls().back(), "NSApplication hide:");
    pressIcon();
    EXPECT_TRUE(panel().visible) << "a hidden program's windows are shown again";
    pressEscape();
    EXPECT_EQ(calls().back(), "VoltmerePanel orderOut:") << "the program was not active";
    model->showSnoozeAlert({}, false);
    scene->openPanel();
    pressEscape();
    EXPECT_TRUE(mac.isActive) << "the alert is still open";
    press(button("Cancel"));
    EXPECT_FALSE(mac.isActive);
}

// The snooze alert

TEST_F(MacWindows, TheAlertHasTheRowsOfItsDefinition)
{
    world.setClock(22, 58);
    start({{803, 12}});
    NSView* const container = mac.alert.accessoryView;
    EXPECT_EQ(text(container.frame), "0 0 237 252");
    EXPECT_EQ([container seen],
              "Cellsentry regular 13 label centred{height = 16}\n"
              "Magic Mouse battery alert bold 13 label centred cut{height = 16}{width <= 237}\n"
              "Battery at 12%. Please charge. regular 13 red centred{height = 16}\n"
              "Remind me again regular 13 label centred{height = 16}\n"
              "large [In 20 minutes]{width = 237}{height = 28}\n"
              "large [In 30 minutes]{width = 237}{height = 28}\n"
              "large [In 1 hour]{width = 237}{height = 28}\n"
              "large [In 2 hours]{width = 237}{height = 28}\n"
              "At a time <23>{width = 52}{gap 3} :{gap 3} <55>{width = 52} [OK]{spacing 6}{centreY}"
              "{gravity}{centreX = superview centreX}{centreY = superview centreY}"
              "{width = 237}{height = 28}{spacing 6}{centreX}"
              "{top = superview top}{leading = superview leading}");
    EXPECT_EQ(text(mac.alert.messageText), "");
    EXPECT_EQ(mac.alert.alertStyle, NSAlertStyleWarning);
    EXPECT_EQ(drawing(mac.alert.icon), (Lines{"AppIcon.icns in 0 0 64 64"}));
    EXPECT_FALSE(mac.alert.icon.isTemplate);
    EXPECT_EQ(mac.alert.buttons.count, 1U);
    EXPECT_EQ(text(button("Cancel").keyEquivalent), "\x1b");
    EXPECT_EQ(button("Cancel").keyEquivalentModifierMask, 0U);
    EXPECT_EQ(summary(popUp(alert(), 0)), "pop-up");
    EXPECT_FALSE(button("OK").translatesAutoresizingMaskIntoConstraints);
}

TEST_F(MacWindows, TheAlertIsShownInTheDefinedOrderAndBroughtToTheFrontAgain)
{
    start({{803, 12}});
    pressEscape();
    mac.calls.clear();
    model->checkNow();
    settle();
    EXPECT_EQ(calls({"Button", "unhide", "ImageView"}),
              (Lines{"NSAlert layout", "NSPanel center", "NSPanel setLevel:",
                     "NSApplication activateIgnoringOtherApps:", "NSPanel makeKeyAndOrderFront:",
                     "NSPanel orderFrontRegardless", "NSPanel makeFirstResponder:"}));
    EXPECT_EQ(alert().level, NSFloatingWindowLevel);
    EXPECT_FALSE(alert().hidesOnDeactivate);
    NSAlert* const first = mac.alert;
    mac.keyWindow = nil;
    model->showSnoozeAlert({}, false);
    EXPECT_EQ(calls(), (Lines{"NSPanel makeKeyAndOrderFront:"}));
    EXPECT_EQ(mac.keyWindow, first.window);
    EXPECT_EQ(mac.alert, first) << "it is not built again";
}

TEST_F(MacWindows, AnAlertWaitsForTheEndOfTheLaunchAndLeavesNoTimer)
{
    BatteryModel::launchSettled = false;
    start({{803, 12}});
    advance(1.3);
    EXPECT_EQ(mac.alert, nil);
    BatteryModel::launchSettled = true;
    advance(1.3);
    EXPECT_TRUE(alert().visible);
    EXPECT_EQ(mac.activities.size(), 2U) << "the check's and the hover poller's";
}

TEST_F(MacWindows, AnAlertDoesWithoutAnAppIconAndWithoutAName)
{
    mac.resources.erase("AppIcon.icns");
    AlertContent content;
    content.title = {"All is ", "", "well"};
    content.detail = "good";
    const auto shown = frontEnd->alerts().present(content, {});
    EXPECT_EQ(text({{}, mac.alert.icon.size}), "0 0 1 1") << "nil would show the application's";
    EXPECT_THAT([mac.alert.accessoryView seen],
                HasSubstr("All is well bold 13 label centred{height = 16}\n"
                          "good regular 13 label centred{height = 16}"));
}

TEST_F(MacWindows, AnAlertMayGoInTheActionOfItsButton)
{
    std::unique_ptr<Alert> shown;
    Lines chosen;
    AlertContent content;
    content.options = {"one", "two"};
    content.confirmTitle = "OK";
    content.hour.add("07", 7, 5);
    content.minute.add("45", 45, 5);
    AlertActions actions;
    actions.chooseTime = [&](std::int64_t hour, std::int64_t minute) {
        chosen.push_back(std::to_string(hour) + ":" + std::to_string(minute));
    };
    actions.chooseOption = [&](std::size_t option) {
        shown.reset();
        chosen.push_back(std::to_string(option));
    };
    shown = frontEnd->alerts().present(content, actions);
    NSWindow* const window = alert();
    for (const int index : {0, 1}) {
        press(button("OK"));
        EXPECT_EQ(chosen, Lines()) << "a time without a selection is none";
        choose(popUp(window, index), 0);
    }
    press(button("OK"));
    press(button("two"));
    EXPECT_EQ(chosen, (Lines{"7:45", "1"}));
    EXPECT_FALSE(window.visible);
    objc::drainPool();
    EXPECT_NE(mac.alert, nil) << "it stays until its button's action has ended";
}

// Hovering

struct MacHovering : MacWindows {
    MacHovering()
    {
        start({{803, 12}});
        NSView* const controls[]{button("In 20 minutes"), button("In 30 minutes"),
                                 popUp(alert(), 0), popUp(alert(), 1), button("Cancel")};
        for (int index = 0; index < 5; ++index) {
            place(controls[index], index);
        }
    }

    /// Puts a control of 28 points at one of several places beside each other.
    static void place(NSView* view, int index)
    {
        for (NSView* above = view.superview; above != nil; above = above.superview) {
            above.frame = {{0, 0}, {300, 28}};
        }
        view.frame = NSMakeRect(50 * index, 0, 50, 28);
    }

    static void pointAt(int index)
    {
        mac.pointer = {500.0 + 50 * index + 25, 300.0 + 14};
        advance(0.121);
    }
};

TEST_F(MacHovering, TheControlUnderThePointerLightsUp)
{
    mac.isTracking = true; // a menu is open
    pointAt(0);
    EXPECT_TRUE(button("In 20 minutes").isHighlighted);
    EXPECT_FALSE(button("In 30 minutes").isHighlighted);
    button("In 20 minutes").target = nil;
    [button("In 20 minutes") mouseUp:made(NSEvent.class, "up")];
    EXPECT_TRUE(button("In 20 minutes").isHighlighted) << "the pointer is still over it";
    pointAt(1);
    [button("In 20 minutes") mouseUp:made(NSEvent.class, "up")];
    EXPECT_FALSE(button("In 20 minutes").isHighlighted);
    EXPECT_TRUE(button("In 30 minutes").isHighlighted);
    pointAt(4);
    NSButton* const cancel = button("Cancel");
    EXPECT_TRUE(cancel.isHighlighted);
    mac.isHidden = true;
    pointAt(9);
    EXPECT_TRUE(cancel.isHighlighted) << "behind a hidden window nothing changes";
    mac.isHidden = mac.isTracking = false;
    const std::size_t timers = mac.timers.size();
    pressEscape();
    EXPECT_EQ(mac.timers.size(), timers - 1) << "the poller has ended";
    EXPECT_FALSE(cancel.isHighlighted);
    mac.pointer = {501, 301};
    model->showSnoozeAlert(model->devices, true);
    EXPECT_TRUE(button("Cancel").isHighlighted) << "before the first tick";
    [button("In 1 hour") mouseUp:made(NSEvent.class, "up")];
    EXPECT_FALSE(alert().visible) << "the action is sent";
}

TEST_F(MacHovering, APopUpIsCoveredByARoundedOverlay)
{
    NSView* const hour = popUp(alert(), 0);
    pointAt(2);
    EXPECT_TRUE(hour.needsDisplay);
    EXPECT_EQ(drawing(hour),
              (Lines{"the view itself", "fill 0.5 0.5 49 27 rounded 6 6 label 0.2"}));
    hour.frame = NSMakeRect(100, 0, 50, 10);
    EXPECT_EQ(drawing(hour).back(), "fill 0.5 0.5 49 9 rounded 4 4 label 0.2");
    pointAt(3);
    EXPECT_EQ(drawing(hour), (Lines{"the view itself"}));
    EXPECT_EQ(drawing((NSView*)popUp(alert(), 1)).size(), 2U);
}

TEST_F(MacHovering, WhatIsGoneIsNotLit)
{
    VoltmereNativeButtonHover* const hover = [[VoltmereNativeButtonHover alloc] init];
    std::unique_ptr<HoverPoller> poller;
    @autoreleasepool {
        NSAlert* const other = [[NSAlert alloc] init];
        hover.button = [other addButtonWithTitle:@"OK"];
        poller = std::make_unique<HoverPoller>(
            other.window, std::vector<HoverPoller::Item>{{button("Cancel"), hover}});
    }
    EXPECT_EQ(hover.button, nil);
    advance(0.121);
    poller->stop();
}

} // namespace
} // namespace voltmere
