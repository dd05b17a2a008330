#include "devices/device_reader.h"

#include "texts/plain_text.h"

#include <algorithm>
#include <set>
#include <utility>

namespace voltmere {

namespace {

std::string displayName(const BatteryEntry& entry, const KnownDevice& known, const NameMap& names)
{
    if (entry.address) {
        const auto named = names.find(normalisedAddress(*entry.address));
        if (named != names.end()) {
            return named->second;
        }
    }
    return entry.givenName ? toValidUtf8(*entry.givenName) : known.name;
}

EntryVerdict judge(const BatteryEntry& entry, const NameMap& names,
                   std::set<std::int64_t>& listedProducts)
{
    if (entry.rejection) {
        return SkipReason::rejectedBySource;
    }
    if (!entry.level) {
        return SkipReason::noLevel;
    }
    if (!entry.product) {
        return SkipReason::noProduct;
    }
    const auto& catalogue = BatteryDevice::knownAppleDevices();
    const auto known = catalogue.find(*entry.product);
    if (known == catalogue.end()) {
        return SkipReason::unknownProduct;
    }
    if (!listedProducts.insert(*entry.product).second) {
        return SkipReason::modelAlreadyListed;
    }
    return BatteryDevice{*entry.product, displayName(entry, known->second, names), *entry.level,
                         known->second.symbol, known->second.order};
}

} // namespace

std::string_view description(SkipReason reason)
{
    switch (reason) {
    case SkipReason::rejectedBySource:
        return "not a peripheral that the source reads";
    case SkipReason::noLevel:
        return "reports no level";
    case SkipReason::noProduct:
        return "reports no product identifier";
    case SkipReason::unknownProduct:
        return "product is not in the catalogue";
    case SkipReason::modelAlreadyListed:
        return "another device of the same model is listed";
    }
    return {};
}

std::vector<EntryVerdict> judgeEntries(const std::vector<BatteryEntry>& entries,
                                       const NameMap& names)
{
    std::set<std::int64_t> listedProducts;
    std::vector<EntryVerdict> verdicts;
    verdicts.reserve(entries.size());
    for (const BatteryEntry& entry : entries) {
        verdicts.push_back(judge(entry, names, listedProducts));
    }
    return verdicts;
}

std::vector<BatteryDevice> listDevices(const std::vector<BatteryEntry>& entries,
                                       const NameMap& names)
{
    std::vector<BatteryDevice> devices;
    for (EntryVerdict& verdict : judgeEntries(entries, names)) {
        if (auto* device = std::get_if<BatteryDevice>(&verdict)) {
            devices.push_back(std::move(*device));
        }
    }
    sortForDisplay(devices);
    return devices;
}

void sortForDisplay(std::vector<BatteryDevice>& devices)
{
    std::ranges::stable_sort(devices, {}, &BatteryDevice::order);
}

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
