#include "macos/ui/hover_controls.h"

#include "macos/text.h"

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

- (void)observeValueForKeyPath:(NSString*)__unused keyPath
                      ofObject:(id)__unused object
                        change:(NSDictionary<NSKeyValueChangeKey, id>*)__unused change
                       context:(void*)__unused context
{
    [self fire];
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

VoltmereActionTarget* RowTargets::add(std::function<void()> action)
{
    targets.push_back([[VoltmereActionTarget alloc] initWithAction:std::move(action)]);
    return targets.back();
}

void fixWidth(NSView* view, CGFloat width)
{
    view.translatesAutoresizingMaskIntoConstraints = NO;
    [view.widthAnchor constraintEqualToConstant:width].active = YES;
}

void presentChoices(NSPopUpButton* popUp, const std::string& name,
                    const std::vector<std::string>& titles, std::optional<std::size_t> selected)
{
    NSMutableArray<NSString*>* const texts = [NSMutableArray array];
    for (const std::string& title : titles) {
        [texts addObject:cocoaText(title)];
    }
    if (![popUp.itemTitles isEqualToArray:texts]) {
        [popUp removeAllItems];
        [popUp addItemsWithTitles:texts];
    }
    [popUp setAccessibilityLabel:cocoaText(name)];
    [popUp selectItemAtIndex:selected ? static_cast<NSInteger>(*selected) : -1];
}

std::optional<std::size_t> selectedChoice(NSPopUpButton* popUp)
{
    const NSInteger index = popUp.indexOfSelectedItem;
    return index < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(index));
}

HoverPoller::HoverPoller(NSWindow* window, std::vector<Item> givenItems, RunLoop& runLoop)
    : items(std::move(givenItems))
    , timer(runLoop.scheduleRepeating(interval, [this] { refresh(); }))
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
