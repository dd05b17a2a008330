#pragma once

#include "app/app_delegate.h"
#include "app/command_line.h"
#include "app/services.h"
#include "linux/ui/icon.h"
#include "linux/ui/panel_controller.h"
#include "model/battery_model.h"

#include <memory>

namespace voltmere {

/// The program in the menu bar: owns the one model, and shows it as an icon and a panel.
class VoltmereApp {
public:
    explicit VoltmereApp(const CommandLine& commandLine);
    ~VoltmereApp();
    VoltmereApp(const VoltmereApp&) = delete;
    VoltmereApp& operator=(const VoltmereApp&) = delete;

    /// Runs until the user quits. Returns the exit status.
    int run();

    /// Opens the panel, as a later start of the program asks.
    void openPanel();

private:
    BatteryModel& sharedModel();
    void showIcon();
    void giveUpOnTray();
    void followAppearance() const;
    std::unique_ptr<QWidget> makePanel();

    Services services;
    AppDelegate delegate;
    std::unique_ptr<BatteryModel> model;
    PanelController panel;
    std::unique_ptr<QObject> trayWatch;
    std::unique_ptr<Timer> trayDeadline;
    std::unique_ptr<StatusLabel> icon;
    bool opensPanel;
};

} // namespace voltmere
