#include "app/studio.h"

#include <cstdint>

namespace voltmere {

Studio::Studio(const CommandLine& commandLine, MainLoop& mainLoop)
    : services(commandLine, Services::Reach::nothing, mainLoop)
    , model(services.forModel())
{
    BatteryModel::launchSettled = true;
    const Subscription change = model.objectWillChange.subscribe([&mainLoop] { mainLoop.stop(0); });
    while (!model.lastChecked.get()) {
        mainLoop.run();
    }
}

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

} // namespace voltmere
