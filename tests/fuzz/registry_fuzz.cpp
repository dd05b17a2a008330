#include "devices/device_reader.h"
#include "devices/registry_parser.h"
#include "fuzz/fuzz_target.h"
#include "reference/reference_text.h"
#include "reference/registry_reference.h"

namespace voltmere {

/// The registry's text gives the devices that the plain implementation finds in it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const NameMap names{{"AA:BB", "Mouse of Ann"}, {"CC:DD", "数字"}, {"", "Nobody's"}};
    static const reference::Names sameNames(names.begin(), names.end());

    const std::string text = fuzz::textOf(data, size);
    const auto devices = listDevices(parseRegistry(text), names);

    fuzz::require(devices == reference::devicesInRegistry(text, sameNames), "the rules' devices");
    for (const char* const key : {"BatteryPercent", "ProductID", "", "\""}) {
        if (reference::decoded(text)) {
            fuzz::require(extractInt(key, text) == reference::numberOf(key, text),
                          "the rules' number");
        }
    }
    for (const BatteryDevice& device : devices) {
        fuzz::require(reference::decoded(device.name).has_value(), "names are UTF-8");
        fuzz::require(device.level >= 0, "a level has no sign");
    }
    return 0;
}

} // namespace voltmere
