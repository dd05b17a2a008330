#include "macos/ui/front_end.h"

#include "macos/text.h"
#include "macos/ui/controls.h"
#include "texts/l10n.h"
#include "ui/icon.h"

#include <algorithm>
#include <utility>

/// The window of the settings panel. It takes the keyboard without activating the program, so the
/// program in front gets the keyboard back by itself.
@interface VoltmerePanel : NSPanel <NSWindowDelegate>
/// Called on Escape, and when another window has taken the keyboard.
@property (nonatomic) std::function<void()> leave;
@end

@implementation VoltmerePanel

- (BOOL)canBecomeKeyWindow
{
    return YES;
}

- (void)cancelOperation:(id)__unused sender
{
    _leave();
}

- (void)windowDidResignKey:(NSNotification*)__unused notification
{
    _leave();
}

@end

namespace voltmere {

namespace {

VoltmerePanel* makePanel()
{
    VoltmerePanel* const panel = [[VoltmerePanel alloc]
        initWithContentRect:NSZeroRect
                  styleMask:NSWindowStyleMaskTitled | NSWindowStyleMaskFullSizeContentView |
                  NSWindowStyleMaskNonactivatingPanel
                    backing:NSBackingStoreBuffered
                      defer:YES];
    panel.titleVisibility = NSWindowTitleHidden;
    panel.titlebarAppearsTransparent = YES;
    for (const auto button : {NSWindowCloseButton, NSWindowMiniaturizeButton, NSWindowZoomButton}) {
        [panel standardWindowButton:button].hidden = YES;
    }
    panel.movable = NO;
    panel.hidesOnDeactivate = NO; // the program is mostly not active while the panel is open
    panel.level = NSStatusWindowLevel;
    panel.collectionBehavior = NSWindowCollectionBehaviorMoveToActiveSpace |
        NSWindowCollectionBehaviorFullScreenAuxiliary | NSWindowCollectionBehaviorTransient |
        NSWindowCollectionBehaviorIgnoresCycle;
    return panel;
}

/// The program's icon in the menu bar, from construction to destruction. It is drawn anew at each
/// change of the model, in the application's appearance at that moment.
class StatusLabel {
public:
    /// `toggle` is called at each click. The model must outlive the icon.
    StatusLabel(BatteryModel& model, std::function<void()> toggle)
        : model(model)
        , redraws(redrawAfterChanges(model.objectWillChange, [this] { redraw(); }))
    {
        button().imagePosition = NSImageOnly;
        connect(button(), rowTargets, std::move(toggle));
        [button() sendActionOn:NSEventMaskLeftMouseDown | NSEventMaskRightMouseDown];
        redraw();
    }

    ~StatusLabel() { [NSStatusBar.systemStatusBar removeStatusItem:item]; }

    NSStatusBarButton* button() const { return item.button; }

private:
    void redraw()
    {
        button().image = StatusImage::make(model.devices, model.threshold);
        const IconTexts texts = iconTexts(model.devices);
        NSString* const toolTip = cocoaText(texts.toolTip);
        if (![button().toolTip isEqualToString:toolTip]) { // a new one closes the open one
            button().toolTip = toolTip;
            [button() setAccessibilityLabel:cocoaText(texts.accessible)];
        }
    }

    BatteryModel& model;
    NSStatusItem* const item =
        [NSStatusBar.systemStatusBar statusItemWithLength:NSVariableStatusItemLength];
    RowTargets rowTargets;
    Subscription redraws;
};

/// The icon and its panel, whose content is built at each opening. The panel closes on Escape, when
/// it loses the keyboard, at a click elsewhere, when the icon is clicked again, and when the person
/// goes to another Space.
class MacScene : public Scene {
public:
    MacScene(BatteryModel& model, std::function<void()> quit)
        : model(model)
        , quit(std::move(quit))
        , icon(model, [this] { toggle(); })
    {
        panel.leave = [this] { dismissUnlessIconIsPressed(); };
        panel.delegate = panel;
    }

    ~MacScene() override
    {
        dismiss();
        panel.leave = [] {}; // the system may hold the window a little longer
    }

