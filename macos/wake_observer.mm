#include "macos/wake_observer.h"

#import <AppKit/AppKit.h>

namespace voltmere {

// Without a queue the block runs where the notification is posted, which is the main thread.
struct WakeObserver::Cocoa {
    id<NSObject> observer;
};

WakeObserver::WakeObserver(std::function<void()> action)
    : cocoa(std::make_unique<Cocoa>([NSWorkspace.sharedWorkspace.notificationCenter
          addObserverForName:NSWorkspaceDidWakeNotification
                      object:nil
                       queue:nil
                  usingBlock:^(NSNotification*) { action(); }]))
{
}

WakeObserver::~WakeObserver()
{
    [NSWorkspace.sharedWorkspace.notificationCenter removeObserver:cocoa->observer];
}

} // namespace voltmere
