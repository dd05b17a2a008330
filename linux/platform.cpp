#include "app/platform.h"

#include "app/terminal.h"
#include "linux/bluez_name_source.h"
#include "linux/desktop_services.h"
#include "linux/environment.h"
#include "linux/installation.h"
#include "linux/login_item.h"
#include "linux/notifications.h"
#include "linux/run_loop.h"
#include "linux/settings.h"
#include "linux/sysfs_battery_source.h"
#include "posix/system_log.h"
#include "texts/plain_text.h"

#include <QDBusConnection>
#include <QSocketNotifier>
#include <QSysInfo>

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

namespace voltmere {

std::unique_ptr<MainLoop> makeMainLoop()
{
    return std::make_unique<QtRunLoop>();
}

int runFrontEnd(const CommandLine& /*commandLine*/, char** words)
{
    const std::string program = desktopProgram();
    ::execv(program.c_str(), words);
    std::fprintf(stderr, "voltmere: the windows cannot be started (%s: %s); install it again\n",
                 plainText(program).c_str(), std::strerror(errno));
    return exitStatus::cannotRun;
}

std::unique_ptr<SystemLog> makeSystemLog()
{
    return std::make_unique<PosixSystemLog>();
}

std::unique_ptr<PreferredLanguages> makePreferredLanguages()
{
    return std::make_unique<EnvironmentLanguages>();
}

std::unique_ptr<DefaultsStore> openUserSettings(SettingsUse use, SystemLog& log)
{
    return std::make_unique<JsonSettings>(settingsPath(), use, log);
}

std::unique_ptr<LoginItemService> makeLoginItemService()
{
    return std::make_unique<LoginItem>(autostartDirectory(), runningProgram());
}

std::unique_ptr<NotificationCentre> makeNotificationCentre(RunLoop& runLoop, const Clock& clock,
                                                           SystemLog& log)
{
    return std::make_unique<DesktopNotifications>(QDBusConnection::sessionBus(),
                                                  delayedNotificationsPath(), runLoop, clock, log);
}

SystemSources makeSystemSources(const std::filesystem::path& root)
{
    return {"sysfs", std::make_unique<SysfsBatterySource>(root),
            std::make_unique<BluezNameSource>()};
}

std::string demoToolsDirectory()
{
    return demoDirectory();
}

std::vector<Finding> describeSystem(bool verbose)
{
    const std::filesystem::path path = settingsPath();
    // The user's home directory is part of the path.
    const std::filesystem::path name = verbose ? path : path.filename();
    const QString system = QSysInfo::prettyProductName() + ", " + QSysInfo::kernelType() + ' ' +
        QSysInfo::kernelVersion();
    std::vector<Finding> findings{{"Qt", qVersion()},
                                  {"system", system.toStdString()},
                                  {"settings", name.string() + ": " + describeSettingsFile(path)}};
    const std::vector<Finding> services = describeDesktopServices();
    findings.insert(findings.end(), services.begin(), services.end());
    return findings;
}

std::shared_ptr<void> watchForClosedOutput(std::function<void()> action)
{
    auto notifier = std::make_shared<QSocketNotifier>(STDOUT_FILENO, QSocketNotifier::Exception);
    QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(),
                     std::move(action));
    return notifier;
}

} // namespace voltmere
