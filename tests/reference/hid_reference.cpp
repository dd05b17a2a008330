#include "reference/hid_reference.h"

#include "reference/reference_text.h"

namespace voltmere::reference {

std::optional<std::string> lineValue(const std::string& uevent, const std::string& key)
{
    for (const std::string& line : split(uevent, "\n")) {
        if (line.substr(0, key.size() + 1) == key + "=") {
            return line.substr(key.size() + 1);
        }
    }
    return std::nullopt;
}

std::optional<std::int64_t> hexadecimal(const std::string& text)
{
    std::string digits;
    for (const char c : inUpperCase(text)) {
        if (!((c >= '0' && c <= '9') || (c >= 'A' && c <= 'F'))) {
            return std::nullopt;
        }
        if (!(digits.empty() && c == '0')) {
            digits += c;
        }
    }
    if (text.empty() || digits.size() > 16 || (digits.size() == 16 && digits[0] > '7')) {
        return std::nullopt;
    }
    return digits.empty() ? 0 : std::stoll(digits, nullptr, 16);
}

} // namespace voltmere::reference
