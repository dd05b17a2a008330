#pragma once

#include "tests/posix/temporary_directory.h"

#include <optional>
#include <string>

namespace voltmere {

/// What a synthetic power_supply entry holds. A part without a value has no file or line.
struct SysfsEntry {
    std::string name; ///< of the directory
    std::optional<std::string> capacity;
    std::optional<std::string> hidId;
    std::optional<std::string> hidName;
    std::optional<std::string> hidUniq;
};

/// A synthetic Bluetooth mouse, as it is when nothing is wrong with it.
inline SysfsEntry sysfsMouse(const std::string& name = "hid-02:00:5e:00:53:01-battery")
{
    return {.name = name,
            .capacity = "37\n",
            .hidId = "0005:0000004C:00000269",
            .hidName = "Mouse of Ann",
            .hidUniq = "02:00:5e:00:53:01"};
}

/// A synthetic tree in place of /sys. Its entries are modelled on the kernel's drivers, none was
/// captured from a device.
class SysfsFixture {
public:
    std::filesystem::path root() const { return directory.path(); }

    std::filesystem::path entryPath(const std::string& name) const
    {
        return root() / "class" / "power_supply" / name;
    }

    void add(const SysfsEntry& entry)
    {
        writeFile(entryPath(entry.name) / "type", "Battery\n");
        writeFile(entryPath(entry.name) / "scope", "Device\n");
        writeFile(entryPath(entry.name) / "status", "Discharging\n");
        if (entry.capacity) {
            writeFile(entryPath(entry.name) / "capacity", *entry.capacity);
        }
        std::string uevent = "DRIVER=magicmouse\n";
        uevent += line("HID_ID", entry.hidId) + line("HID_NAME", entry.hidName);
        uevent += "HID_PHYS=02:00:5e:00:53:00\n" + line("HID_UNIQ", entry.hidUniq);
        uevent += "MODALIAS=hid:b0005g0001v0000004Cp00000269\n";
        setUevent(entry.name, uevent);
    }

    void setUevent(const std::string& name, const std::string& content)
    {
        writeFile(entryPath(name) / "device" / "uevent", content);
    }

private:
    static std::string line(const std::string& key, const std::optional<std::string>& value)
    {
        return value ? key + '=' + *value + '\n' : std::string();
    }

    TemporaryDirectory directory;
};

} // namespace voltmere
