#include "linux/sysfs_battery_source.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <fstream>
#include <map>
#include <sstream>
#include <string_view>
#include <utility>

namespace voltmere {

namespace {

/// A number without a sign that fits 63 bits.
std::optional<std::int64_t> wholeNumber(std::string_view text, int base)
{
    std::uint64_t number{};
    const auto [after, error] =
        std::from_chars(text.data(), text.data() + text.size(), number, base);
    if (error != std::errc{} || after != text.data() + text.size() || number > INT64_MAX) {
        return std::nullopt;
    }
    return static_cast<std::int64_t>(number);
}

/// Takes the second and third number of an identifier such as 0005:0000004C:00000269.
void takeHidId(std::string_view text, HidUevent& device)
{
    const std::size_t first = text.find(':');
    const std::size_t second = text.rfind(':');
    if (first == second) {
        return;
    }
    const auto vendor = wholeNumber(text.substr(first + 1, second - first - 1), 16);
    const auto product = wholeNumber(text.substr(second + 1), 16);
    if (vendor && product) {
        device.vendor = vendor;
        device.product = product;
    }
}

namespace fs = std::filesystem;

constexpr std::string_view entryPrefix = "hid-";
constexpr std::string_view entryMark = "-battery";

/// Apple's vendor identifiers for Bluetooth and for USB. The first generation of devices reports
/// the latter over Bluetooth too.
constexpr std::array<std::int64_t, 2> appleVendors{0x004C, 0x05AC};

/// The address in a directory name: hid-<address>-battery, with -<report> behind it on newer
/// kernels.
std::string addressInName(std::string_view name)
{
    const std::size_t end = name.rfind(entryMark);
    return std::string(name.substr(entryPrefix.size(), end - entryPrefix.size()));
}

/// Empty for a file that is missing or whose device does not answer.
std::string contents(const fs::path& file)
{
    std::ostringstream text;
    text << std::ifstream(file).rdbuf();
    return text.str();
}

BatteryEntry readEntry(const fs::path& directory)
{
    BatteryEntry entry;
    entry.origin = directory.filename().string();
    HidUevent device = parseHidUevent(contents(directory / "device" / "uevent"));
    if (!device.product) {
        entry.rejection = "its HID_ID cannot be read";
        return entry;
    }
    entry.product = device.product;
    if (std::find(appleVendors.begin(), appleVendors.end(), device.vendor) == appleVendors.end()) {
        entry.rejection = "another maker's device";
        return entry;
    }
    entry.level = parseCapacity(contents(directory / "capacity"));
    entry.address = std::move(device.address).value_or(addressInName(entry.origin));
    entry.givenName = std::move(device.name);
    return entry;
}

std::vector<fs::path> hidBatteries(const fs::path& directory)
{
    std::vector<fs::path> found;
    std::error_code error;
    for (fs::directory_iterator entry(directory, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string name = entry->path().filename().string();
        if (name.starts_with(entryPrefix) && name.find(entryMark) != std::string::npos) {
            found.push_back(entry->path());
        }
    }
    std::sort(found.begin(), found.end());
    return found;
}

} // namespace

HidUevent parseHidUevent(std::string_view text)
{
    std::map<std::string, std::string> values;
    std::istringstream lines{std::string(text)};
    for (std::string line; std::getline(lines, line);) {
        if (const std::size_t end = line.find('='); end != std::string::npos) {
            values.emplace(line.substr(0, end), line.substr(end + 1));
        }
    }
    const auto nonEmpty = [&values](const char* key) {
        return values[key].empty() ? std::nullopt : std::optional(values[key]);
    };
    HidUevent device;
    takeHidId(values["HID_ID"], device);
    device.name = nonEmpty("HID_NAME");
    device.address = nonEmpty("HID_UNIQ");
    return device;
}

std::optional<std::int64_t> parseCapacity(std::string_view text)
{
    while (text.ends_with('\n')) {
        text.remove_suffix(1);
    }
    return wholeNumber(text, 10);
}

SysfsBatterySource::SysfsBatterySource(fs::path root)
    : root(std::move(root))
{
}

std::vector<BatteryEntry> SysfsBatterySource::readEntries()
{
    std::vector<BatteryEntry> entries;
    for (const fs::path& directory : hidBatteries(root / "class" / "power_supply")) {
        entries.push_back(readEntry(directory));
    }
    return entries;
}

} // namespace voltmere
