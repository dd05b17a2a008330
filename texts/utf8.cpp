#include "texts/utf8.h"

#include <cstdint>
#include <cstring>

namespace voltmere {

namespace {

/// The meaning of a lead byte: how many bytes follow, and the least value that needs that many.
struct Lead {
    std::size_t following;
    char32_t bits;
    char32_t least;
};

constexpr bool readLead(unsigned char byte, Lead& lead)
{
    if (byte >= 0xC0 && byte < 0xE0) {
        lead = {1, byte & 0x1FU, 0x80};
    } else if (byte >= 0xE0 && byte < 0xF0) {
        lead = {2, byte & 0x0FU, 0x800};
    } else if (byte >= 0xF0 && byte < 0xF8) {
        lead = {3, byte & 0x07U, 0x10000};
    } else {
        return false;
    }
    return true;
}

/// The number of bytes at the start of `text` that are ASCII, counted eight at a time.
std::size_t asciiPrefix(std::string_view text)
{
    constexpr std::uint64_t highBits = 0x8080808080808080U;
    std::size_t count = 0;
    for (std::uint64_t word = 0; count + sizeof word <= text.size(); count += sizeof word) {
        std::memcpy(&word, text.data() + count, sizeof word);
        if ((word & highBits) != 0) {
            break;
        }
    }
    while (count < text.size() && static_cast<unsigned char>(text[count]) < 0x80) {
        ++count;
    }
    return count;
}

} // namespace

Utf8Scalar firstScalar(std::string_view text)
{
    if (text.empty()) {
        return {};
    }
    const auto first = static_cast<unsigned char>(text.front());
    if (first < 0x80) {
        return {first, 1};
    }
    Lead lead{};
    if (!readLead(first, lead) || text.size() <= lead.following) {
        return {};
    }
    char32_t value = lead.bits;
    for (std::size_t i = 1; i <= lead.following; ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        if ((byte & 0xC0U) != 0x80U) {
            return {};
        }
        value = (value << 6U) | (byte & 0x3FU);
    }
    const bool surrogate = value >= 0xD800 && value <= 0xDFFF;
    if (value < lead.least || value > 0x10FFFF || surrogate) {
        return {};
    }
    return {value, lead.following + 1};
}

bool isValidUtf8(std::string_view text)
{
    for (;;) {
        text.remove_prefix(asciiPrefix(text));
        if (text.empty()) {
            return true;
        }
        const Utf8Scalar scalar = firstScalar(text);
        if (scalar.length == 0) {
            return false;
        }
        text.remove_prefix(scalar.length);
    }
}

std::string toValidUtf8(std::string_view text)
{
    std::string valid;
    while (!text.empty()) {
        const Utf8Scalar scalar = firstScalar(text);
        if (scalar.length == 0) {
            valid += "\uFFFD";
            text.remove_prefix(1);
        } else {
            valid += text.substr(0, scalar.length);
            text.remove_prefix(scalar.length);
        }
    }
    return valid;
}

} // namespace voltmere
