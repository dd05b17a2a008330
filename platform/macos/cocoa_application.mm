#include "platform/macos/cocoa_application.h"

#import <AppKit/AppKit.h>

namespace voltmere {

void CocoaApplication::activate()
{
    [NSApplication.sharedApplication activateIgnoringOtherApps:YES];
}

void setFloatingLevel(std::uintptr_t view)
{
    ((__bridge NSView*)reinterpret_cast<void*>(view)).window.level = NSFloatingWindowLevel;
}

bool hasWindowServer()
{
    const CFDictionaryRef session = CGSessionCopyCurrentDictionary();
    if (session == nullptr) {
        return false;
    }
    CFRelease(session);
    return true;
}

} // namespace voltmere
