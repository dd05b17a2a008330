#include "macos/ui/front_end.h"

#include "app/studio.h"
#include "app/terminal.h"
#include "macos/text.h"
#include "posix/file_descriptor.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <thread>

/// Tells the program what the system asks of it.
@interface VoltmereApplicationDelegate : NSObject <NSApplicationDelegate>
@property (nonatomic) std::function<void()> launch;
@property (nonatomic) std::function<void()> openPanel;
@end

@implementation VoltmereApplicationDelegate

- (void)applicationDidFinishLaunching:(NSNotification*)__unused notification
{
    _launch();
}

- (BOOL)applicationShouldHandleReopen:(NSApplication*)__unused sender
                    hasVisibleWindows:(BOOL)__unused visible
{
    _openPanel();
    return NO;
}

- (BOOL)applicationSupportsSecureRestorableState:(NSApplication*)__unused application
{
    return YES; // otherwise the system logs a warning
}

@end

namespace voltmere {

namespace {

class MacFrontEnd : public FrontEnd, private Application, private AlertPresenter {
public:
    explicit MacFrontEnd(MainLoop& mainLoop)
        : mainLoop(mainLoop)
    {
    }

    Application& application() override { return *this; }
    AlertPresenter& alerts() override { return *this; }

    std::unique_ptr<Scene> show(BatteryModel& model) override
    {
        return makeScene(model, [this] { mainLoop.stop(0); });
    }

private:
    void activate() override { [NSApp activateIgnoringOtherApps:YES]; }

    std::unique_ptr<Alert> present(AlertContent content, AlertActions actions) override
    {
        auto alert = makeSnoozeAlert(content, actions);
        alert->bringToFront();
        return alert;
    }

    MainLoop& mainLoop;
};

NSNotificationName const openPanelName = @"org.voltmere.Voltmere.openPanel";

/// Makes this process the user's one instance, for as long as `lock` exists. Returns false where
/// another process is that; it has then been asked for its panel. Where the file in Application
/// Support cannot be locked, the log gets a line, and each process takes itself for the one.
bool becomeOneInstance(FileDescriptor& lock)
{
    NSArray<NSString*>* const places =
        NSSearchPathForDirectoriesInDomains(NSApplicationSupportDirectory, NSUserDomainMask, YES);
    const auto directory = std::filesystem::path(utf8Text(places.firstObject)) / applicationId;
    std::error_code ignored;
    std::filesystem::create_directories(directory, ignored);
    const std::filesystem::path file = directory / "instance.lock";
    lock = FileDescriptor(::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    if (lock && ::flock(lock.get(), LOCK_EX | LOCK_NB) == 0) {
        return true;
    }
    if (errno != EWOULDBLOCK) {
        makeSystemLog()->write("Voltmere: " + file.string() + " cannot be locked (" +
                               std::strerror(errno) + "), so a second start runs a second time");
        return true;
    }
    // Unless told otherwise, the system holds a notification back from a program that is not
    // active.
    [NSDistributedNotificationCenter.defaultCenter postNotificationName:openPanelName
                                                                 object:nil
                                                               userInfo:nil
                                                     deliverImmediately:YES];
    // The system may deliver it only after the call has returned, and this process is about to end.
    // How long that takes was not measured on a Mac.
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    return false;
}

int runInMenuBar(const CommandLine& commandLine)
{
    const auto mainLoop = makeMainLoop();
    MacFrontEnd frontEnd(*mainLoop);
    VoltmereApp program(commandLine, *mainLoop, frontEnd);
    NSDistributedNotificationCenter* const centre = NSDistributedNotificationCenter.defaultCenter;
    id<NSObject> observer = nil;
    // The application holds it weakly.
    VoltmereApplicationDelegate* const delegate __attribute__((objc_precise_lifetime)) =
        [[VoltmereApplicationDelegate alloc] init];
    delegate.openPanel = [&program] { program.openPanel(); };
    delegate.launch = [&] {
        program.start();
        if (!commandLine.demo) {
            observer = [centre addObserverForName:openPanelName
                                           object:nil
                                            queue:nil
                                       usingBlock:^(NSNotification*) { program.openPanel(); }];
        }
    };
    NSApp.delegate = delegate;
    const int status = program.run();
    if (observer != nil) {
        [centre removeObserver:observer];
    }
    return status;
}

/// Draws the view to a PNG file, on the colour of a window.
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
    NSImage* const icon = StatusImage::make(model.devices, model.threshold);
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

int drawScreenshots(const CommandLine& commandLine)
{
    return drawPictures(commandLine, *makeMainLoop(),
                        {choose, {{"menu-bar", drawIcon}}, drawPanel, drawAlert});
}

int openWindows = 0;

} // namespace

std::unique_ptr<FrontEnd> makeFrontEnd(MainLoop& mainLoop)
{
    return std::make_unique<MacFrontEnd>(mainLoop);
}

void windowOpens()
{
    ++openWindows;
    [NSApp unhideWithoutActivation];
}

void windowCloses()
{
    --openWindows;
    if (openWindows == 0 && NSApp.active) {
        [NSApp hide:nil]; // activates the next program
    }
}

int runFrontEnd(const CommandLine& commandLine, char** /*words*/)
{
    @autoreleasepool {
        const bool draws = commandLine.action == CommandLine::Action::screenshots;
        FileDescriptor lock;
        if (!draws && !commandLine.demo && !becomeOneInstance(lock)) {
            return 0;
        }
        // None in a session without a screen, such as one over a remote shell.
        if ((__bridge_transfer id)CGSessionCopyCurrentDictionary() == nil) {
            std::fputs("voltmere: this session has no screen; log in at the Mac, or use --list\n",
                       stderr);
            return exitStatus::cannotRun;
        }
        [NSApplication.sharedApplication
            setActivationPolicy:NSApplicationActivationPolicyAccessory];
        return draws ? drawScreenshots(commandLine) : runInMenuBar(commandLine);
    }
}

} // namespace voltmere
