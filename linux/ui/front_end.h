#pragma once

#include "app/voltmere_app.h"
#include "linux/ui/alert.h"
#include "linux/ui/portal_appearance.h"
#include "ports/desktop.h"

namespace voltmere {

/// The program's windows as Qt knows them.
class QtApplication : public Application {
public:
    void activate() override;
};

/// The pointer as Qt knows it.
class QtPointer : public Pointer {
public:
    std::optional<PointerPosition> position() const override;
};

/// The windows of a Linux desktop.
class QtFrontEnd : public FrontEnd {
public:
    /// Needs a Qt application with windows. `mainLoop` and `log` must outlive it.
    QtFrontEnd(MainLoop& mainLoop, SystemLog& log);

    Application& application() override { return qtApplication; }
    AlertPresenter& alerts() override { return presenter; }
    std::unique_ptr<Scene> show(BatteryModel& model) override;

private:
    void followAppearance() const;

    MainLoop& mainLoop;
    SystemLog& log;
    PortalAppearance appearance;
    QtPointer pointer;
    QtApplication qtApplication;
    SnoozeAlertPresenter presenter;
};

} // namespace voltmere
