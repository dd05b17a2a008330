#pragma once

#include <string>
#include <unordered_map>

namespace voltmere {

/// Bluetooth address (upper case) to the name that the user gave the device.
using NameMap = std::unordered_map<std::string, std::string>;

/// Reads the names of the paired Bluetooth devices. Blocks while it reads; may be called on any
/// thread, and by two threads at once. Every failure means fewer names, never an exception.
class NameSource {
public:
    virtual ~NameSource() = default;

    virtual NameMap readNames() = 0;
};

} // namespace voltmere
