#include "fuzz/fuzz_target.h"
#include "linux/sysfs_battery_source.h"
#include "reference/hid_reference.h"
#include "reference/reference_text.h"

namespace voltmere {

namespace {

std::optional<std::string> nonEmptyValue(const std::string& uevent, const std::string& key)
{
    const auto value = reference::lineValue(uevent, key);
    return value && !value->empty() ? value : std::nullopt;
}

void checkIdentifier(const HidUevent& device, const std::string& uevent)
{
    const std::string identifier = reference::lineValue(uevent, "HID_ID").value_or("");
    const std::size_t first = identifier.find(':');
    const std::size_t second = first == identifier.npos ? first : identifier.find(':', first + 1);
    std::optional<std::int64_t> vendor;
    std::optional<std::int64_t> product;
    if (second != identifier.npos) {
        vendor = reference::hexadecimal(identifier.substr(first + 1, second - first - 1));
        product = reference::hexadecimal(identifier.substr(second + 1));
    }
    const bool both = vendor && product;
    fuzz::require(device.vendor == (both ? vendor : std::nullopt), "the vendor");
    fuzz::require(device.product == (both ? product : std::nullopt), "the product");
}

} // namespace

/// The kernel's files give what the plain implementation reads in them.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text = fuzz::textOf(data, size);
    const HidUevent device = parseHidUevent(text);

    checkIdentifier(device, text);
    fuzz::require(device.name == nonEmptyValue(text, "HID_NAME"), "the name");
    fuzz::require(device.address == nonEmptyValue(text, "HID_UNIQ"), "the address");
    if (const auto level = parseCapacity(text)) {
        fuzz::require(*level >= 0, "a level has no sign");
        fuzz::require(parseCapacity(std::to_string(*level) + "\n") == level, "a level is a number");
        fuzz::require(text.find_first_not_of("0123456789\n") == text.npos, "only digits count");
    }
    return 0;
}

} // namespace voltmere
