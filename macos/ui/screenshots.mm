#include "app/studio.h"
#include "macos/text.h"
#include "macos/ui/front_end.h"
#include "macos/ui/icon.h"

namespace voltmere {

namespace {

/// Draws the view, on the colour of a window.
bool draw(NSView* view, const std::string& path)
{
    [view layoutSubtreeIfNeeded];
    const NSRect bounds = view.bounds;
    NSBitmapImageRep* const bitmap = [view bitmapImageRepForCachingDisplayInRect:bounds];
    [view cacheDisplayInRect:bounds toBitmapImageRep:bitmap];
    [NSGraphicsContext saveGraphicsState];
    NSGraphicsContext.currentContext = [NSGraphicsContext graphicsContextWithBitmapImageRep:bitmap];
    [NSApp.effectiveAppearance performAsCurrentDrawingAppearance:^{
        [NSColor.windowBackgroundColor setFill];
        NSRectFillUsingOperation(bounds, NSCompositingOperationDestinationOver);
    }];
    [NSGraphicsContext restoreGraphicsState];
    NSData* const png = [bitmap representationUsingType:NSBitmapImageFileTypePNG properties:@{}];
    return [png writeToFile:cocoaText(path) atomically:NO];
}

void choose(ColourScheme scheme)
{
    const bool isDark = scheme == ColourScheme::dark;
    NSApp.appearance =
        [NSAppearance appearanceNamed:isDark ? NSAppearanceNameDarkAqua : NSAppearanceNameAqua];
}

bool drawIcon(const BatteryModel& model, const std::string& path)
{
    NSImage* const icon = StatusImage::make(model.devices, model.threshold, applicationScheme());
    NSImageView* const bar = [NSImageView imageViewWithImage:icon];
    bar.frame = NSMakeRect(0, 0, icon.size.width, icon.size.height);
    return draw(bar, path);
}

bool drawPanel(BatteryModel& model, const std::string& path)
{
    const ContentView panel = makeContentView(
        model, [] {}, [] {});
    // Controls look as in a window only in a window.
    NSWindow* const window __attribute__((objc_precise_lifetime)) =
        [[NSWindow alloc] initWithContentRect:NSZeroRect
                                    styleMask:NSWindowStyleMaskBorderless
                                      backing:NSBackingStoreBuffered
                                        defer:YES];
    window.contentView = panel.view;
    [window setContentSize:panel.view.fittingSize];
    return draw(panel.view, path);
}

bool drawAlert(const AlertContent& content, const std::string& path)
{
    return draw(makeSnoozeAlert(content, {})->alert.window.contentView, path);
}

} // namespace

int drawScreenshots(const CommandLine& commandLine)
{
    return drawPictures(commandLine, *makeMainLoop(),
                        {choose, {{"menu-bar", drawIcon}}, drawPanel, drawAlert});
}

} // namespace voltmere
