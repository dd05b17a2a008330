#include "macos/ui/icon.h"

#include "macos/text.h"
#include "macos/ui/redraw_scheduler.h"
#include "macos/ui/status_image.h"

static NSString* const appearanceKey = @"effectiveAppearance";

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
    , clicks([[VoltmereActionTarget alloc] initWithAction:std::move(toggle)])
    , appearance([[VoltmereActionTarget alloc] initWithAction:[this] { redraw(); }])
    , redraws(redrawAfterChanges(model.objectWillChange, [this] { redraw(); }))
{
    button().imagePosition = NSImageOnly;
    button().target = clicks;
    button().action = @selector(fire);
    [button() sendActionOn:NSEventMaskLeftMouseDown | NSEventMaskRightMouseDown];
    [NSApp addObserver:appearance forKeyPath:appearanceKey options:0 context:nullptr];
    redraw();
}

StatusLabel::~StatusLabel()
{
    [NSApp removeObserver:appearance forKeyPath:appearanceKey context:nullptr];
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
