// The icon, the panel and the snooze alert: macos/ui over a model whose other ports are fakes.

#include "mac_test.h"
#include "macos/run_loop.h"
#include "macos/settings.h"
#include "macos/ui/front_end.h"
#include "macos/ui/panel_controller.h"

#include "fakes/model_world.h"

#include <algorithm>

namespace voltmere {
namespace {

/// What a person sees of a view, from left to right; the rows of a column on lines of their own.
std::string describe(NSView* view)
{
    if (view.hidden) {
        return "";
    }
    if ([view isKindOfClass:NSTextField.class]) {
        NSTextField* const label = (NSTextField*)view;
        return text(label.stringValue) + (label.font == nil ? "" : " " + summary(label.font)) +
            (label.textColor == nil ? "" : " " + summary(label.textColor));
    }
    if ([view isKindOfClass:NSPopUpButton.class]) {
        NSPopUpButton* const popUp = (NSPopUpButton*)view;
        NSInteger index = 0;
        for (NSString* const title in popUp.itemTitles) {
            if (index++ == popUp.indexOfSelectedItem) {
                return "<" + text(title) + ">";
            }
        }
        return "<>";
    }
    if ([view isKindOfClass:NSButton.class]) {
        NSButton* const button = (NSButton*)view;
        const char* const mark = button.state == NSControlStateValueOn ? "x " : "o ";
        return "[" + std::string(button.isCheckBox ? mark : "") + text(button.title) + "]";
    }
    if ([view isKindOfClass:NSImageView.class]) {
        NSImage* const image = ((NSImageView*)view).image;
        return "(" + (summary(image) == "drawn" ? drawing(image).front() : summary(image)) + ")";
    }
    if ([view isKindOfClass:NSBox.class]) {
        return ((NSBox*)view).boxType == NSBoxSeparator ? "---" : "box";
    }
    const bool isStack = [view isKindOfClass:NSStackView.class];
    const bool isColumn =
        isStack && ((NSStackView*)view).orientation == NSUserInterfaceLayoutOrientationVertical;
    std::string all = view.subviews.count == 0 && [view priorities]["hugging 0"] == 1 ? "~" : "";
    for (NSView* const child in isStack ? ((NSStackView*)view).arrangedSubviews : view.subviews) {
        const std::string part = describe(child);
        all += (all.empty() || part.empty() ? "" : isColumn ? "\n" : " ") + part;
    }
    return all;
}

struct MacWindows : MacTest {
    MacWindows()
        : MacTest(true)
    {
    }

    ~MacWindows() override
    {
        scene.reset();
        model.reset();
    }

    /// Shows the program with the first reading done.
    void start()
    {
        model = std::make_unique<BatteryModel>(ModelServices{
            defaults, loop, world.clock, world.calendar, world.loginItems, world.notifications,
            world.notificationDelegate, frontEnd.alerts(), world.log, world.reader});
        settle();
        scene = frontEnd.show(*model);
        settle();
        mac.calls.clear();
    }

    static NSStatusBarButton* icon() { return mac.statusItem.button; }

    static NSWindow* panel()
    {
        for (NSWindow* const window : mac.windows) {
            if ([window isKindOfClass:VoltmerePanel.class]) {
                return window;
            }
        }
        return nil;
    }

    static bool isPanelOpen() { return panel().visible; }

    void openPanel()
    {
        press(icon());
        settle();
        mac.calls.clear();
    }

    static NSButton* button(NSWindow* window, const std::string& title)
    {
        for (NSView* const view : viewsIn(window.contentView)) {
            if ([view isKindOfClass:NSButton.class] && text(((NSButton*)view).title) == title) {
                return (NSButton*)view;
            }
        }
        ADD_FAILURE() << "no button " << title;
        return nil;
    }

    static NSPopUpButton* popUp(NSWindow* window, int index)
    {
        for (NSView* const view : viewsIn(window.contentView)) {
            if ([view isKindOfClass:NSPopUpButton.class] && index-- == 0) {
                return (NSPopUpButton*)view;
            }
        }
        return nil;
    }

    static NSWindow* alert() { return mac.alert.window; }

