#include "devices/device_reader.h"

#include "devices/device_listing.h"

#include <utility>

namespace voltmere {

DeviceReader::DeviceReader(std::function<PeripheralSources()> chooseSources, const Clock& clock)
    : chooseSources(std::move(chooseSources))
    , names(clock)
{
}

std::vector<BatteryDevice> DeviceReader::readDevices(bool useNameCache)
{
    const PeripheralSources sources = chooseSources();
    const NameMap bluetoothNames = names.bluetoothNames(useNameCache, *sources.names);
    return listDevices(sources.batteries->readEntries(), bluetoothNames);
}

} // namespace voltmere
