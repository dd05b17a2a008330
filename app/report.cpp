#include "app/report.h"

#include "alerting/check_result.h"
#include "texts/plain_text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <map>

namespace voltmere {

namespace {

using Json = nlohmann::json;

std::string row(const std::string& level, const std::string& state, const std::string& name)
{
    constexpr std::size_t column = 5; // the width of "LEVEL" and of "STATE"
    const std::string beforeLevel(column - std::min(level.size(), column), ' ');
    const std::string afterState(column - std::min(state.size(), column), ' ');
    return beforeLevel + level + "  " + state + afterState + "  " + name + '\n';
}

const char* stateOf(const BatteryDevice& device, std::int64_t threshold)
{
    return isLow(device, threshold) ? "low" : "ok";
}

Json deviceJson(const BatteryDevice& device, std::int64_t threshold)
{
    return {{"id", device.id},         {"name", device.name},   {"level", device.level},
            {"symbol", device.symbol}, {"order", device.order}, {"low", isLow(device, threshold)}};
}

/// On one line. Invalid UTF-8 becomes U+FFFD.
std::string compact(const Json& json)
{
    return escapedJson(json.dump(-1, ' ', false, Json::error_handler_t::replace));
}

std::string escapedMarkup(std::string_view text)
{
    static const std::map<char, std::string> forms{
        {'<', "&lt;"}, {'>', "&gt;"}, {'&', "&amp;"}, {'"', "&quot;"}};
    std::string escaped;
    for (const char character : text) {
        const auto form = forms.find(character);
        escaped += form == forms.end() ? std::string(1, character) : form->second;
    }
    return escaped;
}

/// The bar reads markup in tooltips.
std::string waybarTooltip(const Reading& reading)
{
    std::string tooltip = plainText(statusText(reading.devices, reading.threshold));
    for (const BatteryDevice& device : reading.devices) {
        tooltip += '\n' + shownNameWithLevel(device);
    }
    return escapedMarkup(tooltip);
}

} // namespace

std::string readingTable(const Reading& reading)
{
    if (reading.devices.empty()) {
        return "No peripherals found\n";
    }
    std::string table = row("LEVEL", "STATE", "NAME");
    for (const BatteryDevice& device : reading.devices) {
        table += row(std::to_string(device.level) + '%', stateOf(device, reading.threshold),
                     shownName(device));
    }
    return table;
}

std::string readingJson(const Reading& reading)
{
    Json devices = Json::array();
    for (const BatteryDevice& device : reading.devices) {
        devices.push_back(deviceJson(device, reading.threshold));
    }
    return compact({{"source", reading.source},
                    {"devices", std::move(devices)},
                    {"threshold", reading.threshold},
                    {"status", statusText(reading.devices, reading.threshold)}});
}

std::string readingWaybar(const Reading& reading)
{
    const auto weakest = weakestDevice(reading.devices);
    if (!weakest) {
        return compact({{"text", ""}, {"tooltip", waybarTooltip(reading)}, {"class", "none"}});
    }
    const char* const state = stateOf(*weakest, reading.threshold);
    return compact({{"text", std::to_string(weakest->level) + '%'},
                    {"alt", state},
                    {"tooltip", waybarTooltip(reading)},
                    {"class", state},
                    {"percentage", weakest->level}});
}

} // namespace voltmere
