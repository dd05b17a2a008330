#include "macos/running_instances.h"

#import <AppKit/AppKit.h>

#include <dispatch/dispatch.h>

#include <utility>

static NSNotificationName const openPanelName = @"org.voltmere.Voltmere.openPanel";

/// Takes the event with which the system tells a running application that it was opened again.
@interface VoltmereReopenHandler : NSObject
- (instancetype)initWithAction:(std::function<void()>)action;
- (void)stop;
@end

@implementation VoltmereReopenHandler {
    std::function<void()> _action; // null once stopped
}

- (instancetype)initWithAction:(std::function<void()>)action
{
    self = [super init];
    if (self != nil) {
        _action = std::move(action);
        // While it finishes its launch, the application sets handlers of its own.
        dispatch_async(dispatch_get_main_queue(), ^{ [self start]; });
    }
    return self;
}

- (void)start
{
    if (_action) {
        [NSAppleEventManager.sharedAppleEventManager setEventHandler:self
                                                         andSelector:@selector(reopen:reply:)
                                                       forEventClass:kCoreEventClass
                                                          andEventID:kAEReopenApplication];
    }
}

- (void)stop
{
    _action = nullptr;
    [NSAppleEventManager.sharedAppleEventManager
        removeEventHandlerForEventClass:kCoreEventClass
                             andEventID:kAEReopenApplication];
}

- (void)reopen:(NSAppleEventDescriptor*)__unused event reply:(NSAppleEventDescriptor*)__unused reply
{
    _action();
}

@end

namespace voltmere {

std::vector<RunningInstance> runningInstances()
{
    NSString* const bundle = NSBundle.mainBundle.bundleIdentifier;
    std::vector<RunningInstance> instances;
    if (bundle == nil) {
        return instances;
    }
    for (NSRunningApplication* const instance in
         [NSRunningApplication runningApplicationsWithBundleIdentifier:bundle]) {
        instances.push_back({.process = instance.processIdentifier,
                             .finishedLaunching = static_cast<bool>(instance.finishedLaunching)});
    }
    return instances;
}

void requestPanel()
{
    [NSDistributedNotificationCenter.defaultCenter postNotificationName:openPanelName
                                                                 object:nil
                                                               userInfo:nil
                                                     deliverImmediately:YES];
}

struct PanelRequests::Cocoa {
    VoltmereReopenHandler* reopen;
    id<NSObject> observer;
};

PanelRequests::PanelRequests(std::function<void()> open)
    : cocoa(std::make_unique<Cocoa>([[VoltmereReopenHandler alloc] initWithAction:open],
                                    [NSDistributedNotificationCenter.defaultCenter
                                        addObserverForName:openPanelName
                                                    object:nil
                                                     queue:NSOperationQueue.mainQueue
                                                usingBlock:^(NSNotification*) { open(); }]))
{
}

PanelRequests::~PanelRequests()
{
    [cocoa->reopen stop];
    [NSDistributedNotificationCenter.defaultCenter removeObserver:cocoa->observer];
}

} // namespace voltmere
