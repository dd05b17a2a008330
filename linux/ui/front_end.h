#pragma once

#include "app/voltmere_app.h"
#include "linux/ui/portal_appearance.h"
#include "linux/ui/alert.h"

namespace voltmere {

/// The windows of a Linux desktop.
class QtFrontEnd : public FrontEnd {
public:
    /// Needs a Qt application with windows. `mainLoop` and `log` must outlive it.
    QtFrontEnd(MainLoop& mainLoop, SystemLog& log);
    ~QtFrontEnd() override;

    Application& application() override { return *qtApplication; }
    AlertPresenter& alerts() override { return *presenter; }
    std::unique_ptr<Scene> show(BatteryModel& model) override;

private:
    MainLoop& mainLoop;
    SystemLog& log;
    PortalAppearance appearance;
    std::unique_ptr<Pointer> pointer;
    std::unique_ptr<Application> qtApplication;
    std::unique_ptr<AlertPresenter> presenter;
};

} // namespace voltmere
