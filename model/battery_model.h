#pragma once

#include "alerting/check_result.h"
#include "devices/battery_device.h"
#include "devices/device_reader.h"
#include "model/published.h"
#include "ports/desktop.h"
#include "ports/log.h"
#include "ports/login_item.h"
#include "ports/notifications.h"
#include "ports/settings.h"
#include "ports/time.h"

#include <cstdint>
#include <list>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace voltmere {

/// The ports that the model uses. Each must outlive the model.
struct ModelServices {
    DefaultsStore& defaults;
    RunLoop& runLoop;
    const Clock& clock;
    const Calendar& calendar;
    LoginItemService& loginItems;
    NotificationCentre& notifications;
    NotificationCentreDelegate& notificationDelegate;
    AlertPresenter& alerts;
    SystemLog& log;
    std::shared_ptr<DeviceReader> reader; ///< shared with the readings under way
};

/// The state of the program: the last reading, the user's settings, the daily check and the snooze
/// alert. The program has one model, from start-up until the process ends. The model belongs to the
/// main thread; only the reading of devices runs elsewhere and returns by value.
class BatteryModel {
public:
    using DeviceList = std::vector<BatteryDevice>;

    /// Ticks of the 60-second timer between two background refreshes.
    static constexpr int pollsPerRefresh = 5;

    /// Whether the program has finished launching. Until then no snooze alert is put on screen.
    static bool launchSettled;

    /// Reads the settings, asks for permission to notify, starts the first check and the timer.
    explicit BatteryModel(ModelServices given);

    BatteryModel(const BatteryModel&) = delete;
    BatteryModel& operator=(const BatteryModel&) = delete;
    ~BatteryModel() = default;

    /// Announces each change of a published property, before the new value is stored.
    ChangeAnnouncer objectWillChange;

    Published<DeviceList> devices;       ///< the last reading, in display order
    Published<std::int64_t> threshold;   ///< percent; a device at or below it is low
    Published<std::int64_t> checkHour;   ///< hour of the daily check, 0 to 23
    Published<std::int64_t> checkMinute; ///< minute of the daily check, 0 to 59
    Published<bool> enabled;             ///< whether the daily check is on
    Published<bool> instantEnabled;      ///< whether a newly low device raises an alert at once
    Published<std::optional<Instant>> lastChecked;
    Published<std::string> status;      ///< one line for the panel
    Published<std::string> language;    ///< raw value of an AppLanguage; never saved
    Published<bool> launchAtLogin;      ///< mirrors the login-item service
    Published<std::int64_t> customHour; ///< the clock time last chosen in the snooze alert
    Published<std::int64_t> customMinute;

    /// Takes a full check, which alerts for every low device. Returns at once.
    void checkNow();

    /// Takes a reading with cached names, which alerts for newly low devices only when
    /// `allowInstantAlert` is true. Returns at once.
    void refresh(bool allowInstantAlert);

    /// Copies the service's state to `launchAtLogin`, without changing the service.
    void refreshLaunchAtLogin();

    /// What a snooze alert would show at this moment.
    AlertPayload alertPayload() const;

    /// Puts a snooze alert on screen: for the low devices, or for all devices when `isLow` is
    /// false. An alert that is already on screen comes to the front unchanged instead.
    void showSnoozeAlert(const DeviceList& lowDevices, bool isLow);

    /// Snoozes until the next time the clock shows customHour:customMinute.
    void scheduleCustomTime();

private:
    void save();
    void saveAndReschedule();
    void scheduleTimer();
    void tick();
    /// The purpose of a reading.
    struct ReadingPurpose {
        bool useNameCache;
        bool alert; ///< alert for every low device
        bool allowInstantAlert;
    };

    void readInBackground(ReadingPurpose purpose);
    void applyCheckResult(DeviceList reading, bool alert, bool allowInstantAlert);
    void languageChanged();
    void applyLaunchAtLogin(bool wanted);
    void dismissSnoozeAlert();
    void scheduleSnooze(Seconds delay);
    AlertActions alertActions();

    /// Wraps `action` for a later call, which does nothing once the model is gone.
    template<typename Action>
    auto whileAlive(Action action) const
    {
        return [alive = std::weak_ptr<const bool>(alive), action](auto&&... arguments) {
            if (!alive.expired()) {
                action(std::forward<decltype(arguments)>(arguments)...);
            }
        };
    }

    ModelServices services;
    bool syncingLaunchAtLogin = false;
    std::unique_ptr<Timer> timer;
    std::unique_ptr<Timer> snoozeTimer;
    std::list<std::unique_ptr<Timer>> launchRetries; ///< of alerts before `launchSettled`
    int pollTicks = 0;
    std::set<std::int64_t> alertedIDs;
    std::unique_ptr<Alert> activeAlert;
    std::shared_ptr<const bool> alive = std::make_shared<const bool>();
};

} // namespace voltmere
