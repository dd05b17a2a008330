#pragma once

#include "ports/peripherals.h"

#include <QDBusObjectPath>
#include <QMap>
#include <QVariantMap>

#include <chrono>

class QDBusMessage;

namespace voltmere {

/// Names from BlueZ, the Bluetooth service on the system bus: the alias of each device that it
/// knows. Without an answer from BlueZ in time there are no names. The source leaves the bus after
/// each reading, so that BlueZ's signals for other programs do not wake this one.
/// Source: BlueZ, doc/device-api (org.bluez.Device1), and the D-Bus specification's ObjectManager.
class BluezNameSource : public NameSource {
public:
    explicit BluezNameSource(std::chrono::milliseconds limit = std::chrono::seconds(3));

    NameMap readNames() override;

private:
    std::chrono::milliseconds limit;
};

/// The properties of an object's interfaces, by the interface's name.
using BluezInterfaces = QMap<QString, QVariantMap>;
/// BlueZ's objects by their paths.
using BluezObjects = QMap<QDBusObjectPath, BluezInterfaces>;

/// The names of the devices among BlueZ's objects. Properties of an unexpected type are ignored.
NameMap namesOf(const BluezObjects& objects);

/// The names in BlueZ's answer to GetManagedObjects; empty for an answer of any other form.
NameMap namesInReply(const QDBusMessage& reply);

} // namespace voltmere
