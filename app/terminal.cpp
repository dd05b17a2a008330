#include "app/terminal.h"

#include "alerting/check_result.h"
#include "app/platform.h"
#include "app/services.h"
#include "app/version.h"
#include "devices/device_reader.h"
#include "model/settings.h"
#include "texts/l10n.h"
#include "texts/plain_text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
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

namespace {

/// The model with real readings and no other effects; prints a line on standard output.
class Watch {
public:
    Watch(const CommandLine& commandLine, MainLoop& mainLoop)
        : commandLine(commandLine)
        , services(commandLine, Services::Reach::settings, mainLoop)
        , model(services.forModel())
        , change(model.objectWillChange.subscribe([this] {
            // The model announces a change before it makes it.
            services.mainLoop.postToMain([this] { print(); });
        }))
    {
        BatteryModel::launchSettled = true;
    }

    int run()
    {
        MainLoop& mainLoop = services.mainLoop;
        // Otherwise the program notices a closed output at the next change only, maybe days later.
        const auto outputWatch = watchForClosedOutput([&mainLoop] { mainLoop.stop(0); });
        return services.runMainLoop();
    }

private:
    /// Prints the last reading under the current settings, unless the line would be the same again.
    void print()
    {
        if (!model.lastChecked.get()) {
            return;
        }
        // Another process may have changed the settings. Faults of their file were logged at start.
        const auto present = services.openSettings(*services.modelLog);
        L10n::loadSetting(*present);
        const Reading reading{services.peripherals.choose().label, model.devices,
                              stored(*present, settings::threshold)};
        const std::string line = commandLine.format == CommandLine::Format::waybar
            ? readingWaybar(reading)
            : readingJson(reading);
        if (line == lastLine) {
            return;
        }
        lastLine = line;
        if (const int status = printAnswer(line + '\n'); status != 0) {
            services.mainLoop.stop(status);
        }
    }

    const CommandLine commandLine;
    std::string lastLine;
    Services services;
    BatteryModel model;
    Subscription change;
};

/// Lines of a label, padded to one width, and a cleaned text.
class Findings {
public:
    void add(const std::string& label, const std::string& text)
    {
        constexpr std::size_t labelWidth = 18;
        const std::size_t padding = label.size() < labelWidth ? labelWidth - label.size() : 1;
        lines += label + std::string(padding, ' ') + plainText(text) + '\n';
    }

    std::string lines;
};

void addVariables(Findings& report)
{
    for (const char* const name :
         {"XDG_CURRENT_DESKTOP", "XDG_SESSION_TYPE", "QT_QPA_PLATFORM", "LANG", "LANGUAGE"}) {
        const char* const value = std::getenv(name);
        report.add(name, value == nullptr ? "(not set)" : value);
    }
}

std::string valueOr(const std::optional<std::int64_t>& number, const char* otherwise)
{
    return number ? std::to_string(*number) : otherwise;
}

std::string outcome(const BatteryEntry& entry, const EntryVerdict& verdict)
{
    if (std::holds_alternative<BatteryDevice>(verdict)) {
        return "shown";
    }
    return "skipped: " +
        (entry.rejection ? *entry.rejection
                         : std::string(description(std::get<SkipReason>(verdict))));
}

/// An entry's origin may hold its address, so entries are numbered unless the user asked for names.
void addEntry(std::size_t number, const BatteryEntry& entry, const EntryVerdict& verdict,
              bool verbose, Findings& report)
{
    report.add("entry " + std::to_string(number),
               "product " + valueOr(entry.product, "unknown") + ", level " +
                   valueOr(entry.level, "none") + ": " + outcome(entry, verdict));
    if (verbose) {
        const auto* device = std::get_if<BatteryDevice>(&verdict);
        report.add("",
                   "from " + entry.origin + ", address " + entry.address.value_or("none") +
                       ", name " + (device != nullptr ? shownName(*device) : "none"));
    }
}

void addReading(const CommandLine& commandLine, SystemLog& log, Findings& report)
{
    Peripherals peripherals(commandLine, log);
    const PeripheralSources sources = peripherals.choose();
    report.add("source", sources.label);
    const NameMap names = sources.names->readNames();
    report.add("Bluetooth names", std::to_string(names.size()));
    const std::vector<BatteryEntry> entries = sources.batteries->readEntries();
    const std::vector<EntryVerdict> verdicts = judgeEntries(entries, names);
    report.add("entries", std::to_string(entries.size()));
    for (std::size_t i = 0; i < entries.size(); ++i) {
        addEntry(i + 1, entries[i], verdicts[i], commandLine.verbose, report);
    }
}

} // namespace

int printAnswer(std::string_view text)
{
    const bool written = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (!written || std::fflush(stdout) != 0) {
        std::fprintf(stderr, "voltmere: cannot write the answer: %s\n", std::strerror(errno));
        return exitStatus::cannotRun;
    }
    return 0;
}

int listPeripherals(const CommandLine& commandLine)
{
    const auto mainLoop = makeMainLoop();
    Services services(commandLine, Services::Reach::settings, *mainLoop);
    L10n::loadSetting(*services.defaults);
    const Reading reading{services.peripherals.choose().label, services.reader->readDevices(false),
                          stored(*services.defaults, settings::threshold)};
    return printAnswer(commandLine.json ? readingJson(reading) + '\n' : readingTable(reading));
}

int watchPeripherals(const CommandLine& commandLine)
{
    const auto mainLoop = makeMainLoop();
    return Watch(commandLine, *mainLoop).run();
}

int diagnose(const CommandLine& commandLine)
{
    const auto mainLoop = makeMainLoop();
    const auto log = makeSystemLog();
    Findings report;
    report.add("voltmere", version);
    addVariables(report);
    for (const Finding& finding : describeSystem(commandLine.verbose)) {
        report.add(finding.subject, finding.text);
    }
    addReading(commandLine, *log, report);
    return printAnswer(report.lines);
}

} // namespace voltmere
