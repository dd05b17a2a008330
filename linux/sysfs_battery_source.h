#pragma once

#include "ports/peripherals.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace voltmere {

/// What the kernel's HID core says of a device in its `uevent` file. Every part may be missing and
/// none is checked. Source: drivers/hid/hid-core.c, hid_uevent().
struct HidUevent {
    std::optional<std::int64_t> vendor;  ///< from HID_ID=bus:vendor:product, hexadecimal
    std::optional<std::int64_t> product; ///< there exactly when the vendor is
    std::optional<std::string> name;     ///< HID_NAME, the name that the user gave
    std::optional<std::string> address;  ///< HID_UNIQ, the Bluetooth address
};

/// Reads the lines `KEY=value`; of a key that is there twice the first one. An empty name or
/// address is none.
HidUevent parseHidUevent(std::string_view text);

/// The level in a `capacity` file, in percent; nothing for anything but a whole number from 0 on.
std::optional<std::int64_t> parseCapacity(std::string_view text);

/// Battery levels from the kernel: the `power_supply` entries of HID devices, in the order of their
/// names. Source of the layout: the kernel's hid-input and hid-magicmouse drivers,
/// Documentation/ABI/testing/sysfs-class-power, and the HID core's uevent (HID_ID, HID_NAME,
/// HID_UNIQ).
///
/// Reading a level may take seconds, since the kernel asks the device for it over the air.
class SysfsBatterySource : public BatterySource {
public:
    /// `root` stands where /sys normally does.
    explicit SysfsBatterySource(std::filesystem::path root);

    std::vector<BatteryEntry> readEntries() override;

private:
    std::filesystem::path root;
};

} // namespace voltmere
