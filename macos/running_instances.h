#pragma once

#include "macos/instance_choice.h"

#include <functional>
#include <memory>
#include <vector>

namespace voltmere {

/// The processes of this program's bundle in the user's session, this one among them; none for a
/// program without a bundle.
std::vector<RunningInstance> runningInstances();

/// Asks the other processes of this program to open their panel.
void requestPanel();

/// Hears when a person opens the program while it runs already, from Finder or in a terminal.
class PanelRequests {
public:
    explicit PanelRequests(std::function<void()> open);
    ~PanelRequests();
    PanelRequests(const PanelRequests&) = delete;
    PanelRequests& operator=(const PanelRequests&) = delete;

private:
    struct Cocoa;
    std::unique_ptr<Cocoa> cocoa;
};

} // namespace voltmere
