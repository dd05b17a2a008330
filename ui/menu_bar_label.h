#pragma once

#include "model/battery_model.h"
#include "platform/appearance.h"
#include "platform/status_item.h"
#include "ui/program_icon.h"
#include "ui/redraw_scheduler.h"

#include <functional>
#include <memory>

namespace voltmere {

/// The program's image in a menu bar that takes one as wide as it is. It shows the model's devices
/// and follows them; a click opens or closes the panel.
class MenuBarLabel : public ProgramIcon {
public:
    /// `toggle` is given the item's place. `appearance` must outlive the label.
    MenuBarLabel(BatteryModel& model, const Appearance& appearance,
                 std::unique_ptr<StatusItem> item, std::function<void(const QRect& icon)> toggle);

    /// Only a click tells.
    QRect place() const override { return {}; }

private:
    void redraw();

    BatteryModel& model;
    const Appearance& appearance;
    std::unique_ptr<StatusItem> item;
    RedrawScheduler redrawScheduler;
};

} // namespace voltmere
