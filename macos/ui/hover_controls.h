#pragma once

#include "ports/desktop.h"
#include "ports/time.h"

#import <AppKit/AppKit.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// The action of a control, or of an observed property. The control holds it weakly; the code that
/// connects them keeps it alive.
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

/// Fixes the width, in points, by a constraint.
void fixWidth(NSView* view, CGFloat width);

/// Keeps the targets of a window's controls alive.
class RowTargets {
public:
    VoltmereActionTarget* add(std::function<void()> action);

private:
    std::vector<VoltmereActionTarget*> targets;
};

/// Shows the titles in the pop-up button and selects one of them, or none.
void presentChoices(NSPopUpButton* popUp, const std::string& name,
                    const std::vector<std::string>& titles, std::optional<std::size_t> selected);

/// Shows the choices of `popUp`, and selects the present one.
template<typename Value>
void presentPopUp(NSPopUpButton* control, const PopUp<Value>& popUp)
{
    presentChoices(control, popUp.name, popUp.titles, popUp.selected);
}

/// The selected choice, counted from 0.
std::optional<std::size_t> selectedChoice(NSPopUpButton* popUp);

/// Tells the controls of a window, about eight times a second, whether the pointer is over them.
class HoverPoller {
public:
    static constexpr Seconds interval{0.12};

    /// A control and the object that lights up for it, often the same.
    struct Item {
        NSView* view;
        id<VoltmereHoverHighlighting> hover;
    };

    /// Starts at once.
    HoverPoller(NSWindow* window, std::vector<Item> items, RunLoop& runLoop);

    /// Ends the polling for good and removes every highlight.
    void stop();

private:
    void refresh() const;

    std::vector<Item> items;
    std::unique_ptr<Timer> timer;
    __weak NSWindow* window;
};

} // namespace voltmere
