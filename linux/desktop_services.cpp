#include "linux/desktop_services.h"

#include "linux/bus_call.h"
#include "ports/desktop.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVariant>

#include <xcb/xcb.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
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
    QDBusMessage question = QDBusMessage::createMethodCall(
        watcher, busNames::statusNotifierWatcherPath, busNames::properties, "Get");
    question << watcher << "IsStatusNotifierHostRegistered";
    const QDBusReply<QDBusVariant> reply = bus.call(question, QDBus::Block, limit);
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
                 "missing: no notifications, no StatusNotifier tray, dark or light is taken from "
                 "Qt, and a second start runs a second time"},
                {"tray", xTrayOr("none: no XEmbed tray")}};
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
