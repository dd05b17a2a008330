#include "model/battery_model.h"

#include "alerting/notification_setup.h"
#include "alerting/status_text.h"
#include "alerting/uuid.h"
#include "model/app_language.h"
#include "model/l10n.h"
#include "model/setting_defaults.h"

#include <utility>

namespace voltmere {

namespace {

void notifyLaunchFailure(NotificationCentre& centre, const std::string& description)
{
    NotificationRequest request;
    request.identifier = "launch-fail-" + randomUuid();
    request.content.title = L10n::t("panel.launchAtLogin");
    request.content.body = description;
    centre.add(std::move(request));
}

} // namespace

bool BatteryModel::launchSettled = false;

BatteryModel::BatteryModel(ModelServices given)
    : devices(objectWillChange, {})
    , threshold(objectWillChange, given.defaults.integer("threshold").value_or(defaultThreshold),
                [this] { save(); })
    , checkHour(objectWillChange, given.defaults.integer("hour").value_or(defaultCheckHour),
                [this] { save(), scheduleTimer(); })
    , checkMinute(objectWillChange, given.defaults.integer("minute").value_or(defaultCheckMinute),
                  [this] { save(), scheduleTimer(); })
    , enabled(objectWillChange, given.defaults.boolean("enabled").value_or(defaultEnabled),
              [this] { save(), scheduleTimer(); })
    , instantEnabled(objectWillChange,
                     given.defaults.boolean("instant").value_or(defaultInstantEnabled),
                     [this] { save(); })
    , lastChecked(objectWillChange, std::nullopt)
    , status(objectWillChange, "等待检查")
    , language(objectWillChange,
               given.defaults.text("language").value_or(std::string(rawValue(AppLanguage::system))),
               [this] { languageChanged(); })
    , launchAtLogin(objectWillChange, false,
                    [this] {
                        if (!syncingLaunchAtLogin) {
                            applyLaunchAtLogin(launchAtLogin);
                        }
                    })
    , customHour(objectWillChange, given.calendar.localTime(given.clock.now()).hour)
    , customMinute(objectWillChange, given.calendar.localTime(given.clock.now()).minute)
    , services(std::move(given))
{
    L10n::setting = language;
    refreshLaunchAtLogin();
    status = L10n::t("status.waiting");
    requestNotifications();
    checkNow();
    scheduleTimer();
}

void BatteryModel::save()
{
    services.defaults.setInteger("threshold", threshold);
    services.defaults.setInteger("hour", checkHour);
    services.defaults.setInteger("minute", checkMinute);
    services.defaults.setBoolean("enabled", enabled);
    services.defaults.setBoolean("instant", instantEnabled);
}

void BatteryModel::languageChanged()
{
    save();
    L10n::setting = language;
    NotificationSetup::registerCategories(services.notifications, services.notificationDelegate);
    refreshStatusText();
}

void BatteryModel::refreshStatusText()
{
    if (!devices->empty()) {
        status = statusText(devices, threshold);
    }
}

void BatteryModel::requestNotifications()
{
    services.notifications.requestAuthorisation(authorisation::alert | authorisation::sound);
}

void BatteryModel::refreshLaunchAtLogin()
{
    const bool on = services.loginItems.status() == LoginItemService::Status::enabled;
    if (on == launchAtLogin) {
        return;
    }
    syncingLaunchAtLogin = true;
    launchAtLogin = on;
    syncingLaunchAtLogin = false;
}

void BatteryModel::applyLaunchAtLogin(bool wanted)
{
    const auto failure =
        wanted ? services.loginItems.registerItem() : services.loginItems.unregisterItem();
    if (failure) {
        services.log.write("Voltmere: 设置开机启动失败 " + *failure);
        notifyLaunchFailure(services.notifications, *failure);
    }
    refreshLaunchAtLogin();
}

} // namespace voltmere
