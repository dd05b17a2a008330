#include "linux/desktop_services.h"

#include "linux/bus_call.h"
#include "ports/desktop.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>
#include <QStringList>

#include <xcb/xcb.h>

#include <cstdint>
#include <string_view>

namespace voltmere {

bool hasXTray()
{
    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection(
        xcb_connect(nullptr, nullptr), &xcb_disconnect);
    if (xcb_connection_has_error(connection.get()) != 0) {
        return false;
    }
    const std::string_view name = xTraySelection;
    const auto atom = owned(xcb_intern_atom_reply(
        connection.get(),
        xcb_intern_atom(connection.get(), 0, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr));
    const auto selection = owned(xcb_get_selection_owner_reply(
        connection.get(),
        xcb_get_selection_owner(connection.get(), atom ? atom->atom : xcb_atom_t{XCB_ATOM_NONE}),
        nullptr));
    return selection && selection->owner != XCB_WINDOW_NONE;
}

namespace {

constexpr int limit = 1000; // milliseconds

QDBusMessage ask(const QDBusConnection& bus, const QString& service, const QString& path,
                 const QString& interface, const QString& method, const QVariantList& arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(service, path, interface, method);
    call.setArguments(arguments);
    call.setAutoStartService(false);
    return bus.call(call, QDBus::Block, limit);
}

bool isRunning(const QDBusConnection& bus, const QString& service)
{
    return bus.interface()->isServiceRegistered(service);
}

std::string xTrayOr(const char* otherwise)
{
    return hasXTray() ? "XEmbed tray" : otherwise;
}

std::string trayHost(const QDBusConnection& bus)
{
    const QString watcher = busNames::statusNotifierWatcher;
    if (!isRunning(bus, watcher)) {
        return xTrayOr("none: neither a StatusNotifier nor an XEmbed tray");
    }
    const QDBusReply<QDBusVariant> reply =
        ask(bus, watcher, busNames::statusNotifierWatcherPath, busNames::properties, "Get",
            {watcher, "IsStatusNotifierHostRegistered"});
    return reply.isValid() && reply.value().variant().toBool()
        ? "StatusNotifier host registered"
        : xTrayOr("none: a StatusNotifier watcher without a host, and no XEmbed tray");
}

std::string notificationService(const QDBusConnection& bus)
{
    const QString service = busNames::notifications;
    if (!isRunning(bus, service)) {
        return "not running (it may be started on demand)";
    }
    const QDBusMessage reply =
        ask(bus, service, busNames::notificationsPath, service, "GetServerInformation", {});
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().size() < 3) {
        return "running, but it does not say what it is";
    }
    return (reply.arguments().at(0).toString() + ' ' + reply.arguments().at(2).toString())
        .toStdString();
}

std::string presence(bool present, const char* otherwise)
{
    return present ? "present" : otherwise;
}

void addSession(const QDBusConnection& bus, std::vector<Finding>& findings)
{
    if (!bus.isConnected()) {
        findings.insert(findings.end(),
                        {{"session bus",
                          "missing: no notifications, no StatusNotifier tray, dark or light is "
                          "taken from Qt, and a second start runs a second time"},
                         {"tray", xTrayOr("none: no XEmbed tray")}});
        return;
    }
    findings.insert(findings.end(),
                    {{"session bus", "present"},
                     {"tray", trayHost(bus)},
                     {"notifications", notificationService(bus)},
                     {"settings portal",
                      presence(isRunning(bus, busNames::desktopPortal),
                               "not running: dark or light is taken from Qt")},
                     {"running instance", presence(isRunning(bus, applicationId), "none")}});
}

void addSystem(const QDBusConnection& bus, std::vector<Finding>& findings)
{
    if (!bus.isConnected()) {
        findings.push_back({"system bus", "missing: no Bluetooth names"});
        return;
    }
    findings.insert(
        findings.end(),
        {{"system bus", "present"},
         {"BlueZ", presence(isRunning(bus, busNames::blueZ), "not running: no Bluetooth names")}});
}

} // namespace

std::vector<Finding> describeDesktopServices()
{
    std::vector<Finding> findings;
    addSession(QDBusConnection::sessionBus(), findings);
    addSystem(QDBusConnection::systemBus(), findings);
    return findings;
}

} // namespace voltmere
