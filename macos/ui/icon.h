#pragma once

#include "macos/ui/hover_controls.h"
#include "model/battery_model.h"
#include "ui/icon.h"

#import <AppKit/AppKit.h>

#include <functional>
#include <optional>
#include <utility>

namespace voltmere {

/// The scheme of the application's appearance; nothing where it is neither dark nor light.
std::optional<ColourScheme> applicationScheme();

/// The program's icon in the menu bar, from construction to destruction. It shows the model's
/// devices, and follows them and the application's appearance.
class StatusLabel {
public:
    /// `toggle` is called at each click. The model must outlive the icon.
    StatusLabel(BatteryModel& model, std::function<void()> toggle);
    ~StatusLabel();
    StatusLabel(const StatusLabel&) = delete;
    StatusLabel& operator=(const StatusLabel&) = delete;

    /// The icon's button, whose place on the screen the panel needs.
    NSStatusBarButton* button() const { return item.button; }

private:
    void redraw();

    BatteryModel& model;
    NSStatusItem* item;
    VoltmereActionTarget* clicks;
    VoltmereActionTarget* appearance;
    std::optional<std::pair<std::optional<IconLevel>, std::optional<ColourScheme>>> shownPicture;
    std::optional<IconTexts> shownTexts;
    Subscription redraws;
};

} // namespace voltmere
