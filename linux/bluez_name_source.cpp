#include "linux/bluez_name_source.h"

#include "linux/bus_call.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QMap>
#include <QUuid>
#include <QVariantMap>

namespace voltmere {

namespace {

constexpr auto replySignature = "a{oa{sa{sv}}}";

/// BlueZ gives a device without a name its address with hyphens as alias; that is not a name.
bool standsForAddress(const QString& alias, QString address)
{
    return alias.compare(address.replace(':', '-'), Qt::CaseInsensitive) == 0;
}

} // namespace

BluezNameSource::BluezNameSource(std::chrono::milliseconds limit)
    : limit(limit)
{
}

NameMap BluezNameSource::readNames()
{
    // A connection of this reading's own, since readings may overlap.
    const QString name = QUuid::createUuid().toString();
    const QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SystemBus, name);
    QDBusMessage question = QDBusMessage::createMethodCall(
        busNames::blueZ, QStringLiteral("/"), QStringLiteral("org.freedesktop.DBus.ObjectManager"),
        QStringLiteral("GetManagedObjects"));
    question.setAutoStartService(false);
    const QDBusMessage reply = bus.call(question, QDBus::Block, static_cast<int>(limit.count()));
    QDBusConnection::disconnectFromBus(name);
    return namesInReply(reply);
}

NameMap namesOf(const BluezObjects& objects)
{
    NameMap names;
    for (const BluezInterfaces& interfaces : objects) {
        const QVariantMap device = interfaces.value(QStringLiteral("org.bluez.Device1"));
        const QString address = device.value(QStringLiteral("Address")).toString();
        QString name = device.value(QStringLiteral("Alias")).toString();
        if (name.isEmpty() || standsForAddress(name, address)) {
            name = device.value(QStringLiteral("Name")).toString();
        }
        if (!address.isEmpty() && !name.isEmpty()) {
            names[address.toUpper().toStdString()] = name.toStdString();
        }
    }
    return names;
}

NameMap namesInReply(const QDBusMessage& reply)
{
    if (reply.type() != QDBusMessage::ReplyMessage || reply.signature() != replySignature) {
        return {};
    }
    return namesOf(qdbus_cast<BluezObjects>(reply.arguments().constFirst()));
}

} // namespace voltmere
