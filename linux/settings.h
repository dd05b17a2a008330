#pragma once

#include "linux/json_file.h"
#include "ports/log.h"
#include "ports/settings.h"
#include "posix/memory_defaults.h"

#include <filesystem>
#include <string>

namespace voltmere {

/// The user's settings in a JSON file, read at construction. A change is saved at once. A change
/// that cannot be saved lasts as long as this object, and the log gets one line.
class JsonSettings : public MemoryDefaults {
public:
    /// `log` must outlive this object.
    JsonSettings(const std::filesystem::path& path, SettingsUse use, SystemLog& log);

    void set(std::string_view key, Value value) override;

private:
    JsonFile file;
};

/// The file that holds the user's settings: voltmere/settings.json in $XDG_CONFIG_HOME.
std::filesystem::path settingsPath();

/// The diagnosis of the settings file at `path`: its size or why it does not count, and the
/// settings with a value of the wrong kind. Leaves the file as it is.
std::string describeSettingsFile(const std::filesystem::path& path);

} // namespace voltmere
