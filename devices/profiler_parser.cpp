#include "devices/profiler_parser.h"

#include "devices/device_reader.h"
#include "texts/plain_text.h"

#include <optional>
#include <utility>

namespace voltmere {

namespace {

constexpr std::size_t headingIndent = 10;
constexpr std::string_view addressLabel = "Address:";

std::string_view trimmed(std::string_view line)
{
    constexpr std::string_view blanks = " \t";
    const std::size_t first = line.find_first_not_of(blanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return line.substr(first, line.find_last_not_of(blanks) - first + 1);
}

bool isHeading(std::string_view line)
{
    return line.find_first_not_of(' ') == headingIndent && trimmed(line).ends_with(':');
}

} // namespace

NameMap parseProfilerReport(std::string_view text)
{
    NameMap names;
    if (!isValidUtf8(text)) {
        return names;
    }
    std::optional<std::string> pendingName;
    for (;;) {
        const std::size_t end = text.find('\n');
        const std::string_view line = text.substr(0, end);
        if (isHeading(line)) {
            const std::string_view heading = trimmed(line);
            pendingName = heading.substr(0, heading.size() - 1);
        } else if (pendingName && trimmed(line).starts_with(addressLabel)) {
            const std::string_view address = trimmed(trimmed(line).substr(addressLabel.size()));
            names[upperCased(address)] = *std::exchange(pendingName, std::nullopt);
        }
        if (end == std::string_view::npos) {
            return names;
        }
        text.remove_prefix(end + 1);
    }
}

} // namespace voltmere
