#pragma once

#include <QString>

#include <functional>

class QDBusConnection;
class QDBusMessage;
class QObject;

namespace voltmere {

/// Sends `call` without waiting for its reply. `replied` runs once, from the event loop, with the
/// reply or an error, also where the bus has ended. It never runs after `context` is gone.
void callBus(const QDBusConnection& bus, const QDBusMessage& call, QObject* context,
             std::function<void(const QDBusMessage& reply)> replied);

/// Programs of the desktop and the system, by their names on the message buses.
namespace busNames {

inline const QString bus = QStringLiteral("org.freedesktop.DBus");
inline const QString busPath = QStringLiteral("/org/freedesktop/DBus");
inline const QString statusNotifierWatcher = QStringLiteral("org.kde.StatusNotifierWatcher");
inline const QString statusNotifierWatcherPath = QStringLiteral("/StatusNotifierWatcher");
inline const QString notifications = QStringLiteral("org.freedesktop.Notifications");
inline const QString notificationsPath = QStringLiteral("/org/freedesktop/Notifications");
inline const QString desktopPortal = QStringLiteral("org.freedesktop.portal.Desktop");
inline const QString blueZ = QStringLiteral("org.bluez");

/// The interface of an object's properties on a bus.
inline const QString properties = QStringLiteral("org.freedesktop.DBus.Properties");

} // namespace busNames

} // namespace voltmere
