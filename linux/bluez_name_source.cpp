#include "linux/bluez_name_source.h"

#include "linux/bus_call.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QMap>
#include <QVariantMap>

#include <atomic>

namespace voltmere {

namespace {

constexpr auto replySignature = "a{oa{sa{sv}}}";

/// This reading's own connection to the system bus, since readings may overlap.
class BusVisit {
public:
    BusVisit()
        : name(QStringLiteral("voltmere-bluez-%1").arg(nextNumber++))
        , bus(QDBusConnection::connectToBus(QDBusConnection::SystemBus, name))
    {
    }

    ~BusVisit() { QDBusConnection::disconnectFromBus(name); }

    BusVisit(const BusVisit&) = delete;
    BusVisit& operator=(const BusVisit&) = delete;

    QDBusMessage call(const QDBusMessage& message, std::chrono::milliseconds limit) const
    {
        return bus.call(message, QDBus::Block, static_cast<int>(limit.count()));
    }

private:
    static std::atomic<int> nextNumber;

    QString name;
    QDBusConnection bus;
};

std::atomic<int> BusVisit::nextNumber{0};

/// BlueZ gives a device without a name its address with hyphens as alias; that is not a name.
bool standsForAddress(const QString& alias, QString address)
{
    return alias.compare(address.replace(':', '-'), Qt::CaseInsensitive) == 0;
}

void addName(const BluezInterfaces& interfaces, NameMap& names)
{
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

} // namespace

BluezNameSource::BluezNameSource(std::chrono::milliseconds limit)
    : limit(limit)
{
}

NameMap BluezNameSource::readNames()
{
    QDBusMessage question = QDBusMessage::createMethodCall(
        busNames::blueZ, QStringLiteral("/"), QStringLiteral("org.freedesktop.DBus.ObjectManager"),
        QStringLiteral("GetManagedObjects"));
    question.setAutoStartService(false);
    return namesInReply(BusVisit().call(question, limit));
}

NameMap namesOf(const BluezObjects& objects)
{
    NameMap names;
    for (const BluezInterfaces& interfaces : objects) {
        addName(interfaces, names);
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
