#include "model/battery_model.h"

#include "snooze/custom_time.h"
#include "snooze/snooze_alert.h"
#include "snooze/snooze_options.h"

namespace voltmere {

namespace {

/// How long a reminder that came before the program had finished launching waits to try again.
constexpr Seconds launchRetryDelay{1.2};

} // namespace

void BatteryModel::showSnoozeAlert(const DeviceList& lowDevices, bool isLow)
{
    if (!launchSettled) {
        services.runLoop.postLater(launchRetryDelay, whileAlive([this, lowDevices, isLow] {
                                       showSnoozeAlert(lowDevices, isLow);
                                   }));
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
            .chooseTime = whileAlive([this](int hour, int minute) {
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
