#include "model/battery_model.h"

#include "alerting/check_result.h"
#include "alerting/notifications.h"
#include "model/settings.h"
#include "snooze/custom_time.h"
#include "snooze/snooze_alert.h"
#include "texts/l10n.h"

#include <utility>

namespace voltmere {

namespace {

constexpr Seconds tickInterval{60};

/// The delay before a snooze alert tries again while the program is still launching.
constexpr Seconds launchRetryDelay{1.2};

} // namespace

bool BatteryModel::launchSettled = false;

BatteryModel::BatteryModel(ModelServices given)
    : devices(objectWillChange, {})
    , threshold(objectWillChange, stored(given.defaults, settings::threshold), [this] { save(); })
    , checkHour(objectWillChange, stored(given.defaults, settings::checkHour),
                [this] { saveAndReschedule(); })
    , checkMinute(objectWillChange, stored(given.defaults, settings::checkMinute),
                  [this] { saveAndReschedule(); })
    , enabled(objectWillChange, stored(given.defaults, settings::enabled),
              [this] { saveAndReschedule(); })
    , instantEnabled(objectWillChange, stored(given.defaults, settings::instantEnabled),
                     [this] { save(); })
    , lastChecked(objectWillChange, std::nullopt)
    , status(objectWillChange, {})
    , language(objectWillChange, L10n::storedSetting(given.defaults), [this] { languageChanged(); })
    , launchAtLogin(objectWillChange, {},
                    [this] {
                        if (!syncingLaunchAtLogin) {
                            applyLaunchAtLogin(launchAtLogin);
                        }
                    })
    , customHour(objectWillChange, {})
    , customMinute(objectWillChange, {})
    , services(std::move(given))
{
    const LocalTime present = services.calendar.localTime(services.clock.now());
    customHour = present.hour;
    customMinute = present.minute;
    L10n::setting = language;
    refreshLaunchAtLogin();
    status = L10n::t("status.waiting");
    services.notifications.requestAuthorisation(authorisation::alert | authorisation::sound);
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

void BatteryModel::saveAndReschedule()
{
    save();
    scheduleTimer();
}

void BatteryModel::languageChanged()
{
    save();
    L10n::setting = language;
    NotificationSetup::registerCategories(services.notifications, services.notificationDelegate);
    if (!devices->empty()) {
        status = statusText(devices, threshold);
    }
}

void BatteryModel::refreshLaunchAtLogin()
{
    const bool on = services.loginItems.isEnabled();
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
        services.notifications.add({.identifier = "launch-fail-" + randomUuid(),
                                    .content = {.title = L10n::t("panel.launchAtLogin"),
                                                .body = *failure,
                                                .defaultSound = false,
                                                .category = {}},
                                    .delay = std::nullopt});
    }
    refreshLaunchAtLogin();
}

// The check cycle

void BatteryModel::scheduleTimer()
{
    timer.reset();
    pollTicks = 0;
    timer = services.runLoop.scheduleRepeating(tickInterval, whileAlive([this] { tick(); }));
}

void BatteryModel::tick()
{
    const LocalTime now = services.calendar.localTime(services.clock.now());
    if (enabled && now.hour == checkHour && now.minute == checkMinute) {
        pollTicks = 0;
        checkNow();
        return;
    }
    if (++pollTicks < pollsPerRefresh) {
        return;
    }
    pollTicks = 0;
    refresh(true);
}

void BatteryModel::checkNow()
{
    readInBackground({.useNameCache = false, .alert = true, .allowInstantAlert = true});
}

void BatteryModel::refresh(bool allowInstantAlert)
{
    readInBackground(
        {.useNameCache = true, .alert = false, .allowInstantAlert = allowInstantAlert});
}

void BatteryModel::readInBackground(ReadingPurpose purpose)
{
    auto apply = whileAlive([this, purpose](const DeviceList& reading) {
        applyCheckResult(reading, purpose.alert, purpose.allowInstantAlert);
    });
    services.runLoop.runInBackground(
        [reader = services.reader, &runLoop = services.runLoop, apply, purpose] {
            runLoop.postToMain(
                [apply, reading = reader->readDevices(purpose.useNameCache)] { apply(reading); });
        });
}

void BatteryModel::applyCheckResult(DeviceList reading, bool alert, bool allowInstantAlert)
{
    lastChecked = services.clock.now();
    devices = std::move(reading);
    status = statusText(devices, threshold);

    CheckVerdict verdict = evaluateCheck(devices, alertedIDs,
                                         {.threshold = threshold,
                                          .alert = alert,
                                          .allowInstantAlert = allowInstantAlert,
                                          .instantEnabled = instantEnabled});
    alertedIDs = std::move(verdict.alertedIDs);
    if (verdict.logsAlert) {
        services.log.write(instantAlertLogLine(verdict.toAlert));
    }
    if (!verdict.toAlert.empty()) {
        showSnoozeAlert(verdict.toAlert, true);
    }
}

AlertPayload BatteryModel::alertPayload() const
{
    return makeAlertPayload(devices, threshold);
}

// The snooze alert

void BatteryModel::showSnoozeAlert(const DeviceList& lowDevices, bool isLow)
{
    if (!launchSettled) {
        const auto retry = launchRetries.emplace(launchRetries.end());
        *retry = services.runLoop.scheduleOnce(launchRetryDelay, [this, retry, lowDevices, isLow] {
            launchRetries.erase(retry);
            showSnoozeAlert(lowDevices, isLow);
        });
        return;
    }
    if (activeAlert && activeAlert->isVisible()) {
        activeAlert->bringToFront();
        return;
    }
    const ClockTime preselected = preselectedTime(services.clock.now(), services.calendar);
    activeAlert =
        services.alerts.present(makeAlertContent(lowDevices, isLow, preselected), alertActions());
}

AlertActions BatteryModel::alertActions()
{
    return {.cancel = whileAlive([this] { dismissSnoozeAlert(); }),
            .chooseOption = whileAlive([this](std::size_t option) {
                dismissSnoozeAlert();
                scheduleSnooze(snoozeOptions.at(option).delay);
            }),
            .chooseTime = whileAlive([this](std::int64_t hour, std::int64_t minute) {
                dismissSnoozeAlert();
                customHour = hour;
                customMinute = minute;
                scheduleCustomTime();
            })};
}

void BatteryModel::dismissSnoozeAlert()
{
    if (activeAlert) {
        activeAlert->orderOut();
    }
}

void BatteryModel::scheduleSnooze(Seconds delay)
{
    snoozeTimer.reset();
    snoozeTimer = services.runLoop.scheduleOnce(delay, whileAlive([this] {
                                                    const AlertPayload payload = alertPayload();
                                                    showSnoozeAlert(payload.devices, payload.isLow);
                                                }));
}

void BatteryModel::scheduleCustomTime()
{
    const ClockTime time{static_cast<int>(customHour.get()), static_cast<int>(customMinute.get())};
    scheduleSnooze(untilNext(time, services.clock.now(), services.calendar));
}

} // namespace voltmere
