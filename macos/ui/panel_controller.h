#pragma once

#include "model/battery_model.h"

#import <AppKit/AppKit.h>

#include <functional>

namespace voltmere {

class MacApplication;

/// The top left corner of a panel of `size` below the icon at `icon`: centred, and inside `visible`
/// as far as that is large enough. All in screen coordinates, whose origin is at the bottom left.
NSPoint panelCorner(NSRect icon, NSSize size, NSRect visible);

} // namespace voltmere

/// The window of the settings panel. It takes the keyboard without activating the program, so the
/// program in front gets the keyboard back by itself. Its content is built at each opening. It
/// closes on Escape, when it loses the keyboard, at a click elsewhere, when the icon is clicked
/// again, and when the person goes to another Space.
@interface VoltmerePanel : NSPanel <NSWindowDelegate>
/// `icon` is the button in the menu bar; `quit` ends the program. The model and the application
/// must outlive the panel, which must be dismissed before they go.
- (instancetype)initWithModel:(voltmere::BatteryModel*)model
                  application:(voltmere::MacApplication*)application
                         icon:(NSStatusBarButton*)icon
                         quit:(std::function<void()>)quit;

/// A click on the icon.
- (void)toggle;

/// Opens the panel, or brings the open one to the front.
- (void)open;

- (void)dismiss;
@end
