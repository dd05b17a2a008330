#pragma once

#include "platform/alert_presenter.h"
#include "platform/appearance.h"
#include "platform/pointer.h"
#include "platform/run_loop.h"

namespace voltmere {

/// Shows reminders as windows of this program. What it is given must outlive it and its alerts.
class SnoozeAlertPresenter : public AlertPresenter {
public:
    SnoozeAlertPresenter(const Appearance& appearance, const Pointer& pointer, RunLoop& runLoop);

    std::unique_ptr<Alert> present(AlertContent content, AlertActions actions) override;

private:
    const Appearance& appearance;
    const Pointer& pointer;
    RunLoop& runLoop;
};

} // namespace voltmere
