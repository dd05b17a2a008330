#pragma once

#include "alerting/notification_delegate.h"
#include "app/command_line.h"
#include "app/peripherals.h"
#include "linux/qt_pointer.h"
#include "linux/run_loop.h"
#include "linux/ui/alert.h"
#include "model/battery_model.h"
#include "ports/desktop.h"
#include "ports/log.h"
#include "ports/login_item.h"
#include "ports/notifications.h"
#include "ports/settings.h"
#include "posix/calendar.h"
#include "posix/clock.h"

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