    ModelWorld world;
    UserDefaults defaults;
    MacRunLoop loop;
    MacFrontEnd frontEnd{loop};
    std::unique_ptr<BatteryModel> model;
    std::unique_ptr<Scene> scene;
};

// The icon

TEST_F(MacWindows, TheIconShowsTheWeakestDevice)
{
    world.setLevels({{803, 40}, {805, 15}});
    start();
    EXPECT_EQ(drawing(icon().image),
              (Lines{"StatusIcon.png in 0 1 20 20", "15% at 25 3 regular 13 red"}));
    EXPECT_EQ(icon().image.size.width, 43);
    EXPECT_EQ(icon().image.size.height, 22);
    EXPECT_FALSE(icon().image.isTemplate);
    EXPECT_EQ(icon().imagePosition, NSImageOnly);
    EXPECT_EQ(text(icon().toolTip), "Cellsentry\nMagic Mouse 40%\nMagic Keyboard 15%");
    EXPECT_EQ(text(icon().accessibilityLabel), "Cellsentry, Magic Mouse 40%, Magic Keyboard 15%");
}

TEST_F(MacWindows, TheIconStandsAloneWithoutADevice)
{
    start();
    EXPECT_EQ(drawing(icon().image), (Lines{"StatusIcon.png in 0 1 20 20"}));
    EXPECT_EQ(icon().image.size.width, 20);
}

TEST_F(MacWindows, TheIconsTextSuitsTheAppearance)
{
    world.setLevels({{803, 21}});
    start();
    EXPECT_EQ(drawing(icon().image).back(), "21% at 25 3 regular 13 black");
    setAppearance(NSAppearanceNameDarkAqua);
    EXPECT_EQ(drawing(icon().image).back(), "21% at 25 3 regular 13 white");
    setAppearance(nil);
    EXPECT_EQ(drawing(icon().image).back(), "21% at 25 3 regular 13 black");
}

TEST_F(MacWindows, TheIconIsSetOnlyWhenItChanges)
{
    const Lines both{"NSStatusBarButton image", "NSStatusBarButton tool tip"};
    world.setLevels({{803, 50}});
    start();
    model->threshold = 30;
    model->enabled = false;
    settle();
    Lines asked = calls();
    std::erase_if(asked, [](const std::string& call) { return call.find("Button") == call.npos; });
    EXPECT_EQ(asked, Lines()) << "a click may be under way";
    world.setLevels({{803, 49}});
    model->checkNow();
    EXPECT_EQ(calls(), Lines()) << "not before the reading is done";
    settle();
    asked = calls();
    EXPECT_EQ(asked, both);
    EXPECT_EQ(drawing(icon().image).back(), "49% at 25 3 regular 13 black");
}

TEST_F(MacWindows, TheIconTakesBothMouseButtonsAndIsRemovedAtTheEnd)
{
    EXPECT_EQ(mac.statusItem, nil);
    model = std::make_unique<BatteryModel>(world.services());
    scene = frontEnd.show(*model);
    EXPECT_EQ(calls().front(), "NSStatusBar item -1");
    EXPECT_EQ(icon().eventMask, NSEventMaskLeftMouseDown | NSEventMaskRightMouseDown);
    scene.reset();
    EXPECT_EQ(calls().back(), "NSStatusBar remove");
    setAppearance(NSAppearanceNameDarkAqua);
}

// The panel

TEST_F(MacWindows, ThePanelHasTheRowsOfItsDefinition)
{
    world.setLevels({{803, 20}, {805, 21}});
    start();
    openPanel();
    EXPECT_EQ(describe(panel().contentView),
              "~ (AppIcon.icns in 0 0 22 22) Cellsentry headline ~\n"
              "---\n"
              "(magicmouse) Magic Mouse headline ~ 20% bold 15 red\n"
              "(keyboard) Magic Keyboard headline ~ 21% bold 15 label\n"
              "---\n"
              "Alert below <20%> [x Immediately] ~\n"
              "[x Daily check]\n"
              "Check time ~ <22> : <30>\n"
              "Low battery: Magic Mouse 20% red\n"
              "[Enable / test alert]\n"
              "[o Launch at login]\n"
              "---\n"
              "[Quit] ~ Language <System>");
    NSStackView* const column = (NSStackView*)panel().contentView.subviews.firstObject;
    EXPECT_EQ(column.spacing, 12);
    EXPECT_EQ(column.alignment, NSLayoutAttributeLeading);
    const NSEdgeInsets edges = column.edgeInsets;
    EXPECT_EQ((std::vector{edges.top, edges.left, edges.bottom, edges.right}),
              (std::vector<CGFloat>{16, 16, 16, 16}));
    const Lines constraints{"width = 320", "top = superview top", "leading = superview leading",
                            "trailing = superview trailing", "bottom = superview bottom"};
    EXPECT_EQ([column constraints], constraints);
    EXPECT_EQ([popUp(panel(), 0) constraints], (Lines{"width = 80"}));
}

TEST_F(MacWindows, ThePanelSpeaksChineseToo)
{
    world.setLevels({{803, 90}});
    mac.defaults["language"] = @"zh";
    start();
    openPanel();
    EXPECT_EQ(describe(panel().contentView),
              "~ (AppIcon.icns in 0 0 22 22) 续航哨兵 headline ~\n---\n"
              "(magicmouse) Magic Mouse headline ~ 90% bold 15 label\n---\n"
              "电量低于 <20%> 提醒 [x 立即提醒] ~\n[x 每天定时检查]\n检查时间 ~ <22> : <30>\n"
              "电量正常 secondary\n[开启/测试通知]\n[o 开机自动启动]\n---\n"
              "[退出] ~ 语言 <简体中文>");
}

TEST_F(MacWindows, ThePanelDoesWithoutDevicesIconsAndSymbols)
{
    mac.resources.clear();
    mac.unknownSymbols = {"questionmark.circle"};
    start();
    openPanel();
    const std::string shown = describe(panel().contentView);
    EXPECT_EQ(shown.rfind("~ Cellsentry headline ~\n---\n() No peripherals found ~\n---\n", 0), 0U)
        << shown;
}

TEST_F(MacWindows, ThePanelFollowsTheModelOncePerTurn)
{
    start();
    openPanel();
    NSButton* const daily = button(panel(), "Daily check");
    model->enabled = false;
    model->threshold = 33;
    EXPECT_EQ(daily.state, NSControlStateValueOn) << "not within the turn";
    EXPECT_EQ(drainMainQueue(), 2) << "the icon and the panel";
    EXPECT_EQ(daily.state, NSControlStateValueOff);
    EXPECT_EQ(text(popUp(panel(), 0).itemTitles.firstObject), "1%");
    EXPECT_EQ(popUp(panel(), 0).indexOfSelectedItem, 32);
}

TEST_F(MacWindows, EachChoiceReachesTheModelAndTheSettings)
{
    start();
    openPanel();
    EXPECT_EQ(popUp(panel(), 0).itemTitles.count, 90U);
    EXPECT_EQ(popUp(panel(), 1).itemTitles.count, 24U);
    EXPECT_EQ(popUp(panel(), 2).itemTitles.count, 12U);
    choose(popUp(panel(), 0), 49);
    EXPECT_EQ(model->threshold, 50);
    EXPECT_EQ(calls(),
              (Lines{"NSUserDefaults threshold = 50", "NSUserDefaults hour = 22",
                     "NSUserDefaults minute = 30", "NSUserDefaults enabled = YES",
                     "NSUserDefaults instant = YES"}));
    choose(popUp(panel(), 1), 7);
    EXPECT_EQ(model->checkHour, 7);
    choose(popUp(panel(), 2), 11);
    EXPECT_EQ(model->checkMinute, 55);
    press(button(panel(), "Immediately"));
    EXPECT_EQ(model->instantEnabled, false);
    press(button(panel(), "Daily check"));
    EXPECT_EQ(model->enabled, false);
    press(button(panel(), "Daily check"));
    EXPECT_EQ(model->enabled, true);
    settle();
    mac.calls.clear();
    choose(popUp(panel(), 3), 1);
    EXPECT_EQ(model->language.get(), "zh");
    EXPECT_EQ(calls().size(), 5U) << "the language itself is never written";
    EXPECT_EQ(world.notifications.categories.at(0).actions.at(0).title, "20 分钟后");
    settle();
    EXPECT_EQ(text(button(panel(), "退出").title), "退出");
}

TEST_F(MacWindows, AStoredValueThatIsNoChoiceStays)
{
    mac.defaults["minute"] = @7;
    mac.defaults["threshold"] = @250;
    mac.defaults["hour"] = @99;
    mac.defaults["enabled"] = @"yes";
    start();
    openPanel();
    for (const int index : {0, 1, 2}) {
        EXPECT_EQ(popUp(panel(), index).indexOfSelectedItem, -1);
        [popUp(panel(), index) sendAction];
    }
    EXPECT_EQ(model->threshold, 250);
    EXPECT_EQ(model->checkHour, 99);
    EXPECT_EQ(model->checkMinute, 7);
    EXPECT_EQ(model->enabled, true);
    EXPECT_EQ(calls(), Lines());
}

TEST_F(MacWindows, TheSwitchOfTheLoginItemShowsTheSystemsState)
{
    start();
    world.loginItems.afterRegistration = LoginItemService::Status::requiresApproval;
    openPanel();
    press(button(panel(), "Launch at login"));
    EXPECT_EQ(world.loginItems.registrations, 1);
    settle();
    EXPECT_EQ(button(panel(), "Launch at login").state, NSControlStateValueOff);
    pressEscape();
    world.loginItems.present = LoginItemService::Status::enabled;
    openPanel();
    EXPECT_EQ(button(panel(), "Launch at login").state, NSControlStateValueOn);
    EXPECT_EQ(world.loginItems.registrations, 1);
}

TEST_F(MacWindows, OpeningThePanelReadsAndNeverAlerts)
{
    start();
    world.setLevels({{803, 3}});
    const int readings = world.batteries.readings;
    openPanel();
    EXPECT_EQ(world.batteries.readings, readings + 1);
    EXPECT_NE(describe(panel().contentView).find("3% bold 15 red"), std::string::npos);
    EXPECT_EQ(mac.alert, nil);
}

TEST_F(MacWindows, ThePanelTakesTheKeyboardWithoutActivatingTheProgram)
{
    start();
    press(icon());
    EXPECT_TRUE(isPanelOpen());
    EXPECT_EQ(mac.keyWindow, panel());
    EXPECT_FALSE(mac.isActive);
    Lines order = calls();
    std::erase_if(order, [](const std::string& call) { return call.find("layout") != call.npos; });
    EXPECT_EQ(order,
              (Lines{"NSApplication unhide", "VoltmerePanel key and front",
                     "VoltmerePanel no first responder"}));
    EXPECT_EQ(panel().level, NSStatusWindowLevel);
    EXPECT_EQ(panel().styleMask,
              NSWindowStyleMaskTitled | NSWindowStyleMaskFullSizeContentView |
                  NSWindowStyleMaskNonactivatingPanel);
    EXPECT_FALSE(panel().hidesOnDeactivate);
    EXPECT_FALSE(panel().releasedWhenClosed);
    EXPECT_FALSE(panel().movable);
    EXPECT_TRUE(panel().titlebarAppearsTransparent);
    EXPECT_EQ(panel().titleVisibility, NSWindowTitleHidden);
    EXPECT_EQ(text(panel().title), "Cellsentry");
    EXPECT_EQ(panel().collectionBehavior, 2U + 8U + 64U + 256U);
    for (const auto one : {NSWindowCloseButton, NSWindowMiniaturizeButton, NSWindowZoomButton}) {
        EXPECT_TRUE([panel() standardWindowButton:one].hidden);
    }
    NSVisualEffectView* const backdrop = (NSVisualEffectView*)panel().contentView;
    EXPECT_EQ(backdrop.material, NSVisualEffectMaterialPopover);
    EXPECT_EQ(backdrop.state, NSVisualEffectStateActive);
    EXPECT_FALSE(icon().isHighlighted) << "the click has not ended";
    settle();
    EXPECT_TRUE(icon().isHighlighted);
}

TEST_F(MacWindows, ThePanelClosesForEachOfItsReasons)
{
    start();
    NSWindow* const other = [[NSPanel alloc] initWithContentRect:NSZeroRect
                                                       styleMask:NSWindowStyleMaskTitled
                                                         backing:NSBackingStoreBuffered
                                                           defer:NO];
    const std::function<void()> reasons[]{
        [] { pressEscape(); },
        [] { press(icon()); },
        [] { clickElsewhere(); },
        [&] { [other makeKeyAndOrderFront:nil]; },
        [] {
            post(NSWorkspace.sharedWorkspace.notificationCenter,
                 NSWorkspaceActiveSpaceDidChangeNotification);
        },
    };
    for (const auto& reason : reasons) {
        mac.keyWindow = nil;
        openPanel();
        EXPECT_TRUE(isPanelOpen());
        EXPECT_EQ(mac.monitors.size(), 1U);
        reason();
        EXPECT_FALSE(isPanelOpen()) << &reason - reasons;
        EXPECT_FALSE(icon().isHighlighted);
        EXPECT_EQ(mac.monitors.size(), 0U);
        settle();
        EXPECT_FALSE(icon().isHighlighted);
    }
}

TEST_F(MacWindows, AClickOnTheIconIsLeftToTheIcon)
{
    start();
    openPanel();
    mac.pointer = {1010, 880};
    mac.pressedButtons = 1;
    clickElsewhere();
    EXPECT_TRUE(isPanelOpen()) << "it would open again at the icon's own action";
    press(icon());
    EXPECT_FALSE(isPanelOpen());
    mac.pressedButtons = 0;
    openPanel();
    mac.pointer = {500, 500};
    mac.pressedButtons = 1;
    clickElsewhere();
    EXPECT_FALSE(isPanelOpen());
}

TEST_F(MacWindows, ThePanelStandsUnderItsIcon)
{
    start();
    openPanel();
    EXPECT_EQ(text(panel().frame), "870 476 320 400");
    mac.fittingSize = {320, 500};
    world.setLevels({{803, 50}});
    model->checkNow();
    settle();
    EXPECT_EQ(text(panel().frame), "870 376 320 500") << "the upper edge stays";
}

TEST_F(MacWindows, ThePanelStaysOnTheScreen)
{
    const NSRect visible{{0, 40}, {1440, 836}};
    const auto corner = [&](double x, double height) {
        const NSPoint point = panelCorner({{x, 876}, {60, 24}}, {320, height}, visible);
        return std::pair(point.x, point.y);
    };
    EXPECT_EQ(corner(700, 400), std::pair(570.0, 876.0));
    EXPECT_EQ(corner(1380, 400), std::pair(1120.0, 876.0));
    EXPECT_EQ(corner(20, 400), std::pair(0.0, 876.0));
    EXPECT_EQ(corner(700, 2000), std::pair(570.0, 876.0)) << "the upper rows matter more";
    const NSPoint above = panelCorner({{0, 100}, {60, 24}}, {320, 400}, visible);
    EXPECT_EQ(above.y, 440) << "at least its own height above the Dock";
}

TEST_F(MacWindows, ThePanelOpensWhereThePersonIs)
{
    start();
    mac.otherScreens = {{{1440, 0}, {1000, 800}}};
    mac.pointer = {1500, 790};
    openPanel();
    EXPECT_EQ(text(panel().frame), "1440 400 320 400") << "the menu bar of the other screen";
    press(icon());
    mac.pointer = {1010, 890};
    openPanel();
    EXPECT_EQ(text(panel().frame), "870 476 320 400");
}

TEST_F(MacWindows, ThePanelOpensAtTheTopRightForAHiddenIcon)
{
    mac.statusWindow = {{-500, 2000}, {60, 24}};
    start();
    scene->openPanel();
    EXPECT_EQ(text(panel().frame), "1120 476 320 400");
    scene->openPanel();
    EXPECT_EQ(calls().back(), "VoltmerePanel key and front") << "an open one comes to the front";
    settle();
}

TEST_F(MacWindows, TheKeyboardGoesBackAfterTheLastWindow)
{
    start();
    openPanel();
    press(button(panel(), "Enable / test alert"));
    EXPECT_TRUE(mac.isActive);
    EXPECT_FALSE(isPanelOpen()) << "the alert has the keyboard";
    mac.calls.clear();
    pressEscape();
    EXPECT_EQ(calls().back(), "NSApplication hide");
    openPanel();
    EXPECT_TRUE(isPanelOpen()) << "a hidden program's windows are shown again";
    mac.calls.clear();
    pressEscape();
    EXPECT_EQ(calls().back(), "VoltmerePanel out") << "the program was not active";
}

TEST_F(MacWindows, AnOpenPanelEndsWithTheProgram)
{
    start();
    openPanel();
    scene.reset();
    EXPECT_EQ(mac.monitors.size(), 0U);
    model->threshold = 5;
    settle();
}

// The snooze alert

TEST_F(MacWindows, TheAlertHasTheRowsOfItsDefinition)
{
    world.setLevels({{803, 12}});
    start();
    NSView* const container = mac.alert.accessoryView;
    EXPECT_EQ(text(container.frame), "0 0 237 252");
    EXPECT_EQ(describe(container),
              "Cellsentry regular 13 label\n"
              "Magic Mouse battery alert bold 13 label\n"
              "Battery at 12%. Please charge. regular 13 red\n"
              "Remind me again regular 13 label\n"
              "[In 20 minutes]\n[In 30 minutes]\n[In 1 hour]\n[In 2 hours]\n"
              "At a time <11> : <00> [OK]");
    NSStackView* const stack = (NSStackView*)container.subviews.firstObject;
    EXPECT_EQ([stack constraints], (Lines{"top = superview top", "leading = superview leading"}));
    EXPECT_FALSE(stack.translatesAutoresizingMaskIntoConstraints);
    EXPECT_TRUE(container.translatesAutoresizingMaskIntoConstraints) << "its frame places it";
    EXPECT_EQ(stack.spacing, 6);
    EXPECT_EQ(stack.alignment, NSLayoutAttributeCenterX);
    std::vector<NSView*> rows;
    for (NSView* const row in stack.arrangedSubviews) {
        rows.push_back(row);
    }
    ASSERT_EQ(rows.size(), 9U);
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (row < 4) {
            EXPECT_EQ(((NSTextField*)rows[row]).alignment, NSTextAlignmentCenter);
            EXPECT_EQ([rows[row] constraints].front(), "height = 16");
        } else {
            EXPECT_EQ([rows[row] constraints], (Lines{"width = 237", "height = 28"}));
            EXPECT_FALSE(rows[row].translatesAutoresizingMaskIntoConstraints);
        }
        if (row >= 4 && row < 8) {
            EXPECT_EQ(((NSButton*)rows[row]).controlSize, NSControlSizeLarge);
        }
    }
    EXPECT_EQ(text(mac.alert.messageText), "");
    EXPECT_EQ(mac.alert.alertStyle, NSAlertStyleWarning);
    EXPECT_EQ(drawing(mac.alert.icon), (Lines{"AppIcon.icns in 0 0 64 64"}));
    EXPECT_FALSE(mac.alert.icon.isTemplate);
}

TEST_F(MacWindows, TheRowForATimeIsLaidOutAsDefined)
{
    world.setLevels({{803, 12}});
    world.setClock(22, 58);
    start();
    NSView* const row = popUp(alert(), 0).superview;
    NSStackView* const stack = (NSStackView*)row;
    EXPECT_EQ(describe(row), "At a time <23> : <55> [OK]");
    EXPECT_EQ(stack.orientation, NSUserInterfaceLayoutOrientationHorizontal);
    EXPECT_EQ(stack.alignment, NSLayoutAttributeCenterY);
    EXPECT_EQ(stack.spacing, 6);
    EXPECT_EQ([stack constraints],
              (Lines{"centreX = superview centreX", "centreY = superview centreY"}));
    std::vector<CGFloat> gaps;
    for (NSView* const view in stack.arrangedSubviews) {
        gaps.push_back([stack customSpacingAfterView:view]);
    }
    EXPECT_EQ(gaps, (std::vector<CGFloat>{6, 3, 3, 6, 6}));
    EXPECT_EQ(popUp(alert(), 0).itemTitles.count, 24U);
    EXPECT_EQ(popUp(alert(), 1).itemTitles.count, 12U);
    for (const int index : {0, 1}) {
        EXPECT_EQ([popUp(alert(), index) constraints], (Lines{"width = 52"}));
        EXPECT_EQ(summary(popUp(alert(), index)), "pop-up");
        EXPECT_FALSE(popUp(alert(), index).translatesAutoresizingMaskIntoConstraints);
    }
    EXPECT_EQ([button(alert(), "OK") constraints], Lines());
    EXPECT_EQ(button(alert(), "OK").controlSize, NSControlSizeRegular);
}

TEST_F(MacWindows, TheAlertNamesEachLowDeviceInChineseToo)
{
    mac.defaults["language"] = @"zh";
    world.setLevels({{803, 12}, {805, 8}});
    start();
    const std::string shown = describe(mac.alert.accessoryView);
    EXPECT_NE(
        shown.find("外设电量提醒 bold 13 label\n鼠标12%、键盘8%，请及时充电。 regular 13 red\n"),
        std::string::npos)
        << shown;
    EXPECT_EQ(text(mac.alert.buttons.firstObject.title), "取消");
}

TEST_F(MacWindows, TheTestButtonShowsTheAllGoodForm)
{
    world.setLevels({{803, 80}, {805, 64}});
    start();
    openPanel();
    press(button(panel(), "Enable / test alert"));
    const std::string shown = describe(mac.alert.accessoryView);
    EXPECT_NE(shown.find("Peripheral battery bold 13 label\n"
                         "All good: Mouse80%, Keyboard64% regular 13 label\n"),
              std::string::npos)
        << shown;
}

TEST_F(MacWindows, TheAlertIsShownInTheDefinedOrder)
{
    world.setLevels({{803, 12}});
    start();
    pressEscape();
    calls();
    model->checkNow();
    settle();
    Lines order = calls();
    std::erase_if(order, [](const std::string& call) {
        return call.find("Button") != call.npos || call == "NSApplication unhide";
    });
    EXPECT_EQ(order,
              (Lines{"NSAlert layout", "NSPanel center", "NSPanel level 3",
                     "NSApplication activate ignoring others", "NSPanel key and front",
                     "NSPanel front regardless", "NSPanel no first responder"}));
    EXPECT_TRUE(alert().visible);
    EXPECT_FALSE(alert().hidesOnDeactivate);
}

TEST_F(MacWindows, EscapePressesCancelAndReturnPressesNothing)
{
    world.setLevels({{803, 12}});
    start();
    EXPECT_EQ(mac.alert.buttons.count, 1U);
    EXPECT_EQ(text(mac.alert.buttons.firstObject.title), "Cancel");
    EXPECT_EQ(text(mac.alert.buttons.firstObject.keyEquivalent), "\x1b");
    EXPECT_EQ(mac.alert.buttons.firstObject.keyEquivalentModifierMask, 0U);
    pressEscape();
    EXPECT_FALSE(alert().visible);
    advance(7300);
    EXPECT_FALSE(alert().visible) << "nothing was snoozed";
}

TEST_F(MacWindows, EachOptionHidesTheAlertAndBringsAFreshOne)
{
    const std::pair<const char*, double> options[]{{"In 20 minutes", 1200},
                                                   {"In 30 minutes", 1800},
                                                   {"In 1 hour", 3600},
                                                   {"In 2 hours", 7200}};
    world.setLevels({{803, 12}});
    start();
    for (const auto& [title, seconds] : options) {
        NSAlert* const before = mac.alert;
        press(button(alert(), title));
        EXPECT_FALSE(before.window.visible);
        advance(seconds - 1);
        EXPECT_EQ(mac.alert, before);
        advance(2);
        EXPECT_NE(mac.alert, before) << title;
        EXPECT_TRUE(alert().visible);
    }
}

TEST_F(MacWindows, ATimeOfDayCanBeChosen)
{
    world.setLevels({{803, 12}});
    start();
    choose(popUp(alert(), 0), 7);
    choose(popUp(alert(), 1), 9);
    EXPECT_TRUE(alert().visible) << "nothing happens before it is confirmed";
    NSAlert* const before = mac.alert;
    press(button(alert(), "OK"));
    EXPECT_FALSE(before.window.visible);
    EXPECT_EQ(model->customHour, 7);
    EXPECT_EQ(model->customMinute, 45);
    advance((21 * 60 + 45) * 60 - 1); // it is 10:00
    EXPECT_EQ(mac.alert, before);
    advance(2);
    EXPECT_NE(mac.alert, before);
}

TEST_F(MacWindows, AVisibleAlertIsBroughtToTheFrontAndStays)
{
    world.setLevels({{803, 12}});
    start();
    NSAlert* const before = mac.alert;
    mac.keyWindow = nil;
    mac.calls.clear();
    model->showSnoozeAlert({}, false);
    EXPECT_EQ(calls(), (Lines{"NSPanel key and front"}));
    EXPECT_EQ(mac.keyWindow, before.window);
    EXPECT_EQ(mac.alert, before);
    EXPECT_NE(describe(before.accessoryView).find("12%"), std::string::npos);
}

TEST_F(MacWindows, TheAlertWaitsForTheEndOfTheLaunch)
{
    BatteryModel::launchSettled = false;
    world.setLevels({{803, 12}});
    start();
    advance(5);
    EXPECT_EQ(mac.alert, nil);
    BatteryModel::launchSettled = true;
    EXPECT_EQ(mac.alert, nil);
    advance(1.21);
    EXPECT_TRUE(alert().visible);
}

TEST_F(MacWindows, AnAlertWithoutAnAppIconHasAnEmptyOne)
{
    mac.resources.erase("AppIcon.icns");
    world.setLevels({{803, 12}});
    start();
    EXPECT_EQ(summary(mac.alert.icon), "") << "nil would show the application's own";
    EXPECT_EQ(mac.alert.icon.size.width, 1);
}

TEST_F(MacWindows, ALongNameDoesNotPushTheRowsAway)
{
    AlertContent content;
    content.title = {"", std::string(300, 'n'), " battery alert"};
    const auto alert = frontEnd.alerts().present(content, {});
    NSStackView* const stack = (NSStackView*)mac.alert.accessoryView.subviews.firstObject;
    int limited = 0;
    for (NSView* const row in stack.arrangedSubviews) {
        limited += std::ranges::count([row constraints], "width <= 237");
    }
    EXPECT_EQ(limited, 1);
}

TEST_F(MacWindows, AnAlertGoesWithItsOwnerEvenInItsOwnAction)
{
    std::unique_ptr<Alert> shown;
    int chosen = -1;
    AlertContent content;
    content.options = {"one", "two"};
    shown = frontEnd.alerts().present(content,
                                      {.cancel = [] {},
                                       .chooseOption =
                                           [&](std::size_t option) {
                                               shown.reset();
                                               chosen = static_cast<int>(option);
                                           },
                                       .chooseTime = {}});
    NSWindow* const window = alert();
    EXPECT_TRUE(shown->isVisible());
    press(button(window, "two"));
    EXPECT_EQ(chosen, 1);
    EXPECT_FALSE(window.visible);
    settle();
}

TEST_F(MacWindows, ATimeWithoutASelectionIsNotChosen)
{
    AlertContent content;
    content.hour.add("00", 0, 5);
    content.minute.add("00", 0, 5);
    content.confirmTitle = "OK";
    int chosen = 0;
    AlertActions actions;
    actions.chooseTime = [&](std::int64_t, std::int64_t) { ++chosen; };
    const auto shown = frontEnd.alerts().present(content, actions);
    press(button(alert(), "OK"));
    EXPECT_EQ(chosen, 0);
    choose(popUp(alert(), 0), 0);
    press(button(alert(), "OK"));
    EXPECT_EQ(chosen, 0);
    choose(popUp(alert(), 1), 0);
    press(button(alert(), "OK"));
    EXPECT_EQ(chosen, 1);
}

// Hovering

struct MacHovering : MacWindows {
    MacHovering()
    {
        world.setLevels({{803, 12}});
        start();
        first = button(alert(), "In 20 minutes");
        second = button(alert(), "In 30 minutes");
        hour = popUp(alert(), 0);
        minute = popUp(alert(), 1);
        cancel = mac.alert.buttons.firstObject;
        place(first, 0);
        place(second, 1);
        place(hour, 2);
        place(minute, 3);
        place(cancel, 4);
    }

