#include "linux/settings.h"

#include "linux/environment.h"
#include "model/settings.h"

#include <cstdint>
#include <system_error>
#include <utility>

namespace voltmere {

namespace {

namespace fs = std::filesystem;

void take(const JsonContent& content, MemoryDefaults& defaults)
{
    for (const auto& [key, entry] : content.entries) {
        if (const auto* value = std::get_if<JsonValue>(&entry)) {
            defaults.MemoryDefaults::set(key, *value);
        }
    }
}

std::string unusableSettings(const JsonContent& content)
{
    MemoryDefaults defaults;
    take(content, defaults);
    return unusableSettings(defaults, [&content](std::string_view key) {
        return content.entries.find(key) != content.entries.end();
    });
}

} // namespace

JsonSettings::JsonSettings(const fs::path& path, SettingsUse use, SystemLog& log)
    : file(path, "settings", use, log)
{
    take(file.load(), *this);
}

void JsonSettings::set(std::string_view key, Value value)
{
    file.set(key, value);
    MemoryDefaults::set(key, std::move(value));
}

fs::path settingsPath()
{
    return userDirectory("XDG_CONFIG_HOME", ".config") / "voltmere" / "settings.json";
}

std::string describeSettingsFile(const fs::path& path)
{
    std::error_code error;
    if (!fs::exists(path, error) && !error) {
        return "not there, defaults are used";
    }
    const JsonContent content = readJsonFile(path);
    if (!content.problem.empty() && !content.damaged) {
        return "cannot be read (" + content.problem + "), defaults are used";
    }
    const std::uintmax_t bytes = fs::file_size(path, error);
    const std::string size = std::to_string(error ? 0 : bytes) + " bytes";
    if (content.damaged) {
        return size + ", " + content.problem + ": defaults are used, and a start sets it aside";
    }
    const std::string unusable = unusableSettings(content);
    return unusable.empty() ? size : size + ", no usable value, so the default: " + unusable;
}

} // namespace voltmere
