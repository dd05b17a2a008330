#include "devices/bluetooth_name_resolver.h"

namespace voltmere {

BluetoothNameResolver::BluetoothNameResolver(const Clock& clock)
    : clock(clock)
{
}

NameMap BluetoothNameResolver::bluetoothNames(bool useCache, NameSource& source)
{
    if (useCache) {
        if (auto names = freshCache()) {
            return *std::move(names);
        }
    }
    NameMap names = source.readNames();
    const std::lock_guard lock(mutex);
    nameCache = names;
    nameCacheDate = clock.now();
    return names;
}

std::optional<NameMap> BluetoothNameResolver::freshCache() const
{
    const std::lock_guard lock(mutex);
    if (!nameCacheDate || nameCache.empty()) {
        return std::nullopt;
    }
    // A clock that was set back makes the age negative: the cache then counts as fresh.
    if (clock.now() - *nameCacheDate >= cacheLifetime) {
        return std::nullopt;
    }
    return nameCache;
}

} // namespace voltmere
