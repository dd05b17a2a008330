#pragma once

#include "app/voltmere_app.h"
#include "ports/desktop.h"

namespace voltmere {

/// The program among the applications of the system. The windows report themselves, so that the
/// keyboard goes back to the program in front once the last one has closed.
class MacApplication : public Application {
public:
    void activate() override;

    /// To be called before a window is shown.
    void windowOpens();

    /// To be called after a window has been taken off the screen.
    void windowCloses();

private:
    int openWindows = 0;
};

/// The windows of macOS.
class MacFrontEnd : public FrontEnd, private AlertPresenter {
public:
    /// Needs the application object. `mainLoop` must outlive it.
    explicit MacFrontEnd(MainLoop& mainLoop)
        : mainLoop(mainLoop)
    {
    }

    Application& application() override { return macApplication; }
    AlertPresenter& alerts() override { return *this; }
    std::unique_ptr<Scene> show(BatteryModel& model) override;

private:
    std::unique_ptr<Alert> present(AlertContent content, AlertActions actions) override;

    MainLoop& mainLoop;
    MacApplication macApplication;
};

/// Runs the program in the menu bar, or draws the pictures, as the command line asks. Returns the
/// exit status.
int runWindows(const CommandLine& commandLine);

} // namespace voltmere
