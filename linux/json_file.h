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

/// What stands under a key: a plain value, or else the objects of a list. Anything else counts as a
/// list without any.
using JsonEntry = std::variant<JsonValue, std::vector<JsonRecord>>;

/// What a file holds.
struct JsonContent {
    std::map<std::string, JsonEntry, std::less<>> entries;
    std::string
        problem; ///< why the file counts as empty though it is there; empty where it does not
    bool damaged = false; ///< the problem is its text
};

/// Reads the JSON object of a file and leaves the file alone. A missing file and an empty one hold
/// nothing, which is no problem.
JsonContent readJsonFile(const std::filesystem::path& path);

/// A JSON object in a file that belongs to its user alone (0600, in a directory of 0700).
///
/// A damaged file counts as empty. Who may write moves it beside itself, as
/// "<name>.damaged-<time>"; where it cannot be moved or read, nothing is written, so that nothing
/// that a user wrote is lost. Whatever fails gets a line in the log.
class JsonFile {
public:
    /// `contents` names what the file keeps, as a sentence of the log has it ("settings"). `log`
    /// must outlive this object.
    JsonFile(std::filesystem::path path, std::string contents, SettingsUse use, SystemLog& log);

    JsonContent load();

    /// Puts `entry` under `key` of what the file holds now, and keeps all else. The file is
    /// replaced in one step; one that says so already is left as it is.
    void set(std::string_view key, const JsonEntry& entry);

private:
    /// Sets a damaged file aside, if this may. Returns whether the file may be written then.
    bool handle(const JsonContent& found);

    const std::filesystem::path path;
    const std::string contents;
    const SettingsUse use;
    OnceLog log;
};

/// Where a file of the program is among the user's own: "voltmere/`name`" in the directory that the
/// environment's `variable` names, or in `fallback` of the home directory where that is no absolute
/// path. Source: XDG Base Directory Specification 0.8.
std::filesystem::path userFile(const char* variable, const char* fallback, const char* name);

} // namespace voltmere
