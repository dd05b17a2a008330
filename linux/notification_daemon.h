#pragma once

#include "linux/notify_call.h"
#include "ports/log.h"

#include <QByteArray>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class QDBusServiceWatcher;

namespace voltmere {

/// How the user answered a notification.
struct NotificationAnswer {
    std::string action;         ///< its identifier, or one of `standardAction`
    QByteArray activationToken; ///< allows to take the focus; empty where the daemon sends none
};

/// The desktop's notification daemon on the session bus. No call waits for it.
///
/// It is asked for its capabilities once for each owner of the bus name. Its signals reach this
/// program only while a notification of this program is on the screen, or on the way there: at all
/// other times nobody's notifications wake it. A notification that an owner of the name showed is
/// forgotten with that owner.
/// Source: Desktop Notifications Specification 1.2 (org.freedesktop.Notifications).
class NotificationDaemon : public QObject {
    Q_OBJECT

public:
    using Answered = std::function<void(const NotificationAnswer&)>;

    /// `ready` is called whenever `isReady` has become true again. A call that is not answered
    /// within `replyLimit` has failed.
    NotificationDaemon(QDBusConnection bus, SystemLog& log, std::chrono::milliseconds replyLimit,
                       std::function<void()> ready);

    /// Whether it can be given a notification now: the bus lives, the daemon is known, and has not
    /// left too many calls without an answer.
    bool isReady() const;

    /// Makes the daemon known, and starts it where the bus can. Where there is none, one that comes
    /// later is made known then. Does nothing while it is being asked.
    void contact();

    /// Shows a notification; only when ready. `answered` is called at most once: with the action
    /// that the user chose, or else when the user dismissed it. Nothing is reported on failure: the
    /// log gets a line.
    void show(const DesktopNotification& notification, Answered answered);

private slots:
    void activationToken(uint id, const QString& token, const QDBusMessage& signal);
    void actionInvoked(uint id, const QString& key, const QDBusMessage& signal);
    void notificationClosed(uint id, uint reason, const QDBusMessage& signal);

private:
    struct Daemon {
        QString name; ///< unique name on the bus
        QStringList capabilities;
    };

    struct Shown {
        uint id = 0; ///< the daemon's number for it
        std::vector<NotificationAction> offered;
        Answered answered;
        QByteArray token;
    };

    void watchOwner();
    void ownerChanged(const QString& newOwner);
    void takeCapabilities(const QDBusMessage& reply);
    void takeOwner(const QDBusMessage& reply, const QDBusMessage& ownerReply);
    void giveUpContact(const QDBusMessage& reply);
    void takeNotificationId(const QString& daemonName, Shown entry, const QDBusMessage& reply);
    void remember(Shown entry);
    std::optional<Shown> forget(uint id);
    void close(uint id);
    bool isFromKnownDaemon(const QDBusMessage& signal) const;
    void listenWhileNeeded();
    void listen(bool on);
    void send(const QDBusMessage& call, std::function<void(const QDBusMessage&)> replied);

    QDBusConnection bus;
    OnceLog log;
    const std::chrono::milliseconds replyLimit;
    const std::function<void()> ready;
    QDBusServiceWatcher* ownerWatcher = nullptr;
    std::optional<Daemon> daemon;
    std::optional<QString> owner; ///< of the name, once the bus has told; empty when there is none
    bool wanted = false;          ///< the next owner of the name is to be made known
    bool asking = false;
    bool changedWhileAsking = false;
    int unanswered = 0; ///< notifications whose number has not come yet
    bool listening = false;
    std::vector<Shown> shown; ///< oldest first
};

} // namespace voltmere