    /// Controls of 28 points beside each other.
    static void place(NSView* view, int index)
    {
        for (NSView* above = view; above != nil; above = above.superview) {
            above.frame = {{0, 0}, {300, 28}};
        }
        view.frame = NSMakeRect(50 * index, 0, 50, 28);
    }

    static void point(int index)
    {
        mac.pointer = {500.0 + 50 * index + 25, 300.0 + 14};
        advance(0.121);
    }

    NSButton *first, *second, *cancel;
    NSPopUpButton *hour, *minute;
};

TEST_F(MacHovering, TheControlUnderThePointerLightsUp)
{
    mac.isTracking = true; // a menu is open
    point(0);
    EXPECT_TRUE(first.isHighlighted);
    EXPECT_FALSE(second.isHighlighted);
    point(1);
    EXPECT_FALSE(first.isHighlighted);
    EXPECT_TRUE(second.isHighlighted);
    point(4);
    EXPECT_TRUE(cancel.isHighlighted);
    point(9);
    EXPECT_FALSE(cancel.isHighlighted);
    mac.isTracking = false;
}

TEST_F(MacHovering, APopUpIsCoveredByARoundedOverlay)
{
    point(2);
    EXPECT_TRUE(hour.needsDisplay);
    EXPECT_EQ(drawing((NSView*)hour),
              (Lines{"the view itself", "fill 0.5 0.5 49 27 rounded 6 6 label 0.2"}));
    hour.frame = NSMakeRect(100, 0, 50, 10);
    EXPECT_EQ(drawing((NSView*)hour).back(), "fill 0.5 0.5 49 9 rounded 4 4 label 0.2");
    point(3);
    EXPECT_EQ(drawing((NSView*)hour), (Lines{"the view itself"}));
    EXPECT_EQ(drawing((NSView*)minute).size(), 2U);
}

TEST_F(MacHovering, AClickLeavesTheHoverLook)
{
    point(0);
    [first mouseUp:made(NSEvent.class, "up")];
    EXPECT_FALSE(alert().visible);
    EXPECT_FALSE(first.isHighlighted) << "hidden with the alert";
    model->showSnoozeAlert(model->devices, true);
    NSButton* const again = button(alert(), "In 1 hour");
    again.target = nil;
    [again mouseUp:made(NSEvent.class, "up")];
    EXPECT_FALSE(again.isHighlighted);
    place(again, 0);
    point(0);
    [again mouseUp:made(NSEvent.class, "up")];
    EXPECT_TRUE(again.isHighlighted) << "the pointer is still over it";
}

TEST_F(MacHovering, AHiddenAlertChangesNoMore)
{
    point(0);
    mac.isHidden = true;
    point(1);
    EXPECT_TRUE(first.isHighlighted) << "what is lit stays";
    mac.isHidden = false;
    const std::size_t timers = mac.timers.size();
    pressEscape();
    EXPECT_EQ(mac.timers.size(), timers - 1) << "the poller has ended";
    EXPECT_FALSE(first.isHighlighted);
    EXPECT_FALSE(second.isHighlighted);
}

TEST_F(MacHovering, TheAlertIsLitBeforeTheFirstTick)
{
    pressEscape();
    mac.pointer = {501, 301};
    model->showSnoozeAlert(model->devices, true);
    EXPECT_TRUE(mac.alert.buttons.firstObject.isHighlighted)
        << "nothing is laid out here, so each control is at the corner";
}

} // namespace
} // namespace voltmere
