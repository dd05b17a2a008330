#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace voltmere {

/// One peripheral model of the catalogue.
struct KnownDevice {
    std::string name;   ///< display name; the same in every interface language
    std::string symbol; ///< name of the symbol image that stands for it
    std::int64_t order; ///< display rank: mice 0, keyboards 1, trackpads 2
};

/// One wireless peripheral and its charge. A plain value, always complete; its identity is `id`,
/// while equality compares every field.
struct BatteryDevice {
    std::int64_t id;    ///< the product identifier, hence one record for each model
    std::string name;   ///< the user's Bluetooth name for it when known, else the catalogue's
    std::int64_t level; ///< percent, as reported: neither clamped nor checked
    std::string symbol;
    std::int64_t order;

    bool operator==(const BatteryDevice&) const = default;

    /// The models that the program knows, by product identifier. No other device is ever listed.
    static const std::map<std::int64_t, KnownDevice>& knownAppleDevices();
};

/// The one rule for "is low": at or below the warning threshold, both in percent.
inline bool isLow(const BatteryDevice& device, std::int64_t threshold)
{
    return device.level <= threshold;
}

/// The low devices among `devices`, in their order.
std::vector<BatteryDevice> lowDevices(const std::vector<BatteryDevice>& devices,
                                      std::int64_t threshold);

/// The first device with the lowest level; nothing for an empty list.
std::optional<BatteryDevice> weakestDevice(const std::vector<BatteryDevice>& devices);

/// The device's name cleaned for display; the catalogue's name where nothing visible is left.
std::string shownName(const BatteryDevice& device);

/// `shownName` and the level, as "name level%".
std::string shownNameWithLevel(const BatteryDevice& device);

/// The devices in one line, each as "name level%", with `separator` between them. Names are
/// not cleaned.
std::string namesWithLevels(const std::vector<BatteryDevice>& devices, std::string_view separator);

} // namespace voltmere
