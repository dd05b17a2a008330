#include "ui/panel.h"

#include "snooze/custom_time.h"
#include "texts/l10n.h"
#include "texts/plain_text.h"

namespace voltmere {

namespace {

std::string percentage(std::int64_t level)
{
    return std::to_string(level) + '%';
}

std::vector<DeviceRow> deviceRows(const BatteryModel& model)
{
    std::vector<DeviceRow> rows;
    for (const BatteryDevice& device : model.devices.get()) {
        rows.push_back({device.id, device.symbol, shownName(device), percentage(device.level),
                        isLow(device, model.threshold)});
    }
    return rows;
}

PopUp<std::int64_t> thresholdPopUp(std::int64_t present)
{
    constexpr int lowest = 1;
    constexpr int highest = 90;
    PopUp<std::int64_t> popUp;
    popUp.name = L10n::own("name.threshold");
    for (int percent = lowest; percent <= highest; ++percent) {
        popUp.add(percentage(percent), percent, present);
    }
    return popUp;
}

PopUp<std::string> languagePopUp(const std::string& present)
{
    PopUp<std::string> popUp;
    popUp.name = L10n::t("panel.language");
    for (const AppLanguage language : allAppLanguages) {
        const std::string raw(rawValue(language));
        popUp.add(L10n::own("language." + raw), raw, present);
    }
    return popUp;
}

} // namespace

PanelContent panelContent(const BatteryModel& model)
{
    PanelContent content;
    content.applicationName = L10n::t("app.name");
    content.devices = deviceRows(model);
    content.emptySymbol = "questionmark.circle";
    content.emptyText = L10n::t("status.noDevice");
    content.warnBelow = L10n::t("panel.warnBelow");
    content.threshold = thresholdPopUp(model.threshold);
    content.warnSuffix = L10n::t("panel.warnSuffix");
    content.instantAlert = {L10n::t("panel.instantAlert"), model.instantEnabled};
    content.dailyCheck = {L10n::t("panel.dailyCheck"), model.enabled};
    content.checkTime = L10n::t("panel.checkTime");
    content.checkHour = hourPopUp(model.checkHour);
    content.timeSeparator = ":";
    content.checkMinute = minutePopUp(model.checkMinute);
    content.status = plainText(model.status.get());
    // The line is older than a threshold changed since, so its own text decides.
    content.statusIsRed = model.status->starts_with(L10n::t("status.low"));
    content.testAlert = L10n::t("panel.testNotification");
    content.launchAtLogin = {L10n::t("panel.launchAtLogin"), model.launchAtLogin};
    content.quit = L10n::t("panel.quit");
    content.languageLabel = L10n::t("panel.language");
    content.language = languagePopUp(model.language);
    return content;
}

} // namespace voltmere
