#pragma once

#include "macos/ui/hover_controls.h"
#include "model/battery_model.h"
#include "ui/panel.h"

#import <AppKit/AppKit.h>

#include <functional>
#include <string>
#include <vector>

namespace voltmere {

/// The panel that opens from the menu-bar icon. It draws `panelContent` and passes the user's
/// choices to the model, which it never changes otherwise. It keeps no state of its own, so it is
/// built when the panel opens and destroyed when it closes, which may happen in the action of one
/// of its controls.
///
/// It is 320 points wide and exactly as high as its rows.
class ContentView {
public:
    /// `quit` ends the program; `resized` is called after each redraw. The model must outlive the
    /// view.
    ContentView(BatteryModel& model, std::function<void()> quit, std::function<void()> resized);
    ContentView(const ContentView&) = delete;
    ContentView& operator=(const ContentView&) = delete;

    NSView* view() const { return stack; }

    /// To be called when the panel has appeared: asks for a fresh reading.
    void appeared();

private:
    NSView* makeHeader();
    NSView* makeDevices();
    NSView* makeStatus();
    NSTextField* makeText(std::string PanelContent::*text);
    NSButton* makeButton(std::string PanelContent::*title, std::function<void()> action);
    NSButton* makeToggle(Toggle PanelContent::*toggle, Published<bool>& setting);
    template<typename Value>
    NSPopUpButton* makePicker(PopUp<Value> PanelContent::*popUp, Published<Value>& setting);

    void redraw();

    BatteryModel& model;
    std::function<void()> resized;
    PanelContent content; ///< as it is shown
    NSStackView* stack;
    RowTargets targets;
    std::vector<std::function<void()>> updates; ///< each brings a control in line with `content`
    Subscription redraws;
};

} // namespace voltmere
