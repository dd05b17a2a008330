#include "linux/sysfs_battery_source.h"

#include "posix/file_descriptor.h"

#include <fcntl.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <string_view>
#include <utility>

namespace voltmere {

namespace {

/// The value of one `KEY=value` line of a uevent.
std::optional<std::string> ueventValue(std::string_view uevent, std::string_view key)
{
    while (!uevent.empty()) {
        const std::size_t end = std::min(uevent.find('\n'), uevent.size());
        const std::string_view line = uevent.substr(0, end);
        if (line.starts_with(key) && line.substr(key.size()).starts_with('=')) {
            return std::string(line.substr(key.size() + 1));
        }
        uevent.remove_prefix(std::min(end + 1, uevent.size()));
    }
    return std::nullopt;
}

/// A number without a sign that fits 63 bits.
std::optional<std::int64_t> wholeNumber(std::string_view text, int base)
{
    std::uint64_t number = 0;
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
    const std::size_t second =
        first == std::string_view::npos ? std::string_view::npos : text.find(':', first + 1);
    if (second == std::string_view::npos) {
        return;
    }
    const auto vendor = wholeNumber(text.substr(first + 1, second - first - 1), 16);
    const auto product = wholeNumber(text.substr(second + 1), 16);
    if (vendor && product) {
        device.vendor = vendor;
        device.product = product;
    }
}

std::optional<std::string> nonEmpty(std::optional<std::string> text)
{
    return text && !text->empty() ? std::move(text) : std::nullopt;
}

} // namespace

HidUevent parseHidUevent(std::string_view text)
{
    HidUevent device;
    takeHidId(ueventValue(text, "HID_ID").value_or(""), device);
    device.name = nonEmpty(ueventValue(text, "HID_NAME"));
    device.address = nonEmpty(ueventValue(text, "HID_UNIQ"));
    return device;
}

std::optional<std::int64_t> parseCapacity(std::string_view text)
{
    while (text.ends_with('\n')) {
        text.remove_suffix(1);
    }
    return wholeNumber(text, 10);
}

namespace {

namespace fs = std::filesystem;

constexpr std::string_view entryPrefix = "hid-";
constexpr std::string_view entryMark = "-battery";

/// Apple's vendor identifiers for Bluetooth and for USB. The first generation of devices reports
/// the latter over Bluetooth too.
constexpr std::array<std::int64_t, 2> appleVendors{0x004C, 0x05AC};

/// One attribute file as text; nothing when it cannot be read. An attribute is at most a page.
std::optional<std::string> readAttribute(const fs::path& path)
{
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file) {
        return std::nullopt;
    }
    std::array<char, 4096> buffer{};
    std::size_t size = 0;
    while (size < buffer.size()) {
        const ssize_t count = ::read(file.get(), buffer.data() + size, buffer.size() - size);
        if (count > 0) {
            size += static_cast<std::size_t>(count);
        } else if (count == 0) {
            break;
        } else if (errno != EINTR) {
            return std::nullopt;
        }
    }
    return std::string(buffer.data(), size);
}

/// The address in a directory name: hid-<address>-battery, with -<report> behind it on newer
/// kernels.
std::string addressInName(std::string_view name)
{
    const std::size_t end = name.rfind(entryMark);
    return std::string(name.substr(entryPrefix.size(), end - entryPrefix.size()));
}

BatteryEntry readEntry(const fs::path& directory)
{
    BatteryEntry entry;
    entry.origin = directory.filename().string();
    HidUevent device = parseHidUevent(readAttribute(directory / "device" / "uevent").value_or(""));
    if (!device.product) {
        entry.rejection = "its HID_ID cannot be read";
        return entry;
    }
    entry.product = device.product;
    if (std::find(appleVendors.begin(), appleVendors.end(), device.vendor) == appleVendors.end()) {
        entry.rejection = "another maker's device";
        return entry;
    }
    entry.level = parseCapacity(readAttribute(directory / "capacity").value_or(""));
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
