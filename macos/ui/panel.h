#pragma once

#include "model/battery_model.h"

#import <AppKit/AppKit.h>

#include <functional>
#include <memory>

namespace voltmere {

/// The content of the panel that opens from the menu-bar icon: `panelContent` as controls, which
/// pass the person's choices to the model. It is 320 points wide and exactly as high as its rows.
struct ContentView {
    NSView* view = nil;
    std::shared_ptr<void> rows; ///< follow the model; may be dropped in the action of a control
};

/// `quit` ends the program; `resized` is called after each redraw. The model must outlive the rows.
ContentView makeContentView(BatteryModel& model, std::function<void()> quit,
                            std::function<void()> resized);

} // namespace voltmere
