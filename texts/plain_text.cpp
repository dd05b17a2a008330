#include "texts/plain_text.h"

#include <array>
#include <cstdio>

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

bool endsLineOrControls(char32_t c)
{
    return c < 0x20 || (c >= 0x7F && c < 0xA0) || c == 0x2028 || c == 0x2029;
}

/// Whether the character is invisible or turns the reading direction. U+200C, U+200D and U+FE0F
/// do not count: scripts and emoji need them.
bool isUnseen(char32_t c)
{
    const auto within = [c](char32_t first, char32_t last) { return c >= first && c <= last; };
    return c == 0xAD || c == 0x61C || c == 0x200B || c == 0x200E || c == 0x200F || c == 0x2060 ||
        c == 0xFEFF || within(0x202A, 0x202E) || within(0x2066, 0x2069) || within(0xE0000, 0xE007F);
}

std::string escape(char32_t c)
{
    std::array<char, 16> text{};
    if (c < 0x10000) {
        std::snprintf(text.data(), text.size(), "\\u%04x", static_cast<unsigned>(c));
    } else {
        const auto offset = static_cast<unsigned>(c - 0x10000);
        std::snprintf(text.data(), text.size(), "\\u%04x\\u%04x", 0xD800U + (offset >> 10U),
                      0xDC00U + (offset & 0x3FFU));
    }
    return text.data();
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
    while (!text.empty()) {
        const Utf8Scalar scalar = firstScalar(text);
        if (scalar.length == 0) {
            return false;
        }
        text.remove_prefix(scalar.length);
    }
    return true;
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

std::string plainText(std::string_view text)
{
    std::string plain;
    bool blank = false; // the text so far ends with a blank that replaced control characters
    while (!text.empty()) {
        const Utf8Scalar scalar = firstScalar(text);
        if (scalar.length == 0) {
            plain += "\uFFFD";
            blank = false;
        } else if (endsLineOrControls(scalar.value)) {
            plain += blank ? "" : " ";
            blank = true;
        } else if (!isUnseen(scalar.value)) {
            plain += text.substr(0, scalar.length);
            blank = false;
        }
        text.remove_prefix(scalar.length == 0 ? 1 : scalar.length);
    }
    return plain;
}

std::string escapedJson(std::string_view json)
{
    std::string escaped;
    while (!json.empty()) {
        const Utf8Scalar scalar = firstScalar(json);
        const std::size_t length = scalar.length == 0 ? 1 : scalar.length;
        if (scalar.length > 0 && (endsLineOrControls(scalar.value) || isUnseen(scalar.value))) {
            escaped += escape(scalar.value);
        } else {
            escaped += json.substr(0, length);
        }
        json.remove_prefix(length);
    }
    return escaped;
}

} // namespace voltmere
