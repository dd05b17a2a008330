#include "devices/device_listing.h"

#include "devices/device_reader.h"
#include "texts/utf8.h"

#include <algorithm>
#include <set>

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

} // namespace voltmere
