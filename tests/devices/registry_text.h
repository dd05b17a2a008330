#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace voltmere {

// Builds text in the form that the registry tool prints. All of it is synthetic: no identifier,
// address or name was taken from a real device.

/// `"key" = value`, as one property stands in a block.
inline std::string property(std::string_view key, std::string_view value)
{
    return '"' + std::string(key) + "\" = " + std::string(value);
}

/// The same for a text: `"key" = "text"`.
inline std::string textProperty(std::string_view key, std::string_view text)
{
    return property(key, '"' + std::string(text) + '"');
}

/// One entry: its title line and a block with the given properties, one a line.
inline std::string registryBlock(std::initializer_list<std::string_view> properties)
{
    std::string block = "+-o AppleDeviceManagementHIDEventService  <class "
                        "AppleDeviceManagementHIDEventService, id 0x100000abc, registered>\n    {";
    for (const std::string_view line : properties) {
        block += "\n      ";
        block += line;
    }
    return block + "\n    }\n\n";
}

inline const std::string percent55 = property("BatteryPercent", "55");
inline const std::string product803 = property("ProductID", "803");

} // namespace voltmere
