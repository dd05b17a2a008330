#include "reference/registry_reference.h"

#include "devices/registry_parser.h"
#include "reference/reference_text.h"

#include <algorithm>

namespace voltmere::reference {

namespace {

struct CatalogueLine {
    std::int64_t product;
    std::string name;
    std::string symbol;
    std::int64_t order;
};

std::vector<CatalogueLine> catalogue()
{
    const std::string trackpad = "rectangle.and.hand.point.up.left";
    return {{613, "Magic Trackpad 2", trackpad, 2},
            {615, "Magic Keyboard", "keyboard", 1},
            {617, "Magic Mouse 2", "magicmouse", 0},
            {619, "Magic Keyboard 数字键盘版", "keyboard", 1},
            {620, "Magic Keyboard 数字键盘版", "keyboard", 1},
            {656, "Magic Keyboard with Touch ID", "keyboard", 1},
            {657, "Magic Keyboard with Touch ID 数字键盘版", "keyboard", 1},
            {803, "Magic Mouse", "magicmouse", 0},
            {804, "Magic Trackpad", trackpad, 2},
            {805, "Magic Keyboard", "keyboard", 1}};
}

/// What stands behind the first occurrence of `pattern`, up to the end of the text.
std::optional<std::string> behind(const std::string& pattern, const std::string& text)
{
    for (std::size_t place = 0; place < text.size(); ++place) {
        if (text.compare(place, pattern.size(), pattern) == 0) {
            return text.substr(place + pattern.size());
        }
    }
    return std::nullopt;
}

/// A decimal number of up to nineteen digits, leading zeros aside, that is at most 2^63 - 1.
std::optional<std::int64_t> decimal(const std::u32string& run)
{
    std::string digits;
    for (const char32_t c : run) {
        if (c < U'0' || c > U'9') {
            return std::nullopt;
        }
        if (!(digits.empty() && c == U'0')) {
            digits += static_cast<char>(c);
        }
    }
    const std::string most = "9223372036854775807";
    if (digits.size() > most.size() || (digits.size() == most.size() && digits > most)) {
        return std::nullopt;
    }
    return digits.empty() ? 0 : std::stoll(digits);
}

std::optional<std::string> quoted(const std::string& key, const std::string& block)
{
    const auto rest = behind("\"" + key + "\" = \"", block);
    if (!rest || std::count(rest->begin(), rest->end(), '"') == 0) {
        return std::nullopt;
    }
    return split(*rest, "\"").front();
}

std::string nameOf(const std::string& block, const Names& names, const std::string& otherwise)
{
    auto address = quoted("SerialNumber", block);
    if (!address) {
        address = quoted("DeviceAddress", block);
    }
    if (!address) {
        return otherwise;
    }
    std::replace(address->begin(), address->end(), '-', ':');
    const auto known = names.find(inUpperCase(*address));
    return known == names.end() ? otherwise : known->second;
}

std::optional<BatteryDevice> deviceOf(const std::string& block, const Names& names)
{
    auto level = numberOf("BatteryPercent", block);
    if (!level) {
        level = numberOf("BatteryLevel", block);
    }
    const auto product = numberOf("ProductID", block);
    if (!level || !product) {
        return std::nullopt;
    }
    for (const CatalogueLine& line : catalogue()) {
        if (line.product == *product) {
            return BatteryDevice{line.product, nameOf(block, names, line.name), *level, line.symbol,
                                 line.order};
        }
    }
    return std::nullopt;
}

bool holdsProduct(const std::vector<BatteryDevice>& devices, std::int64_t product)
{
    return std::any_of(devices.begin(), devices.end(),
                       [&](const BatteryDevice& device) { return device.id == product; });
}

} // namespace

std::optional<std::int64_t> numberOf(const std::string& key, const std::string& block)
{
    const auto rest = behind("\"" + key + "\" = ", block);
    if (!rest) {
        return std::nullopt;
    }
    const std::u32string characters = decoded(*rest).value_or(U"");
    std::u32string run;
    for (const char32_t c : characters) {
        if (!isNumeric(c)) {
            break;
        }
        run += c;
    }
    return run.empty() ? std::nullopt : decimal(run);
}

std::vector<BatteryDevice> devicesInRegistry(const std::string& text, const Names& names)
{
    if (!decoded(text)) {
        return {};
    }
    std::vector<BatteryDevice> found;
    for (const std::string& block : split(text, "\n    {")) {
        const auto device = deviceOf(block, names);
        if (device && !holdsProduct(found, device->id)) {
            found.push_back(*device);
        }
    }
    std::vector<BatteryDevice> ordered;
    for (const std::int64_t order : {0, 1, 2}) {
        for (const BatteryDevice& device : found) {
            if (device.order == order) {
                ordered.push_back(device);
            }
        }
    }
    return ordered;
}

} // namespace voltmere::reference
