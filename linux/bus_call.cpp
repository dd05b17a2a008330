#include "linux/bus_call.h"

#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>

#include <utility>

namespace voltmere {

void callBus(const QDBusConnection& bus, const QDBusMessage& call, QObject* context,
             std::function<void(const QDBusMessage& reply)> replied)
{
    // Without a connection Qt makes a call that never finishes.
    const QDBusPendingCall pending = bus.isConnected()
        ? bus.asyncCall(call)
        : QDBusPendingCall::fromError(
              QDBusError(QDBusError::Disconnected, QStringLiteral("there is no message bus")));
    auto* const watcher = new QDBusPendingCallWatcher(pending, context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                     [watcher, replied = std::move(replied)] {
                         watcher->deleteLater();
                         replied(watcher->reply());
                     });
}

} // namespace voltmere
