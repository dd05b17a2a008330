#include "alerting/check_result.h"

#include "texts/l10n.h"

#include <utility>

namespace voltmere {

std::string statusText(const std::vector<BatteryDevice>& devices, std::int64_t threshold)
{
    if (devices.empty()) {
        return L10n::t("status.noDevice");
    }
    const std::vector<BatteryDevice> low = lowDevices(devices, threshold);
    if (low.empty()) {
        return L10n::t("status.normal");
    }
    return L10n::format(L10n::t("status.lowDetail"),
                        namesWithLevels(low, L10n::t("listSeparator")));
}

CheckVerdict evaluateCheck(const std::vector<BatteryDevice>& devices,
                           const std::set<std::int64_t>& alertedIDs, const CheckRules& rules)
{
    std::set<std::int64_t> alerted = alertedIDs;
    for (const BatteryDevice& device : devices) {
        if (!isLow(device, rules.threshold)) {
            alerted.erase(device.id);
        }
    }
    std::vector<BatteryDevice> toAlert = lowDevices(devices, rules.threshold);
    if (!rules.alert) {
        const bool allowed = rules.instantEnabled && rules.allowInstantAlert;
        std::erase_if(toAlert, [&](const BatteryDevice& device) {
            return !allowed || alerted.contains(device.id);
        });
    }
    for (const BatteryDevice& device : toAlert) {
        alerted.insert(device.id);
    }
    const bool logsAlert = !rules.alert && !toAlert.empty();
    return {std::move(alerted), std::move(toAlert), logsAlert};
}

std::string instantAlertLogLine(const std::vector<BatteryDevice>& devices)
{
    return "Voltmere: 立即提醒 " + namesWithLevels(devices, ", ");
}

AlertPayload makeAlertPayload(const std::vector<BatteryDevice>& devices, std::int64_t threshold)
{
    std::vector<BatteryDevice> low = lowDevices(devices, threshold);
    return low.empty() ? AlertPayload{devices, false} : AlertPayload{std::move(low), true};
}

} // namespace voltmere
