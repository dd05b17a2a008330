#pragma once

#include "macos/text.h"
#include "model/published.h"
#include "ports/desktop.h"
#include "ports/time.h"

#import <AppKit/AppKit.h>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

/// The action of a control. The control holds it weakly; the code that connects them keeps it
/// alive.
@interface VoltmereActionTarget : NSObject
- (instancetype)initWithAction:(std::function<void()>)action;

/// Runs the action, and stays alive meanwhile even if the action drops the last owner.
- (void)fire;
@end

/// A control that lights up under the pointer.
@protocol VoltmereHoverHighlighting <NSObject>
/// Whether the pointer is over the control.
- (void)setHovering:(BOOL)hovering;
@end

/// A push button with the pressed look while the pointer is over it.
@interface VoltmereHoverButton : NSButton <VoltmereHoverHighlighting>
@end

/// A pop-up button that a translucent rounded overlay covers while the pointer is over it.
@interface VoltmereHoverPopUpButton : NSPopUpButton <VoltmereHoverHighlighting>
@end

/// Lights up a button of another owner, while that button exists.
@interface VoltmereNativeButtonHover : NSObject <VoltmereHoverHighlighting>
@property (nonatomic, weak) NSButton* button;
@end

namespace voltmere {

/// Keeps the targets of a window's controls alive.
using RowTargets = std::vector<VoltmereActionTarget*>;

/// Makes the control run `action`, through a target in `targets`.
void connect(NSControl* control, RowTargets& targets, std::function<void()> action);

/// Fixes the width, in points, by a constraint.
void fixWidth(NSView* view, CGFloat width);

/// Calls `redraw` once per turn of the run loop, however many properties of the model changed in
/// it, until the result is gone. The model announces a change before it stores the value, so the
/// redraw comes afterwards.
Subscription redrawAfterChanges(ChangeAnnouncer& announcer, std::function<void()> redraw);

/// Shows the choices of `popUp` in the control, and selects the present one, or none.
template<typename Value>
void showChoices(NSPopUpButton* control, const PopUp<Value>& popUp)
{
    NSMutableArray<NSString*>* const titles = [NSMutableArray array];
    for (const std::string& title : popUp.titles) {
        [titles addObject:cocoaText(title)];
    }
    if (![control.itemTitles isEqualToArray:titles]) {
        [control removeAllItems];
        [control addItemsWithTitles:titles];
    }
    [control setAccessibilityLabel:cocoaText(popUp.name)];
    [control selectItemAtIndex:popUp.selected ? static_cast<NSInteger>(*popUp.selected) : -1];
}

/// The value that is selected in the control, which shows the choices of `popUp`.
template<typename Value>
std::optional<Value> chosenValue(NSPopUpButton* control, const PopUp<Value>& popUp)
{
    const NSInteger index = control.indexOfSelectedItem;
    return index < 0 ? std::nullopt
                     : std::optional(popUp.values.at(static_cast<std::size_t>(index)));
}

/// Tells the controls of a window, about eight times a second, whether the pointer is over them.
class HoverPoller {
public:
    /// A control and the object that lights up for it, often the same.
    struct Item {
        NSView* view;
        id<VoltmereHoverHighlighting> hover;
    };

    /// Starts at once.
    HoverPoller(NSWindow* window, std::vector<Item> items);

    /// Ends the polling for good and removes every highlight.
    void stop();

private:
    void refresh() const;

    std::vector<Item> items;
    std::unique_ptr<Timer> timer;
    __weak NSWindow* window;
};

} // namespace voltmere
