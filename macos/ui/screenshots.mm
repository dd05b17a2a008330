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
#include <utility>

namespace voltmere {

namespace {

/// Writes pictures into one directory until one cannot be written.
class Album {
public:
    explicit Album(std::filesystem::path directory)
        : directory(std::move(directory))
    {
    }

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

    bool complete = true;

private:
    /// The view as PNG, on the colour of a window.
    static NSData* drawn(NSView* view)
    {
        [view layoutSubtreeIfNeeded];
        const NSRect bounds = view.bounds;
        NSBitmapImageRep* const bitmap = [view bitmapImageRepForCachingDisplayInRect:bounds];
        [view cacheDisplayInRect:bounds toBitmapImageRep:bitmap];
        [NSGraphicsContext saveGraphicsState];
        NSGraphicsContext.currentContext =
            [NSGraphicsContext graphicsContextWithBitmapImageRep:bitmap];
        [NSApp.effectiveAppearance performAsCurrentDrawingAppearance:^{
            [NSColor.windowBackgroundColor setFill];
            NSRectFillUsingOperation(bounds, NSCompositingOperationDestinationOver);
        }];
        [NSGraphicsContext restoreGraphicsState];
        return [bitmap representationUsingType:NSBitmapImageFileTypePNG properties:@{}];
    }

    std::filesystem::path directory;
};

void drawPanel(Studio& studio, const std::string& suffix, Album& album)
{
    const ContentView panel(
        studio.model, [] {}, [] {});
    NSView* const view = panel.view();
    // Controls are drawn as in a window only in a window.
    NSWindow* const window = [[NSWindow alloc] initWithContentRect:NSZeroRect
                                                         styleMask:NSWindowStyleMaskBorderless
                                                           backing:NSBackingStoreBuffered
                                                             defer:YES];
    window.releasedWhenClosed = NO;
    window.contentView = view;
    [window setContentSize:view.fittingSize];
    album.add("panel-" + suffix, view);
}

void drawAlerts(const std::string& suffix, Album& album)
{
    constexpr ClockTime preselected{15, 35};
    MacApplication application;
    for (const AlertSample& sample : alertSamples()) {
        const SnoozeAlert alert(makeAlertContent(sample.devices, sample.isLow, preselected), {},
                                application);
        album.add("alert-" + sample.name + "-" + suffix, alert.window().contentView);
    }
}

void drawAll(Studio& studio, const std::string& scheme, Album& album)
{
    const BatteryModel& model = studio.model;
    NSImage* const icon = StatusImage::make(model.devices, model.threshold, applicationScheme());
    NSImageView* const bar = [NSImageView imageViewWithImage:icon];
    bar.frame = NSMakeRect(0, 0, icon.size.width, icon.size.height);
    album.add("menu-bar-" + scheme, bar);
    for (const AppLanguage language : {AppLanguage::zh, AppLanguage::en}) {
        const std::string raw(rawValue(language));
        studio.model.language = raw;
        drawPanel(studio, raw + "-" + scheme, album);
        drawAlerts(raw + "-" + scheme, album);
    }
}

} // namespace

int drawScreenshots(const CommandLine& commandLine)
{
    std::error_code error;
    std::filesystem::create_directories(commandLine.screenshotsDirectory, error);
    if (error) {
        std::fprintf(stderr, "voltmere: cannot make the directory %s\n",
                     commandLine.screenshotsDirectory.c_str());
        return exitStatus::cannotRun;
    }
    MacRunLoop mainLoop;
    Studio studio(commandLine, mainLoop);
    Album album(commandLine.screenshotsDirectory);
    NSApp.appearance = [NSAppearance appearanceNamed:NSAppearanceNameAqua];
    drawAll(studio, "light", album);
    NSApp.appearance = [NSAppearance appearanceNamed:NSAppearanceNameDarkAqua];
    drawAll(studio, "dark", album);
    return album.complete ? 0 : exitStatus::cannotRun;
}

} // namespace voltmere
