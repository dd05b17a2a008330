#pragma once

#include "app/voltmere_app.h"
#include "ports/desktop.h"

#import <AppKit/AppKit.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

// What the parts of the front end offer each other. Each part is a file: the start and the
// pictures, the scene, the panel, the alert and the icon.

namespace voltmere {

/// The windows of macOS. Needs the application object. `mainLoop` must outlive it.
std::unique_ptr<FrontEnd> makeFrontEnd(MainLoop& mainLoop);

/// To be called before a window is shown.
void windowOpens();

/// To be called after a window has been taken off the screen. Once the last one has closed, the
/// keyboard goes back to the program in front.
void windowCloses();

/// The icon in the menu bar, and the panel that opens below it. `quit` ends the program. The model
/// must outlive the scene.
std::unique_ptr<Scene> makeScene(BatteryModel& model, std::function<void()> quit);

/// The content of the panel that opens from the menu-bar icon: `panelContent` as controls, which
/// pass the person's choices to the model. It is 320 points wide and exactly as high as its rows.
struct ContentView {
    NSView* view = nil;
    std::shared_ptr<void> rows; ///< follow the model; may be dropped in the action of a control
};

/// `quit` ends the program; `resized` is called after each redraw. The model must outlive the rows.
ContentView makeContentView(BatteryModel& model, std::function<void()> quit,
                            std::function<void()> resized);

/// The snooze alert: an NSAlert whose own texts are empty and whose content is an accessory view of
/// 237 by 252 points. It floats and is not modal.
struct SnoozeAlert : Alert {
    NSAlert* const alert = [[NSAlert alloc] init];
};

/// Builds an alert, which its first `bringToFront` puts on screen.
std::unique_ptr<SnoozeAlert> makeSnoozeAlert(const AlertContent& content,
                                             const AlertActions& actions);

/// The icons of the application's bundle.
class AppIconAsset {
public:
    /// The menu-bar icon, 20 by 20 points. Built on first use and kept. Made of StatusIcon.png,
    /// else StatusIcon.icns, then AppIcon.icns, then the application's own icon.
    static NSImage* statusImage();

    /// The application icon as a square of `side` points; nil without AppIcon.icns.
    static NSImage* appImage(CGFloat side);
};

/// The picture in the menu bar.
class StatusImage {
public:
    /// The status icon and the level of the weakest device, in the application's present
    /// appearance. It carries its own colours.
    static NSImage* make(const std::vector<BatteryDevice>& devices, std::int64_t threshold);
};

} // namespace voltmere
