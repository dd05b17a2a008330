#include "linux/notify_call.h"

#include "linux/bus_call.h"
#include "ports/desktop.h"
#include "texts/plain_text.h"

#include <QVariantMap>

namespace voltmere {

namespace {

constexpr uchar normalUrgency = 1;
constexpr int daemonsOwnDuration = -1; ///< milliseconds otherwise

QString shownText(const std::string& text)
{
    return QString::fromStdString(plainText(text));
}

/// Keys and titles in turn, the click on the notification itself first.
QStringList actionWords(const DesktopNotification& notification)
{
    // Daemons that show titles make no button of an empty one. GLib sends the same.
    QStringList words{defaultActionKey, QString()};
    for (const NotificationAction& action : notification.actions) {
        words << QString::fromStdString(action.identifier) << shownText(action.title);
    }
    return words;
}

/// Sources: Desktop Notifications Specification 1.2, "Hints"; XDG Sound Naming Specification 0.8.
QVariantMap hintsOf(const DesktopNotification& notification)
{
    QVariantMap hints{{"desktop-entry", applicationId},
                      {"urgency", QVariant::fromValue(normalUrgency)}};
    if (notification.sound) {
        hints.insert("sound-name", "message-new-instant");
    } else {
        hints.insert("suppress-sound", true);
    }
    return hints;
}

} // namespace

QDBusMessage notifyCall(const QString& daemon, const QStringList& capabilities,
                        const DesktopNotification& notification)
{
    constexpr uint replacesNothing = 0;
    const QString body = shownText(notification.body);
    QDBusMessage call = QDBusMessage::createMethodCall(
        daemon, busNames::notificationsPath, busNames::notifications, QStringLiteral("Notify"));
    call << shownText(notification.applicationName) << replacesNothing
         << QString::fromStdString(notification.icon) << shownText(notification.summary)
         << (capabilities.contains("body-markup") ? body.toHtmlEscaped() : body)
         << (capabilities.contains("actions") ? actionWords(notification) : QStringList())
         << hintsOf(notification) << daemonsOwnDuration;
    return call;
}

} // namespace voltmere
