#include "app/platform_factory.h"

#include "app/bus_instance.h"
#include "linux/desktop_notifications.h"
#include "linux/environment_languages.h"
#include "linux/login_item.h"
#include "linux/portal_appearance.h"
#include "linux/qt_application.h"
#include "linux/tray_host_watcher.h"
#include "linux/ui/status_label.h"
#include "linux/ui/tray_image.h"
#include "ports/desktop.h"
#include "posix/system_log.h"
#include "texts/l10n.h"

#include <QIcon>

#include <string>
#include <utility>

namespace voltmere {

namespace {

/// A program that is not installed has no icon in the theme; the second name every theme has
/// (Icon Naming Specification 0.8.90, "Status icons").
std::string applicationIcon()
{
    return QIcon::hasThemeIcon(applicationId) ? applicationId : "battery-low";
}

} // namespace

std::unique_ptr<SingleInstance> makeSingleInstance(SystemLog& log)
{
    return std::make_unique<BusInstance>(log);
}

std::unique_ptr<Appearance> makeAppearance()
{
    return std::make_unique<PortalAppearance>();
}

std::unique_ptr<Application> makeApplication()
{
    return std::make_unique<QtApplication>();
}

std::unique_ptr<PreferredLanguages> makePreferredLanguages()
{
    return std::make_unique<EnvironmentLanguages>();
}

std::unique_ptr<SystemLog> makeSystemLog()
{
    return std::make_unique<PosixSystemLog>();
}

std::unique_ptr<NotificationCentre> makeNotificationCentre(RunLoop& runLoop, const Clock& clock,
                                                           SystemLog& log)
{
    DesktopNotificationsSetup setup{.bus = QDBusConnection::sessionBus(),
                                    .applicationName = [] { return L10n::t("app.name"); },
                                    .applicationIcon = &applicationIcon,
                                    .remindersFile = userRemindersPath()};
    return std::make_unique<DesktopNotifications>(std::move(setup), runLoop, clock, log);
}

std::unique_ptr<LoginItemService> makeLoginItemService()
{
    return std::make_unique<LoginItem>(autostartDirectory(), runningProgram());
}

std::unique_ptr<QObject> watchForTrayHost(std::function<void()> available)
{
    return std::make_unique<TrayHostWatcher>(std::move(available));
}

std::unique_ptr<ProgramIcon> makeIcon(BatteryModel& model, const Appearance& /*appearance*/,
                                      IconActions actions)
{
    return std::make_unique<StatusLabel>(
        model,
        StatusLabel::Behaviour{
            .picture =
                [maker = TrayIconMaker()](const auto& devices, auto threshold) mutable {
                    return maker.make(devices, threshold);
                },
            .toggle = std::move(actions.toggle),
            .open = std::move(actions.open),
            .quit = std::move(actions.quit)});
}

void keepAfloat(QWidget& /*window*/)
{
}

} // namespace voltmere
