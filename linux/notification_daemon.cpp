#include "linux/notification_daemon.h"

#include "linux/bus_call.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>

#include <algorithm>
#include <array>
#include <utility>

namespace voltmere {

namespace {

/// The bus name, which is the interface's name too.
const QString& service = busNames::notifications;
const QString& path = busNames::notificationsPath;

constexpr int mostUnanswered = 8;

/// Some daemons never say that a notification was closed.
constexpr std::size_t mostShown = 64;

constexpr uint dismissedByUser = 2; ///< reason of NotificationClosed

struct DaemonSignal {
    const char* name;
    const char* slot;
};

const std::array<DaemonSignal, 3> daemonSignals{{
    {"ActivationToken", SLOT(activationToken(uint, QString, QDBusMessage))},
    {"ActionInvoked", SLOT(actionInvoked(uint, QString, QDBusMessage))},
    {"NotificationClosed", SLOT(notificationClosed(uint, uint, QDBusMessage))},
}};

/// Whether an error says that the daemon itself did not answer, within the limit or at all.
bool isWithoutAnswer(const QDBusMessage& reply)
{
    const QDBusError::ErrorType type = QDBusError(reply).type();
    return reply.type() == QDBusMessage::ErrorMessage &&
        (type == QDBusError::NoReply || type == QDBusError::ServiceUnknown ||
         type == QDBusError::Disconnected);
}

std::string errorOf(const QDBusMessage& reply)
{
    const QString text = reply.errorName() + ": " + reply.errorMessage();
    return reply.type() == QDBusMessage::ErrorMessage ? text.toStdString()
                                                      : "an answer of an unknown form";
}

} // namespace

NotificationDaemon::NotificationDaemon(QDBusConnection bus, SystemLog& log,
                                       std::chrono::milliseconds replyLimit,
                                       std::function<void()> ready)
    : bus(std::move(bus))
    , log(log)
    , replyLimit(replyLimit)
    , ready(std::move(ready))
{
}

bool NotificationDaemon::isReady() const
{
    return daemon && bus.isConnected() && unanswered < mostUnanswered;
}

void NotificationDaemon::contact()
{
    wanted = true;
    if (!bus.isConnected()) {
        log.report("there is no session bus, so notifications are not shown");
        return;
    }
    if (daemon || asking) {
        return;
    }
    watchOwner();
    asking = true;
    changedWhileAsking = false;
    send(QDBusMessage::createMethodCall(service, path, service, QStringLiteral("GetCapabilities")),
         [this](const QDBusMessage& reply) { takeCapabilities(reply); });
}

void NotificationDaemon::watchOwner()
{
    if (ownerWatcher != nullptr) {
        return;
    }
    ownerWatcher =
        new QDBusServiceWatcher(service, bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(ownerWatcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString& /*name*/, const QString& /*oldOwner*/, const QString& newOwner) {
                ownerChanged(newOwner);
            });
}

void NotificationDaemon::ownerChanged(const QString& newOwner)
{
    owner = newOwner;
    changedWhileAsking = asking;
    if (daemon && daemon->name == newOwner) {
        return;
    }
    daemon.reset();
    shown.clear();
    listenWhileNeeded();
    if (wanted && !newOwner.isEmpty()) {
        contact();
    }
}

void NotificationDaemon::takeCapabilities(const QDBusMessage& reply)
{
    // The call has started the daemon if the bus could. Qt does not tell who sent a reply.
    QDBusMessage call = QDBusMessage::createMethodCall(
        busNames::bus, busNames::busPath, busNames::bus, QStringLiteral("GetNameOwner"));
    call << service;
    send(call, [this, reply](const QDBusMessage& ownerReply) { takeOwner(reply, ownerReply); });
}

void NotificationDaemon::takeOwner(const QDBusMessage& reply, const QDBusMessage& ownerReply)
{
    asking = false;
    const QDBusPendingReply<QString> name(ownerReply);
    if (name.isError() || isWithoutAnswer(reply)) {
        giveUpContact(reply);
        return;
    }
    const QDBusPendingReply<QStringList> capabilities(reply);
    if (capabilities.isError()) {
        log.report("the notification service does not tell what it can do", errorOf(reply));
    }
    daemon = Daemon{name.value(), capabilities.isError() ? QStringList() : capabilities.value()};
    wanted = false;
    if (isReady()) {
        ready();
    }
}

void NotificationDaemon::giveUpContact(const QDBusMessage& reply)
{
    if (changedWhileAsking && owner && !owner->isEmpty()) {
        contact();
    } else {
        log.report("there is no notification service that answers", errorOf(reply));
    }
}

void NotificationDaemon::show(const DesktopNotification& notification, Answered answered)
{
    ++unanswered;
    listenWhileNeeded();
    const Shown entry{0, notification.actions, std::move(answered), {}};
    send(notifyCall(daemon->name, daemon->capabilities, notification),
         [this, name = daemon->name, entry](const QDBusMessage& reply) {
             takeNotificationId(name, entry, reply);
         });
}

void NotificationDaemon::takeNotificationId(const QString& daemonName, Shown entry,
                                            const QDBusMessage& reply)
{
    --unanswered;
    const QDBusPendingReply<uint> id(reply);
    if (id.isError()) {
        log.report("the notification service did not show a notification", errorOf(reply));
    } else if (daemon && daemon->name == daemonName) {
        entry.id = id.value();
        remember(std::move(entry));
    }
    listenWhileNeeded();
    if (isReady()) {
        ready();
    }
}

void NotificationDaemon::remember(Shown entry)
{
    forget(entry.id);
    if (shown.size() == mostShown) {
        shown.erase(shown.begin());
    }
    shown.push_back(std::move(entry));
}

std::optional<NotificationDaemon::Shown> NotificationDaemon::forget(uint id)
{
    const auto found = std::find_if(shown.begin(), shown.end(),
                                    [id](const Shown& entry) { return entry.id == id; });
    if (found == shown.end()) {
        return std::nullopt;
    }
    Shown entry = std::move(*found);
    shown.erase(found);
    listenWhileNeeded();
    return entry;
}

bool NotificationDaemon::isFromKnownDaemon(const QDBusMessage& signal) const
{
    return daemon && signal.service() == daemon->name;
}

void NotificationDaemon::activationToken(uint id, const QString& token, const QDBusMessage& signal)
{
    if (!isFromKnownDaemon(signal)) {
        return;
    }
    for (Shown& entry : shown) {
        if (entry.id == id) {
            entry.token = token.toUtf8();
        }
    }
}

void NotificationDaemon::actionInvoked(uint id, const QString& key, const QDBusMessage& signal)
{
    const std::optional<Shown> entry = isFromKnownDaemon(signal) ? forget(id) : std::nullopt;
    if (!entry) {
        return;
    }
    close(id);
    const std::string identifier = key.toStdString();
    const bool offered = std::any_of(
        entry->offered.begin(), entry->offered.end(),
        [&](const NotificationAction& action) { return action.identifier == identifier; });
    if (offered) {
        entry->answered({identifier, entry->token});
    } else if (identifier == defaultActionKey) {
        entry->answered({standardAction::open, entry->token});
    }
}

void NotificationDaemon::close(uint id)
{
    // Some daemons leave a notification on the screen after its action, where a second choice would
    // have no effect. One that is gone already is an error to nobody.
    QDBusMessage call = QDBusMessage::createMethodCall(daemon->name, path, service,
                                                       QStringLiteral("CloseNotification"));
    call << id;
    call.setAutoStartService(false);
    bus.send(call);
}

void NotificationDaemon::notificationClosed(uint id, uint reason, const QDBusMessage& signal)
{
    const std::optional<Shown> entry = isFromKnownDaemon(signal) ? forget(id) : std::nullopt;
    if (entry && reason == dismissedByUser) {
        entry->answered({standardAction::dismiss, entry->token});
    }
}

void NotificationDaemon::listenWhileNeeded()
{
    const bool needed = daemon && (unanswered > 0 || !shown.empty());
    if (needed != listening) {
        listening = needed;
        listen(needed);
    }
}

void NotificationDaemon::listen(bool on)
{
    // No sender is named: for one, the bus library would wait for the bus to tell who that is, and
    // it ends the program where the bus has ended. The slots look at the sender.
    for (const DaemonSignal& signal : daemonSignals) {
        if (on) {
            bus.connect(QString(), path, service, signal.name, this, signal.slot);
        } else {
            bus.disconnect(QString(), path, service, signal.name, this, signal.slot);
        }
    }
}

void NotificationDaemon::send(const QDBusMessage& call,
                              std::function<void(const QDBusMessage&)> replied)
{
    const auto* watcher =
        new QDBusPendingCallWatcher(bus.asyncCall(call, int(replyLimit.count())), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [replied = std::move(replied)](QDBusPendingCallWatcher* finished) {
                finished->deleteLater();
                replied(finished->reply());
            });
}

} // namespace voltmere
