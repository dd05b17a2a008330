#include "reference/reference_text.h"

namespace voltmere::reference {

namespace {

/// The bytes of one character, as RFC 3629 draws them.
std::string encoded(char32_t c)
{
    const auto byte = [](char32_t value) {
        return static_cast<char>(static_cast<unsigned char>(value));
    };
    if (c < 0x80) {
        return {byte(c)};
    }
    if (c < 0x800) {
        return {byte(0xC0 + c / 64), byte(0x80 + c % 64)};
    }
    if (c < 0x10000) {
        return {byte(0xE0 + c / 4096), byte(0x80 + c / 64 % 64), byte(0x80 + c % 64)};
    }
    return {byte(0xF0 + c / 262144), byte(0x80 + c / 4096 % 64), byte(0x80 + c / 64 % 64),
            byte(0x80 + c % 64)};
}

/// The value that a sequence of `length` bytes would have if it were well formed.
char32_t valueOf(const std::string& sequence)
{
    const auto byteAt = [&](std::size_t index) {
        return static_cast<char32_t>(static_cast<unsigned char>(sequence[index]));
    };
    const char32_t leadBits[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    char32_t value = byteAt(0) & leadBits[sequence.size()];
    for (std::size_t index = 1; index < sequence.size(); ++index) {
        value = value * 64 + (byteAt(index) & 0x3F);
    }
    return value;
}

bool isCharacter(char32_t value)
{
    return value <= 0x10FFFF && (value < 0xD800 || value > 0xDFFF);
}

} // namespace

std::optional<std::u32string> decoded(const std::string& text)
{
    std::u32string characters;
    std::size_t place = 0;
    while (place < text.size()) {
        bool found = false;
        for (std::size_t length = 1; length <= 4 && place + length <= text.size(); ++length) {
            const std::string sequence = text.substr(place, length);
            const char32_t value = valueOf(sequence);
            if (isCharacter(value) && encoded(value) == sequence) {
                characters += value;
                place += length;
                found = true;
                break;
            }
        }
        if (!found) {
            return std::nullopt;
        }
    }
    return characters;
}

std::vector<std::string> split(const std::string& text, const std::string& separator)
{
    std::vector<std::string> pieces{""};
    std::size_t place = 0;
    while (place < text.size()) {
        if (text.compare(place, separator.size(), separator) == 0) {
            pieces.emplace_back();
            place += separator.size();
        } else {
            pieces.back() += text[place];
            ++place;
        }
    }
    return pieces;
}

std::string inUpperCase(const std::string& text)
{
    std::string result;
    for (const char c : text) {
        result += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    }
    return result;
}

} // namespace voltmere::reference