    void openPanel() override
    {
        if (isOpen()) {
            [panel makeKeyAndOrderFront:nil];
            return;
        }
        // Not where the menu bar has no room for the icon, or hides itself.
        NSScreen* const screen = icon.button().window.screen;
        const bool isShown = NSIntersectsRect(placeOfIcon(), screen.frame);
        const NSRect visible = isShown ? screen.visibleFrame : NSScreen.mainScreen.visibleFrame;
        const NSRect corner = NSMakeRect(NSMaxX(visible), NSMaxY(visible), 0, 0);
        openBelow(isShown ? placeOfIcon() : corner, visible);
    }

private:
    bool isOpen() const { return content.rows != nullptr; }

    NSRect placeOfIcon() const
    {
        NSView* const view = icon.button();
        return [view.window convertRectToScreen:[view convertRect:view.bounds toView:nil]];
    }

    void toggle()
    {
        if (isOpen()) {
            dismiss();
            return;
        }
        // Each screen's menu bar shows the icon, but its window is on one of them: the click tells
        // where the person is.
        const NSPoint pointer = NSEvent.mouseLocation;
        for (NSScreen* const screen in NSScreen.screens) {
            if (NSPointInRect(pointer, screen.frame) &&
                ![screen isEqual:icon.button().window.screen]) {
                const NSRect visible = screen.visibleFrame;
                openBelow(NSMakeRect(pointer.x, NSMaxY(visible), 0, 0), visible);
                return;
            }
        }
        openPanel();
    }

    /// Opens the panel centred below `place`, inside `visible` as far as that is large enough.
    void openBelow(NSRect place, NSRect visible)
    {
        panel.title = cocoaText(L10n::t("app.name")); // for screen readers
        content = makeContentView(model, quit, [this] { fit(); });
        panel.contentView = content.view;
        fit();
        const NSSize size = panel.frame.size;
        const CGFloat x = std::min(NSMidX(place) - size.width / 2, NSMaxX(visible) - size.width);
        const CGFloat top = std::max(NSMinY(place), NSMinY(visible) + size.height);
        [panel setFrameTopLeftPoint:NSMakePoint(std::max(x, NSMinX(visible)),
                                                std::min(top, NSMaxY(visible)))];
        // Other icons of the menu bar do not take the keyboard from the panel.
        clickMonitor = [NSEvent
            addGlobalMonitorForEventsMatchingMask:NSEventMaskLeftMouseDown |
            NSEventMaskRightMouseDown
                                          handler:^(NSEvent*) { dismissUnlessIconIsPressed(); }];
        spaceObserver = [NSWorkspace.sharedWorkspace.notificationCenter
            addObserverForName:NSWorkspaceActiveSpaceDidChangeNotification
                        object:nil
                         queue:nil
                    usingBlock:^(NSNotification*) { dismiss(); }];
        windowOpens();
        [panel makeKeyAndOrderFront:nil];
        // No control has the keyboard until Tab, so that no key changes a setting by accident.
        [panel makeFirstResponder:nil];
        model.refreshLaunchAtLogin();
        model.refresh(false);
    }

    /// A click on the icon closes the panel by the icon's own action; closed before that, it would
    /// open again.
    void dismissUnlessIconIsPressed()
    {
        if (NSEvent.pressedMouseButtons == 0 ||
            !NSPointInRect(NSEvent.mouseLocation, placeOfIcon())) {
            dismiss();
        }
    }

    void dismiss()
    {
        if (!isOpen()) {
            return;
        }
        // The views stay until the next opening: one of them may be the caller.
        content = {};
        [NSEvent removeMonitor:clickMonitor];
        [NSWorkspace.sharedWorkspace.notificationCenter removeObserver:spaceObserver];
        [panel orderOut:nil];
        windowCloses();
    }

    /// Keeps the upper edge where it is.
    void fit()
    {
        if (!isOpen()) {
            return; // it is still being built
        }
        const NSPoint corner = NSMakePoint(NSMinX(panel.frame), NSMaxY(panel.frame));
        [panel setContentSize:content.view.fittingSize];
        [panel setFrameTopLeftPoint:corner];
    }

    BatteryModel& model;
    const std::function<void()> quit;
    StatusLabel icon;
    VoltmerePanel* const panel = makePanel();
    ContentView content; ///< empty while the panel is closed
    id clickMonitor;
    id<NSObject> spaceObserver;
};

} // namespace

std::unique_ptr<Scene> makeScene(BatteryModel& model, std::function<void()> quit)
{
    return std::make_unique<MacScene>(model, std::move(quit));
}

} // namespace voltmere
