#pragma once

#include "macos/ui/hover_controls.h"
#include "ports/desktop.h"
#include "ports/time.h"

#import <AppKit/AppKit.h>

#include <memory>
#include <vector>

namespace voltmere {

class MacApplication;

/// The snooze alert: an NSAlert whose own texts are empty and whose content is an accessory view of
/// 237 by 252 points. It floats and is not modal.
class SnoozeAlert : public Alert {
public:
    /// Builds the alert, and does not show it yet. `application` must outlive it.
    SnoozeAlert(const AlertContent& content, const AlertActions& actions,
                MacApplication& application);
    ~SnoozeAlert() override;
    SnoozeAlert(const SnoozeAlert&) = delete;
    SnoozeAlert& operator=(const SnoozeAlert&) = delete;

    /// Puts the alert on screen, centred, in front and with the keyboard.
    void show(RunLoop& runLoop);

    NSWindow* window() const { return alert.window; }

    bool isVisible() const override { return alert.window.visible; }
    void bringToFront() override;
    void orderOut() override;

private:
    void connectCancelButton(const AlertActions& actions);
    NSView* makeAccessory(const AlertContent& content, const AlertActions& actions);
    NSView* optionRow(NSString* title, std::function<void()> action);
    NSView* customTimeRow(const AlertContent& content, const AlertActions& actions);
    VoltmereHoverPopUpButton* makePopUp(const PopUp<std::int64_t>& content);

    MacApplication& application;
    NSAlert* alert = [[NSAlert alloc] init];
    RowTargets rowTargets;
    std::vector<HoverPoller::Item> hoverItems;
    VoltmereNativeButtonHover* nativeHover = nil;
    std::unique_ptr<HoverPoller> hoverPoller;
    bool onScreen = false;
};

} // namespace voltmere
