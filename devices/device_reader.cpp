#include "devices/device_reader.h"

#include "devices/device_listing.h"

#include <algorithm>
#include <utility>

namespace voltmere {

std::string upperCased(std::string_view address)
{
    std::string upper(address);
    std::transform(upper.begin(), upper.end(), upper.begin(), [](char letter) {
        return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    });
    return upper;
}

std::string normalisedAddress(std::string_view address)
{
    std::string normalised = upperCased(address);
    std::replace(normalised.begin(), normalised.end(), '-', ':');
    return normalised;
}

BluetoothNameResolver::BluetoothNameResolver(const Clock& clock)
    : clock(clock)
{
}

NameMap BluetoothNameResolver::bluetoothNames(bool useCache, NameSource& source)
{
    if (useCache) {
        const std::lock_guard lock(mutex);
        // Setting the clock back makes the age negative; the cache then counts as fresh.
        if (!nameCache.empty() && clock.now() - nameCacheDate < cacheLifetime) {
            return nameCache;
        }
    }
    NameMap names = source.readNames();
    const std::lock_guard lock(mutex);
    nameCache = names;
    nameCacheDate = clock.now();
    return names;
}

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
