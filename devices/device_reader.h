#pragma once

#include "devices/battery_device.h"
#include "devices/bluetooth_name_resolver.h"
#include "ports/peripherals.h"

#include <functional>
#include <string>
#include <vector>

namespace voltmere {

/// The pair of sources that one reading uses: levels and names come from the same side.
struct PeripheralSources {
    std::string label; ///< "tools" or "sysfs", as the command line reports it
    BatterySource* batteries;
    NameSource* names;
};

/// Takes readings of the peripherals. Blocking; safe to call from several threads at once.
class DeviceReader {
public:
    /// `chooseSources` is asked at the start of each reading.
    DeviceReader(std::function<PeripheralSources()> chooseSources, const Clock& clock);

    /// The known peripherals that report a level, in display order. Names may come from the cache
    /// when `useNameCache` is true. Every failure means fewer devices.
    std::vector<BatteryDevice> readDevices(bool useNameCache);

private:
    std::function<PeripheralSources()> chooseSources;
    BluetoothNameResolver names;
};

} // namespace voltmere
