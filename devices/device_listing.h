#pragma once

#include "devices/battery_device.h"
#include "ports/peripherals.h"

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

} // namespace voltmere
