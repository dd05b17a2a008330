#pragma once

#include "devices/battery_device.h"
#include "ports/peripherals.h"
#include "ports/time.h"

#include <chrono>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace voltmere {

/// Why an entry of a source is not shown.
enum class SkipReason {
    rejectedBySource,
    noLevel,
    noProduct,
    unknownProduct,
    modelAlreadyListed, ///< one record for each model: the first entry wins
};

/// The reason in words, for diagnosis.
std::string_view description(SkipReason reason);

/// The verdict on one entry.
using EntryVerdict = std::variant<BatteryDevice, SkipReason>;

/// Judges every entry, in order: a device for an entry that is shown, else the reason.
std::vector<EntryVerdict> judgeEntries(const std::vector<BatteryEntry>& entries,
                                       const NameMap& names);

/// The devices among `entries`, named, in display order: mice, keyboards, trackpads; within a kind
/// in the order of the source.
std::vector<BatteryDevice> listDevices(const std::vector<BatteryEntry>& entries,
                                       const NameMap& names);

/// Sorts devices into display order; devices of one kind keep their order.
void sortForDisplay(std::vector<BatteryDevice>& devices);

/// `address` in upper case. Addresses are hexadecimal: only ASCII letters have a case here.
std::string upperCased(std::string_view address);

/// The form in which an address is looked up in a name map: colons for hyphens, upper case.
std::string normalisedAddress(std::string_view address);

/// Keeps the Bluetooth names for six hours, since reading them is slow. Safe to call from several
/// readings at once: the cache is locked for a copy only, never while a source reads.
class BluetoothNameResolver {
public:
    static constexpr std::chrono::seconds cacheLifetime{21600};

    explicit BluetoothNameResolver(const Clock& clock);

    /// The names from the cache, when `useCache` is true and the cache is neither empty nor six
    /// hours old. Otherwise `source` reads them now, and its names replace the cache.
    NameMap bluetoothNames(bool useCache, NameSource& source);

private:
    const Clock& clock;
    std::mutex mutex;
    NameMap nameCache;
    Instant nameCacheDate; ///< when the names were read
};

/// The pair of sources that one reading uses: levels and names come from the same side.
struct PeripheralSources {
    std::string label; ///< "tools" or "sysfs", as the command line reports it
    BatterySource* batteries;
    NameSource* names;
};

/// Takes readings of the peripherals. Blocking; safe to call from several threads at once.
class DeviceReader {
public:
    /// Each reading calls `chooseSources` first.
    DeviceReader(std::function<PeripheralSources()> chooseSources, const Clock& clock);

    /// The known peripherals that report a level, in display order. Names may come from the cache
    /// when `useNameCache` is true. Every failure means fewer devices.
    std::vector<BatteryDevice> readDevices(bool useNameCache);

private:
    std::function<PeripheralSources()> chooseSources;
    BluetoothNameResolver names;
};

} // namespace voltmere
