#include "linux/json_file.h"

#include "linux/atomic_file.h"

#include <nlohmann/json.hpp>

#include <array>
#include <ctime>
#include <limits>
#include <optional>
#include <system_error>
#include <utility>

/// Converts a plain value to JSON, alone and in records and lists.
template<>
struct nlohmann::adl_serializer<voltmere::JsonValue> {
    template<typename Json>
    static void to_json(Json& json, const voltmere::JsonValue& value)
    {
        std::visit([&json](const auto& plain) { json = plain; }, value);
    }
};

namespace voltmere {

namespace {

namespace fs = std::filesystem;

using Json = nlohmann::ordered_json; // a user's keys stay in their order

constexpr mode_t ownerOnly = 0600;

std::optional<JsonValue> plainValue(const Json& json)
{
    if (json.is_boolean()) {
        return json.get<bool>();
    }
    if (json.is_number_unsigned() &&
        json.get<std::uint64_t>() > std::uint64_t{std::numeric_limits<std::int64_t>::max()}) {
        return json.get<double>();
    }
    if (json.is_number_integer()) {
        return json.get<std::int64_t>();
    }
    if (json.is_number_float()) {
        return json.get<double>();
    }
    if (json.is_string()) {
        return json.get<std::string>();
    }
    return std::nullopt;
}

JsonRecord recordOf(const Json& object)
{
    JsonRecord record;
    for (const auto& [key, json] : object.items()) {
        if (auto value = plainValue(json)) {
            record.insert_or_assign(key, *std::move(value));
        }
    }
    return record;
}

JsonEntry entryOf(const Json& json)
{
    if (auto value = plainValue(json)) {
        return *std::move(value);
    }
    std::vector<JsonRecord> records;
    if (json.is_array()) {
        for (const Json& element : json) {
            if (element.is_object()) {
                records.push_back(recordOf(element));
            }
        }
    }
    return records;
}

std::string textOf(const Json& json)
{
    constexpr int indentation = 4;
    return json.dump(indentation, ' ', false, Json::error_handler_t::replace) + '\n';
}

/// The object in a file; empty where there is a problem, which `content` then names.
Json readObject(const fs::path& path, JsonContent& content)
{
    const TextFile file = readTextFile(path);
    if (file.error) {
        content.problem = file.error.message();
    } else if (file.text.find_first_not_of(" \t\r\n") != std::string::npos) {
        Json json = Json::parse(file.text, nullptr, false);
        if (json.is_object()) {
            return json;
        }
        content.problem = "not a JSON object";
        content.damaged = true;
    }
    return Json::object();
}

/// Renames a damaged file in its directory. Returns its new path; nothing where that fails.
std::optional<fs::path> setAside(const fs::path& path)
{
    const std::time_t now = std::time(nullptr);
    std::tm utc{};
    std::array<char, 32> ending{};
    std::strftime(ending.data(), ending.size(), ".damaged-%Y%m%dT%H%M%SZ", ::gmtime_r(&now, &utc));
    const fs::path keptAs = path.string() + ending.data();
    std::error_code error;
    if (fs::exists(fs::symlink_status(keptAs, error))) {
        return std::nullopt;
    }
    fs::rename(path, keptAs, error);
    return error ? std::nullopt : std::optional(keptAs);
}

} // namespace

JsonContent readJsonFile(const fs::path& path)
{
    JsonContent content;
    const Json object = readObject(path, content);
    for (const auto& [key, json] : object.items()) {
        content.entries.insert_or_assign(key, entryOf(json));
    }
    return content;
}

JsonFile::JsonFile(fs::path path, std::string contents, SettingsUse use, SystemLog& log)
    : path(std::move(path))
    , contents(std::move(contents))
    , use(use)
    , log(log)
{
}

JsonContent JsonFile::load()
{
    JsonContent content = readJsonFile(path);
    handle(content);
    return content;
}

void JsonFile::set(std::string_view key, const JsonEntry& entry)
{
    JsonContent found;
    Json object = readObject(path, found);
    if (use == SettingsUse::readOnly || !handle(found)) {
        return;
    }
    const std::string before = textOf(object);
    object[std::string(key)] = std::visit([](const auto& value) { return Json(value); }, entry);
    const std::string after = textOf(object);
    if (after == before) {
        return;
    }
    std::error_code error = makePrivateDirectory(path.parent_path());
    if (!error) {
        error = replaceTextFile(path, after, ownerOnly);
    }
    if (error) {
        log.report("the " + contents + " cannot be saved, so changes end with the program",
                   path.string() + ": " + error.message());
    }
}

bool JsonFile::handle(const JsonContent& found)
{
    if (found.problem.empty()) {
        return true;
    }
    std::string line = "the " + contents + " file " + path.string() +
        (found.damaged ? " is damaged" : " cannot be read") + " and counts as empty";
    const std::optional<fs::path> keptAs =
        found.damaged && use == SettingsUse::readAndWrite ? setAside(path) : std::nullopt;
    if (keptAs) {
        line += ", it is kept as " + keptAs->string();
    } else if (use == SettingsUse::readAndWrite) {
        line += ", and changes end with the program";
    }
    log.report(line, found.problem);
    return keptAs.has_value();
}

} // namespace voltmere
