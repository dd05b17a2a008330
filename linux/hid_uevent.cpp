#include "linux/hid_uevent.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace voltmere {

namespace {

/// The value of one `KEY=value` line of a uevent.
std::optional<std::string> ueventValue(std::string_view uevent, std::string_view key)
{
    while (!uevent.empty()) {
        const std::size_t end = std::min(uevent.find('\n'), uevent.size());
        const std::string_view line = uevent.substr(0, end);
        if (line.starts_with(key) && line.substr(key.size()).starts_with('=')) {
            return std::string(line.substr(key.size() + 1));
        }
        uevent.remove_prefix(std::min(end + 1, uevent.size()));
    }
    return std::nullopt;
}

/// A number without a sign that fits 63 bits.
std::optional<std::int64_t> wholeNumber(std::string_view text, int base)
{
    std::uint64_t number = 0;
    const auto [after, error] =
        std::from_chars(text.data(), text.data() + text.size(), number, base);
    if (error != std::errc{} || after != text.data() + text.size() || number > INT64_MAX) {
        return std::nullopt;
    }
    return static_cast<std::int64_t>(number);
}

/// Takes the second and third number of an identifier such as 0005:0000004C:00000269.
void takeHidId(std::string_view text, HidUevent& device)
{
    const std::size_t first = text.find(':');
    const std::size_t second =
        first == std::string_view::npos ? std::string_view::npos : text.find(':', first + 1);
    if (second == std::string_view::npos) {
        return;
    }
    const auto vendor = wholeNumber(text.substr(first + 1, second - first - 1), 16);
    const auto product = wholeNumber(text.substr(second + 1), 16);
    if (vendor && product) {
        device.vendor = vendor;
        device.product = product;
    }
}

std::optional<std::string> nonEmpty(std::optional<std::string> text)
{
    return text && !text->empty() ? std::move(text) : std::nullopt;
}

} // namespace

HidUevent parseHidUevent(std::string_view text)
{
    HidUevent device;
    takeHidId(ueventValue(text, "HID_ID").value_or(""), device);
    device.name = nonEmpty(ueventValue(text, "HID_NAME"));
    device.address = nonEmpty(ueventValue(text, "HID_UNIQ"));
    return device;
}

std::optional<std::int64_t> parseCapacity(std::string_view text)
{
    while (text.ends_with('\n')) {
        text.remove_suffix(1);
    }
    return wholeNumber(text, 10);
}

} // namespace voltmere
