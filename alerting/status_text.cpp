#include "alerting/status_text.h"

#include "texts/l10n.h"

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

} // namespace voltmere
