#pragma once

#include "devices/battery_device.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace voltmere {

/// The panel's status line for a reading, in the current language: no peripherals, all fine, or the
/// devices that are low at `threshold` percent.
std::string statusText(const std::vector<BatteryDevice>& devices, std::int64_t threshold);

/// The inputs that decide what a reading means.
struct CheckRules {
    std::int64_t threshold; ///< percent
    bool alert;             ///< a full check: alerts for every low device, every time
    bool allowInstantAlert; ///< a refresh that may alert for newly low devices
    bool instantEnabled;    ///< the user wants alerts from a refresh
};

/// What a reading means.
struct CheckVerdict {
    std::set<std::int64_t> alertedIDs;  ///< the devices already alerted, after this reading
    std::vector<BatteryDevice> toAlert; ///< the devices to alert for now; empty for no alert
    bool logsAlert;                     ///< whether the alert is written to the system log

    bool operator==(const CheckVerdict&) const = default;
};

/// Judges a reading. A refresh alerts once each time that a device falls low; a full check always
/// does. A device counts as charged again only above the threshold. An empty reading changes
/// nothing: devices that are out of sight keep their state.
CheckVerdict evaluateCheck(const std::vector<BatteryDevice>& devices,
                           const std::set<std::int64_t>& alertedIDs, const CheckRules& rules);

/// The line of the system log for an immediate alert. Log lines are not translated: this one and
/// that of a failed launch at login are Chinese, all others English.
std::string instantAlertLogLine(const std::vector<BatteryDevice>& devices);

/// What a snooze alert shows when the user asks for it or a snooze ends.
struct AlertPayload {
    std::vector<BatteryDevice> devices; ///< the low devices, or all of them when none is low
    bool isLow;

    bool operator==(const AlertPayload&) const = default;
};

/// The payload for the devices of the last reading, at `threshold` percent.
AlertPayload makeAlertPayload(const std::vector<BatteryDevice>& devices, std::int64_t threshold);

} // namespace voltmere
