#pragma once

#include "ports/desktop.h"
#include "ports/time.h"

#import <AppKit/AppKit.h>

#include <memory>

namespace voltmere {

class MacApplication;

/// The snooze alert: an NSAlert whose own texts are empty and whose content is an accessory view of
/// 237 by 252 points. It floats and is not modal.
class SnoozeAlert : public Alert {
public:
    /// Puts the alert on screen, centred, in front and with the keyboard.
    virtual void show(RunLoop& runLoop) = 0;

    virtual NSWindow* window() const = 0;
};

/// Builds an alert, and does not show it yet. `application` must outlive it.
std::unique_ptr<SnoozeAlert> makeSnoozeAlert(const AlertContent& content,
                                             const AlertActions& actions,
                                             MacApplication& application);

} // namespace voltmere
