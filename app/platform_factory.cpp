#include "app/platform_factory.h"

#include "app/bus_instance.h"
#include "linux/autostart_login_item.h"
#include "linux/desktop_notifications.h"
#include "linux/environment.h"
#include "linux/environment_languages.h"
#include "linux/portal_appearance.h"
#include "linux/qt_application.h"
#include "linux/tray_host_watcher.h"
#include "linux/wayland_display.h"
#include "linux/x_display.h"
#include "ports/desktop.h"
#include "posix/system_log.h"
#include "texts/l10n.h"
#include "texts/utf8.h"

#include <QIcon>

#include <string>
#include <utility>

namespace voltmere {

namespace {

AutostartProgram thisProgram()
{
    // A start-up entry is UTF-8 throughout; no other path can stand in it.
    std::string file = runningProgram();
    if (!isValidUtf8(file)) {
        file.clear();
    }
    return {.file = std::move(file),
            .names = {{"", std::string(L10n::en().at("app.name"))},
                      {"zh", std::string(L10n::zh().at("app.name"))}}};
}

/// A program that is not installed has no icon in the theme; the second name every theme has
/// (Icon Naming Specification 0.8.90, "Status icons").
std::string applicationIcon()
{
    return QIcon::hasThemeIcon(applicationId) ? applicationId : "battery-low";
}

/// `platform` names one or several of Qt's platforms (qpa), of which the first that works is taken.
std::optional<std::string> problemOfChosenPlatform(const std::string& platform)
{
    const bool mayBeX = platform.find("xcb") != std::string::npos;
    const bool mayBeWayland = platform.find("wayland") != std::string::npos;
    if ((!mayBeX && !mayBeWayland) || (mayBeWayland && canReachWaylandDisplay()) ||
        (mayBeX && canOpenXDisplay())) {
        return std::nullopt;
    }
    return "no display can be reached of the kind that QT_QPA_PLATFORM ('" + platform +
        "') asks for; unset it, or check DISPLAY and WAYLAND_DISPLAY, or use --list";
}

} // namespace

std::optional<std::string> displayProblem()
{
    const std::string compositor = environmentVariable("WAYLAND_DISPLAY");
    const std::string display = environmentVariable("DISPLAY");
    if (const std::string platform = environmentVariable("QT_QPA_PLATFORM"); !platform.empty()) {
        return problemOfChosenPlatform(platform);
    }
    if (!compositor.empty() && canReachWaylandDisplay()) {
        return std::nullopt;
    }
    if (display.empty() && !compositor.empty()) {
        return "the display '" + compositor +
            "' cannot be reached; check WAYLAND_DISPLAY and XDG_RUNTIME_DIR, or use --list";
    }
    if (display.empty()) {
        return "there is no display (neither WAYLAND_DISPLAY nor DISPLAY is set); start it in a "
               "desktop session, or use --list";
    }
    if (!canOpenXDisplay()) {
        return "the display '" + display +
            "' cannot be opened; check DISPLAY and XAUTHORITY, or use --list";
    }
    return std::nullopt;
}

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
    return std::make_unique<AutostartLoginItem>(thisProgram(), readAutostartSession());
}

std::unique_ptr<QObject> watchForTrayHost(std::function<void()> available)
{
    return std::make_unique<TrayHostWatcher>(std::move(available));
}

std::unique_ptr<StatusLabel> makeIcon(BatteryModel& model, const Appearance& /*appearance*/,
                                      IconActions actions)
{
    return std::make_unique<StatusLabel>(model,
                                         StatusLabel::Actions{std::move(actions.toggle),
                                                              std::move(actions.open),
                                                              std::move(actions.quit)});
}

} // namespace voltmere
