#pragma once

#include "app/services.h"
#include "model/battery_model.h"
#include "ports/notifications.h"
#include "ports/settings.h"

#include <memory>

namespace voltmere {

/// Finishes the start of the program.
struct AppDelegate {
    /// Reads the language again, registers the notification categories, and lets snooze alerts
    /// appear.
    void applicationDidFinishLaunching() const;

    const DefaultsStore& defaults;
    NotificationCentre& notifications;
    NotificationCentreDelegate& notificationDelegate;
};

/// The icon and the panel. Destroying the scene removes both.
class Scene {
public:
    virtual ~Scene() = default;

    /// Opens the panel, or brings the open one to the front.
    virtual void openPanel() = 0;
};

/// The windows of a system.
class FrontEnd {
public:
    virtual ~FrontEnd() = default;

    virtual Application& application() = 0;
    virtual AlertPresenter& alerts() = 0;

    /// Shows `model`, which must outlive the scene.
    virtual std::unique_ptr<Scene> show(BatteryModel& model) = 0;
};

/// The program in the tray or menu bar: owns the one model, and shows it as an icon and a panel.
class VoltmereApp {
public:
    /// The arguments must outlive this object.
    VoltmereApp(const CommandLine& commandLine, MainLoop& mainLoop, FrontEnd& frontEnd);

    /// Shows the icon and finishes the start, once the system has launched the program.
    void start();

    /// Runs until the user quits. Returns the exit status.
    int run();

    /// Opens the panel, as a later start of the program asks. Only after `start`.
    void openPanel() { scene->openPanel(); }

private:
    FrontEnd& frontEnd;
    Services services;
    BatteryModel model;
    AppDelegate delegate;
    std::unique_ptr<Scene> scene;
    const bool opensPanel;
};

} // namespace voltmere
