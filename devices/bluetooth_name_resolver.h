#pragma once

#include "ports/peripherals.h"
#include "ports/time.h"

#include <chrono>
#include <mutex>
#include <optional>

namespace voltmere {

/// Keeps the Bluetooth names for six hours, since reading them is slow. Safe to call from several
/// readings at once: the cache is locked for a copy only, never while a source reads.
class BluetoothNameResolver {
public:
    static constexpr std::chrono::seconds cacheLifetime{21600};

    explicit BluetoothNameResolver(const Clock& clock);

    /// The names from the cache, when `useCache` is true and the cache is neither empty nor six
    /// hours old; else those that `source` reads now, which replace the cache.
    NameMap bluetoothNames(bool useCache, NameSource& source);

private:
    std::optional<NameMap> freshCache() const;

    const Clock& clock;
    mutable std::mutex mutex;
    NameMap nameCache;
    std::optional<Instant> nameCacheDate;
};

} // namespace voltmere
