#include "macos/app_appearance.h"

#import <AppKit/AppKit.h>

#include <dispatch/dispatch.h>

#include <utility>

static NSString* const appearanceKey = @"effectiveAppearance";

/// Watches the application's appearance.
@interface VoltmereAppearanceObserver : NSObject
- (void)setAction:(std::function<void()>)action;
- (void)stop;
@end

@implementation VoltmereAppearanceObserver {
    std::function<void()> _action;
}

- (instancetype)init
{
    self = [super init];
    if (self != nil) {
        [NSApplication.sharedApplication addObserver:self
                                          forKeyPath:appearanceKey
                                             options:0
                                             context:nullptr];
    }
    return self;
}

- (void)setAction:(std::function<void()>)action
{
    _action = std::move(action);
}

- (void)stop
{
    _action = nullptr;
    [NSApplication.sharedApplication removeObserver:self forKeyPath:appearanceKey context:nullptr];
}

- (void)observeValueForKeyPath:(NSString*)__unused keyPath
                      ofObject:(id)__unused object
                        change:(NSDictionary<NSKeyValueChangeKey, id>*)__unused change
                       context:(void*)__unused context
{
    // Qt follows the appearance too. Later, it has, whichever of the two was told first.
    dispatch_async(dispatch_get_main_queue(), ^{
        if (self->_action) {
            self->_action();
        }
    });
}

@end

namespace voltmere {

struct AppAppearance::Cocoa {
    VoltmereAppearanceObserver* observer;
};

AppAppearance::AppAppearance()
    : cocoa(std::make_unique<Cocoa>([[VoltmereAppearanceObserver alloc] init]))
{
}

AppAppearance::~AppAppearance()
{
    [cocoa->observer stop];
}

std::optional<ColourScheme> AppAppearance::bestMatch() const
{
    NSAppearanceName const match = [NSApplication.sharedApplication.effectiveAppearance
        bestMatchFromAppearancesWithNames:@[ NSAppearanceNameDarkAqua, NSAppearanceNameAqua ]];
    if (match == nil) {
        return std::nullopt;
    }
    return [match isEqualToString:NSAppearanceNameDarkAqua] ? ColourScheme::dark
                                                            : ColourScheme::light;
}

void AppAppearance::onChange(std::function<void()> action)
{
    [cocoa->observer setAction:std::move(action)];
}

} // namespace voltmere
