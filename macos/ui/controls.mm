#include "macos/ui/controls.h"

#include "app/platform.h"

#include <dispatch/dispatch.h>

#include <algorithm>
#include <utility>

@implementation VoltmereActionTarget {
    std::function<void()> _action;
}

- (instancetype)initWithAction:(std::function<void()>)action
{
    self = [super init];
    _action = std::move(action);
    return self;
}

- (void)fire
{
    VoltmereActionTarget* const kept __attribute__((objc_precise_lifetime)) = self;
    kept->_action();
}

@end

@implementation VoltmereHoverButton {
    BOOL _hovering;
}

- (void)setHovering:(BOOL)hovering
{
    _hovering = hovering;
    [self highlight:hovering];
}

- (void)mouseUp:(NSEvent*)event
{
    [super mouseUp:event];
    if (_hovering) {
        [self highlight:YES];
    }
}

@end

@implementation VoltmereHoverPopUpButton {
    BOOL _hovering;
}

- (void)setHovering:(BOOL)hovering
{
    _hovering = hovering;
    self.needsDisplay = YES;
}

- (void)drawRect:(NSRect)dirty
{
    [super drawRect:dirty];
    if (!_hovering) {
        return;
    }
    constexpr CGFloat inset = 0.5; // points
    constexpr CGFloat largestRadius = 6;
    constexpr CGFloat overlayAlpha = 0.2;
    const CGFloat radius = std::min(NSHeight(self.bounds) * 0.5 - 1, largestRadius);
    [[NSColor.labelColor colorWithAlphaComponent:overlayAlpha] setFill];
    [[NSBezierPath bezierPathWithRoundedRect:NSInsetRect(self.bounds, inset, inset)
                                     xRadius:radius
                                     yRadius:radius] fill];
}

@end

@implementation VoltmereNativeButtonHover

- (void)setHovering:(BOOL)hovering
{
    [self.button highlight:hovering];
}

@end

namespace voltmere {

void connect(NSControl* control, RowTargets& targets, std::function<void()> action)
{
    targets.push_back([[VoltmereActionTarget alloc] initWithAction:std::move(action)]);
    control.target = targets.back();
    control.action = @selector(fire);
}

void fixWidth(NSView* view, CGFloat width)
{
    view.translatesAutoresizingMaskIntoConstraints = NO;
    [view.widthAnchor constraintEqualToConstant:width].active = YES;
}

Subscription redrawAfterChanges(ChangeAnnouncer& announcer, std::function<void()> redraw)
{
    auto pending = std::make_shared<bool>(false);
    return announcer.subscribe([pending, redraw = std::move(redraw)] {
        if (std::exchange(*pending, true)) {
            return;
        }
        const std::weak_ptr<bool> later = pending;
        dispatch_async(dispatch_get_main_queue(), ^{
            if (const auto existing = later.lock()) {
                *existing = false;
                redraw();
            }
        });
    });
}

HoverPoller::HoverPoller(NSWindow* window, std::vector<Item> givenItems)
    : items(std::move(givenItems))
    , timer(makeMainLoop()->scheduleRepeating(Seconds(0.12), [this] { refresh(); }))
    , window(window)
{
    refresh();
}

void HoverPoller::stop()
{
    timer.reset();
    for (const Item& item : items) {
        [item.hover setHovering:NO];
    }
}

void HoverPoller::refresh() const
{
    NSWindow* const shown = window;
    if (!shown.visible) {
        return;
    }
    const NSPoint pointer = [shown convertPointFromScreen:NSEvent.mouseLocation];
    for (const Item& item : items) {
        const NSPoint place = [item.view convertPoint:pointer fromView:nil];
        [item.hover setHovering:NSPointInRect(place, item.view.bounds)];
    }
}

} // namespace voltmere
