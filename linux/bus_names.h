#pragma once

#include <QString>

/// Programs of the desktop and the system, by their names on the message buses.
namespace voltmere::busNames {

inline const QString bus = QStringLiteral("org.freedesktop.DBus");
inline const QString busPath = QStringLiteral("/org/freedesktop/DBus");
inline const QString statusNotifierWatcher = QStringLiteral("org.kde.StatusNotifierWatcher");
inline const QString statusNotifierWatcherPath = QStringLiteral("/StatusNotifierWatcher");
inline const QString notifications = QStringLiteral("org.freedesktop.Notifications");
inline const QString notificationsPath = QStringLiteral("/org/freedesktop/Notifications");
inline const QString desktopPortal = QStringLiteral("org.freedesktop.portal.Desktop");
inline const QString blueZ = QStringLiteral("org.bluez");

/// The interface through which an object on a bus tells its properties.
inline const QString properties = QStringLiteral("org.freedesktop.DBus.Properties");

} // namespace voltmere::busNames
