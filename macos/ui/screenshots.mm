#include "macos/ui/screenshots.h"

#include "app/studio.h"
#include "app/terminal.h"
#include "macos/run_loop.h"
#include "macos/text.h"
#include "macos/ui/alert.h"
#include "macos/ui/front_end.h"
#include "macos/ui/icon.h"
#include "macos/ui/panel.h"
#include "macos/ui/status_image.h"
#include "snooze/snooze_alert.h"
#include "texts/l10n.h"

#include <cstdio>
#include <filesystem>
#include <system_error>

namespace voltmere {

namespace {

/// The view as PNG, on the colour of a window.
NSData* drawn(NSView* view)
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
    return [bitmap representationUsingType:NSBitmapImageFileTypePNG properties:@{}];
}

/// Writes pictures into one directory until one cannot be written.
struct Album {
    void add(const std::string& name, NSView* view)
    {
        const std::string path = directory / (name + ".png");
        if (complete && ![drawn(view) writeToFile:cocoaText(path) atomically:NO]) {
            std::fprintf(stderr,
                         "voltmere: cannot write %s; check that the directory is writable\n",
                         path.c_str());
            complete = false;
        }
    }

    std::filesystem::path directory;
    bool complete = true;
};

void drawPanel(BatteryModel& model, const std::string& suffix, Album& album)
{
    const ContentView panel = makeContentView(
        model, [] {}, [] {});
    // Controls look as in a window only in a window.
    NSWindow* const window __attribute__((objc_precise_lifetime)) =
        [[NSWindow alloc] initWithContentRect:NSZeroRect
                                    styleMask:NSWindowStyleMaskBorderless
                                      backing:NSBackingStoreBuffered
                                        defer:YES];
    window.releasedWhenClosed = NO;
    window.contentView = panel.view;
    [window setContentSize:panel.view.fittingSize];
    album.add("panel-" + suffix, panel.view);
}

void drawAlerts(const std::string& suffix, Album& album)
{
    constexpr ClockTime preselected{15, 35};
    MacApplication application;
    for (const AlertSample& sample : alertSamples()) {
        const auto alert = makeSnoozeAlert(
            makeAlertContent(sample.devices, sample.isLow, preselected), {}, application);
        album.add("alert-" + sample.name + "-" + suffix, alert->window().contentView);
    }
}

void drawAll(BatteryModel& model, const std::string& scheme, Album& album)
{
    NSImage* const icon = StatusImage::make(model.devices, model.threshold, applicationScheme());
    NSImageView* const bar = [NSImageView imageViewWithImage:icon];
    bar.frame = NSMakeRect(0, 0, icon.size.width, icon.size.height);
    album.add("menu-bar-" + scheme, bar);
    for (const AppLanguage language : {AppLanguage::zh, AppLanguage::en}) {
        model.language = std::string(rawValue(language));
        const std::string suffix = model.language.get() + "-" + scheme;
        drawPanel(model, suffix, album);
        drawAlerts(suffix, album);
    }
}

} // namespace

int drawScreenshots(const CommandLine& commandLine)
{
    Album album{commandLine.screenshotsDirectory};
    std::error_code error;
    std::filesystem::create_directories(album.directory, error);
    if (error) {
        std::fprintf(stderr, "voltmere: cannot make the directory %s\n", album.directory.c_str());
        return exitStatus::cannotRun;
    }
    MacRunLoop mainLoop;
    Studio studio(commandLine, mainLoop);
    NSApp.appearance = [NSAppearance appearanceNamed:NSAppearanceNameAqua];
    drawAll(studio.model, "light", album);
    NSApp.appearance = [NSAppearance appearanceNamed:NSAppearanceNameDarkAqua];
    drawAll(studio.model, "dark", album);
    return album.complete ? 0 : exitStatus::cannotRun;
}

} // namespace voltmere
