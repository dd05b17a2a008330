#include "snooze/snooze_alert.h"

#include "texts/l10n.h"

namespace voltmere {

namespace {

std::string kindOf(const BatteryDevice& device)
{
    switch (device.order) {
    case 0:
        return L10n::t("device.mouse");
    case 1:
        return L10n::t("device.keyboard");
    case 2:
        return L10n::t("device.trackpad");
    default:
        return shownName(device);
    }
}

/// Kind and level of each device, without any blank: the window is narrow.
std::string tightList(const std::vector<BatteryDevice>& devices)
{
    std::string list;
    for (const BatteryDevice& device : devices) {
        if (&device != &devices.front()) {
            list += L10n::t("listSeparator");
        }
        list += kindOf(device) + std::to_string(device.level) + '%';
    }
    return list;
}

NamedText titleText(const std::vector<BatteryDevice>& devices, bool isLow)
{
    if (!isLow) {
        return {L10n::t("alert.normalTitle"), {}, {}};
    }
    if (devices.size() != 1) {
        return {L10n::t("alert.titleMany"), {}, {}};
    }
    const std::string pattern = L10n::t("alert.titleOne");
    const std::string_view placeholder = "%@";
    const std::size_t place = pattern.find(placeholder);
    return {pattern.substr(0, place), shownName(devices.front()),
            pattern.substr(place + placeholder.size())};
}

std::string detailText(const std::vector<BatteryDevice>& devices, bool isLow)
{
    if (isLow) {
        return devices.size() == 1 ? L10n::format(L10n::t("alert.lowSingle"), devices.front().level)
                                   : tightList(devices) + L10n::t("alert.chargeSuffix");
    }
    return devices.empty() ? L10n::t("status.noDevice")
                           : L10n::format(L10n::t("alert.normalText"), tightList(devices));
}

} // namespace

AlertContent makeAlertContent(const std::vector<BatteryDevice>& devices, bool isLow,
                              const ClockTime& preselected)
{
    AlertContent content;
    content.applicationName = L10n::t("app.name");
    content.title = titleText(devices, isLow);
    content.detail = detailText(devices, isLow);
    content.detailIsRed = isLow;
    content.prompt = L10n::t("alert.choose");
    for (const SnoozeOption& option : snoozeOptions) {
        content.options.push_back(L10n::t(option.labelKey));
    }
    content.customTimeCaption = L10n::t("alert.customTitle");
    content.hour = hourPopUp(preselected.hour);
    content.minute = minutePopUp(preselected.minute);
    content.confirmTitle = L10n::t("alert.ok");
    content.cancelTitle = L10n::t("alert.cancel");
    return content;
}

} // namespace voltmere
