#pragma once

#include "devices/battery_device.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace voltmere {

/// The line that tells a person how a reading turned out, in the current language: no peripherals,
/// all fine, or which ones are low at `threshold` percent.
std::string statusText(const std::vector<BatteryDevice>& devices, std::int64_t threshold);

/// What a reading is judged by.
struct CheckRules {
    std::int64_t threshold; ///< percent
    bool alert;             ///< a full check: reminds of every low device, every time
    bool allowInstantAlert; ///< a refresh that may remind of newly low devices
    bool instantEnabled;    ///< the user wants such reminders
};

/// What a reading means.
struct CheckVerdict {
    std::set<std::int64_t> alertedIDs;  ///< the devices already reminded of, after this reading
    std::vector<BatteryDevice> toAlert; ///< whom to remind of now; nobody when empty
    bool logsAlert;                     ///< whether the reminder is written to the system log

    bool operator==(const CheckVerdict&) const = default;
};

/// Judges a reading. A device is reminded of once for each time it falls low, by a refresh, and at
/// every full check; it counts as charged again only above the threshold. An empty reading changes
/// nothing: devices that are out of sight keep their state.
CheckVerdict evaluateCheck(const std::vector<BatteryDevice>& devices,
                           const std::set<std::int64_t>& alertedIDs, const CheckRules& rules);

/// The line that the system log gets for an immediate reminder, the same in every language.
std::string instantAlertLogLine(const std::vector<BatteryDevice>& devices);

/// What a reminder shows when it is not a reading that raises it.
struct AlertPayload {
    std::vector<BatteryDevice> devices; ///< the low devices, or all of them when none is low
    bool isLow;

    bool operator==(const AlertPayload&) const = default;
};

/// The payload for the devices of the last reading, at `threshold` percent.
AlertPayload makeAlertPayload(const std::vector<BatteryDevice>& devices, std::int64_t threshold);

} // namespace voltmere
