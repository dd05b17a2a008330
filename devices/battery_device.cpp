#include "devices/battery_device.h"

#include "texts/plain_text.h"

#include <algorithm>

namespace voltmere {

const std::map<std::int64_t, KnownDevice>& BatteryDevice::knownAppleDevices()
{
    static const std::map<std::int64_t, KnownDevice> catalogue{
        {613, {"Magic Trackpad 2", "rectangle.and.hand.point.up.left", 2}},
        {615, {"Magic Keyboard", "keyboard", 1}},
        {617, {"Magic Mouse 2", "magicmouse", 0}},
        {619, {"Magic Keyboard 数字键盘版", "keyboard", 1}},
        {620, {"Magic Keyboard 数字键盘版", "keyboard", 1}},
        {656, {"Magic Keyboard with Touch ID", "keyboard", 1}},
        {657, {"Magic Keyboard with Touch ID 数字键盘版", "keyboard", 1}},
        {803, {"Magic Mouse", "magicmouse", 0}},
        {804, {"Magic Trackpad", "rectangle.and.hand.point.up.left", 2}},
        {805, {"Magic Keyboard", "keyboard", 1}},
    };
    return catalogue;
}

std::vector<BatteryDevice> lowDevices(const std::vector<BatteryDevice>& devices,
                                      std::int64_t threshold)
{
    std::vector<BatteryDevice> low = devices;
    std::erase_if(low, [threshold](const auto& device) { return !isLow(device, threshold); });
    return low;
}

std::optional<BatteryDevice> weakestDevice(const std::vector<BatteryDevice>& devices)
{
    const auto weakest = std::ranges::min_element(devices, {}, &BatteryDevice::level);
    return weakest == devices.end() ? std::nullopt : std::optional(*weakest);
}

std::string shownName(const BatteryDevice& device)
{
    std::string name = plainText(device.name);
    if (name.find_first_not_of(' ') != std::string::npos) {
        return name;
    }
    const auto& catalogue = BatteryDevice::knownAppleDevices();
    const auto known = catalogue.find(device.id);
    return known == catalogue.end() ? name : known->second.name;
}

std::string shownNameWithLevel(const BatteryDevice& device)
{
    return shownName(device) + ' ' + std::to_string(device.level) + '%';
}

std::string namesWithLevels(const std::vector<BatteryDevice>& devices, std::string_view separator)
{
    std::string line;
    for (const BatteryDevice& device : devices) {
        if (&device != &devices.front()) {
            line += separator;
        }
        line += device.name + ' ' + std::to_string(device.level) + '%';
    }
    return line;
}

} // namespace voltmere
