#include "linux/sysfs_battery_source.h"

#include "linux/hid_uevent.h"
#include "posix/file_descriptor.h"

#include <fcntl.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <string_view>
#include <utility>

namespace voltmere {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view entryPrefix = "hid-";
constexpr std::string_view entryMark = "-battery";

/// Apple's vendor identifiers: the Bluetooth one, and the USB one, which the first generation also
/// reports over Bluetooth.
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
