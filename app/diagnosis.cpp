#include "app/diagnosis.h"

#include "app/platform.h"
#include "app/services.h"
#include "app/terminal.h"
#include "app/version.h"
#include "devices/device_reader.h"
#include "texts/plain_text.h"

#include <cstdlib>

namespace voltmere {

namespace {

/// Lines of a label, padded to one width, and a cleaned text.
class Report {
public:
    void add(const std::string& label, const std::string& text)
    {
        constexpr std::size_t labelWidth = 18;
        const std::size_t padding = label.size() < labelWidth ? labelWidth - label.size() : 1;
        lines += label + std::string(padding, ' ') + plainText(text) + '\n';
    }

    std::string lines;
};

void addVariables(Report& report)
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
              bool verbose, Report& report)
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

void addReading(const CommandLine& commandLine, SystemLog& log, Report& report)
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

int diagnose(const CommandLine& commandLine)
{
    const auto mainLoop = makeMainLoop();
    const auto log = makeSystemLog();
    Report report;
    report.add("voltmere", version);
    addVariables(report);
    for (const Finding& finding : describeSystem(commandLine.verbose)) {
        report.add(finding.subject, finding.text);
    }
    addReading(commandLine, *log, report);
    return printAnswer(report.lines);
}

} // namespace voltmere
