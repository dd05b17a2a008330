#include "linux/desktop_services.h"

#include "linux/bus_call.h"
#include "ports/desktop.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>

#include <algorithm>
#include <iterator>

namespace voltmere {

namespace {

constexpr int limit = 1000; // milliseconds

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
    const QDBusReply<QDBusVariant> reply = bus.call(question, QDBus::Block, limit);
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
                 QDBus::Block, limit);
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

std::vector<Finding> describeDesktopServices()
{
    std::vector<Finding> findings = onSessionBus(QDBusConnection::sessionBus());
    std::ranges::move(onSystemBus(QDBusConnection::systemBus()), std::back_inserter(findings));
    return findings;
}

} // namespace voltmere
