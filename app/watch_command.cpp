#include "app/watch_command.h"

#include "alerting/notification_delegate.h"
#include "app/null_services.h"
#include "app/peripherals.h"
#include "app/platform_factory.h"
#include "app/reading_report.h"
#include "app/terminal_output.h"
#include "linux/run_loop.h"
#include "linux/settings.h"
#include "linux/ui/redraw_scheduler.h"
#include "model/battery_model.h"
#include "model/settings.h"
#include "posix/calendar.h"
#include "posix/clock.h"
#include "posix/system_log.h"
#include "texts/l10n.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <unistd.h>

#include <cstdlib>

namespace voltmere {

namespace {

/// The model with nothing behind it but the reading, and a line on standard output in front.
class Watch {
public:
    explicit Watch(const CommandLine& commandLine)
        : commandLine(commandLine)
        , defaults(openSettings(commandLine.demo, SettingsUse::readOnly, log))
        , peripherals(commandLine, log)
        , reader(std::make_shared<DeviceReader>([this] { return peripherals.choose(); }, clock))
        , model({*defaults, runLoop, clock, calendar, loginItems, notifications, delegate, alerts,
                 silence, reader})
        , redraw(model.objectWillChange, [this] { print(); })
    {
        BatteryModel::launchSettled = true;
    }

    int run()
    {
        // A reader that has gone would else be noticed at the next change only, maybe days later.
        const QSocketNotifier readerGone(STDOUT_FILENO, QSocketNotifier::Exception);
        QObject::connect(&readerGone, &QSocketNotifier::activated, QCoreApplication::instance(),
                         &QCoreApplication::quit);
        const int status = QCoreApplication::exec();
        if (runLoop.isBusy()) {
            std::_Exit(status); // a reading still uses what an ordinary end would destroy
        }
        return status;
    }

private:
    /// The last reading by the settings of now. Nothing before the first one, and no line twice.
    void print()
    {
        if (!model.lastChecked.get()) {
            return;
        }
        // A panel elsewhere may have changed them.
        const auto present = openSettings(commandLine.demo, SettingsUse::readOnly, silence);
        L10n::loadSetting(*present);
        const Reading reading{peripherals.choose().label, model.devices,
                              stored(*present, settings::threshold)};
        const std::string line = commandLine.format == CommandLine::Format::waybar
            ? readingWaybar(reading)
            : readingJson(reading);
        if (line == lastLine) {
            return;
        }
        lastLine = line;
        if (const int status = printAnswer(line + '\n'); status != 0) {
            QCoreApplication::exit(status);
        }
    }

    const CommandLine commandLine;
    std::string lastLine;
    PosixSystemLog log;
    NullLog silence;
    SystemClock clock;
    PosixCalendar calendar;
    QtRunLoop runLoop;
    std::unique_ptr<DefaultsStore> defaults;
    NullLoginItems loginItems;
    NullNotifications notifications;
    NullApplication application;
    NotificationDelegate delegate{runLoop, application};
    NullAlerts alerts;
    Peripherals peripherals;
    std::shared_ptr<DeviceReader> reader;
    BatteryModel model;
    RedrawScheduler redraw;
};

} // namespace

int watchPeripherals(const CommandLine& commandLine)
{
    const auto languages = makePreferredLanguages();
    L10n::usePreferredLanguages(languages.get());
    const int status = Watch(commandLine).run();
    L10n::usePreferredLanguages(nullptr);
    return status;
}

} // namespace voltmere
