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
    std::set<std::int64_t> alerted = alertedIDs;
    for (const BatteryDevice& device : devices) {
        if (!isLow(device, rules.threshold)) {
            alerted.erase(device.id);
        }
    }
    std::vector<BatteryDevice> toAlert = devicesToAlert(devices, alerted, rules);
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
    if (low.empty()) {
        return {devices, false};
    }
    return {std::move(low), true};
}

} // namespace voltmere
