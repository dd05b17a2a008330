#include "devices/registry_parser.h"

#include "devices/numeric_character.h"
#include "texts/utf8.h"

#include <algorithm>
#include <charconv>
#include <functional>
#include <string>

namespace voltmere {

namespace {

constexpr std::string_view blockSeparator = "\n    {";

/// Finds what stands behind `"key" = ` and one opening text more; the search is prepared once.
class Property {
public:
    explicit Property(std::string_view key, std::string_view opening = {})
        : pattern('"' + std::string(key) + "\" = " + std::string(opening))
        , searcher(pattern.begin(), pattern.end())
    {
    }

    Property(const Property&) = delete;
    Property& operator=(const Property&) = delete;

    std::optional<std::string_view> valueIn(std::string_view text) const
    {
        const auto position = std::search(text.begin(), text.end(), searcher) - text.begin();
        const auto found = static_cast<std::size_t>(position);
        return found == text.size() ? std::nullopt
                                    : std::optional(text.substr(found + pattern.size()));
    }

private:
    std::string pattern;
    std::boyer_moore_horspool_searcher<std::string::const_iterator> searcher;
};

/// The number at the start of `text`: the longest run of numeric characters, where that is a
/// decimal integer of 64 bits. A run with other numerals than 0 to 9 is none.
std::optional<std::int64_t> leadingInt(std::string_view text)
{
    std::size_t run = 0;
    for (;;) {
        const Utf8Scalar scalar = firstScalar(text.substr(run));
        if (!isNumeric(scalar.value)) {
            break;
        }
        run += scalar.length;
    }
    std::int64_t number{};
    const auto [after, error] = std::from_chars(text.data(), text.data() + run, number);
    if (error != std::errc{} || after != text.data() + run) {
        return std::nullopt;
    }
    return number;
}

std::optional<std::int64_t> intIn(const Property& property, std::string_view text)
{
    const auto value = property.valueIn(text);
    return value ? leadingInt(*value) : std::nullopt;
}

std::optional<std::string> quotedTextIn(const Property& property, std::string_view text)
{
    const auto value = property.valueIn(text);
    const std::size_t end = value ? value->find('"') : std::string_view::npos;
    if (end == std::string_view::npos) {
        return std::nullopt;
    }
    return std::string(value->substr(0, end));
}

BatteryEntry parseBlock(std::string_view block)
{
    static const Property batteryPercent("BatteryPercent");
    static const Property batteryLevel("BatteryLevel");
    static const Property productID("ProductID");
    static const Property serialNumber("SerialNumber", "\"");
    static const Property deviceAddress("DeviceAddress", "\"");

    BatteryEntry entry;
    entry.level = intIn(batteryPercent, block);
    if (!entry.level) {
        entry.level = intIn(batteryLevel, block);
    }
    entry.product = intIn(productID, block);
    entry.address = quotedTextIn(serialNumber, block);
    if (!entry.address) {
        entry.address = quotedTextIn(deviceAddress, block);
    }
    return entry;
}

} // namespace

std::vector<BatteryEntry> parseRegistry(std::string_view text)
{
    std::vector<BatteryEntry> entries;
    if (!isValidUtf8(text)) {
        return entries;
    }
    for (std::size_t number = 0;; ++number) {
        const std::size_t end = text.find(blockSeparator);
        BatteryEntry entry = parseBlock(text.substr(0, end));
        if (entry.level || entry.product) {
            entry.origin = "registry block " + std::to_string(number);
            entries.push_back(std::move(entry));
        }
        if (end == std::string_view::npos) {
            return entries;
        }
        text.remove_prefix(end + blockSeparator.size());
    }
}

std::optional<std::int64_t> extractInt(std::string_view key, std::string_view text)
{
    return intIn(Property(key), text);
}

} // namespace voltmere
