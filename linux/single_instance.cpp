#include "linux/single_instance.h"

#include "linux/activation_token.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

namespace voltmere {

namespace {

const QString interfaceName = QStringLiteral("org.freedesktop.Application");

/// Lets the running instance take the focus that the desktop gave to this start.
const QString activationTokenKey = QStringLiteral("activation-token");

/// A running instance with a busy main thread must not delay the start that asks it.
constexpr int activationLimit = 150; // milliseconds

} // namespace

BusInstance::BusInstance(QString name)
    : name(std::move(name))
    , objectPath('/' + QString(this->name).replace('.', '/'))
{
}

bool BusInstance::isLaterStart(SystemLog& log)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        log.write("Voltmere: there is no session bus: no notifications, and a second start runs a "
                  "second time");
        return false;
    }
    bus.registerObject(objectPath, this, QDBusConnection::ExportAllSlots);
    if (bus.registerService(name)) {
        return false;
    }
    QDBusMessage activate =
        QDBusMessage::createMethodCall(name, objectPath, interfaceName, "Activate");
    activate << QVariantMap{{activationTokenKey, activationToken::current()}};
    if (bus.call(activate, QDBus::Block, activationLimit).type() != QDBusMessage::ErrorMessage) {
        return true;
    }
    // It is busy, or has ended meanwhile, or the bus gives this name to nobody.
    return !bus.registerService(name) && bus.interface()->isServiceRegistered(name);
}

void BusInstance::Activate(const QVariantMap& platformData)
{
    if (open) {
        activationToken::leave(platformData.value(activationTokenKey).toByteArray());
        open();
        activationToken::drop();
    }
}

} // namespace voltmere
