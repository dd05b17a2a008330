#include "macos/cocoa_application.h"

#import <AppKit/AppKit.h>

namespace voltmere {

struct CocoaApplication::Cocoa {
    id<NSObject> activity;
};

CocoaApplication::CocoaApplication()
    : cocoa(std::make_unique<Cocoa>([NSProcessInfo.processInfo
          beginActivityWithOptions:NSActivityUserInitiatedAllowingIdleSystemSleep
                            reason:@"Checks battery levels at the chosen minute"]))
{
}

CocoaApplication::~CocoaApplication()
{
    [NSProcessInfo.processInfo endActivity:cocoa->activity];
}

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
