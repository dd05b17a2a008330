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
    // With an unknown kind of device the alert shows the device's name.
    constexpr std::int64_t otherKind = 3;
    const BatteryDevice mouse{803, "Magic Mouse", 12, "magicmouse", 0};
    const BatteryDevice keyboard{805, "Magic Keyboard", 8, "keyboard", 1};
    const std::vector<BatteryDevice> longNames{
        {803, "Magic Mouse of the meeting room", 12, "magicmouse", otherKind},
        {805, "Magic Keyboard of the meeting room", 8, "keyboard", otherKind},
        {804, "Magic Trackpad of the meeting room", 3, "trackpad", otherKind}};
    BatteryDevice fullMouse = mouse;
    fullMouse.level = 80;
    BatteryDevice fullKeyboard = keyboard;
    fullKeyboard.level = 64;
    return {{"one-low", {mouse}, true},
            {"two-low", {mouse, keyboard}, true},
            {"three-low-long-names", longNames, true},
            {"all-good", {fullMouse, fullKeyboard}, false},
            {"no-device", {}, false}};
}

} // namespace voltmere
