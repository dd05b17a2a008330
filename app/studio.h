#pragma once

#include "app/services.h"
#include "devices/battery_device.h"
#include "model/battery_model.h"

#include <string>
#include <vector>

namespace voltmere {

/// The program as it is drawn to pictures: one reading, settings in memory, no outside effects.
class Studio {
public:
    /// Waits for the reading. `mainLoop` must outlive this object.
    Studio(const CommandLine& commandLine, MainLoop& mainLoop);

    Services services;
    BatteryModel model;
};

/// One form of the snooze alert.
struct AlertSample {
    std::string name;
    std::vector<BatteryDevice> devices;
    bool isLow;
};

/// The forms of the snooze alert that the pictures show.
std::vector<AlertSample> alertSamples();

} // namespace voltmere
