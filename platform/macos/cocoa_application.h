#pragma once

#include "platform/application.h"

#include <cstdint>

namespace voltmere {

/// The program among the applications of macOS.
class CocoaApplication : public Application {
public:
    void activate() override;
};

/// Puts the window of a view at the level of floating windows: over the ordinary windows of every
/// program, under menus. `view` is an NSView, as toolkits hand it out.
void setFloatingLevel(std::uintptr_t view);

/// Whether the process belongs to a session that has a screen, unlike one over a remote shell. May
/// be asked before there is an application object.
bool hasWindowServer();

} // namespace voltmere
