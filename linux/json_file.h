#pragma once

#include "ports/log.h"
#include "ports/settings.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace voltmere {

/// A plain value. A number is an integer where it is written as one and fits.
using JsonValue = std::variant<bool, std::int64_t, double, std::string>;

/// The plain values of an object.
using JsonRecord = std::map<std::string, JsonValue, std::less<>>;

/// The value of a key: a plain value or the objects of a list. Any other value counts as an empty
/// list.
using JsonEntry = std::variant<JsonValue, std::vector<JsonRecord>>;

/// The content of a file.
struct JsonContent {
    std::map<std::string, JsonEntry, std::less<>> entries;
    std::string problem;  ///< why an existing file counts as empty; empty without a problem
    bool damaged = false; ///< the text of the file is the problem
};

/// Reads the JSON object of a file and leaves the file alone. A missing file
/// and an empty file hold nothing, which is no problem.
JsonContent readJsonFile(const std::filesystem::path& path);

/// A JSON object in a file that belongs to its user alone (0600, in a directory of 0700).
///
/// A damaged file is treated as empty; with SettingsUse::readAndWrite it is first renamed to
/// "<name>.damaged-<UTC time>". Where the file cannot be renamed or read, nothing is written, so
/// that no text of the user is lost. Each failure gets a line in the log.
class JsonFile {
public:
    /// `contents` is the word for the file's content in the log ("settings"). `log`
    /// must outlive this object.
    JsonFile(std::filesystem::path path, std::string contents, SettingsUse use, SystemLog& log);

    /// Reads the file, and renames a damaged one as above. A failure gives empty content.
    JsonContent load();

    /// Sets `key` of the file's present object to `entry` and keeps all other keys. Replaces the
    /// file in one step; a file that already holds `entry` stays untouched. Does nothing with
    /// SettingsUse::readOnly. After a failure the file is as it was.
    void set(std::string_view key, const JsonEntry& entry);

private:
    /// Sets a damaged file aside, if this object may write. Returns whether writing is safe then.
    bool handle(const JsonContent& found);

    const std::filesystem::path path;
    const std::string contents;
    const SettingsUse use;
    OnceLog log;
};

} // namespace voltmere
