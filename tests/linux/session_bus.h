#pragma once

#include "linux/private_bus.h"

#include <QByteArray>

namespace voltmere {

/// The bus that this process takes for the session bus and the system bus. It must be asked for
/// before the program under test asks for one of these, since a process connects to each once.
inline PrivateBus& sessionBus()
{
    static PrivateBus bus;
    static const bool announced = qputenv("DBUS_SESSION_BUS_ADDRESS", bus.busAddress().toUtf8()) &&
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", bus.busAddress().toUtf8());
    EXPECT_TRUE(announced);
    return bus;
}

} // namespace voltmere
