#include "model/battery_model.h"

#include "alerting/notification_setup.h"
#include "alerting/status_text.h"
#include "alerting/uuid.h"
#include "model/settings.h"
#include "texts/l10n.h"

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
    : BatteryModel(std::move(given), given.calendar.localTime(given.clock.now()))
{
}

BatteryModel::BatteryModel(ModelServices&& given, const LocalTime& present)
    : devices(objectWillChange, {})
    , threshold(objectWillChange, stored(given.defaults, settings::threshold), [this] { save(); })
    , checkHour(objectWillChange, stored(given.defaults, settings::checkHour),
                [this] { save(), scheduleTimer(); })
    , checkMinute(objectWillChange, stored(given.defaults, settings::checkMinute),
                  [this] { save(), scheduleTimer(); })
    , enabled(objectWillChange, stored(given.defaults, settings::enabled),
              [this] { save(), scheduleTimer(); })
    , instantEnabled(objectWillChange, stored(given.defaults, settings::instantEnabled),
                     [this] { save(); })
    , lastChecked(objectWillChange, std::nullopt)
    , status(objectWillChange, "等待检查")
    , language(objectWillChange, L10n::storedSetting(given.defaults), [this] { languageChanged(); })
    , launchAtLogin(objectWillChange, false,
                    [this] {
                        if (!syncingLaunchAtLogin) {
                            applyLaunchAtLogin(launchAtLogin);
                        }
                    })
    , customHour(objectWillChange, present.hour)
    , customMinute(objectWillChange, present.minute)
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
    services.defaults.setInteger(settings::threshold.key, threshold);
    services.defaults.setInteger(settings::checkHour.key, checkHour);
    services.defaults.setInteger(settings::checkMinute.key, checkMinute);
    services.defaults.setBoolean(settings::enabled.key, enabled);
    services.defaults.setBoolean(settings::instantEnabled.key, instantEnabled);
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
