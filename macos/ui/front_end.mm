#include "macos/ui/front_end.h"

#include "app/terminal.h"
#include "macos/run_loop.h"
#include "macos/single_instance.h"
#include "macos/ui/alert.h"
#include "macos/ui/icon.h"
#include "macos/ui/panel_controller.h"
#include "macos/ui/screenshots.h"

#include <cstdio>
#include <utility>

/// Tells the program what the system asks of it.
@interface VoltmereApplicationDelegate : NSObject <NSApplicationDelegate>
@property (nonatomic) std::function<void()> launch;
@property (nonatomic) std::function<void()> reopen;
@end

@implementation VoltmereApplicationDelegate

- (void)applicationDidFinishLaunching:(NSNotification*)__unused notification
{
    _launch();
}

- (BOOL)applicationShouldHandleReopen:(NSApplication*)__unused sender
                    hasVisibleWindows:(BOOL)__unused visible
{
    _reopen();
    return NO;
}

- (BOOL)applicationSupportsSecureRestorableState:(NSApplication*)__unused application
{
    return YES; // otherwise the system logs a warning
}

@end

namespace voltmere {

namespace {

class MacScene : public Scene {
public:
    MacScene(BatteryModel& model, MacApplication& application, MainLoop& mainLoop)
        : icon(model, [this] { [panel toggle]; })
        , panel([[VoltmerePanel alloc] initWithModel:&model
                                         application:&application
                                                icon:icon.button()
                                                quit:[&mainLoop] { mainLoop.stop(0); }])
    {
    }

    ~MacScene() override { [panel dismiss]; }

    void openPanel() override { [panel open]; }

private:
    StatusLabel icon;
    VoltmerePanel* panel;
};

/// Whether the process belongs to a session that has a screen, unlike one over a remote shell.
bool hasWindowServer()
{
    const CFDictionaryRef session = CGSessionCopyCurrentDictionary();
    if (session == nullptr) {
        return false;
    }
    CFRelease(session);
    return true;
}

int runInMenuBar(const CommandLine& commandLine, LockedInstance& instance)
{
    MacRunLoop mainLoop;
    MacFrontEnd frontEnd(mainLoop);
    VoltmereApp program(commandLine, mainLoop, frontEnd);
    // The application holds it weakly.
    VoltmereApplicationDelegate* const delegate __attribute__((objc_precise_lifetime)) =
        [[VoltmereApplicationDelegate alloc] init];
    delegate.launch = [&] {
        program.start();
        if (!commandLine.demo) {
            instance.onActivation([&program] { program.openPanel(); });
        }
    };
    delegate.reopen = [&program] { program.openPanel(); };
    NSApp.delegate = delegate;
    return program.run();
}

} // namespace

void MacApplication::activate()
{
    [NSApp activateIgnoringOtherApps:YES];
}

void MacApplication::windowOpens()
{
    ++openWindows;
    [NSApp unhideWithoutActivation];
}

void MacApplication::windowCloses()
{
    --openWindows;
    if (openWindows == 0 && NSApp.active) {
        [NSApp hide:nil]; // activates the next program
    }
}

std::unique_ptr<Scene> MacFrontEnd::show(BatteryModel& model)
{
    return std::make_unique<MacScene>(model, macApplication, mainLoop);
}

std::unique_ptr<Alert> MacFrontEnd::present(AlertContent content, AlertActions actions)
{
    auto alert = makeSnoozeAlert(content, actions, macApplication);
    alert->show(mainLoop);
    return alert;
}

int runWindows(const CommandLine& commandLine)
{
    @autoreleasepool {
        const bool draws = commandLine.action == CommandLine::Action::screenshots;
        LockedInstance instance;
        if (!draws && !commandLine.demo &&
            instance.isLaterStart(instanceLockPath(), *makeSystemLog())) {
            return 0;
        }
        if (!hasWindowServer()) {
            std::fputs("voltmere: this session has no screen; log in at the Mac, or use --list\n",
                       stderr);
            return exitStatus::cannotRun;
        }
        [NSApplication.sharedApplication
            setActivationPolicy:NSApplicationActivationPolicyAccessory];
        return draws ? drawScreenshots(commandLine) : runInMenuBar(commandLine, instance);
    }
}

} // namespace voltmere
