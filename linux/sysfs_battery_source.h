#pragma once

#include "ports/peripherals.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace voltmere {

/// A device as the kernel's HID core describes it in its `uevent` file. Every part may be missing
/// or wrong. Source: drivers/hid/hid-core.c, hid_uevent().
struct HidUevent {
    std::optional<std::int64_t> vendor;  ///< from HID_ID=bus:vendor:product, hexadecimal
    std::optional<std::int64_t> product; ///< present exactly when the vendor is
    std::optional<std::string> name;     ///< HID_NAME, the name that the user gave
    std::optional<std::string> address;  ///< HID_UNIQ, the Bluetooth address
};

/// Reads the lines `KEY=value`. The first of duplicate keys counts. An empty name or address means
/// absent.
HidUevent parseHidUevent(std::string_view text);

/// The level in a `capacity` file, in percent; nothing unless it is a whole number from 0 on.
std::optional<std::int64_t> parseCapacity(std::string_view text);

/// Battery levels from the kernel: the `power_supply` entries of HID devices, in the order of their
/// names. Source of the layout: the kernel's hid-input and hid-magicmouse drivers,
/// Documentation/ABI/testing/sysfs-class-power, and the HID core's uevent (HID_ID, HID_NAME,
/// HID_UNIQ).
///
/// Reading a level may take seconds, since the kernel asks the device for it over the air.
class SysfsBatterySource : public BatterySource {
public:
    /// `root` replaces /sys.
    explicit SysfsBatterySource(std::filesystem::path root);

    std::vector<BatteryEntry> readEntries() override;

private:
    std::filesystem::path root;
};

} // namespace voltmere
