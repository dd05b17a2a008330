#include "alerting/check_result.h"

#include <utility>

namespace voltmere {

namespace {

std::vector<BatteryDevice> devicesToAlert(const std::vector<BatteryDevice>& devices,
                                          const std::set<std::int64_t>& alertedIDs,
                                          const CheckRules& rules)
{
    if (rules.alert) {
        return lowDevices(devices, rules.threshold);
    }
    if (!rules.instantEnabled || !rules.allowInstantAlert) {
        return {};
    }
    std::vector<BatteryDevice> newlyLow = lowDevices(devices, rules.threshold);
    std::erase_if(newlyLow, [&alertedIDs](const BatteryDevice& device) {
        return alertedIDs.contains(device.id);
    });
    return newlyLow;
}

} // namespace

CheckVerdict evaluateCheck(const std::vector<BatteryDevice>& devices,
                           const std::set<std::int64_t>& alertedIDs, const CheckRules& rules)
{
    CheckVerdict verdict;
    verdict.alertedIDs = alertedIDs;
    for (const BatteryDevice& device : devices) {
        if (!isLow(device, rules.threshold)) {
            verdict.alertedIDs.erase(device.id);
        }
    }
    verdict.toAlert = devicesToAlert(devices, verdict.alertedIDs, rules);
    for (const BatteryDevice& device : verdict.toAlert) {
        verdict.alertedIDs.insert(device.id);
    }
    verdict.logsAlert = !rules.alert && !verdict.toAlert.empty();
    return verdict;
}

std::string instantAlertLogLine(const std::vector<BatteryDevice>& devices)
{
    return "Voltmere: 立即提醒 " + namesWithLevels(devices, ", ");
}

AlertPayload makeAlertPayload(const std::vector<BatteryDevice>& devices, std::int64_t threshold)
{
    std::vector<BatteryDevice> low = lowDevices(devices, threshold);
    if (low.empty()) {
        return {devices, false};
    }
    return {std::move(low), true};
}

} // namespace voltmere
