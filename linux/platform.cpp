#include "app/platform.h"

#include "app/terminal.h"
#include "linux/bluez_name_source.h"
#include "linux/bus_call.h"
#include "linux/environment.h"
#include "linux/installation.h"
#include "linux/login_item.h"
#include "linux/notifications.h"
#include "linux/run_loop.h"
#include "linux/settings.h"
#include "linux/sysfs_battery_source.h"
#include "ports/desktop.h"
#include "posix/system_log.h"
#include "texts/plain_text.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>
#include <QSocketNotifier>
#include <QSysInfo>

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

namespace voltmere {

namespace {

// The diagnosis of the desktop's services.

constexpr int answerLimit = 1000; // milliseconds

bool isRunning(const QDBusConnection& bus, const QString& service)
{
    return bus.interface()->isServiceRegistered(service);
}

constexpr const char* noTrayHost = "no StatusNotifier host: only an XEmbed tray can show the icon";

std::string trayHost(const QDBusConnection& bus)
{
    const QString watcher = busNames::statusNotifierWatcher;
    if (!isRunning(bus, watcher)) {
        return noTrayHost;
    }
    QDBusMessage question = QDBusMessage::createMethodCall(
        watcher, busNames::statusNotifierWatcherPath, busNames::properties, "Get");
    question << watcher << "IsStatusNotifierHostRegistered";
    const QDBusReply<QDBusVariant> reply = bus.call(question, QDBus::Block, answerLimit);
    return reply.isValid() && reply.value().variant().toBool() ? "StatusNotifier host registered"
                                                               : noTrayHost;
}

std::string notificationService(const QDBusConnection& bus)
{
    const QString service = busNames::notifications;
    if (!isRunning(bus, service)) {
        return "not running (it may be started on demand)";
    }
    const QDBusMessage reply =
        bus.call(QDBusMessage::createMethodCall(service, busNames::notificationsPath, service,
                                                "GetServerInformation"),
                 QDBus::Block, answerLimit);
    if (reply.arguments().size() < 3) {
        return "running, but it does not say what it is";
    }
    return (reply.arguments().at(0).toString() + ' ' + reply.arguments().at(2).toString())
        .toStdString();
}

std::string presence(const QDBusConnection& bus, const QString& service, const char* otherwise)
{
    return isRunning(bus, service) ? "present" : otherwise;
}

std::vector<Finding> onSessionBus(const QDBusConnection& bus)
{
    if (!bus.isConnected()) {
        return {{"session bus",
                 "missing: no notifications, dark or light is taken from Qt, and a second start "
                 "runs a second time"},
                {"tray", noTrayHost}};
    }
    return {{"session bus", "present"},
            {"tray", trayHost(bus)},
            {"notifications", notificationService(bus)},
            {"settings portal",
             presence(bus, busNames::desktopPortal, "not running: dark or light is taken from Qt")},
            {"running instance", presence(bus, applicationId, "none")}};
}

std::vector<Finding> onSystemBus(const QDBusConnection& bus)
{
    if (!bus.isConnected()) {
        return {{"system bus", "missing: no Bluetooth names"}};
    }
    return {{"system bus", "present"},
            {"BlueZ", presence(bus, busNames::blueZ, "not running: no Bluetooth names")}};
}

} // namespace

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
    for (const auto& services :
         {onSessionBus(QDBusConnection::sessionBus()), onSystemBus(QDBusConnection::systemBus())}) {
        findings.insert(findings.end(), services.begin(), services.end());
    }
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
