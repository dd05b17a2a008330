#pragma once

#include "alerting/notifications.h"
#include "devices/device_reader.h"
#include "fakes/fake_alert_presenter.h"
#include "fakes/fake_calendar.h"
#include "fakes/fake_clock.h"
#include "fakes/fake_preferred_languages.h"
#include "fakes/fake_run_loop.h"
#include "fakes/fake_services.h"
#include "fakes/fake_sources.h"
#include "fakes/recording_log.h"
#include "model/battery_model.h"
#include "posix/memory_defaults.h"

#include <memory>
#include <optional>

namespace voltmere {

/// A whole outside for the model, made of fakes: English, universal time, launch settled, no
/// peripherals, and 10:00:00 on the clock.
class ModelWorld {
public:
    ModelWorld()
        : language("en")
    {
        BatteryModel::launchSettled = true;
        clock.present = Instant(std::chrono::sys_days(std::chrono::year(2026) / 3 / 2) +
                                std::chrono::hours(10));
        reader = std::make_shared<DeviceReader>(
            [this] {
                return PeripheralSources{"fake", &batteries, &names};
            },
            clock);
        defaults.set("language", std::string("en"));
    }

    ModelWorld(const ModelWorld&) = delete;
    ModelWorld& operator=(const ModelWorld&) = delete;
    ~ModelWorld() { BatteryModel::launchSettled = false; }

    /// Creates the model. Its first check waits in the background until time passes.
    BatteryModel& start()
    {
        model = std::make_unique<BatteryModel>(services());
        return *model;
    }

    ModelServices services()
    {
        return {defaults, runLoop, clock, calendar, loginItems, notifications, notificationDelegate,
                alerts,   log,     reader};
    }

    /// The peripherals that the next readings find.
    void setLevels(const std::vector<std::pair<std::int64_t, std::int64_t>>& productsAndLevels)
    {
        batteries.entries.clear();
        for (const auto& [product, level] : productsAndLevels) {
            BatteryEntry entry;
            entry.product = product;
            entry.level = level;
            batteries.entries.push_back(entry);
        }
    }

    /// Puts the clock at a time of the present day, as if the user had set it.
    void setClock(int hour, int minute, int second = 0)
    {
        const auto day = std::chrono::floor<std::chrono::days>(clock.present);
        clock.present = Instant(day) + std::chrono::hours(hour) + std::chrono::minutes(minute) +
            std::chrono::seconds(second);
    }

    LanguageGuard language;
    FakeClock clock;
    FakeRunLoop runLoop{clock};
    FakeCalendar calendar;
    MemoryDefaults defaults;
    FakeLoginItems loginItems;
    FakeNotificationCentre notifications;
    FakeApplication application;
    NotificationDelegate notificationDelegate{runLoop, application};
    FakeAlertPresenter alerts;
    RecordingLog log;
    FakeBatterySource batteries;
    FakeNameSource names;
    std::shared_ptr<DeviceReader> reader;
    std::unique_ptr<BatteryModel> model;
};

} // namespace voltmere
