#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace voltmere {

/// One peripheral as an outside source shows it, before the program judges it. Nothing here is
/// checked: a level may be missing or beyond 100, a product may be unknown, a name may hold
/// anything.
struct BatteryEntry {
    std::string origin;                   ///< where the source found it, for diagnosis
    std::optional<std::int64_t> level;    ///< percent, as reported
    std::optional<std::int64_t> product;  ///< the maker's product identifier
    std::optional<std::string> address;   ///< Bluetooth address, or whatever stands in its place
    std::optional<std::string> givenName; ///< the user's name for it, where the source knows one
    std::optional<std::string>
        rejection; ///< why the source itself leaves the entry out, if it does
};

/// Reads the battery levels of the peripherals. Blocks while it reads; may be called on any thread,
/// and by two threads at once. Every failure means fewer entries, never an exception.
class BatterySource {
public:
    virtual ~BatterySource() = default;

    virtual std::vector<BatteryEntry> readEntries() = 0;
};

} // namespace voltmere
