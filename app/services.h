#pragma once

#include "alerting/notification_delegate.h"
#include "app/command_line.h"
#include "app/peripherals.h"
#include "model/battery_model.h"
#include "platform/appearance.h"
#include "platform/application.h"
#include "platform/defaults_store.h"
#include "platform/login_item_service.h"
#include "platform/notification_centre.h"
#include "platform/posix/posix_calendar.h"
#include "platform/posix/system_clock.h"
#include "platform/preferred_languages.h"
#include "platform/qt/qt_pointer.h"
#include "platform/qt/qt_run_loop.h"
#include "platform/system_log.h"
#include "snooze/window/snooze_alert_presenter.h"

#include <memory>

namespace voltmere {

/// The real outside of the program, port by port. Needs a Qt application. A reading may still use
/// it when the program ends: then the process must end without destroying what a reading uses.
class Services {
public:
    explicit Services(const CommandLine& commandLine);
    ~Services();
    Services(const Services&) = delete;
    Services& operator=(const Services&) = delete;

    /// The part of them that the model acts on.
    ModelServices forModel();

    SystemClock clock;
    PosixCalendar calendar;
    std::unique_ptr<SystemLog> log;
    QtRunLoop runLoop;
    std::unique_ptr<PreferredLanguages> languages;
    std::unique_ptr<DefaultsStore> defaults;
    std::unique_ptr<LoginItemService> loginItems;
    std::unique_ptr<Application> application;
    NotificationDelegate notificationDelegate;
    std::unique_ptr<NotificationCentre> notifications;
    QtPointer pointer;
    std::unique_ptr<Appearance> appearance;
    SnoozeAlertPresenter alerts;
    Peripherals peripherals;
    std::shared_ptr<DeviceReader> reader;
};

} // namespace voltmere
