#include "macos/ui/panel_controller.h"

#include "macos/text.h"
#include "macos/ui/front_end.h"
#include "macos/ui/panel.h"
#include "texts/l10n.h"

#include <dispatch/dispatch.h>

#include <algorithm>
#include <utility>

namespace voltmere {

NSPoint panelCorner(NSRect icon, NSSize size, NSRect visible)
{
    const CGFloat x = std::min(NSMidX(icon) - size.width / 2, NSMaxX(visible) - size.width);
    const CGFloat top = std::max(NSMinY(icon), NSMinY(visible) + size.height);
    return NSMakePoint(std::max(x, NSMinX(visible)), std::min(top, NSMaxY(visible)));
}

namespace {

constexpr NSWindowStyleMask panelStyle = NSWindowStyleMaskTitled |
    NSWindowStyleMaskFullSizeContentView | NSWindowStyleMaskNonactivatingPanel;

NSRect placeOnScreen(NSView* view)
{
    return [view.window convertRectToScreen:[view convertRect:view.bounds toView:nil]];
}

} // namespace

} // namespace voltmere

using voltmere::BatteryModel;
using voltmere::ContentView;
using voltmere::MacApplication;

@implementation VoltmerePanel {
    BatteryModel* _model;
    MacApplication* _application;
    NSStatusBarButton* _icon;
    std::function<void()> _quit;
    ContentView _content; // empty while the panel is closed
    id _clickMonitor;
    id<NSObject> _spaceObserver;
}

- (instancetype)initWithModel:(BatteryModel*)model
                  application:(MacApplication*)application
                         icon:(NSStatusBarButton*)icon
                         quit:(std::function<void()>)quit
{
    self = [super initWithContentRect:NSZeroRect
                            styleMask:voltmere::panelStyle
                              backing:NSBackingStoreBuffered
                                defer:YES];
    if (self != nil) {
        _model = model;
        _application = application;
        _icon = icon;
        _quit = std::move(quit);
        self.titleVisibility = NSWindowTitleHidden;
        self.titlebarAppearsTransparent = YES;
        for (const NSWindowButton button :
             {NSWindowCloseButton, NSWindowMiniaturizeButton, NSWindowZoomButton}) {
            [self standardWindowButton:button].hidden = YES;
        }
        self.movable = NO;
        self.releasedWhenClosed = NO;
        self.hidesOnDeactivate = NO; // the program is mostly not active while the panel is open
        self.level = NSStatusWindowLevel;
        self.collectionBehavior = NSWindowCollectionBehaviorMoveToActiveSpace |
            NSWindowCollectionBehaviorFullScreenAuxiliary | NSWindowCollectionBehaviorTransient |
            NSWindowCollectionBehaviorIgnoresCycle;
        self.delegate = self;
    }
    return self;
}

- (BOOL)canBecomeKeyWindow
{
    return YES;
}

- (void)cancelOperation:(id)__unused sender
{
    [self dismiss];
}

- (void)windowDidResignKey:(NSNotification*)__unused notification
{
    [self dismissUnlessIconIsPressed];
}

- (void)toggle
{
    if (_content.rows != nullptr) {
        [self dismiss];
        return;
    }
    // Each screen's menu bar shows the icon, but its window is on one of them: the click tells
    // where the person is.
    const NSPoint pointer = NSEvent.mouseLocation;
    for (NSScreen* const screen in NSScreen.screens) {
        if (NSPointInRect(pointer, screen.frame) && ![screen isEqual:_icon.window.screen]) {
            const NSRect place = NSMakeRect(pointer.x, NSMaxY(screen.visibleFrame), 0, 0);
            [self openBelow:place inside:screen.visibleFrame];
            return;
        }
    }
    [self open];
}

- (void)open
{
    if (_content.rows != nullptr) {
        [self makeKeyAndOrderFront:nil];
        return;
    }
    const NSRect icon = voltmere::placeOnScreen(_icon);
    NSScreen* const screen = _icon.window.screen;
    if (screen != nil && NSIntersectsRect(icon, screen.frame)) {
        [self openBelow:icon inside:screen.visibleFrame];
        return;
    }
    // The menu bar has no room for the icon, or hides itself.
    const NSRect visible = NSScreen.mainScreen.visibleFrame;
    [self openBelow:NSMakeRect(NSMaxX(visible), NSMaxY(visible), 0, 0) inside:visible];
}

- (void)openBelow:(NSRect)icon inside:(NSRect)visible
{
    __weak VoltmerePanel* const weakSelf = self;
    self.title = voltmere::cocoaText(voltmere::L10n::t("app.name")); // for screen readers
    _content = voltmere::makeContentView(*_model, _quit, [weakSelf] { [weakSelf fit]; });
    self.contentView = _content.view;
    [self fit];
    [self setFrameTopLeftPoint:voltmere::panelCorner(icon, self.frame.size, visible)];

    // Other icons of the menu bar do not take the keyboard from the panel.
    _clickMonitor = [NSEvent
        addGlobalMonitorForEventsMatchingMask:NSEventMaskLeftMouseDown | NSEventMaskRightMouseDown
                                      handler:^(NSEvent*) {
                                          [weakSelf dismissUnlessIconIsPressed];
                                      }];
    _spaceObserver = [NSWorkspace.sharedWorkspace.notificationCenter
        addObserverForName:NSWorkspaceActiveSpaceDidChangeNotification
                    object:nil
                     queue:nil
                usingBlock:^(NSNotification*) { [weakSelf dismiss]; }];

    _application->windowOpens();
    [self makeKeyAndOrderFront:nil];
    // No control has the keyboard until Tab, so that no key changes a setting by accident.
    [self makeFirstResponder:nil];
    // The button drops its highlight when the click that opened the panel ends.
    dispatch_async(dispatch_get_main_queue(), ^{ [weakSelf highlightIcon]; });
    _model->refreshLaunchAtLogin();
    _model->refresh(false);
}

- (void)highlightIcon
{
    [_icon highlight:_content.rows != nullptr];
}

/// A click on the icon closes the panel by the icon's own action; closed before that, it would open
/// again.
- (void)dismissUnlessIconIsPressed
{
    if (NSEvent.pressedMouseButtons == 0 ||
        !NSPointInRect(NSEvent.mouseLocation, voltmere::placeOnScreen(_icon))) {
        [self dismiss];
    }
}

- (void)dismiss
{
    if (_content.rows == nullptr) {
        return;
    }
    // The views stay until the next opening: one of them may be the caller.
    _content = {};
    [NSEvent removeMonitor:_clickMonitor];
    [NSWorkspace.sharedWorkspace.notificationCenter removeObserver:_spaceObserver];
    [self orderOut:nil];
    [self highlightIcon];
    _application->windowCloses();
}

/// Keeps the upper edge where it is.
- (void)fit
{
    if (_content.rows == nullptr) {
        return; // it is still being built
    }
    const NSPoint corner = NSMakePoint(NSMinX(self.frame), NSMaxY(self.frame));
    [self setContentSize:_content.view.fittingSize];
    [self setFrameTopLeftPoint:corner];
}

@end
