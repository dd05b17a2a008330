#pragma once

#include "ports/peripherals.h"

#include <filesystem>

namespace voltmere {

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
