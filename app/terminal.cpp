#include "app/terminal.h"

#include "app/platform.h"
#include "app/report.h"
#include "app/services.h"
#include "model/settings.h"
#include "texts/l10n.h"

#include <cerrno>
#include <cstdio>
#include <cstring>

namespace voltmere {

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

} // namespace voltmere
