#include "model/battery_model.h"

#include "alerting/status_text.h"

#include <utility>

namespace voltmere {

namespace {

constexpr Seconds tickInterval{60};

} // namespace

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
    ++pollTicks;
    if (pollTicks < pollsPerRefresh) {
        return;
    }
    pollTicks = 0;
    refresh(true);
}

void BatteryModel::checkNow()
{
    readInBackground(false, true, true);
}

void BatteryModel::refresh(bool allowInstantAlert)
{
    readInBackground(true, false, allowInstantAlert);
}

void BatteryModel::readInBackground(bool useNameCache, bool alert, bool allowInstantAlert)
{
    auto apply = whileAlive([this, alert, allowInstantAlert](const DeviceList& reading) {
        applyCheckResult(reading, alert, allowInstantAlert);
    });
    services.runLoop.runInBackground(
        [reader = services.reader, &runLoop = services.runLoop, apply, useNameCache] {
            runLoop.postToMain(
                [apply, reading = reader->readDevices(useNameCache)] { apply(reading); });
        });
}

void BatteryModel::applyCheckResult(DeviceList reading, bool alert, bool allowInstantAlert)
{
    lastChecked = services.clock.now();
    devices = std::move(reading);
    if (devices->empty()) {
        status = statusText(devices, threshold);
        return;
    }
    refreshStatusText();

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

} // namespace voltmere
