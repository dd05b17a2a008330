#pragma once

#include "ports/desktop.h"

#include <cstdint>
#include <memory>

namespace voltmere {

/// The program among the applications of macOS. While it exists, the system does not put the
/// program to nap (App Nap), as it does with others that show no window: its timers would be
/// minutes late.
class CocoaApplication : public Application {
public:
    CocoaApplication();
    ~CocoaApplication() override;
    CocoaApplication(const CocoaApplication&) = delete;
    CocoaApplication& operator=(const CocoaApplication&) = delete;

    void activate() override;

private:
    struct Cocoa;
    std::unique_ptr<Cocoa> cocoa;
};

/// Puts the window of a view at the level of floating windows: over the ordinary windows of every
/// program, under menus. `view` is an NSView, as toolkits hand it out.
void setFloatingLevel(std::uintptr_t view);

/// Whether the process belongs to a session that has a screen, unlike one over a remote shell. May
/// be asked before there is an application object.
bool hasWindowServer();

} // namespace voltmere
