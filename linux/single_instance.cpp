#include "linux/single_instance.h"

#include "linux/activation_token.h"
#include "ports/desktop.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

#include <utility>

namespace voltmere {

namespace {

const QString objectPath = QStringLiteral("/org/voltmere/Voltmere");
const QString interfaceName = QStringLiteral("org.freedesktop.Application");

/// Lets the running instance take the focus that the desktop gave to this start.
const QString activationTokenKey = QStringLiteral("activation-token");

/// A running instance with a busy main thread must not delay the start that asks it.
constexpr int activationLimit = 150; // milliseconds

} // namespace

BusInstance::BusInstance(SystemLog& log)
    : log(log)
{
}

SingleInstance::Role BusInstance::start()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        log.write("Voltmere: there is no session bus: no notifications, and a second start runs a "
                  "second time");
        return Role::alone;
    }
    new ApplicationAdaptor(*this); // belongs to this object, as adaptors do
    bus.registerObject(objectPath, this, QDBusConnection::ExportAdaptors);
    if (bus.registerService(applicationId)) {
        return Role::first;
    }
    QDBusMessage activate =
        QDBusMessage::createMethodCall(applicationId, objectPath, interfaceName, "Activate");
    activate << QVariantMap{{activationTokenKey, activationToken::current()}};
    const QDBusMessage reply = bus.call(activate, QDBus::Block, activationLimit);
    if (reply.type() != QDBusMessage::ErrorMessage) {
        return Role::later;
    }
    // It is busy, or has ended meanwhile, or the bus gives this name to nobody.
    if (bus.registerService(applicationId)) {
        return Role::first;
    }
    return bus.interface()->isServiceRegistered(applicationId) ? Role::later : Role::alone;
}

void BusInstance::onActivation(std::function<void()> action)
{
    open = std::move(action);
}

ApplicationAdaptor::ApplicationAdaptor(BusInstance& instance)
    : QDBusAbstractAdaptor(&instance)
    , instance(instance)
{
}

void ApplicationAdaptor::Activate(const QVariantMap& platformData)
{
    if (instance.open) {
        activationToken::leave(platformData.value(activationTokenKey).toByteArray());
        instance.open();
        activationToken::drop();
    }
}

void ApplicationAdaptor::Open(const QStringList& /*uris*/, const QVariantMap& platformData)
{
    Activate(platformData);
}

void ApplicationAdaptor::ActivateAction(const QString& /*action*/,
                                        const QVariantList& /*parameter*/,
                                        const QVariantMap& /*platformData*/)
{
    // The program's desktop entry offers no actions.
}

} // namespace voltmere
