#include "macos/ui/icon.h"

#include "macos/text.h"
#include "macos/ui/status_image.h"

/// Takes the clicks, and watches the application's appearance.
@interface VoltmereIconObserver : NSObject
@property (nonatomic) std::function<void()> toggle;
@property (nonatomic) std::function<void()> redraw;
- (void)click;
@end

static NSString* const appearanceKey = @"effectiveAppearance";

/// Tells this observation from any other.
static char appearanceObservation;

@implementation VoltmereIconObserver

- (void)click
{
    _toggle();
}

- (void)observeValueForKeyPath:(NSString*)keyPath
                      ofObject:(id)object
                        change:(NSDictionary<NSKeyValueChangeKey, id>*)change
                       context:(void*)context
{
    if (context != &appearanceObservation) {
        [super observeValueForKeyPath:keyPath ofObject:object change:change context:context];
        return;
    }
    _redraw();
}

@end

namespace voltmere {

std::optional<ColourScheme> applicationScheme()
{
    NSAppearanceName const match = [NSApp.effectiveAppearance
        bestMatchFromAppearancesWithNames:@[ NSAppearanceNameDarkAqua, NSAppearanceNameAqua ]];
    if (match == nil) {
        return std::nullopt;
    }
    const bool isDark = [match isEqualToString:NSAppearanceNameDarkAqua];
    return isDark ? ColourScheme::dark : ColourScheme::light;
}

StatusLabel::StatusLabel(BatteryModel& model, std::function<void()> toggle)
    : model(model)
    , item([NSStatusBar.systemStatusBar statusItemWithLength:NSVariableStatusItemLength])
    , observer([[VoltmereIconObserver alloc] init])
    , redrawScheduler(model.objectWillChange, [this] { redraw(); })
{
    observer.toggle = std::move(toggle);
    observer.redraw = [this] { redraw(); };
    button().imagePosition = NSImageOnly;
    button().target = observer;
    button().action = @selector(click);
    [button() sendActionOn:NSEventMaskLeftMouseDown | NSEventMaskRightMouseDown];
    [NSApp addObserver:observer forKeyPath:appearanceKey options:0 context:&appearanceObservation];
    redraw();
}

StatusLabel::~StatusLabel()
{
    [NSApp removeObserver:observer forKeyPath:appearanceKey context:&appearanceObservation];
    [NSStatusBar.systemStatusBar removeStatusItem:item];
}

void StatusLabel::redraw()
{
    // A new picture may drop the button's highlight, and a new tool tip closes the open one.
    const auto picture = std::pair(iconLevel(model.devices, model.threshold), applicationScheme());
    if (picture != shownPicture) {
        shownPicture = picture;
        button().image = StatusImage::make(model.devices, model.threshold, picture.second);
    }
    const IconTexts texts = iconTexts(model.devices);
    if (texts != shownTexts) {
        shownTexts = texts;
        button().toolTip = cocoaText(texts.toolTip);
        [button() setAccessibilityLabel:cocoaText(texts.accessible)];
    }
}

} // namespace voltmere
