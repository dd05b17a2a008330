#pragma once

#include "ports/desktop.h"
#include "ports/time.h"

#include <functional>

class QWidget;

namespace voltmere {

/// Shows reminders as windows of this program. What it is given must outlive it and its alerts.
class SnoozeAlertPresenter : public AlertPresenter {
public:
    using WindowAction = std::function<void(QWidget& window)>;

    /// `afterShow` does to each window, whenever it was brought to the screen's front, what the
    /// desktop needs beyond Qt.
    SnoozeAlertPresenter(
        const Appearance& appearance, const Pointer& pointer, RunLoop& runLoop,
        WindowAction afterShow = [](QWidget&) {});

    std::unique_ptr<Alert> present(AlertContent content, AlertActions actions) override;

private:
    const Appearance& appearance;
    const Pointer& pointer;
    RunLoop& runLoop;
    WindowAction afterShow;
};

} // namespace voltmere
