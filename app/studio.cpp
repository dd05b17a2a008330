#include "app/studio.h"

#include "app/services.h"
#include "app/terminal.h"
#include "devices/battery_device.h"
#include "snooze/snooze_alert.h"
#include "texts/l10n.h"

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <vector>

namespace voltmere {

namespace {

/// One form of the snooze alert.
struct AlertSample {
    std::string name;
    std::vector<BatteryDevice> devices;
    bool isLow;
};

std::vector<AlertSample> alertSamples()
{
    enum Kind : std::int64_t { mouse, keyboard, trackpad, other };
    // The alert shows neither identifiers nor symbols, and the name of a device of another kind.
    const auto device = [](Kind kind, std::int64_t level, const char* name = "Magic Mouse") {
        return BatteryDevice{{}, name, level, {}, kind};
    };
    return {{"one-low", {device(mouse, 12)}, true},
            {"two-low", {device(mouse, 12), device(keyboard, 8)}, true},
            {"three-low-long-names",
             {device(other, 12, "Magic Mouse of the meeting room"),
              device(other, 8, "Magic Keyboard of the meeting room"),
              device(other, 3, "Magic Trackpad of the meeting room")},
             true},
            {"all-good", {device(mouse, 80), device(keyboard, 64)}, false},
            {"no-device", {}, false}};
}

void waitForReading(BatteryModel& model, MainLoop& mainLoop)
{
    const Subscription change = model.objectWillChange.subscribe([&mainLoop] { mainLoop.stop(0); });
    while (!model.lastChecked.get()) {
        mainLoop.run();
    }
}

/// Writes pictures into one directory until one cannot be written.
struct Album {
    void addAll(BatteryModel& model, ColourScheme scheme)
    {
        const std::string ending = scheme == ColourScheme::dark ? "-dark" : "-light";
        drawings.choose(scheme);
        for (const auto& [name, icon] : drawings.icons) {
            add(name + ending, model, icon);
        }
        for (const AppLanguage language : {AppLanguage::zh, AppLanguage::en}) {
            model.language = std::string(rawValue(language));
            const std::string suffix = "-" + model.language.get() + ending;
            add("panel" + suffix, model, drawings.panel);
            for (const AlertSample& sample : alertSamples()) {
                constexpr ClockTime preselected{15, 35};
                const AlertContent content =
                    makeAlertContent(sample.devices, sample.isLow, preselected);
                add("alert-" + sample.name + suffix, content, drawings.alert);
            }
        }
    }

    void add(const std::string& name, auto& shown, const auto& draw)
    {
        const std::string path = directory / (name + ".png");
        if (isComplete && !draw(shown, path)) {
            std::fprintf(stderr,
                         "voltmere: cannot write %s; check that the directory is writable\n",
                         path.c_str());
            isComplete = false;
        }
    }

    std::filesystem::path directory;
    const Drawings& drawings;
    bool isComplete = true;
};

} // namespace

int drawPictures(const CommandLine& commandLine, MainLoop& mainLoop, const Drawings& drawings)
{
    Album album{commandLine.screenshotsDirectory, drawings};
    std::error_code error;
    std::filesystem::create_directories(commandLine.screenshotsDirectory, error);
    if (error) {
        std::fprintf(stderr, "voltmere: cannot make the directory %s\n",
                     commandLine.screenshotsDirectory.c_str());
        return exitStatus::cannotRun;
    }
    Services services(commandLine, Services::Reach::nothing, mainLoop);
    BatteryModel model(services.forModel());
    waitForReading(model, mainLoop);
    album.addAll(model, ColourScheme::light);
    album.addAll(model, ColourScheme::dark);
    return album.isComplete ? 0 : exitStatus::cannotRun;
}

} // namespace voltmere
