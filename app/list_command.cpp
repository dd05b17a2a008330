#include "app/list_command.h"

#include "app/peripherals.h"
#include "app/platform_factory.h"
#include "app/reading_report.h"
#include "app/terminal_output.h"
#include "devices/device_reader.h"
#include "linux/settings.h"
#include "model/settings.h"
#include "posix/clock.h"
#include "posix/system_log.h"
#include "texts/l10n.h"

namespace voltmere {

int listPeripherals(const CommandLine& commandLine)
{
    PosixSystemLog log;
    const auto defaults = openSettings(commandLine.demo, SettingsUse::readOnly, log);
    const auto languages = makePreferredLanguages();
    L10n::usePreferredLanguages(languages.get());
    L10n::loadSetting(*defaults);

    const SystemClock clock;
    Peripherals peripherals(commandLine, log);
    PeripheralSources sources = peripherals.choose();
    DeviceReader reader([&sources] { return sources; }, clock);
    const Reading reading{sources.label, reader.readDevices(false),
                          stored(*defaults, settings::threshold)};

    const std::string report =
        commandLine.json ? readingJson(reading) + '\n' : readingTable(reading);
    L10n::usePreferredLanguages(nullptr);
    return printAnswer(report);
}

} // namespace voltmere
