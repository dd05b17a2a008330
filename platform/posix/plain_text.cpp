#include "platform/posix/plain_text.h"

#include <array>
#include <cstdio>

namespace voltmere {

namespace {

/// A character that must not reach a terminal. Its length is 0 when there is none.
struct HiddenCharacter {
    std::size_t length = 0;
    unsigned codePoint = 0;
};

HiddenCharacter hiddenAtStart(std::string_view text)
{
    const auto byte = [text](std::size_t index) {
        return index < text.size() ? static_cast<unsigned char>(text[index]) : 0U;
    };
    const unsigned first = byte(0);
    if (first < 0x20 || first == 0x7F) { // C0 and DEL
        return {1, first};
    }
    if (first == 0xC2 && byte(1) >= 0x80 && byte(1) < 0xA0) { // C1
        return {2, byte(1)};
    }
    if (first != 0xE2 || (byte(1) != 0x80 && byte(1) != 0x81) || byte(2) < 0x80) {
        return {};
    }
    const unsigned codePoint = 0x2000U | ((byte(1) & 0x3FU) << 6U) | (byte(2) & 0x3FU);
    const bool turnsOrSeparates = codePoint >= 0x2028 && codePoint <= 0x202E;
    const bool isolates = codePoint >= 0x2066 && codePoint <= 0x2069;
    return turnsOrSeparates || isolates ? HiddenCharacter{3, codePoint} : HiddenCharacter{};
}

template<typename Replacement>
std::string withHiddenReplaced(std::string_view text, Replacement replacement)
{
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const HiddenCharacter hidden = hiddenAtStart(text);
        if (hidden.length > 0) {
            result += replacement(hidden.codePoint);
            text.remove_prefix(hidden.length);
        } else {
            result += text.front();
            text.remove_prefix(1);
        }
    }
    return result;
}

} // namespace

std::string plainLine(std::string_view text)
{
    return withHiddenReplaced(text, [](unsigned) { return "\uFFFD"; });
}

std::string escapedControls(std::string_view json)
{
    return withHiddenReplaced(json, [](unsigned codePoint) {
        std::array<char, 8> escape{};
        std::snprintf(escape.data(), escape.size(), "\\u%04x", codePoint);
        return std::string(escape.data());
    });
}

} // namespace voltmere
